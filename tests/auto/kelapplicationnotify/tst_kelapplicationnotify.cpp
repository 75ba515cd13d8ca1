// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "rows.h"

#include <kelapplicationnotify.h>

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsObject>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <memory>

namespace {

const QEvent::Type watchedType = QEvent::User;
const QEvent::Type otherType = QEvent::Type(QEvent::User + 1);
const std::vector<Named> acceptance = {{"accepted", true}, {"ignored", false}};

// Writes down the events that reach it.
class Target : public QObject
{
public:
    explicit Target(QStringList *log) : m_log(log) { }

    bool event(QEvent *event) override
    {
        m_log->append(event->type() == watchedType ? u"target"_s
                                                   : u"target %1"_s.arg(event->type()));
        return true;
    }

private:
    QStringList *const m_log;
};

class PressTarget : public QWidget
{
public:
    explicit PressTarget(QStringList *log) : m_log(log) { setWindowFlags(Qt::FramelessWindowHint); }

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { m_log->append(u"target"_s); }

private:
    QStringList *const m_log;
};

class PressItem : public QGraphicsObject
{
public:
    explicit PressItem(QStringList *log) : m_log(log) { }
    QRectF boundingRect() const override { return QRectF(0, 0, 100, 100); }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent * /*event*/) override
    {
        m_log->append(u"item"_s);
    }

private:
    QStringList *const m_log;
};

bool send(QObject *receiver, QEvent::Type type = watchedType, bool isAccepted = true)
{
    QEvent event(type);
    event.setAccepted(isAccepted);
    QCoreApplication::sendEvent(receiver, &event);
    return event.isAccepted();
}

enum class Place { Nowhere, Target, Application };
const std::vector<Named> places = {{"installed on the receiver", int(Place::Target)},
                                   {"installed on the application", int(Place::Application)}};

// A target with a notifier.
class Watch
{
public:
    explicit Watch(Place place = Place::Target, QEvent::Type type = watchedType) :
        target(new Target(&m_log)), notifier(newNotifier(u"signal"_s, type))
    {
        if (place == Place::Target)
            target->installEventFilter(notifier);
        else if (place == Place::Application)
            QCoreApplication::instance()->installEventFilter(notifier);
    }
    ~Watch()
    {
        delete notifier;
        delete target;
        delete m_other;
    }

    KELApplicationNotify *newNotifier(const QString &name, QEvent::Type type = watchedType)
    {
        auto *const made = new KELApplicationNotify(&m_parent, type);
        QObject::connect(made, &KELApplicationNotify::notify, &m_parent,
                         [this, name] { m_log.append(name); });
        return made;
    }
    // One more on the target.
    KELApplicationNotify *install(const QString &name, QEvent::Type type = watchedType)
    {
        m_other = newNotifier(name, type);
        target->installEventFilter(m_other);
        return m_other;
    }
    template <typename Slot>
    void onSignal(const Slot &slot)
    {
        QObject::connect(notifier, &KELApplicationNotify::notify, &m_parent, slot);
    }

    // What happened since the last call: "signal target".
    QString take() { return std::exchange(m_log, QStringList()).join(QLatin1Char(' ')); }

private:
    Q_DISABLE_COPY(Watch)
    QStringList m_log;
    QObject m_parent;
    QPointer<KELApplicationNotify> m_other;

public:
    const QPointer<Target> target;
    const QPointer<KELApplicationNotify> notifier;
};

} // namespace

class tst_KELApplicationNotify : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QEvent *>(); }

    void isAChildOfItsParent()
    {
        auto parent = std::make_unique<QObject>();
        const QPointer<KELApplicationNotify> notifier(
            new KELApplicationNotify(parent.get(), watchedType));
        QCOMPARE(notifier->parent(), parent.get());
        parent.reset();
        QVERIFY(!notifier);
        const KELApplicationNotify alone(nullptr, watchedType);
        QVERIFY(!alone.parent());
    }

    void hasTheSignalAndTheSlot()
    {
        const QMetaObject &meta = KELApplicationNotify::staticMetaObject;
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
        const QMetaMethod signal = meta.method(meta.indexOfSignal("notify(QObject*,QEvent*)"));
        QCOMPARE(signal.methodType(), QMetaMethod::Signal);
        const QMetaMethod slot = meta.method(meta.indexOfSlot("toNotify(QObject*,QEvent*)"));
        QCOMPARE(slot.methodType(), QMetaMethod::Slot);
        QCOMPARE(slot.access(), QMetaMethod::Public);
    }

    void installsItselfNowhere()
    {
        Watch watch(Place::Nowhere);
        watch.notifier->setParent(watch.target);
        send(watch.target, QEvent::Type(watchedType));
        send(QCoreApplication::instance());
        QVERIFY(!watch.take().contains(u"signal"_s));
    }

    void watchedTypeIsForwarded_data()
    {
        addRows({{"type",
                  {{"a mouse press", QEvent::MouseButtonPress},
                   {"a press in a scene", 156},
                   {"another type of the application", otherType},
                   {"the last type", QEvent::MaxUser},
                   {"no type", QEvent::None}}}});
    }

    void watchedTypeIsForwarded()
    {
        const auto type = fetch<QEvent::Type>("type");
        Watch watch(Place::Target, type);
        send(watch.target, type);
        send(watch.target, watchedType);
        send(watch.target, type);
        const QString target = u"target %1"_s.arg(type);
        QCOMPARE(watch.take(), u"signal %1 target signal %1"_s.arg(target));
    }

    void otherTypePassesUnseen_data()
    {
        addRows({{"type",
                  {{"the next type", otherType},
                   {"the type before", watchedType - 1},
                   {"a mouse press", QEvent::MouseButtonPress},
                   {"no type", QEvent::None}}}});
    }

    void otherTypePassesUnseen()
    {
        Watch watch;
        send(watch.target, fetch<QEvent::Type>("type"));
        QCOMPARE(watch.take(), u"target %1"_s.arg(fetch<int>("type")));
    }

    void ignoredEventIsNotForwarded()
    {
        Watch watch;
        QVERIFY(!send(watch.target, watchedType, false));
        QCOMPARE(watch.take(), u"target"_s);
        QVERIFY(send(watch.target));
        QCOMPARE(watch.take(), u"signal target"_s);
    }

    void filterReturnsFalse_data()
    {
        addRows({{"type", {{"watched type", watchedType}, {"other type", otherType}}},
                 {"accepted", acceptance}});
    }

    void filterReturnsFalse()
    {
        const bool isAccepted = fetch<bool>("accepted");
        const Watch watch;
        QEvent event{fetch<QEvent::Type>("type")};
        event.setAccepted(isAccepted);
        QCOMPARE(watch.notifier->eventFilter(watch.target, &event), false);
        QCOMPARE(event.isAccepted(), isAccepted);
    }

    void filterReturnsFalseWithoutAWatchedObject()
    {
        Watch watch;
        QEvent event(watchedType);
        QCOMPARE(watch.notifier->eventFilter(nullptr, &event), false);
        QCOMPARE(watch.take(), u"signal"_s);
    }

    // Weak pointers to it are null before a slot runs: no slot destroyed it.
    void filterReturnsFalseForAnObjectInItsDestructor()
    {
        Watch watch;
        auto *const watched = new QObject;
        const QPointer<QObject> weak(watched);
        connect(watched, &QObject::destroyed, this, [&](QObject *dying) {
            QVERIFY(!weak);
            QEvent event(watchedType);
            QCOMPARE(watch.notifier->eventFilter(dying, &event), false);
        });
        delete watched;
        QCOMPARE(watch.take(), u"signal"_s);
    }

    void argumentsAreThoseOfTheEvent()
    {
        Watch watch;
        QEvent event(watchedType);
        watch.onSignal([&](QObject *watched, QEvent *forwarded) {
            QCOMPARE(watched, watch.target.data());
            QCOMPARE(forwarded, &event);
            QCOMPARE(forwarded->type(), watchedType);
        });
        QCoreApplication::sendEvent(watch.target, &event);
        QCOMPARE(watch.take(), u"signal target"_s);
    }

    void lastInstalledComesFirst()
    {
        Watch watch;
        watch.install(u"last"_s);
        send(watch.target);
        QCOMPARE(watch.take(), u"last signal target"_s);
        watch.target->installEventFilter(watch.notifier);
        send(watch.target);
        QCOMPARE(watch.take(), u"signal last target"_s);
    }

    void eventIgnoredInASlotIsUnseenByTheNextFilter()
    {
        Watch watch;
        connect(watch.install(u"ignoring"_s), &KELApplicationNotify::notify, this,
                [](QObject * /*watched*/, QEvent *event) { event->ignore(); });
        send(watch.target);
        QCOMPARE(watch.take(), u"ignoring target"_s);
    }

    void twoTypesOnOneObject()
    {
        Watch watch;
        watch.install(u"other"_s, otherType);
        send(watch.target, watchedType);
        QCOMPARE(watch.take(), u"signal target"_s);
        send(watch.target, otherType);
        QCOMPARE(watch.take(), u"other target %1"_s.arg(otherType));
    }

    void injectedEventIsForwarded_data() { filterReturnsFalse_data(); }

    // Any event, and it is not delivered.
    void injectedEventIsForwarded()
    {
        Watch watch;
        QSignalSpy spy(watch.notifier, &KELApplicationNotify::notify);
        QEvent event{fetch<QEvent::Type>("type")};
        event.setAccepted(fetch<bool>("accepted"));
        watch.notifier->toNotify(watch.target, &event);
        QCOMPARE(watch.take(), u"signal"_s);
        QCOMPARE(spy.at(0).at(0).value<QObject *>(), watch.target.data());
        QCOMPARE(spy.at(0).at(1).value<QEvent *>(), &event);
        watch.notifier->toNotify(nullptr, nullptr);
        QCOMPARE(watch.take(), u"signal"_s);
        QCOMPARE(spy.at(1).at(0).value<QObject *>(), nullptr);
    }

    void slotCanBeCalledByName()
    {
        Watch watch;
        QEvent event(watchedType);
        QVERIFY(QMetaObject::invokeMethod(watch.notifier.data(), "toNotify", Qt::DirectConnection,
                                          Q_ARG(QObject *, this), Q_ARG(QEvent *, &event)));
        QCOMPARE(watch.take(), u"signal"_s);
    }

    void applicationWideWatchSeesEveryReceiver()
    {
        Watch watch(Place::Application);
        QObjectList receivers;
        watch.onSignal([&](QObject *watched) { receivers.append(watched); });
        QWidget widget;
        const QObjectList sent = {watch.target, &widget, QCoreApplication::instance()};
        for (QObject *receiver : sent)
            send(receiver);
        QCOMPARE(receivers, sent);
    }

    void realPressIsSeenAtTheWindowAndAtTheWidget()
    {
        QStringList log;
        PressTarget widget(&log);
        widget.resize(200, 100);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        Watch watch(Place::Application, QEvent::MouseButtonPress);
        watch.onSignal([&](QObject *watched) {
            log.append(watched == &widget                     ? u"signal, widget"_s
                           : watched == widget.windowHandle() ? u"signal, window"_s
                                                              : u"signal, other"_s);
        });
        WindowHand().tap(&widget, QPoint(50, 50));
        QCOMPARE(log, QStringList({"signal, window", "signal, widget", "target"}));
    }

    void scenePressIsSeenAtTheItem()
    {
        QStringList log;
        KelTestView view;
        auto *item = new PressItem(&log);
        item->setPos(100, 100);
        view.ownScene.addItem(item);
        Hand hand(&view);
        hand.hover(QPoint(10, 10)); // shows the view
        Watch watch(Place::Application, QEvent::GraphicsSceneMousePress);
        watch.onSignal([&](QObject *watched) {
            log.append(watched == item ? u"signal, item"_s : u"signal, other"_s);
        });
        hand.tap(view.centreOf(item));
        QCOMPARE(log, QStringList({"signal, item", "item"}));
    }

    void removedFilterIsSilent()
    {
        Watch watch;
        watch.target->removeEventFilter(watch.notifier);
        send(watch.target);
        QCOMPARE(watch.take(), u"target"_s);
    }

    void destroyedNotifierIsForgotten_data() { addRows({{"place", places}}); }

    void destroyedNotifierIsForgotten()
    {
        Watch watch(fetch<Place>("place"));
        delete watch.notifier;
        send(watch.target);
        QCOMPARE(watch.take(), u"target"_s);
    }

    void watchedDestroyedByASlot_data() { addRows({{"place", places}}); }

    // Qt must not go on to it, nor to its other filters.
    void watchedDestroyedByASlot()
    {
        Watch watch(fetch<Place>("place"));
        watch.install(u"next"_s);
        if (fetch<Place>("place") == Place::Target)
            watch.target->installEventFilter(watch.notifier); // the first
        watch.onSignal([](QObject *watched) { delete watched; });
        send(watch.target);
        QVERIFY(!watch.target);
        QCOMPARE(watch.take(), u"signal"_s);
        QEvent event(watchedType);
        QVERIFY(watch.notifier->eventFilter(new QObject, &event));
    }

    void notifierDestroyedByASlot_data() { addRows({{"place", places}}); }

    void notifierDestroyedByASlot()
    {
        Watch watch(fetch<Place>("place"));
        watch.onSignal([&] { delete watch.notifier; });
        send(watch.target);
        QVERIFY(!watch.notifier);
        send(watch.target);
        QCOMPARE(watch.take(), u"signal target target"_s);
    }

    void notifierAndWatchedDestroyedByASlot()
    {
        Watch watch(Place::Application);
        watch.onSignal([&](QObject *watched) {
            delete watch.notifier;
            delete watched;
        });
        send(watch.target);
        QVERIFY(!watch.notifier);
        QVERIFY(!watch.target);
    }

    void nestedEventIsForwarded()
    {
        Watch watch;
        int calls = 0;
        watch.onSignal([&] {
            if (++calls == 1)
                send(watch.target);
        });
        send(watch.target);
        QCOMPARE(watch.take(), u"signal signal target target"_s);
    }
};

KEL_TEST_MAIN(tst_KELApplicationNotify)
#include "tst_kelapplicationnotify.moc"
