// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef TABLESTAGE_H
#define TABLESTAGE_H

#include "stage.h"

#include <kelnavigationtable.h>

#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <memory>

// Reaches what is protected and counts paints.
class OpenTable : public KELNavigationTable
{
public:
    using KELNavigationTable::KELNavigationTable;
    using KELNavigationTable::mousePressEvent;

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

using Pages = QList<QPointer<KELNavigationTableItem>>;

inline Pages addPages(KELNavigationTable *table, int count)
{
    Pages pages;
    for (int i = 0; i < count; ++i) {
        pages.append(new KELNavigationTableItem);
        table->addItem(pages.last());
    }
    return pages;
}

// Empty when exactly this one of the pages is shown and the table says so.
inline QString whatIsNotShown(const KELNavigationTable *table, const Pages &pages, int index)
{
    for (int i = 0; i < pages.size(); ++i) {
        if (pages.at(i)->isVisible() != (i == index))
            return u"page %1 is in the wrong state"_s.arg(i);
    }
    if (table->selectIndex() != index)
        return u"the index is %1"_s.arg(table->selectIndex());
    return table->selectItem() == pages.value(index) ? QString() : u"the page"_s;
}

enum class Switch { ByIndex, ByMouse, ByTouch };
inline const std::vector<Named> switches = {{"by index", int(Switch::ByIndex)},
                                            {"by mouse", int(Switch::ByMouse)},
                                            {"by touch", int(Switch::ByTouch)}};

// How a page, or what it is in, leaves its table.
enum class Exit { WithoutParent, OutOfTheScene, ToAnotherParent };
inline const std::vector<Named> exits = {{"without parent", int(Exit::WithoutParent)},
                                         {"out of the scene", int(Exit::OutOfTheScene)},
                                         {"to another parent", int(Exit::ToAnotherParent)}};

inline void takeAway(QGraphicsItem *item, Exit exit, QGraphicsItem *otherParent = nullptr)
{
    if (exit == Exit::OutOfTheScene)
        item->scene()->removeItem(item);
    else
        item->setParentItem(exit == Exit::ToAnotherParent ? otherParent : nullptr);
}

// A table of 440 x 310 px at (20, 30) of the view.
class TableStage : public Stage<OpenTable>
{
public:
    explicit TableStage(int count, Input input = Input::Mouse) : Stage(QRectF(0, 0, 440, 310))
    {
        hand.use(input);
        control->setPos(20, 30);
        other->setboundRect(465, 350, 30, 40);
        window.resize(500, 400);
        view.resize(window.size());
        view.ownScene.setSceneRect(view.rect());
        addPages(count);
    }

    void addPages(int count) { pages.append(::addPages(get(), count)); }

    // Lets everything that waits for its repaint be painted; the paints count from now on.
    void settle()
    {
        view.showOnce();
        QCoreApplication::processEvents();
        view.grab();
        get()->paints = 0;
    }
    bool wasPainted() const
    {
        QCoreApplication::processEvents();
        return get()->paints > 0;
    }

    // The middle of a tab.
    QPoint tab(int index) const { return at((index + 0.5) * 440 / pages.size(), 270); }

    void switchTo(int index, Switch way)
    {
        if (way == Switch::ByIndex) {
            get()->setSelectIndex(index);
            return;
        }
        hand.use(way == Switch::ByMouse ? Input::Mouse : Input::Touch);
        hand.tap(tab(index));
    }

    // Calls slot when the page is hidden or shown for the first time from now on.
    void once(KELNavigationTableItem *page, const std::function<void()> &slot)
    {
        auto wasCalled = std::make_shared<bool>(false);
        QObject::connect(page, &QGraphicsObject::visibleChanged, &view, [slot, wasCalled, this] {
            if (std::exchange(*wasCalled, true))
                return;
            ++calls;
            const auto copy = slot; // the page may die
            copy();
        });
    }

    Pages alivePages() const
    {
        Pages alive = pages;
        alive.removeAll(nullptr);
        return alive;
    }

    QString whatIsNotShown(int index) const { return ::whatIsNotShown(get(), pages, index); }

    // Empty when the table shows this one of the living pages and everything works on.
    QString whatIsWrong(int index)
    {
        const Pages alive = alivePages();
        QString wrong = ::whatIsNotShown(get(), alive, index);
        if (!wrong.isEmpty())
            return wrong;
        view.grab();
        // Tabs in equal widths, each for its page.
        for (int i = 0; i < alive.size(); ++i) {
            for (const qreal place : {0.01, 0.99}) {
                get()->pressAt(QPointF((i + place) * 440 / alive.size(), 270));
                wrong = ::whatIsNotShown(get(), alive, i);
                if (!wrong.isEmpty())
                    return u"at %1 of tab %2: "_s.arg(place).arg(i) + wrong;
            }
        }
        get()->setSelectIndex(alive.size());
        return ::whatIsNotShown(get(), alive, alive.size() - 1);
    }

    Pages pages;
    int calls = 0;
};

#endif
