// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelpushbutton.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QMenu>

#include <memory>

Q_DECLARE_METATYPE(Qt::MouseButton)

namespace {

constexpr int longPressMs = 500;
// Timers count in whole milliseconds.
constexpr int earliestLongPressMs = longPressMs - 1;
constexpr int wellAfterLongPressMs = 700;

// Writes down every signal of a control, in order.
class Recorder : public QObject
{
public:
    explicit Recorder(KELRoundRectControl *control)
    {
        const auto noting = [this](const char *name) {
            return [this, name] { names.append(QLatin1String(name)); };
        };
        connect(control, &KELRoundRectControl::mouseClicked, this, noting("clicked"));
        connect(control, &KELRoundRectControl::mouseDoubleClicked, this, noting("double"));
        connect(control, &KELRoundRectControl::mouseLongPress, this, noting("long"));
        connect(control, &KELRoundRectControl::mouseEnter, this, noting("enter"));
        connect(control, &KELRoundRectControl::mouseLeave, this, noting("leave"));
        connect(control, &KELRoundRectControl::mousePress, this, [this](const QPointF &pos) {
            names.append(u"press"_s);
            positions.append(pos);
        });
        connect(control, &KELRoundRectControl::mouseRelease, this, [this](const QPointF &pos) {
            names.append(u"release"_s);
            positions.append(pos);
        });
    }

    QString take() { return std::exchange(names, QStringList()).join(QLatin1Char(' ')); }
    int count(const char *name) const { return names.count(QLatin1String(name)); }

    QStringList names;
    QList<QPointF> positions;
};

// A control that takes the whole gesture, shown away from every origin.
struct Stage
{
    explicit Stage(bool isButton = false) :
        control(isButton ? new KELPushButton : new KELRoundRectControl), recorder(control)
    {
        control->setboundRect(10, 20, 120, 60);
        control->setPos(30, 40);
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        view.ownScene.addItem(control);
        view.QWidget::move(50, 60);
        // Else a finger's first press could count as the second one after the test before.
        QApplication::setDoubleClickInterval(0);
    }
    QPoint at(qreal x, qreal y) const { return view.at(control, QPointF(x, y)); }

    KelTestView view;
    QPointer<KELRoundRectControl> control;
    Recorder recorder;
};

enum Pointer { Mouse, SynthesizedTouch, AcceptedTouch };

// Sends one gesture's events by mouse or by finger.
struct Hand
{
    Stage &stage;
    Pointer pointer;

    void press(const QPoint &pos) const
    {
        pointer == Mouse ? stage.view.press(pos) : stage.view.touchPress(pos);
    }
    void move(const QPoint &pos) const
    {
        pointer == Mouse ? stage.view.move(pos) : stage.view.touchMove(pos);
    }
    void release(const QPoint &pos) const
    {
        pointer == Mouse ? stage.view.release(pos) : stage.view.touchRelease(pos);
    }
};

void addPointerRows()
{
    QTest::addColumn<int>("pointer");
    QTest::newRow("mouse") << int(Mouse);
    QTest::newRow("touch that Qt turns into mouse events") << int(SynthesizedTouch);
    QTest::newRow("touch that the item accepts") << int(AcceptedTouch);
}

// Calls look the first time that the menu is open, and closes it each time, lest exec() hang.
void whenOpen(QMenu *menu, const std::function<void()> &look)
{
    auto *timer = new QTimer(menu);
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, menu, [menu, look, first = true]() mutable {
        if (!menu->isVisible())
            return;
        if (std::exchange(first, false))
            look();
        menu->close();
    });
    timer->start();
}

void sendContextMenu(KelTestView *view, const QPoint &pos)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, view->viewport()->mapToGlobal(pos));
    QCoreApplication::sendEvent(view->viewport(), &event);
}

// Unlike QTest::mousePress() it does not mind when nobody takes the press.
void press(KelTestView *view, const QPoint &pos, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(QEvent::MouseButtonPress, pos, view->viewport()->mapToGlobal(pos), button,
                      button, Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &event);
}

void click(KelTestView *view, const QPoint &pos)
{
    press(view, pos);
    view->release(pos);
}

// QTest::mouseMove() goes through the cursor, which an offscreen window need not follow.
void hover(KelTestView *view, const QPoint &pos)
{
    QMouseEvent event(QEvent::MouseMove, pos, view->viewport()->mapToGlobal(pos), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &event);
}

} // namespace

class tst_KELRoundRectControlPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void tap_data() { addPointerRows(); }

    void tap()
    {
        QFETCH(int, pointer);
        Stage stage;
        stage.control->setAcceptTouchEvents(pointer == AcceptedTouch);
        QVERIFY(stage.view.showAndWait());
        const Hand hand{stage, Pointer(pointer)};
        hand.press(stage.at(50, 40));
        QCOMPARE(stage.recorder.take(), u"press"_s);
        QVERIFY(stage.control->isMouseDown());
        hand.release(stage.at(50, 40));
        QCOMPARE(stage.recorder.take(), u"release clicked"_s);
        QVERIFY(!stage.control->isMouseDown());
    }

    void tapOnAButtonIsOneClick_data() { addPointerRows(); }

    void tapOnAButtonIsOneClick()
    {
        QFETCH(int, pointer);
        Stage stage(true);
        stage.control->setAcceptHoverEvents(false);
        stage.control->setAcceptTouchEvents(pointer == AcceptedTouch);
        QVERIFY(stage.view.showAndWait());
        const Hand hand{stage, Pointer(pointer)};
        hand.press(stage.at(50, 40));
        hand.release(stage.at(50, 40));
        QCoreApplication::processEvents();
        QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
    }

    void tenFastTapsAreTenClicks_data() { addPointerRows(); }

    void tenFastTapsAreTenClicks()
    {
        QFETCH(int, pointer);
        Stage stage;
        stage.control->setAcceptTouchEvents(pointer == AcceptedTouch);
        QVERIFY(stage.view.showAndWait());
        const Hand hand{stage, Pointer(pointer)};
        QApplication::setDoubleClickInterval(5000);
        const QPoint pos = stage.at(50, 40);
        for (int i = 0; i < 10; ++i) {
            // Qt makes every other fast press of a mouse a double click.
            if (pointer == Mouse && i % 2 == 1)
                stage.view.doubleClickPress(pos);
            else
                hand.press(pos);
            hand.release(pos);
        }
        QVERIFY(stage.recorder.count("double") >= 5);
        QCOMPARE(stage.recorder.count("press"), 10);
        QCOMPARE(stage.recorder.count("release"), 10);
        QCOMPARE(stage.recorder.count("clicked"), 10);
        QVERIFY(!stage.control->isMouseDown());
    }

    void doubleClick()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        const QPoint pos = stage.at(50, 40);
        stage.view.click(pos);
        stage.view.doubleClickPress(pos);
        QVERIFY(stage.control->isMouseDown());
        stage.view.release(pos);
        QCOMPARE(stage.recorder.take(), u"press release clicked press double release clicked"_s);
    }

    void pressedStateInTheSlots()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        QList<bool> states;
        const auto note = [&] { states.append(stage.control->isMouseDown()); };
        connect(stage.control, &KELRoundRectControl::mousePress, this, note);
        connect(stage.control, &KELRoundRectControl::mouseRelease, this, note);
        connect(stage.control, &KELRoundRectControl::mouseClicked, this, note);
        stage.view.click(stage.at(50, 40));
        QCOMPARE(states, QList<bool>({true, false, false}));
    }

    void positionsAreItemLocal_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<qreal>("rotation");
        QTest::addColumn<bool>("insideParent");

        QTest::newRow("as it is") << 1.0 << 0.0 << false;
        QTest::newRow("scaled by 2") << 2.0 << 0.0 << false;
        QTest::newRow("turned by 90 degrees") << 1.0 << 90.0 << false;
        QTest::newRow("inside a parent") << 1.0 << 0.0 << true;
    }

    void positionsAreItemLocal()
    {
        QFETCH(qreal, scale);
        QFETCH(qreal, rotation);
        QFETCH(bool, insideParent);
        Stage stage;
        stage.control->setboundRect(0, 0, 60, 60);
        KELRoundRectControl parent;
        if (insideParent) {
            parent.setboundRect(7, 9, 200, 200);
            stage.view.ownScene.addItem(&parent);
            stage.control->setParentItem(&parent);
            parent.setPos(5, 5);
        }
        stage.control->setPos(90, 40);
        stage.control->setRotation(rotation);
        stage.view.scale(scale, scale);
        QVERIFY(stage.view.showAndWait());
        stage.view.press(stage.at(30, 20));
        stage.view.move(stage.at(32, 22));
        stage.view.release(stage.at(33, 24));
        QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
        QCOMPARE(stage.recorder.positions, QList<QPointF>({QPointF(30, 20), QPointF(33, 24)}));
        stage.recorder.positions.clear();
        stage.view.press(stage.at(30, 20));
        stage.view.release(stage.at(90, -15));
        QCOMPARE(stage.recorder.positions, QList<QPointF>({QPointF(30, 20), QPointF(90, -15)}));
        delete stage.control;
    }

    void holding_data() { addPointerRows(); }

    void holding()
    {
        QFETCH(int, pointer);
        Stage stage;
        stage.control->setAcceptTouchEvents(pointer == AcceptedTouch);
        QVERIFY(stage.view.showAndWait());
        const Hand hand{stage, Pointer(pointer)};
        QElapsedTimer time;
        time.start();
        hand.press(stage.at(50, 40));
        QTRY_COMPARE(stage.recorder.count("long"), 1);
        QVERIFY2(time.elapsed() >= earliestLongPressMs,
                 qPrintable(QString::number(time.elapsed())));
        QVERIFY(stage.control->isMouseDown());
        hand.release(stage.at(50, 40));
        QCOMPARE(stage.recorder.take(), u"press long release"_s);
        QVERIFY(!stage.control->isMouseDown());
    }

    void secondPressStartsTheTimeAnew()
    {
        Stage stage;
        // Its presses are ignored: the second one comes without a release before.
        stage.control->setFlag(QGraphicsItem::ItemIsSelectable, false);
        QVERIFY(stage.view.showAndWait());
        press(&stage.view, stage.at(50, 40));
        QTest::qWait(150);
        if (stage.recorder.count("long") > 0)
            QSKIP("this machine is too slow for the test");
        QElapsedTimer time;
        time.start();
        press(&stage.view, stage.at(50, 40));
        QTRY_COMPARE(stage.recorder.count("long"), 1);
        QVERIFY2(time.elapsed() >= earliestLongPressMs,
                 qPrintable(QString::number(time.elapsed())));
        QTest::qWait(longPressMs);
        QCOMPARE(stage.recorder.take(), u"press press long"_s);
    }

    void timeOfALongPressIsExact()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        press(&stage.view, stage.at(50, 40));
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(stage.control);
        QCOMPARE(timers.size(), 1);
        QCOMPARE(timers.first().interval, longPressMs);
        // A coarse timer may fire 5 % early, and a tap of 480 ms would be none.
        QCOMPARE(timers.first().timerType, Qt::PreciseTimer);
    }

    void releaseStopsTheTime()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.view.click(stage.at(50, 40));
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
    }

    void movingWhilePressed_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QList<QPoint>>("moves");
        QTest::addColumn<bool>("clicks");

        using Moves = QList<QPoint>;
        QTest::newRow("by 5, 5") << 1.0 << Moves{{5, 5}} << true;
        QTest::newRow("by 6, 5") << 1.0 << Moves{{6, 5}} << false;
        QTest::newRow("by -5, 5") << 1.0 << Moves{{-5, 5}} << true;
        QTest::newRow("by -6, -5") << 1.0 << Moves{{-6, -5}} << false;
        QTest::newRow("by 5, -6") << 1.0 << Moves{{5, -6}} << false;
        QTest::newRow("by 10 along x") << 1.0 << Moves{{10, 0}} << true;
        QTest::newRow("by 11 along x") << 1.0 << Moves{{11, 0}} << false;
        QTest::newRow("by 11 along y") << 1.0 << Moves{{0, 11}} << false;
        // Farther than 10, yet not as the crow flies.
        QTest::newRow("by 7, 7") << 1.0 << Moves{{7, 7}} << false;
        QTest::newRow("in small steps") << 1.0 << Moves{{4, 0}, {8, 0}, {12, 0}} << false;
        QTest::newRow("to and fro within the slop")
            << 1.0 << Moves{{8, 0}, {-2, 0}, {8, 0}, {0, 8}, {0, 0}} << true;
        QTest::newRow("away and back") << 1.0 << Moves{{30, 30}, {0, 0}} << false;
        QTest::newRow("by 10, 10 on the screen, scaled by 2") << 2.0 << Moves{{10, 10}} << true;
        QTest::newRow("by 11, 10 on the screen, scaled by 2") << 2.0 << Moves{{11, 10}} << false;
        QTest::newRow("by 12, 10 on the screen, scaled by 2") << 2.0 << Moves{{12, 10}} << false;
        QTest::newRow("by 3, 2 on the screen, scaled by a half") << 0.5 << Moves{{3, 2}} << true;
        QTest::newRow("by 3, 3 on the screen, scaled by a half") << 0.5 << Moves{{3, 3}} << false;
    }

    void movingWhilePressed()
    {
        QFETCH(qreal, scale);
        QFETCH(QList<QPoint>, moves);
        QFETCH(bool, clicks);
        Stage stage;
        stage.view.scale(scale, scale);
        QVERIFY(stage.view.showAndWait());
        const QPoint start = stage.at(50, 40);
        stage.view.press(start);
        for (const QPoint &move : moves)
            stage.view.move(start + move);
        QVERIFY(stage.control->isMouseDown());
        stage.view.release(start + moves.last());
        QVERIFY(!stage.control->isMouseDown());
        QCOMPARE(stage.recorder.take(), clicks ? u"press release clicked"_s : u"press release"_s);
    }

    void movingByTouch_data()
    {
        QTest::addColumn<QPoint>("move");
        QTest::addColumn<QString>("expected");

        QTest::newRow("by 5, 5") << QPoint(5, 5) << u"press release clicked"_s;
        QTest::newRow("by 6, 5") << QPoint(6, 5) << u"press release"_s;
    }

    void movingByTouch()
    {
        QFETCH(QPoint, move);
        QFETCH(QString, expected);
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        const QPoint start = stage.at(50, 40);
        stage.view.touchPress(start);
        stage.view.touchMove(start + move);
        stage.view.touchRelease(start + move);
        QCOMPARE(stage.recorder.take(), expected);
    }

    void moveBeyondTheSlopCancelsTheLongPress()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.view.press(stage.at(50, 40));
        stage.view.move(stage.at(56, 45));
        QTest::qWait(wellAfterLongPressMs);
        QCOMPARE(stage.recorder.take(), u"press"_s);
        QVERIFY(stage.control->isMouseDown());
        stage.view.release(stage.at(56, 45));
        QCOMPARE(stage.recorder.take(), u"release"_s);
    }

    void unselectableControlStaysPressed()
    {
        Stage stage;
        stage.control->setFlag(QGraphicsItem::ItemIsSelectable, false);
        QVERIFY(stage.view.showAndWait());
        click(&stage.view, stage.at(50, 40));
        QCOMPARE(stage.recorder.take(), u"press"_s);
        QVERIFY(stage.control->isMouseDown());
        click(&stage.view, stage.at(60, 40));
        QCOMPARE(stage.recorder.take(), u"press"_s);
        QVERIFY(stage.control->isMouseDown());
        click(&stage.view, QPoint(1, 1));
        QCoreApplication::processEvents();
        QVERIFY(stage.control->isMouseDown());
        QVERIFY(stage.control->style()->isMouseDown);
    }

    void unselectableControlStillReportsTheLongPress()
    {
        Stage stage;
        stage.control->setFlag(QGraphicsItem::ItemIsSelectable, false);
        QVERIFY(stage.view.showAndWait());
        click(&stage.view, stage.at(50, 40));
        QTRY_COMPARE(stage.recorder.count("long"), 1);
        QCOMPARE(stage.recorder.take(), u"press long"_s);
        QVERIFY(stage.control->isMouseDown());
    }

    void rightButton_data()
    {
        QTest::addColumn<bool>("isButton");
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<QString>("expected");

        // Qt's selectable items take the left button only; the press is reported before it is given
        // up.
        QTest::newRow("selectable base, right button") << false << Qt::RightButton << u"press"_s;
        QTest::newRow("selectable base, middle button") << false << Qt::MiddleButton << u"press"_s;
        QTest::newRow("push button, right button") << true << Qt::RightButton << QString();
        QTest::newRow("push button, middle button") << true << Qt::MiddleButton << QString();
    }

    void rightButton()
    {
        QFETCH(bool, isButton);
        QFETCH(Qt::MouseButton, button);
        QFETCH(QString, expected);
        Stage stage(isButton);
        stage.control->setAcceptHoverEvents(false);
        QVERIFY(stage.view.showAndWait());
        const QPoint pos = stage.at(50, 40);
        press(&stage.view, pos, button);
        stage.view.release(pos, button);
        QCOMPARE(stage.recorder.take(), expected);
        click(&stage.view, pos);
        QCOMPARE(stage.recorder.take(), u"press release clicked"_s);
        QVERIFY(!stage.control->isMouseDown());
    }

    void hoverEntersAndLeaves()
    {
        Stage stage;
        stage.control->setAcceptHoverEvents(true);
        QVERIFY(stage.view.showAndWait());
        hover(&stage.view, QPoint(1, 1));
        stage.recorder.take();
        hover(&stage.view, stage.at(50, 40));
        hover(&stage.view, stage.at(52, 41));
        QCOMPARE(stage.recorder.take(), u"enter"_s);
        hover(&stage.view, QPoint(1, 1));
        QCOMPARE(stage.recorder.take(), u"leave"_s);
        hover(&stage.view, stage.at(50, 40));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(stage.view.viewport(), &leave);
        QCOMPARE(stage.recorder.take(), u"enter leave"_s);
    }

    void hoverIsOffByDefault()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        stage.view.viewport()->setMouseTracking(true);
        hover(&stage.view, stage.at(50, 40));
        hover(&stage.view, QPoint(1, 1));
        QCOMPARE(stage.recorder.take(), QString());
    }

    void contextMenuOpensAtTheScreenPosition()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        const QPoint pos = stage.at(50, 40);
        QPoint menuPos;
        int opened = 0;
        whenOpen(menu, [&] {
            ++opened;
            menuPos = menu->pos();
        });
        sendContextMenu(&stage.view, pos);
        QCOMPARE(opened, 1);
        QCOMPARE(menuPos, stage.view.viewport()->mapToGlobal(pos));
        QCOMPARE(stage.recorder.take(), QString());
    }

    void contextMenuEventWithoutMenuStaysIgnored()
    {
        Stage stage;
        auto *below = new KELRoundRectControl;
        below->setboundRect(0, 0, 300, 200);
        below->setZValue(-1);
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        below->style()->contextMenu = menu;
        stage.view.ownScene.addItem(below);
        QVERIFY(stage.view.showAndWait());
        int opened = 0;
        whenOpen(menu, [&] { ++opened; });
        sendContextMenu(&stage.view, stage.at(50, 40));
        QCOMPARE(opened, 1);
    }

    void longPressMenuOpensAtTheItemPosition_data()
    {
        QTest::addColumn<qreal>("scale");
        QTest::addColumn<QPoint>("viewportOffset"); // from item (50, 40)
        QTest::addColumn<QPoint>("expected");

        QTest::newRow("whole pixels") << 1.0 << QPoint(0, 0) << QPoint(50, 40);
        QTest::newRow("halves are rounded up") << 2.0 << QPoint(1, -1) << QPoint(51, 40);
        QTest::newRow("quarters are rounded off") << 4.0 << QPoint(1, -1) << QPoint(50, 40);
        QTest::newRow("three quarters are rounded") << 4.0 << QPoint(3, -3) << QPoint(51, 39);
    }

    void longPressMenuOpensAtTheItemPosition()
    {
        QFETCH(qreal, scale);
        QFETCH(QPoint, viewportOffset);
        QFETCH(QPoint, expected);
        Stage stage;
        stage.view.scale(scale, scale);
        stage.view.QWidget::move(130, 170);
        QVERIFY(stage.view.showAndWait());
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        QPoint menuPos;
        int opened = 0;
        whenOpen(menu, [&] {
            ++opened;
            menuPos = menu->pos();
        });
        stage.view.press(stage.at(50, 40) + viewportOffset);
        QTRY_COMPARE(opened, 1);
        QCOMPARE(menuPos, expected);
        QTRY_VERIFY(!menu->isVisible());
        QCOMPARE(stage.recorder.take(), u"press long"_s);
        stage.view.release(stage.at(50, 40));
        QCOMPARE(stage.recorder.take(), u"release"_s);
    }

    void longPressComesBeforeItsMenu()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        QString signalsBefore;
        bool open = true;
        connect(stage.control, &KELRoundRectControl::mouseLongPress, this,
                [&] { open = menu->isVisible(); });
        bool seen = false;
        whenOpen(menu, [&] {
            seen = true;
            signalsBefore = stage.recorder.take();
        });
        stage.view.press(stage.at(50, 40));
        QTRY_VERIFY(seen);
        QCOMPARE(open, false);
        QCOMPARE(signalsBefore, u"press long"_s);
    }

    void menuSetInTheLongPressSlotOpens()
    {
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        connect(stage.control, &KELRoundRectControl::mouseLongPress, this,
                [&] { stage.control->style()->contextMenu = menu; });
        int opened = 0;
        whenOpen(menu, [&] { ++opened; });
        stage.view.press(stage.at(50, 40));
        QTRY_COMPARE(opened, 1);
    }

    void controlDiesInASlot_data()
    {
        QTest::addColumn<QString>("in");
        QTest::addColumn<bool>("later");
        QTest::addColumn<bool>("selectable");
        QTest::addColumn<QString>("expected");

        const struct
        {
            const char *in;
            const char *expected;
        } rows[] = {
            {"press", "press"},
            {"release", "press release"},
            {"clicked", "press release clicked"},
            {"double", "press release clicked press double"},
            {"long", "press release clicked press double long"},
            {"enter", "enter"},
            {"leave", "enter leave"},
        };
        for (const auto &row : rows) {
            const QString in = QLatin1String(row.in);
            QTest::addRow("deleted in %s", row.in)
                << in << false << true << QString(QLatin1String(row.expected));
        }
        QTest::newRow("deleted in press, not selectable")
            << u"press"_s << false << false << u"press"_s;
        QTest::newRow("deleted later in press") << u"press"_s << true << true << u"press"_s;
        QTest::newRow("deleted later in clicked")
            << u"clicked"_s << true << true << u"press release clicked"_s;
    }

    void controlDiesInASlot()
    {
        QFETCH(QString, in);
        QFETCH(bool, later);
        QFETCH(bool, selectable);
        QFETCH(QString, expected);
        Stage stage;
        stage.control->setFlag(QGraphicsItem::ItemIsSelectable, selectable);
        stage.control->setAcceptHoverEvents(in == QLatin1String("enter")
                                            || in == QLatin1String("leave"));
        auto *menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        QVERIFY(stage.view.showAndWait());
        const auto die = [&] {
            if (stage.recorder.names.last() != in)
                return;
            if (later)
                stage.control->deleteLater();
            else
                delete stage.control;
        };
        connect(stage.control, &KELRoundRectControl::mousePress, this, die);
        connect(stage.control, &KELRoundRectControl::mouseRelease, this, die);
        connect(stage.control, &KELRoundRectControl::mouseClicked, this, die);
        connect(stage.control, &KELRoundRectControl::mouseDoubleClicked, this, die);
        connect(stage.control, &KELRoundRectControl::mouseLongPress, this, die);
        connect(stage.control, &KELRoundRectControl::mouseEnter, this, die);
        connect(stage.control, &KELRoundRectControl::mouseLeave, this, die);

        const QPoint pos = stage.at(50, 40);
        const std::function<void()> steps[] = {
            [&] { hover(&stage.view, pos); },          [&] { hover(&stage.view, QPoint(1, 1)); },
            [&] { press(&stage.view, pos); },          [&] { stage.view.release(pos); },
            [&] { stage.view.doubleClickPress(pos); },
        };
        for (const auto &step : steps) {
            if (!stage.control)
                break;
            step();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QTRY_VERIFY(!stage.control);
        stage.view.release(pos);
        click(&stage.view, pos);
        QCOMPARE(stage.recorder.take(), expected);
    }

    void controlDiesWhileItsMenuIsOpen_data()
    {
        QTest::addColumn<bool>("longPress");
        QTest::addColumn<bool>("later");

        QTest::newRow("long press, deleted") << true << false;
        QTest::newRow("long press, deleted later") << true << true;
        QTest::newRow("context menu event, deleted") << false << false;
        QTest::newRow("context menu event, deleted later") << false << true;
    }

    void controlDiesWhileItsMenuIsOpen()
    {
        QFETCH(bool, longPress);
        QFETCH(bool, later);
        Stage stage;
        QVERIFY(stage.view.showAndWait());
        const QPointer<QMenu> menu = new QMenu;
        menu->addAction(u"One"_s);
        stage.control->style()->contextMenu = menu;
        whenOpen(menu, [&] {
            if (later)
                stage.control->deleteLater();
            else
                delete stage.control;
        });
        const QPoint pos = stage.at(50, 40);
        if (longPress)
            stage.view.press(pos);
        else
            sendContextMenu(&stage.view, pos);
        QTRY_VERIFY(!stage.control);
        QTRY_VERIFY(!menu);
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControlPointer)

#include "tst_kelroundrectcontrolpointer.moc"
