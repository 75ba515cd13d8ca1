// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SCREEN_H
#define SCREEN_H

#include "handdrawing.h"

#include <KELPushButton>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <cmath>
#include <vector>

/*
 * A shown view full of push buttons.
 */
inline const QString caption = QStringLiteral("Settings");
constexpr QSize buttonSize(100, 30);

inline int columnsFor(int count)
{
    return int(std::ceil(std::sqrt(double(count))));
}

inline QRect placeOf(int index, int count, const QSize &size = buttonSize)
{
    const int columns = columnsFor(count);
    return {QPoint(index % columns * size.width(), index / columns * size.height()), size};
}

inline QSize areaOf(int count, const QSize &size = buttonSize)
{
    const int columns = columnsFor(count);
    return {columns * size.width(), (count + columns - 1) / columns * size.height()};
}

class Button : public KELPushButton
{
public:
    explicit Button(const QRectF &rect)
    {
        setboundRect(rect);
        style()->text = caption;
        style()->xRadius = style()->yRadius = HandDrawing::cornerPx;
    }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        painted.push_back(this);
        KELPushButton::paint(painter, option, widget);
    }

    static inline std::vector<const Button *> painted;

private:
    Q_DISABLE_COPY(Button)
};

// A shown view, as large as its scene.
class View : public QGraphicsView
{
public:
    explicit View(const QSize &size)
    {
        m_scene.setSceneRect(QRect(QPoint(), size));
        setScene(&m_scene);
        setFrameStyle(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        resize(size);
    }
    // Before the scene.
    ~View() override { hide(); }

    // Serves no timers: one drops a quarter of the pixmap cache every half minute.
    static void paintPending() { QCoreApplication::sendPostedEvents(); }

    void open()
    {
        show();
        QCoreApplication::processEvents();
    }

    void paintAgain()
    {
        viewport()->update();
        paintPending();
    }

    template <typename Items>
    static void paintChanged(const Items &items)
    {
        for (QGraphicsItem *item : items)
            item->update();
        paintPending();
    }

private:
    Q_DISABLE_COPY(View)

    QGraphicsScene m_scene;
};

class Screen
{
public:
    explicit Screen(int count, const QSize &size = buttonSize) : view(areaOf(count, size))
    {
        buttons.reserve(std::size_t(count));
        for (int i = 0; i < count; ++i) {
            buttons.push_back(new Button(placeOf(i, count, size)));
            view.scene()->addItem(buttons.back());
        }
        view.open();
    }

    // Until it is painted.
    void press(int index) const { send(QEvent::MouseButtonPress, Qt::LeftButton, index); }
    void release(int index) const { send(QEvent::MouseButtonRelease, Qt::NoButton, index); }

    View view;
    std::vector<Button *> buttons;

private:
    Q_DISABLE_COPY(Screen)

    void send(QEvent::Type type, Qt::MouseButtons held, int index) const
    {
        const QPointF pos = buttons.at(std::size_t(index))->sceneBoundingRect().center();
        QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos.toPoint()), Qt::LeftButton,
                          held, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
        View::paintPending();
    }
};

#endif
