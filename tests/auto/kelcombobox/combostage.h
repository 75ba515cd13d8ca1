// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef COMBOSTAGE_H
#define COMBOSTAGE_H

#include "keltest.h"

#include <kelapplicationnotify.h>
#include <kelcombobox.h>
#include <kellabel.h>

#include <QtCore/QMutex>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtGui/QPixmapCache>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <typeinfo>

// Called for every QObject at its beginning and its end.
extern Q_CORE_EXPORT quintptr qtHookData[];

enum class Input { Mouse, Touch };

struct Named
{
    const char *name;
    int value;
};

inline const Named inputs[] = {{"mouse", int(Input::Mouse)}, {"touch", int(Input::Touch)}};
inline const Named indexMethods[] = {{"no index", int(QGraphicsScene::NoIndex)},
                                     {"tree index", int(QGraphicsScene::BspTreeIndex)}};

inline constexpr QPoint farAway(350, 250);

inline const QString downArrow(QChar(0x25BC));
inline const QString upArrow(QChar(0x25B2));

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

inline KELLabel *labelOf(const KELComboBoxItem *item)
{
    return childOf<KELLabel>(item);
}

inline void clickButton(const KELComboBox &box)
{
    Q_EMIT ComboParts(box).button->mouseClicked();
}

// True when notify hears of a press that is sent to anybody.
inline bool hearsOfPresses(KELApplicationNotify *notify, QEvent *press)
{
    int calls = 0;
    const auto connection = QObject::connect(notify, &KELApplicationNotify::notify,
                                             [&calls] { ++calls; });
    QObject target;
    QCoreApplication::sendEvent(&target, press);
    QObject::disconnect(connection);
    return calls == 1;
}

inline bool filtersTheApplication(const KELComboBox &box)
{
    const ComboParts parts(box);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setPos(parts.button->sceneBoundingRect().center()); // leaves the list as it is
    return hearsOfPresses(parts.notify, &press);
}

// "open" or "closed", when all signs of it agree.
inline QString listState(const KELComboBox &box)
{
    const ComboParts parts(box);
    const bool isShown = parts.panel->isVisibleTo(&box);
    const bool isUp = parts.arrow->text() == upArrow;
    const bool filters = filtersTheApplication(box);
    if (isShown && isUp && filters && box.zValue() == 1)
        return u"open"_s;
    if (!isShown && parts.arrow->text() == downArrow && !filters)
        return u"closed"_s;
    return u"shown %1, up %2, filters %3, z %4"_s.arg(isShown).arg(isUp).arg(filters).arg(
        box.zValue());
}

inline QStringList textsOf(const KELComboBox &box)
{
    QStringList texts;
    const QList<KELComboBoxItem *> items = box.items();
    for (const KELComboBoxItem *item : items)
        texts.append(item->display());
    return texts;
}

inline void addEntries(KELComboBox *box, const QStringList &texts)
{
    for (const QString &text : texts)
        box->addItem(text + u" value"_s, text);
}

inline const QStringList threeTexts = {u"one"_s, u"two"_s, u"three"_s};

// The event filters of combo boxes that live, while a census does.
class NotifierCensus
{
public:
    NotifierCensus()
    {
        objects()->clear();
        qtHookData[3] = quintptr(&NotifierCensus::enter);
        qtHookData[4] = quintptr(&NotifierCensus::leave);
    }
    ~NotifierCensus()
    {
        qtHookData[3] = 0;
        qtHookData[4] = 0;
    }

    static QObjectList all()
    {
        const QMutexLocker locker(mutex());
        QObjectList filters;
        for (QObject *object : qAsConst(*objects())) {
            if (qobject_cast<KELApplicationNotify *>(object) || filtersPressesOutside(object))
                filters.append(object);
        }
        return filters;
    }

    // How many of them hear of a press on any object.
    static int listening()
    {
        int count = 0;
        QGraphicsSceneMouseEvent scenePress(QEvent::GraphicsSceneMousePress);
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QTouchEvent touch(QEvent::TouchBegin);
        const QObjectList filters = all();
        for (QObject *filter : filters) {
            auto *const notifier = qobject_cast<KELApplicationNotify *>(filter);
            if (!notifier || hearsOfPresses(notifier, &scenePress)
                || hearsOfPresses(notifier, &press) || hearsOfPresses(notifier, &touch))
                ++count;
        }
        return count;
    }

private:
    // A private class of the library, which filters the application as long as it lives.
    static bool filtersPressesOutside(const QObject *object)
    {
        return QByteArray(typeid(*object).name()).contains("KELOutsidePress");
    }
    static void enter(QObject *object)
    {
        const QMutexLocker locker(mutex());
        objects()->insert(object);
    }
    static void leave(QObject *object)
    {
        const QMutexLocker locker(mutex());
        objects()->remove(object);
    }
    static QSet<QObject *> *objects()
    {
        static QSet<QObject *> set;
        return &set;
    }
    static QMutex *mutex()
    {
        static QMutex guard;
        return &guard;
    }
};

inline QTouchDevice *stageTouchScreen()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

// A combo box with entries in a view with room for its list.
class ComboStage
{
public:
    explicit ComboStage(int indexMethod = QGraphicsScene::NoIndex) : box(new KELComboBox)
    {
        view.ownScene.setItemIndexMethod(QGraphicsScene::ItemIndexMethod(indexMethod));
        box->setboundRect(20, 20, 160, 40);
        addEntries(box, threeTexts);
        view.ownScene.addItem(box);
    }

    bool show() { return view.showAndWait(); }

    void press(Input input, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        if (input == Input::Touch)
            view.touchPress(pos);
        else
            view.press(pos, button);
    }
    void release(Input input, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
    {
        if (input == Input::Touch)
            view.touchRelease(pos);
        else
            view.release(pos, button);
    }
    void tap(Input input, const QPoint &pos)
    {
        press(input, pos);
        release(input, pos);
    }

    QPoint buttonCentre() const { return view.centreOf(ComboParts(*box).button); }
    QPoint entryCentre(int place) const { return view.centreOf(box->items().at(place)); }
    // The middle of a row of the list, whether there is an entry or not.
    QPoint rowCentre(int row) const
    {
        const QRectF panel = ComboParts(*box).panel->boundingRect();
        return view.at(box, QPointF(panel.center().x(), panel.top() + 30 * row + 15));
    }
    void open(Input input = Input::Mouse) { tap(input, buttonCentre()); }
    bool isOpen() const { return ComboParts(*box).panel->isVisible(); }

    KelTestView view;
    const QPointer<KELComboBox> box;
};

inline KELPushButton *addNeighbour(ComboStage *stage, const QRectF &rect)
{
    auto *neighbour = new KELPushButton;
    neighbour->setboundRect(rect);
    stage->view.ownScene.addItem(neighbour);
    return neighbour;
}

inline void addInputs()
{
    QTest::addColumn<int>("input");
    for (const Named &input : inputs)
        QTest::newRow(input.name) << input.value;
}

inline void addInputsAndIndexMethods()
{
    QTest::addColumn<int>("input");
    QTest::addColumn<int>("indexMethod");
    for (const Named &input : inputs) {
        for (const Named &method : indexMethods)
            QTest::addRow("%s, %s", input.name, method.name) << input.value << method.value;
    }
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

#endif
