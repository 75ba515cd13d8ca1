// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef COMBOSTAGE_H
#define COMBOSTAGE_H

#include "livingobjects.h"
#include "stage.h"

#include <kelapplicationnotify.h>
#include <kelcombobox.h>
#include <kellabel.h>

#include <QtGui/QPixmapCache>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <algorithm>
#include <memory>
#include <typeinfo>

inline const std::vector<Named> indexMethods = {{"no index", int(QGraphicsScene::NoIndex)},
                                                {"tree index", int(QGraphicsScene::BspTreeIndex)}};
inline const std::vector<Named> closedOrOpen = {{"closed", false}, {"open", true}};

enum class Closing { ByTheButton, ByAPick, ByAPress };
inline const std::vector<Named> closings = {{"by the button", int(Closing::ByTheButton)},
                                            {"by a pick", int(Closing::ByAPick)},
                                            {"by a press outside", int(Closing::ByAPress)}};

inline constexpr QPoint farAway(390, 290);

inline const QString downArrow(QChar(0x25BC));
inline const QString upArrow(QChar(0x25B2));

inline const QStringList threeTexts = {u"one"_s, u"two"_s, u"three"_s};

// The event filters of combo boxes that live.
class ApplicationFilters
{
public:
    int count() const { return all().size(); }

    // How many of them hear of a press on any object.
    int listening() const
    {
        QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
        const QObjectList filters = all();
        return int(std::count_if(filters.begin(), filters.end(), [&press](QObject *filter) {
            auto *const notify = qobject_cast<KELApplicationNotify *>(filter);
            return !notify || hears(notify, &press);
        }));
    }

    // True when notify hears of a press that is sent to anybody.
    static bool hears(KELApplicationNotify *notify, QEvent *press)
    {
        SignalLog log;
        log.listenTo(notify);
        QObject target;
        QCoreApplication::sendEvent(&target, press);
        return log.take() == u"notify"_s;
    }

private:
    static QObjectList all()
    {
        QObjectList filters;
        const QObjectList objects = livingObjects();
        for (QObject *object : objects) {
            // The other one is private and filters the application as long as it lives.
            if (qobject_cast<KELApplicationNotify *>(object)
                || QByteArray(typeid(*object).name()).contains("KELOutsidePress"))
                filters.append(object);
        }
        return filters;
    }
};

inline const ApplicationFilters applicationFilters;

template <class Item>
Item *childOf(const QGraphicsItem *parent, int place = 0)
{
    const QList<QGraphicsItem *> children = parent->childItems();
    for (QGraphicsItem *child : children) {
        QGraphicsObject *const object = child->toGraphicsObject();
        auto *const found = object ? qobject_cast<Item *>(object) : nullptr;
        if (found && place-- == 0)
            return found;
    }
    return nullptr;
}

inline KELLabel *labelOf(const KELComboBoxItem *entry)
{
    return childOf<KELLabel>(entry);
}

// What a combo box is made of, found as an application finds it.
struct ComboParts
{
    explicit ComboParts(const KELComboBox &box) :
        button(childOf<KELPushButton>(&box)),
        text(childOf<KELLabel>(button, 0)),
        arrow(childOf<KELLabel>(button, 1)),
        panel(childOf<KELLabel>(&box)),
        notify(box.findChild<KELApplicationNotify *>())
    { }

    const QPointer<KELPushButton> button;
    const QPointer<KELLabel> text;
    const QPointer<KELLabel> arrow;
    const QPointer<KELLabel> panel;
    const QPointer<KELApplicationNotify> notify;
};

inline void clickButton(const KELComboBox &box)
{
    Q_EMIT ComboParts(box).button->mouseClicked();
}

// "open" or "closed", when all signs of it agree.
inline QString listState(const KELComboBox &box)
{
    const ComboParts parts(box);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setPos(parts.button->sceneBoundingRect().center()); // leaves the list as it is
    const bool isShown = parts.panel->isVisibleTo(&box);
    const bool isUp = parts.arrow->text() == upArrow;
    const bool filters = ApplicationFilters::hears(parts.notify, &press);
    if (isShown && isUp && filters && box.zValue() == 1)
        return u"open"_s;
    if (!isShown && parts.arrow->text() == downArrow && !filters)
        return u"closed"_s;
    return u"shown %1, up %2, filters %3, z %4"_s.arg(isShown).arg(isUp).arg(filters).arg(
        box.zValue());
}

inline QString textsOf(const KELComboBox &box)
{
    QStringList texts;
    const QList<KELComboBoxItem *> entries = box.items();
    for (const KELComboBoxItem *entry : entries)
        texts.append(entry->display());
    return texts.join(QLatin1Char(' '));
}

// All of a combo box that its entries change: "one two three; 1, two; closed; 90 px".
inline QString summaryOf(const KELComboBox &box)
{
    const ComboParts parts(box);
    KELComboBoxItem *const selected = box.items().value(box.selectIndex());
    return u"%1; %2, %3; %4; %5 px%6"_s.arg(textsOf(box))
        .arg(box.selectIndex())
        .arg(parts.text->text(), listState(box))
        .arg(parts.panel->rect().height())
        .arg(box.selectedItem() == selected ? QString() : u"; another entry"_s);
}

inline void addEntries(KELComboBox *box, const QStringList &texts)
{
    for (const QString &text : texts)
        box->addItem(text + u" value"_s, text);
}

inline std::unique_ptr<KELComboBox> makeBox(const QStringList &texts = threeTexts,
                                            const QRectF &rect = QRectF(20, 20, 160, 40))
{
    auto box = std::make_unique<KELComboBox>();
    box->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
    addEntries(box.get(), texts);
    return box;
}

// What the window shows now, after all repaints that were asked for.
inline QImage shownPicture(const QWidget &view)
{
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
    const QWidget *const window = view.window();
    return window->windowHandle()->screen()->grabWindow(window->winId()).toImage();
}

// Empty when nothing changes once everything is repainted.
inline QString staleParts(const KelTestView &view)
{
    const QImage shown = shownPicture(view);
    QPixmapCache::clear();
    view.viewport()->update();
    return KelImage::difference(shown, shownPicture(view));
}

// A combo box with three entries, in a view with room for its list.
class ComboStage : public Stage<KELComboBox>
{
public:
    explicit ComboStage(Input input = Input::Mouse, int indexMethod = QGraphicsScene::NoIndex) :
        Stage(QRectF(20, 20, 160, 40)), parts(**this)
    {
        hand.use(input);
        view.ownScene.setItemIndexMethod(QGraphicsScene::ItemIndexMethod(indexMethod));
        addEntries(get(), threeTexts);
    }

    KELComboBoxItem *entry(int place) const { return get()->items().at(place); }
    QString shownText() const { return parts.text->text(); }
    QString state() const { return listState(**this); }
    QString summary() const { return summaryOf(**this); }

    QPoint buttonCentre() const { return view.centreOf(parts.button); }
    QPoint entryCentre(int place) const { return view.centreOf(entry(place)); }
    // The middle of a row of the list, whether there is an entry or not.
    QPoint rowCentre(int row) const
    {
        const QRectF panel = parts.panel->boundingRect();
        return at(panel.center().x(), panel.top() + 30 * row + 15);
    }

    void tapButton() { hand.tap(buttonCentre()); }
    void open() { tapButton(); }
    void close(Closing way, int picked = 1)
    {
        hand.tap(way == Closing::ByTheButton   ? buttonCentre()
                     : way == Closing::ByAPick ? entryCentre(picked)
                                               : farAway);
    }

    // Beside the control in the stacking order, above it.
    KELPushButton *addNeighbour(const QRectF &rect)
    {
        auto *neighbour = new KELPushButton(parent);
        neighbour->setboundRect(rect);
        log.listenTo(neighbour, u"neighbour"_s);
        return neighbour;
    }

    // A new combo box can be opened and used: nobody remembers a dead one.
    bool nextBoxWorks()
    {
        QCoreApplication::processEvents();
        KELComboBox *const next = makeBox(threeTexts, QRectF(210, 20, 160, 40)).release();
        view.ownScene.addItem(next);
        hand.tap(farAway);
        hand.tap(view.centreOf(next));
        const bool isOpened = listState(*next) == u"open"_s;
        hand.tap(view.centreOf(next->items().at(1)));
        const bool isPicked = next->selectIndex() == 1 && listState(*next) == u"closed"_s;
        shownPicture(view);
        delete next;
        return isOpened && isPicked;
    }

    // What is left of the control; empty when it is gone with its filters.
    QString traces()
    {
        if (control)
            return u"the control"_s;
        if (applicationFilters.count() > 0)
            return u"%1 filters"_s.arg(applicationFilters.count());
        return nextBoxWorks() ? QString() : u"the next one does not work"_s;
    }

    const ComboParts parts;
};

#endif
