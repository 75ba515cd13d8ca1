// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PUSHBUTTONSCREEN_H
#define PUSHBUTTONSCREEN_H

#include "firstframe.h"
#include "handdrawing.h"

#include <KELPushButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

// The first frame of the library's push buttons, which differ in how they are placed.
class PushButtonScreen : public QGraphicsView
{
public:
    using Place = void (*)(KELPushButton *button, const QRectF &place);

    PushButtonScreen(const char *contender, Place place) : m_contender(contender)
    {
        m_scene.setSceneRect(QRectF(QPointF(), FirstFrame::size));
        for (int i = 0; i < FirstFrame::count; ++i) {
            auto *const button = new KELPushButton;
            place(button, FirstFrame::placeOf(i));
            button->setText(QString::number(i));
            button->style()->xRadius = button->style()->yRadius = HandDrawing::cornerPx;
            m_scene.addItem(button);
        }
        setScene(&m_scene);
        setFrameStyle(QFrame::NoFrame);
        resize(FirstFrame::size);
        show();
    }
    // Before the scene.
    ~PushButtonScreen() override { hide(); }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QGraphicsView::paintEvent(event);
        FirstFrame::end(m_contender, Benchmark::Role::Library);
    }

private:
    Q_DISABLE_COPY(PushButtonScreen)

    const char *const m_contender;
    QGraphicsScene m_scene;
};

#endif
