// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TABLESTAGE_H
#define TABLESTAGE_H

#include "keltest.h"

#include <kelnavigationtable.h>

#include <QtWidgets/QGraphicsSceneMouseEvent>

enum class Input { Mouse, Touch };
Q_DECLARE_METATYPE(Input)

// Reaches what is protected and counts paints.
class OpenTable : public KELNavigationTable
{
public:
    using KELNavigationTable::KELNavigationTable;
    using KELNavigationTable::mousePressEvent;
    using KELNavigationTable::sceneEventFilter;

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        KELNavigationTable::paint(painter, option, widget);
    }

    void pressAt(const QPointF &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
        event.setPos(pos);
        event.setButton(button);
        mousePressEvent(&event);
    }

    int paints = 0;
};

inline KELNavigationTableStyle *styleOf(const KELNavigationTable *table)
{
    return static_cast<KELNavigationTableStyle *>(table->style());
}

inline KELNavigationTableItemStyle *styleOf(const KELNavigationTableItem *page)
{
    return static_cast<KELNavigationTableItemStyle *>(page->style());
}

inline QList<KELNavigationTableItem *> addPages(KELNavigationTable *table, int count)
{
    QList<KELNavigationTableItem *> pages;
    for (int i = 0; i < count; ++i) {
        pages.append(new KELNavigationTableItem(nullptr));
        table->addItem(pages.last());
    }
    return pages;
}

// Empty when exactly this one of the pages is shown and the table says so.
inline QString whatIsNotShown(const KELNavigationTable *table,
                              const QList<KELNavigationTableItem *> &pages, int index)
{
    for (int i = 0; i < pages.size(); ++i) {
        if (pages.at(i)->isVisible() != (i == index))
            return u"page %1 is in the wrong state"_s.arg(i);
    }
    if (table->selectIndex() != index)
        return u"the index is %1"_s.arg(table->selectIndex());
    return table->selectItem() == pages.value(index) ? QString() : u"the page"_s;
}

// Counts what the signals of a control report.
class SignalCount
{
public:
    explicit SignalCount(KELRoundRectControl *control)
    {
        const auto note = [this](const char *name) {
            return [this, name] { m_names.append(QLatin1String(name)); };
        };
        using Control = KELRoundRectControl;
        QObject::connect(control, &Control::mousePress, &m_context, note("press"));
        QObject::connect(control, &Control::mouseRelease, &m_context, note("release"));
        QObject::connect(control, &Control::mouseClicked, &m_context, note("click"));
        QObject::connect(control, &Control::mouseDoubleClicked, &m_context, note("double"));
        QObject::connect(control, &Control::mouseLongPress, &m_context, note("long"));
        QObject::connect(control, &Control::mouseEnter, &m_context, note("enter"));
        QObject::connect(control, &Control::mouseLeave, &m_context, note("leave"));
    }

    QString all() const { return m_names.join(QLatin1Char(' ')); }

private:
    QObject m_context;
    QStringList m_names;
};

// A shown table of 440 x 310 px at (20, 30) of the view.
class Stage
{
public:
    explicit Stage(int count) : view(QSize(500, 400)), table(new OpenTable(nullptr))
    {
        table->setPos(20, 30);
        pages = addPages(table, count);
        view.ownScene.addItem(table);
    }

    bool show()
    {
        if (!view.showAndWait())
            return false;
        // A tap elsewhere: the next one must not be the second of a double tap that began in an
        // earlier test.
        view.touchPress(QPoint(3, 3));
        view.touchRelease(QPoint(3, 3));
        settle();
        return true;
    }

    // Lets everything that waits for its repaint be painted.
    void settle()
    {
        QCoreApplication::processEvents();
        view.grab();
        table->paints = 0;
    }

    // The middle of a tab on the screen.
    QPoint tab(int index) const
    {
        const qreal width = 440.0 / pages.size();
        return view.at(table, QPointF((index + 0.5) * width, 270));
    }

    void press(Input input, const QPoint &pos)
    {
        if (input == Input::Touch)
            view.touchPress(pos);
        else
            view.press(pos);
    }
    void release(Input input, const QPoint &pos)
    {
        if (input == Input::Touch)
            view.touchRelease(pos);
        else
            view.release(pos);
    }
    void tap(Input input, const QPoint &pos)
    {
        press(input, pos);
        release(input, pos);
    }

    QString whatIsNotShown(int index) const { return ::whatIsNotShown(table, pages, index); }

    KelTestView view;
    OpenTable *const table;
    QList<KELNavigationTableItem *> pages;
};

#endif
