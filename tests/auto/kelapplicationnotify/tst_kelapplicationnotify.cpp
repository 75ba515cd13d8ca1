// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelapplicationnotify.h>

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsObject>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <memory>

namespace {

const QEvent::Type watchedType = QEvent::User;
const QEvent::Type otherType = QEvent::Type(QEvent::User + 1);

// Writes down the types of the events that reach it.
class Target : public QObject
{
public:
    explicit Target(QStringList *log = nullptr) : m_log(log) { }
    QList<int> types;

    bool event(QEvent *event) override
    {
        types.append(event->type());
        if (m_log)
            m_log->append(u"target"_s);
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

void send(QObject *receiver, QEvent::Type type = watchedType)
{
    QEvent event(type);
    QCoreApplication::sendEvent(receiver, &event);
}

} // namespace

class tst_KELApplicationNotify : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<QEvent *>(); }

    void isAChildOfItsParent()
    {
        QObject parent;
        const auto *const notifier = new KELApplicationNotify(&parent, watchedType);
        QCOMPARE(notifier->parent(), &parent);
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
        Target parent;
        KELApplicationNotify notifier(&parent, watchedType);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        send(&parent);
        send(QCoreApplication::instance());
        QCOMPARE(spy.count(), 0);
        QCOMPARE(parent.types.count(int(watchedType)), 1);
    }

    void watchedTypeIsForwarded_data()
    {
        QTest::addColumn<int>("type");

        QTest::newRow("a mouse press") << int(QEvent::MouseButtonPress);
        QTest::newRow("a press in a scene") << 156;
        QTest::newRow("a type of the application") << int(QEvent::User);
        QTest::newRow("the last type") << int(QEvent::MaxUser);
        QTest::newRow("no type") << int(QEvent::None);
    }

    void watchedTypeIsForwarded()
    {
        QFETCH(int, type);
        Target target;
        KELApplicationNotify notifier(nullptr, QEvent::Type(type));
        target.installEventFilter(&notifier);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        send(&target, QEvent::Type(type));
        QCOMPARE(spy.count(), 1);
        send(&target, QEvent::Type(type));
        QCOMPARE(spy.count(), 2);
        QCOMPARE(target.types, QList<int>({type, type}));
    }

    void otherTypePassesUnseen_data()
    {
        QTest::addColumn<int>("type");

        QTest::newRow("the next type") << int(otherType);
        QTest::newRow("the type before") << int(watchedType) - 1;
        QTest::newRow("a mouse press") << int(QEvent::MouseButtonPress);
        QTest::newRow("no type") << int(QEvent::None);
    }

    void otherTypePassesUnseen()
    {
        QFETCH(int, type);
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        send(&target, QEvent::Type(type));
        QCOMPARE(spy.count(), 0);
        QCOMPARE(target.types, QList<int>({type}));
    }

    void ignoredEventIsNotForwarded()
    {
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        QEvent event(watchedType);
        event.ignore();
        QCoreApplication::sendEvent(&target, &event);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(target.types, QList<int>({watchedType}));
        QVERIFY(!event.isAccepted());
    }

    void acceptedEventIsForwardedAgain()
    {
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        QEvent event(watchedType);
        event.ignore();
        event.accept();
        QCoreApplication::sendEvent(&target, &event);
        QCOMPARE(spy.count(), 1);
        QVERIFY(event.isAccepted());
    }

    void filterReturnsFalse_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("accepted");

        QTest::newRow("watched type") << int(watchedType) << true;
        QTest::newRow("watched type, ignored") << int(watchedType) << false;
        QTest::newRow("other type") << int(otherType) << true;
        QTest::newRow("other type, ignored") << int(otherType) << false;
    }

    void filterReturnsFalse()
    {
        QFETCH(int, type);
        QFETCH(bool, accepted);
        QObject watched;
        KELApplicationNotify notifier(nullptr, watchedType);
        QEvent event{QEvent::Type(type)};
        event.setAccepted(accepted);
        QCOMPARE(notifier.eventFilter(&watched, &event), false);
        QCOMPARE(event.isAccepted(), accepted);
    }

    void filterReturnsFalseWithoutAWatchedObject()
    {
        KELApplicationNotify notifier(nullptr, watchedType);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        QEvent event(watchedType);
        QCOMPARE(notifier.eventFilter(nullptr, &event), false);
        QCOMPARE(spy.count(), 1);
    }

    // Weak pointers to it are null before a slot runs: no slot destroyed it.
    void filterReturnsFalseForAnObjectInItsDestructor()
    {
        KELApplicationNotify notifier(nullptr, watchedType);
        auto *const watched = new QObject;
        const QPointer<QObject> weak(watched);
        int calls = 0;
        connect(watched, &QObject::destroyed, this, [&notifier, &calls](QObject *dying) {
            QEvent event(watchedType);
            QCOMPARE(notifier.eventFilter(dying, &event), false);
            ++calls;
        });
        delete watched;
        QCOMPARE(calls, 1);
    }

    void argumentsAreThoseOfTheEvent()
    {
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        QEvent event(watchedType);
        int calls = 0;
        connect(&notifier, &KELApplicationNotify::notify, &target,
                [&](QObject *watched, QEvent *forwarded) {
                    ++calls;
                    QCOMPARE(watched, &target);
                    QCOMPARE(forwarded, &event);
                    QCOMPARE(forwarded->type(), watchedType);
                });
        QCoreApplication::sendEvent(&target, &event);
        QCOMPARE(calls, 1);
    }

    void signalComesBeforeTheTarget()
    {
        QStringList log;
        Target target(&log);
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        connect(&notifier, &KELApplicationNotify::notify, &notifier,
                [&] { log.append(u"signal"_s); });
        send(&target);
        QCOMPARE(log, QStringList({"signal", "target"}));
    }

    void everyEventReachesItsTarget()
    {
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        const QList<int> types = {watchedType, otherType, watchedType, QEvent::MouseButtonPress};
        for (const int type : types)
            send(&target, QEvent::Type(type));
        QCOMPARE(target.types, types);
    }

    void lastInstalledComesFirst()
    {
        QStringList log;
        Target target(&log);
        KELApplicationNotify first(nullptr, watchedType);
        KELApplicationNotify second(nullptr, watchedType);
        connect(&first, &KELApplicationNotify::notify, &first,
                [&] { log.append(u"installed first"_s); });
        connect(&second, &KELApplicationNotify::notify, &second,
                [&] { log.append(u"installed last"_s); });
        target.installEventFilter(&first);
        target.installEventFilter(&second);
        send(&target);
        QCOMPARE(log, QStringList({"installed last", "installed first", "target"}));
        log.clear();
        target.installEventFilter(&first);
        send(&target);
        QCOMPARE(log, QStringList({"installed first", "installed last", "target"}));
    }

    void eventIgnoredInASlotIsUnseenByTheNextFilter()
    {
        Target target;
        KELApplicationNotify next(nullptr, watchedType);
        KELApplicationNotify ignoring(nullptr, watchedType);
        target.installEventFilter(&next);
        target.installEventFilter(&ignoring);
        connect(&ignoring, &KELApplicationNotify::notify, &target,
                [](QObject * /*watched*/, QEvent *event) { event->ignore(); });
        const QSignalSpy spy(&next, &KELApplicationNotify::notify);
        send(&target);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(target.types, QList<int>({watchedType}));
    }

    void twoTypesOnOneObject()
    {
        Target target;
        KELApplicationNotify one(nullptr, watchedType);
        KELApplicationNotify other(nullptr, otherType);
        target.installEventFilter(&one);
        target.installEventFilter(&other);
        const QSignalSpy spyOfOne(&one, &KELApplicationNotify::notify);
        const QSignalSpy spyOfOther(&other, &KELApplicationNotify::notify);
        send(&target, watchedType);
        QCOMPARE(spyOfOne.count(), 1);
        QCOMPARE(spyOfOther.count(), 0);
        send(&target, otherType);
        QCOMPARE(spyOfOne.count(), 1);
        QCOMPARE(spyOfOther.count(), 1);
    }

    void injectedEventIsForwarded_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("accepted");

        QTest::newRow("watched type") << int(watchedType) << true;
        QTest::newRow("watched type, ignored") << int(watchedType) << false;
        QTest::newRow("other type") << int(otherType) << true;
    }

    void injectedEventIsForwarded()
    {
        QFETCH(int, type);
        QFETCH(bool, accepted);
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        QEvent event{QEvent::Type(type)};
        event.setAccepted(accepted);
        notifier.toNotify(&target, &event);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<QObject *>(), &target);
        QCOMPARE(spy.at(0).at(1).value<QEvent *>(), &event);
        // An injected event is not delivered.
        QCOMPARE(target.types, QList<int>());
        notifier.toNotify(nullptr, nullptr);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(1).at(0).value<QObject *>(), nullptr);
    }

    void slotCanBeCalledByName()
    {
        KELApplicationNotify notifier(nullptr, watchedType);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        QEvent event(watchedType);
        QVERIFY(QMetaObject::invokeMethod(&notifier, "toNotify", Qt::DirectConnection,
                                          Q_ARG(QObject *, this), Q_ARG(QEvent *, &event)));
        QCOMPARE(spy.count(), 1);
    }

    void applicationWideWatchSeesEveryReceiver()
    {
        KELApplicationNotify notifier(nullptr, watchedType);
        QCoreApplication::instance()->installEventFilter(&notifier);
        QObjectList receivers;
        connect(&notifier, &KELApplicationNotify::notify, this,
                [&](QObject *watched) { receivers.append(watched); });
        Target object;
        QWidget widget;
        send(&object);
        send(&widget);
        send(QCoreApplication::instance());
        QCOMPARE(receivers, QObjectList({&object, &widget, QCoreApplication::instance()}));
        QCoreApplication::instance()->removeEventFilter(&notifier);
    }

    void realPressIsSeenAtTheWindowAndAtTheWidget()
    {
        QStringList log;
        PressTarget widget(&log);
        widget.resize(200, 100);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        KELApplicationNotify notifier(nullptr, QEvent::MouseButtonPress);
        QCoreApplication::instance()->installEventFilter(&notifier);
        connect(&notifier, &KELApplicationNotify::notify, &widget, [&](QObject *watched) {
            log.append(watched == &widget                     ? u"signal, widget"_s
                           : watched == widget.windowHandle() ? u"signal, window"_s
                                                              : u"signal, other"_s);
        });
        QTest::mousePress(widget.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
        QCOMPARE(log, QStringList({"signal, window", "signal, widget", "target"}));
        QTest::mouseRelease(widget.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
        QCOMPARE(log.size(), 3);
        QCoreApplication::instance()->removeEventFilter(&notifier);
    }

    void scenePressIsSeenAtTheItem()
    {
        QStringList log;
        KelTestView view;
        auto *item = new PressItem(&log);
        view.ownScene.addItem(item);
        QVERIFY(view.showAndWait());
        KELApplicationNotify notifier(nullptr, QEvent::GraphicsSceneMousePress);
        QCoreApplication::instance()->installEventFilter(&notifier);
        connect(&notifier, &KELApplicationNotify::notify, &view, [&](QObject *watched) {
            log.append(watched == item ? u"signal, item"_s : u"signal, other"_s);
        });
        view.press(QPoint(50, 50));
        QCOMPARE(log, QStringList({"signal, item", "item"}));
        view.release(QPoint(50, 50));
        QCoreApplication::instance()->removeEventFilter(&notifier);
    }

    void removedFilterIsSilent()
    {
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        const QSignalSpy spy(&notifier, &KELApplicationNotify::notify);
        target.installEventFilter(&notifier);
        target.removeEventFilter(&notifier);
        send(&target);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(target.types, QList<int>({watchedType}));
    }

    void destroyedNotifierIsForgotten()
    {
        Target target;
        auto notifier = std::make_unique<KELApplicationNotify>(nullptr, watchedType);
        target.installEventFilter(notifier.get());
        QCoreApplication::instance()->installEventFilter(notifier.get());
        notifier.reset();
        send(&target);
        QCOMPARE(target.types, QList<int>({watchedType}));
    }

    void diesWithItsParent()
    {
        auto parent = std::make_unique<QObject>();
        const QPointer<KELApplicationNotify> notifier(
            new KELApplicationNotify(parent.get(), watchedType));
        parent.reset();
        QVERIFY(!notifier);
    }

    void watchedDestroyedByASlot()
    {
        const QPointer<Target> target(new Target);
        KELApplicationNotify notifier(nullptr, watchedType);
        KELApplicationNotify next(nullptr, watchedType);
        target->installEventFilter(&next);
        target->installEventFilter(&notifier);
        connect(&notifier, &KELApplicationNotify::notify, &notifier,
                [](QObject *watched) { delete watched; });
        const QSignalSpy spy(&next, &KELApplicationNotify::notify);
        send(target);
        QVERIFY(!target);
        QCOMPARE(spy.count(), 0);
        QEvent event(watchedType);
        QVERIFY(notifier.eventFilter(new Target, &event));
    }

    void watchedDestroyedByASlotOfAnApplicationWideWatch()
    {
        const QPointer<Target> target(new Target);
        KELApplicationNotify notifier(nullptr, watchedType);
        QCoreApplication::instance()->installEventFilter(&notifier);
        connect(&notifier, &KELApplicationNotify::notify, &notifier,
                [](QObject *watched) { delete watched; });
        send(target);
        QVERIFY(!target);
        QCoreApplication::instance()->removeEventFilter(&notifier);
    }

    void notifierDestroyedByASlot_data()
    {
        QTest::addColumn<bool>("applicationWide");

        QTest::newRow("installed on the receiver") << false;
        QTest::newRow("installed on the application") << true;
    }

    void notifierDestroyedByASlot()
    {
        QFETCH(bool, applicationWide);
        Target target;
        auto *const notifier = new KELApplicationNotify(nullptr, watchedType);
        const QPointer<KELApplicationNotify> alive(notifier);
        QObject *const installedOn = applicationWide ? QCoreApplication::instance()
                                                     : static_cast<QObject *>(&target);
        installedOn->installEventFilter(notifier);
        connect(notifier, &KELApplicationNotify::notify, &target, [notifier] { delete notifier; });
        send(&target);
        QVERIFY(!alive);
        QCOMPARE(target.types, QList<int>({watchedType}));
        send(&target);
        QCOMPARE(target.types.size(), 2);
    }

    void notifierAndWatchedDestroyedByASlot()
    {
        const QPointer<Target> target(new Target);
        const QPointer<KELApplicationNotify> notifier(
            new KELApplicationNotify(nullptr, watchedType));
        QCoreApplication::instance()->installEventFilter(notifier);
        connect(notifier, &KELApplicationNotify::notify, this, [&](QObject *watched) {
            delete notifier;
            delete watched;
        });
        send(target);
        QVERIFY(!notifier);
        QVERIFY(!target);
    }

    void nestedEventIsForwarded()
    {
        Target target;
        KELApplicationNotify notifier(nullptr, watchedType);
        target.installEventFilter(&notifier);
        int calls = 0;
        connect(&notifier, &KELApplicationNotify::notify, &target, [&] {
            if (++calls == 1)
                send(&target);
        });
        send(&target);
        QCOMPARE(calls, 2);
        QCOMPARE(target.types.size(), 2);
    }
};

KEL_TEST_MAIN(tst_KELApplicationNotify)
#include "tst_kelapplicationnotify.moc"
