// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>

namespace {

constexpr int longPressMs = 500;
// Timers count in whole milliseconds.
constexpr int earliestLongPressMs = longPressMs - 1;

KELRoundRectControl *newSelectable()
{
    auto *const control = new KELRoundRectControl;
    control->setFlag(QGraphicsItem::ItemIsSelectable); // else it ignores its presses
    return control;
}

// A plain control that takes the whole gesture.
struct PlainStage : Stage<KELRoundRectControl>
{
    PlainStage() : Stage(QRectF(100, 100, 100, 50), newSelectable()) { }
};

enum class Pointer { Mouse, SynthesizedTouch, AcceptedTouch };

// This control or a push button, which behaves alike, and a pointer.
void addControlsAndPointers(const std::vector<Column> &more = {})
{
    std::vector<Column> columns = {
        {"isButton", {{"plain control", false}, {"push button", true}}},
        {"pointer",
         {{"mouse", int(Pointer::Mouse)},
          {"touch that Qt turns into mouse events", int(Pointer::SynthesizedTouch)},
          {"touch that the item accepts", int(Pointer::AcceptedTouch)}}}};
    columns.insert(columns.end(), more.begin(), more.end());
    addRows(columns);
}

struct StageOfRow : Stage<KELRoundRectControl>
{
    StageOfRow() :
        Stage(QRectF(100, 100, 100, 50),
              fetch<bool>("isButton") ? new KELPushButton : newSelectable())
    {
        const auto pointer = fetch<Pointer>("pointer");
        control->setAcceptTouchEvents(pointer == Pointer::AcceptedTouch);
        hand.use(pointer == Pointer::Mouse ? Input::Mouse : Input::Touch);
    }
};

QAbstractEventDispatcher::TimerInfo timerOf(QObject *object)
{
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(object);
    return timers.size() == 1 ? timers.first()
                              : QAbstractEventDispatcher::TimerInfo(-1, -1, Qt::CoarseTimer);
}

int remainingMs(QObject *object)
{
    return QAbstractEventDispatcher::instance()->remainingTime(timerOf(object).timerId);
}

} // namespace

class tst_KELRoundRectControlPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void tap_data() { addControlsAndPointers(); }

    void tap()
    {
        StageOfRow stage;
        stage.hand.press(stage.centre());
        QCOMPARE(stage.log.take(), u"press"_s);
        QVERIFY(stage->isMouseDown());
        stage.hand.release();
        QCoreApplication::processEvents();
        QCOMPARE(stage.log.take(), u"release clicked"_s);
        QVERIFY(!stage->isMouseDown());
    }

    void tenFastTapsAreTenClicks_data() { addControlsAndPointers(); }

    // Qt makes every other one a double click.
    void tenFastTapsAreTenClicks()
    {
        StageOfRow stage;
        for (int i = 0; i < 5; ++i) {
            stage.hand.tap(stage.centre());
            QCOMPARE(stage.log.take(), u"press release clicked"_s);
            stage.hand.pressAgain(stage.centre());
            QVERIFY(stage->isMouseDown());
            stage.hand.release();
            QCOMPARE(stage.log.take(), u"press doubleClicked release clicked"_s);
            QVERIFY(!stage->isMouseDown());
        }
    }

    void pressedStateInTheSlots()
    {
        PlainStage stage;
        QList<bool> states;
        for (const QString &entry : {u"press"_s, u"release"_s, u"clicked"_s})
            stage.log.on(entry, [&] { states.append(stage->isMouseDown()); });
        stage.hand.tap(stage.centre());
        QCOMPARE(states, QList<bool>({true, false, false}));
    }

    void positionsAreItemLocal_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<qreal>("rotation");
        QTest::addColumn<QPointF>("parentPos");

        QTest::newRow("as it is") << 1.0 << 0.0 << QPointF();
        QTest::newRow("scaled by 2") << 2.0 << 0.0 << QPointF();
        QTest::newRow("turned by 90 degrees") << 1.0 << 90.0 << QPointF();
        QTest::newRow("inside a parent") << 1.0 << 0.0 << QPointF(5, 5);
    }

    void positionsAreItemLocal()
    {
        PlainStage stage;
        const auto parentPos = fetch<QPointF>("parentPos");
        if (!parentPos.isNull()) {
            auto *const parent = new KELRoundRectControl;
            parent->setboundRect(parentPos.x(), parentPos.y(), 200, 200);
            parent->setPos(parentPos);
            stage.view.ownScene.addItem(parent);
            stage->setParentItem(parent);
        }
        stage->setboundRect(0, 0, 60, 60);
        stage->setPos(90, 40);
        stage->setRotation(fetch<qreal>("rotation"));
        stage.view.scale(fetch<qreal>("scale"), fetch<qreal>("scale"));
        stage.hand.press(stage.at(30, 20));
        stage.hand.move(stage.at(32, 22));
        stage.hand.release(stage.at(33, 24));
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
        QCOMPARE(stage.log.takePoints(), QList<QPointF>({QPointF(30, 20), QPointF(33, 24)}));
        stage.hand.press(stage.at(30, 20));
        stage.hand.release(stage.at(90, -15));
        QCOMPARE(stage.log.takePoints(), QList<QPointF>({QPointF(30, 20), QPointF(90, -15)}));
    }

    void holding_data() { addControlsAndPointers(); }

    void holding()
    {
        StageOfRow stage;
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        QCOMPARE(stage.log.take(), u"press longPress"_s);
        QVERIFY(stage->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
        QVERIFY(!stage->isMouseDown());
    }

    // With the real time; all other tests end it at once.
    void holdingTakesHalfASecond()
    {
        PlainStage stage;
        stage.view.showOnce();
        QElapsedTimer time;
        time.start();
        stage.hand.press(stage.centre());
        QTRY_COMPARE(stage.log.count(u"longPress"_s), 1);
        QVERIFY2(time.elapsed() >= earliestLongPressMs,
                 qPrintable(QString::number(time.elapsed())));
        QVERIFY(!hasTimers(stage.control));
    }

    void timeOfALongPressIsExact()
    {
        PlainStage stage;
        stage.hand.press(stage.centre());
        QCOMPARE(timerOf(stage.control).interval, longPressMs);
        // A coarse timer may fire 5 % early, and a tap of 480 ms would be none.
        QCOMPARE(timerOf(stage.control).timerType, Qt::PreciseTimer);
    }

    void secondPressStartsTheTimeAnew()
    {
        PlainStage stage;
        // Its presses are ignored: the second one comes without a release before.
        stage->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.hand.press(stage.centre());
        QTRY_VERIFY(remainingMs(stage.control) <= longPressMs - 50);
        QElapsedTimer time;
        time.start();
        stage.hand.press(stage.centre());
        QVERIFY(remainingMs(stage.control) + time.elapsed() >= earliestLongPressMs);
        endLongPressTime(stage.control);
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(stage.log.take(), u"press press longPress"_s);
    }

    // A derived class may have timers of its own.
    void anotherTimerOfTheControlIsNoLongPress()
    {
        Stage<KELPushButton> stage;
        stage.hand.press(stage.centre());
        QTimerEvent event(stage->startTimer(60000));
        QCoreApplication::sendEvent(stage.control, &event);
        QCOMPARE(stage.log.take(), u"press"_s);
        QVERIFY(stage->isMouseDown());
    }

    void releaseStopsTheTime()
    {
        PlainStage stage;
        stage.hand.tap(stage.centre());
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }

    void movingWhilePressed_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QList<QPoint>>("moves");
        QTest::addColumn<QString>("end");

        using Moves = QList<QPoint>;
        const QString clicks = u"release clicked"_s;
        const QString none = u"release"_s;
        QTest::newRow("by 5, 5") << 1.0 << Moves{{5, 5}} << clicks;
        QTest::newRow("by 6, 5") << 1.0 << Moves{{6, 5}} << none;
        QTest::newRow("by -5, 5") << 1.0 << Moves{{-5, 5}} << clicks;
        QTest::newRow("by -6, -5") << 1.0 << Moves{{-6, -5}} << none;
        QTest::newRow("by 5, -6") << 1.0 << Moves{{5, -6}} << none;
        QTest::newRow("by 10 along x") << 1.0 << Moves{{10, 0}} << clicks;
        QTest::newRow("by 11 along x") << 1.0 << Moves{{11, 0}} << none;
        QTest::newRow("by 11 along y") << 1.0 << Moves{{0, 11}} << none;
        // Farther than 10, yet not as the crow flies.
        QTest::newRow("by 7, 7") << 1.0 << Moves{{7, 7}} << none;
        QTest::newRow("in small steps") << 1.0 << Moves{{4, 0}, {8, 0}, {12, 0}} << none;
        QTest::newRow("to and fro within the slop")
            << 1.0 << Moves{{8, 0}, {-2, 0}, {8, 0}, {0, 8}, {0, 0}} << clicks;
        QTest::newRow("away and back") << 1.0 << Moves{{30, 30}, {0, 0}} << none;
        QTest::newRow("by 10, 10 on the screen, scaled by 2") << 2.0 << Moves{{10, 10}} << clicks;
        QTest::newRow("by 11, 10 on the screen, scaled by 2") << 2.0 << Moves{{11, 10}} << none;
        QTest::newRow("by 12, 10 on the screen, scaled by 2") << 2.0 << Moves{{12, 10}} << none;
        QTest::newRow("by 3, 2 on the screen, scaled by a half") << 0.5 << Moves{{3, 2}} << clicks;
        QTest::newRow("by 3, 3 on the screen, scaled by a half") << 0.5 << Moves{{3, 3}} << none;
    }

    void movingWhilePressed()
    {
        PlainStage stage;
        stage.view.scale(fetch<qreal>("scale"), fetch<qreal>("scale"));
        const QPoint start = stage.centre();
        stage.hand.press(start);
        const auto moves = fetch<QList<QPoint>>("moves");
        for (const QPoint &move : moves)
            stage.hand.move(start + move);
        QVERIFY(stage->isMouseDown());
        stage.hand.release();
        QVERIFY(!stage->isMouseDown());
        QCOMPARE(stage.log.take(), u"press "_s + fetch<QString>("end"));
    }

    void movingWithEachPointer_data()
    {
        addControlsAndPointers({{"x", {{"by 10, 10", 10}, {"by 12, 10", 12}}}});
    }

    void movingWithEachPointer()
    {
        const auto x = fetch<int>("x");
        StageOfRow stage;
        stage.view.scale(2, 2); // it is half of that in the control
        stage.hand.press(stage.centre());
        stage.hand.move(stage.centre() + QPoint(x, 10));
        stage.hand.release();
        QCOMPARE(stage.log.take(), x == 10 ? u"press release clicked"_s : u"press release"_s);
    }

    void moveBeyondTheSlopCancelsTheLongPress()
    {
        PlainStage stage;
        stage.hand.press(stage.at(150, 120));
        stage.hand.move(stage.at(156, 125));
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(stage.log.take(), u"press"_s);
        QVERIFY(stage->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
    }

    void unselectableControlStaysPressed()
    {
        PlainStage stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable, false);
        for (const QPoint &pos : {stage.centre(), stage.at(120, 120)}) {
            stage.hand.tap(pos);
            QCOMPARE(stage.log.take(), u"press"_s);
            QVERIFY(stage->isMouseDown());
        }
        stage.hand.tap(QPoint(1, 1));
        QCoreApplication::processEvents();
        QVERIFY(stage->isMouseDown());
        QVERIFY(stage->style()->isMouseDown);
    }

    void unselectableControlStillReportsTheLongPress()
    {
        PlainStage stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.hand.tap(stage.centre());
        endLongPressTime(stage.control);
        QCOMPARE(stage.log.take(), u"press longPress"_s);
        QVERIFY(stage->isMouseDown());
    }

    // Nobody says so when the buttons are switched off.
    void lostPressDoesNotBecomeLong()
    {
        PlainStage stage;
        stage.hand.press(stage.centre());
        stage->setAcceptedMouseButtons(Qt::NoButton);
        endLongPressTime(stage.control);
        QVERIFY(!stage->style()->isMouseDown);
        QCOMPARE(stage.log.take(), u"press"_s);
    }

    void otherButtons_data()
    {
        addRows({{"isButton", {{"plain control", false}, {"push button", true}}},
                 {"button", otherMouseButtons},
                 {"pointer", {{"mouse", int(Pointer::Mouse)}}}});
    }

    // Qt's selectable items take the left button only; the press is reported before it is given up.
    void otherButtons()
    {
        const auto button = fetch<Qt::MouseButton>("button");
        const bool isButton = fetch<bool>("isButton");
        StageOfRow stage;
        stage.hand.press(stage.centre(), button);
        QCOMPARE(stage->isMouseDown(), !isButton);
        stage.hand.release(stage.centre(), button);
        QCOMPARE(stage.log.take(), isButton ? QString() : u"press"_s);
        QTest::mouseDClick(stage.view.viewport(), button, Qt::NoModifier, stage.centre());
        QCOMPARE(stage.log.take().isEmpty(), isButton);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
        QVERIFY(!stage->isMouseDown());
    }

    void hoverEntersAndLeaves()
    {
        PlainStage stage;
        stage->setAcceptHoverEvents(true);
        stage.hand.hover(QPoint(1, 1));
        stage.hand.hover(stage.centre());
        stage.hand.hover(stage.centre() + QPoint(2, 1));
        QCOMPARE(stage.log.takeWithHover(), u"enter"_s);
        stage.hand.hover(QPoint(1, 1));
        QCOMPARE(stage.log.takeWithHover(), u"leave"_s);
        stage.hand.hover(stage.centre());
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(stage.view.viewport(), &leave);
        QCOMPARE(stage.log.takeWithHover(), u"enter leave"_s);
    }

    void hoverIsOffByDefault()
    {
        PlainStage stage;
        stage.view.viewport()->setMouseTracking(true);
        stage.hand.hover(stage.centre());
        stage.hand.hover(QPoint(1, 1));
        QCOMPARE(stage.log.takeWithHover(), QString());
    }

    void contextMenuOpensAtTheScreenPosition()
    {
        PlainStage stage;
        stage.window.move(50, 60);
        QMenu *const menu = newMenu();
        stage->style()->contextMenu = menu;
        QPoint menuPos;
        whenOpen(menu, [&] { menuPos = menu->pos(); });
        stage.hand.openContextMenu(stage.centre());
        QCOMPARE(menuPos, stage.view.viewport()->mapToGlobal(stage.centre()));
        QCOMPARE(stage.log.take(), QString());
    }

    void contextMenuEventWithoutMenuStaysIgnored()
    {
        PlainStage stage;
        auto *below = new KELRoundRectControl;
        below->setboundRect(0, 0, 300, 200);
        below->setZValue(-1);
        QMenu *const menu = newMenu();
        below->style()->contextMenu = menu;
        stage.view.ownScene.addItem(below);
        int opened = 0;
        whenOpen(menu, [&] { ++opened; });
        stage.hand.openContextMenu(stage.centre());
        QCOMPARE(opened, 1);
    }

    void longPressMenuOpensAtTheItemPosition_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QPoint>("offset"); // on the screen, from (50, 40) in the control
        QTest::addColumn<QPoint>("expected");

        QTest::newRow("whole pixels") << 1.0 << QPoint(0, 0) << QPoint(50, 40);
        QTest::newRow("halves are rounded up") << 2.0 << QPoint(1, -1) << QPoint(51, 40);
        QTest::newRow("quarters are rounded off") << 4.0 << QPoint(1, -1) << QPoint(50, 40);
        QTest::newRow("three quarters are rounded") << 4.0 << QPoint(3, -3) << QPoint(51, 39);
    }

    void longPressMenuOpensAtTheItemPosition()
    {
        PlainStage stage;
        stage->setboundRect(10, 20, 120, 60);
        stage.view.scale(fetch<qreal>("scale"), fetch<qreal>("scale"));
        stage.window.move(130, 170);
        QMenu *const menu = newMenu();
        stage->style()->contextMenu = menu;
        QPoint menuPos;
        whenOpen(menu, [&] { menuPos = menu->pos(); });
        stage.hand.press(stage.at(50, 40) + fetch<QPoint>("offset"));
        endLongPressTime(stage.control);
        QCOMPARE(menuPos, fetch<QPoint>("expected"));
        QVERIFY(!menu->isVisible());
        QCOMPARE(stage.log.take(), u"press longPress"_s);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
    }

    void longPressComesBeforeItsMenu()
    {
        PlainStage stage;
        QMenu *const menu = newMenu();
        stage->style()->contextMenu = menu;
        bool isOpenInSlot = true;
        stage.log.on(u"longPress"_s, [&] { isOpenInSlot = menu->isVisible(); });
        QString signalsBefore;
        whenOpen(menu, [&] { signalsBefore = stage.log.take(); });
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        QVERIFY(!isOpenInSlot);
        QCOMPARE(signalsBefore, u"press longPress"_s);
    }

    void menuSetInTheLongPressSlotOpens()
    {
        PlainStage stage;
        QMenu *const menu = newMenu();
        stage.log.on(u"longPress"_s, [&] { stage->style()->contextMenu = menu; });
        int opened = 0;
        whenOpen(menu, [&] { ++opened; });
        stage.hand.press(stage.centre());
        endLongPressTime(stage.control);
        QCOMPARE(opened, 1);
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControlPointer)

#include "tst_kelroundrectcontrolpointer.moc"
