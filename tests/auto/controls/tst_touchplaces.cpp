// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "touchstage.h"

#include <QtGui/QWindow>
#include <QtWidgets/QGraphicsProxyWidget>

namespace {

// Sends the touches of a window to another one instead.
class Forwarder : public QObject
{
public:
    Forwarder(QWindow *from, QWindow *to) : m_to(to) { from->installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        Q_UNUSED(watched)
        if (event->type() < QEvent::TouchBegin || event->type() > QEvent::TouchEnd)
            return false;
        QTouchEvent copy(*static_cast<QTouchEvent *>(event));
        QCoreApplication::sendEvent(m_to, &copy);
        return true;
    }

private:
    QWindow *const m_to;
};

} // namespace

// Second fingers in places, and at times, that a panel rarely reports.
class tst_TouchPlaces : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void secondFingerInAnotherWindow()
    {
        TouchStage stage;
        TouchStage other;
        other.view.setGeometry(400, 0, 400, 300);
        other.view.showOnce();
        stage.play({down(0, at(0))});
        other.play({down(1, at(3)), up(1)});
        stage.play({up(0)});
        QCOMPARE(other.takeClicks(), u"3"_s);
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    void secondFingerOnAChildWhoseParentHandlesIt()
    {
        TouchStage stage;
        auto *const child = new KELPushButton(stage.key(3));
        child->setboundRect(10, 10, 20, 20);
        stage.key(3)->setHandlesChildEvents(true);
        const QPoint onChild = cornerOf(3) + QPoint(20, 20);
        stage.play({down(0, at(0)), down(1, onChild), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"3 0"_s);
    }

    void secondFingerOnAnEmptyProxy()
    {
        TouchStage stage;
        auto *const proxy = new QGraphicsProxyWidget;
        proxy->setGeometry(QRectF(cornerOf(3), QSizeF(keySizePx, keySizePx)));
        proxy->setZValue(1);
        stage.view.ownScene.addItem(proxy);
        stage.play({down(0, at(0)), down(1, at(3)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    // Its release never reached the window.
    void secondFingerComesDownTwice()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, at(3)), down(1, at(4)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"4 0"_s);
    }

    void secondFingerCancelsAllInItsPress()
    {
        TouchStage stage;
        stage.keypad.log.on(u"3.press"_s, [&] { stage.fingers().cancel(); });
        stage.play({down(0, at(0)), down(1, at(3))});
        QVERIFY(!stage.key(0)->isMouseDown());
        QVERIFY(!stage.key(3)->isMouseDown());
        QCOMPARE(stage.takeClicks(), QString());
        stage.play({down(0, at(5)), up(0)});
        QCOMPARE(stage.takeClicks(), u"5"_s);
    }

    void cancelInThePressOfOneOfTwoFingers()
    {
        TouchStage stage;
        stage.keypad.log.on(u"3.press"_s, [&] { stage.fingers().cancel(); });
        stage.fingers().press(0, at(0));
        stage.fingers().pressBoth(1, at(3), 2, at(5));
        QCOMPARE(stage.keypad.log.count(u"3.press"_s), 1);
        QCOMPARE(stage.keypad.log.count(u"5.press"_s), 0);
    }

    // It is never painted, which Qt would do for ever.
    void secondFingerOnAViewThatShowsItself()
    {
        TouchStage stage;
        auto *const inner = new QGraphicsView(&stage.view.ownScene);
        inner->setUpdatesEnabled(false);
        inner->setFrameShape(QFrame::NoFrame);
        inner->setSceneRect(0, 200, 100, 100);
        inner->resize(100, 100);
        QGraphicsProxyWidget *const proxy = stage.view.ownScene.addWidget(inner);
        proxy->setFlag(QGraphicsItem::ItemHasNoContents);
        proxy->setPos(0, 200);
        stage.play({down(0, at(0)), down(1, QPoint(50, 250)), up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    // Also of one that accepts touches.
    void fingerOnAChildOfAKeyPressesTheKey()
    {
        TouchStage stage;
        auto *const child = new KELCheckBox(stage.key(1));
        child->setboundRect(0, 0, keySizePx, keySizePx);
        stage.play({down(0, at(1)), up(0)});
        QCOMPARE(stage.take(), u"1.press 1.release 1.clicked"_s);
    }

    void secondFingerOpensSomethingThatFilters_data()
    {
        addRows({{"isAtPress", {{"when it presses", true}, {"when it taps", false}}}});
    }

    // Qt calls a filter of the application twice for an event during which another one is
    // installed.
    void secondFingerOpensSomethingThatFilters()
    {
        TouchStage stage;
        QObject filter;
        stage.keypad.log.on(fetch<bool>("isAtPress") ? u"3.press"_s : u"3.clicked"_s,
                            [&] { qApp->installEventFilter(&filter); });
        stage.play({down(0, at(1))});
        stage.take();
        stage.play({down(1, at(3)), up(1)});
        QCOMPARE(stage.take(), u"3.press 3.release 3.clicked"_s);
        QVERIFY(!stage.key(3)->style()->isMouseDown);
    }

    // As an application does whose windows show one picture in two places.
    void secondFingerIsForwardedToAnotherWindow()
    {
        TouchStage stage;
        TouchStage other;
        other.view.showOnce(); // in the same place
        stage.play({down(0, at(0))});
        const Forwarder forwarder(stage.view.windowHandle(), other.view.windowHandle());
        stage.play({down(1, at(3)), up(1)});
        QVERIFY(other.takeClicks().startsWith(u"3"_s)); // Qt may tap there once more
    }

    // Qt takes the next finger for the mouse, while the second one stays where it is.
    void firstFingerLeavesAndAnotherWindowIsTapped()
    {
        TouchStage stage;
        TouchStage other;
        other.view.setGeometry(400, 0, 400, 300);
        other.view.showOnce();
        stage.play({down(0, at(0)), down(1, at(1)), up(0)});
        other.play({down(2, at(3)), up(2)});
        QCOMPARE(other.take(), u"3.press 3.release 3.clicked"_s);
        QCOMPARE(stage.takeClicks(), u"0"_s);
        QVERIFY(stage.key(1)->isMouseDown());
    }

    void secondFingerInAWindowWithoutWidgets()
    {
        TouchStage stage;
        QWindow plain;
        plain.setGeometry(400, 0, 200, 200);
        plain.show();
        stage.play({down(0, at(0))});
        QTouchDevice *const panel = QTest::createTouchDevice();
        QTest::touchEvent(&plain, panel).press(1, QPoint(50, 50), &plain);
        QTest::touchEvent(&plain, panel).release(1, QPoint(50, 50), &plain);
        stage.play({up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }

    void secondFingerOnTheWindowBesideTheView()
    {
        QWidget window;
        window.resize(500, 400);
        TouchStage stage;
        stage.view.setParent(&window);
        stage.play({down(0, at(0))});
        stage.fingers().pressIn(&window, 1, QPoint(450, 350));
        stage.play({up(1), up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
        stage.view.setParent(nullptr);
    }

    // The first finger is where a key was, the second one on nothing.
    void cancelAfterTheKeyDied()
    {
        TouchStage stage;
        stage.play({down(0, at(0)), down(1, onNothing)});
        delete stage.key(0);
        stage.fingers().cancel();
        stage.take();
        stage.play({down(0, at(5)), up(0)});
        QCOMPARE(stage.take(), u"5.press 5.release 5.clicked"_s);
    }

    // As an application may send it.
    void cancelWithoutADevice()
    {
        TouchStage stage;
        stage.play({down(0, at(0))});
        QTouchEvent cancel(QEvent::TouchCancel);
        QCoreApplication::sendEvent(stage.view.windowHandle(), &cancel);
        stage.play({up(0)});
        QCOMPARE(stage.takeClicks(), u"0"_s);
    }
};

KEL_TEST_MAIN(tst_TouchPlaces)

#include "tst_touchplaces.moc"
