// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "livingobjects.h"
#include "pinstage.h"
#include "signallog.h"
#include "stage.h"

#include <kelmotion.h>
#include <kelrange.h>

#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QLineEdit>

namespace {

const std::vector<Named> keysThatCancel{
    {"escape", Qt::Key_Escape}, {"back", Qt::Key_Back}, {"cancel", Qt::Key_Cancel}};
const std::vector<Named> keysThatRemove{{"backspace", Qt::Key_Backspace},
                                        {"delete", Qt::Key_Delete}};

} // namespace

class tst_KELPinDialog : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void theLastDigitEntersThePin_data() { addRows({{"input", inputs}}); }

    void theLastDigitEntersThePin()
    {
        PinStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.tapDigits(u"907"_s);
        QCOMPARE(stage.log.take(), QString());
        stage.tapDigits(u"3"_s);
        QCOMPARE(stage.log.take(), u"entered"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"9073"_s});
        QVERIFY(stage.dialog->isOpen());
    }

    void everyDigitHasAKey()
    {
        PinStage stage;
        stage.dialog->setPinLength(10);
        stage.tapDigits(u"1234567890"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"1234567890"_s});
    }

    void twoThumbsType()
    {
        PinStage stage;
        stage.dialog->setPinLength(12);
        Fingers &fingers = stage.hand.fingers();
        const QString digits = u"160594382751"_s;
        for (int i = 0; i < digits.size(); ++i) {
            fingers.press(i % 2, stage.centreOf(stage.key(digits.at(i))));
            if (i > 0)
                fingers.release((i + 1) % 2);
        }
        fingers.release(1);
        QCOMPARE(stage.log.take(), u"entered"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{digits});
    }

    void aThumbThatRestsDoesNotKeepTheOtherFromTyping()
    {
        PinStage stage;
        Fingers &fingers = stage.hand.fingers();
        fingers.press(0, stage.centreOf(stage.key(u'5')));
        for (int i = 0; i < 3; ++i)
            fingers.tap(1, stage.centreOf(stage.key(u'8')));
        fingers.release(0);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"5888"_s});
    }

    void aKeyThatIsHeldOrLeftCounts()
    {
        PinStage stage;
        stage.dialog->setPinLength(2);
        stage.hand.press(stage.centreOf(stage.key(u'4')));
        endLongPressTime(stage.key(u'4'));
        stage.hand.release();
        stage.hand.drag(stage.centreOf(stage.key(u'2')), QPoint(5, 5));
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"42"_s});
    }

    void aKeyRemovesTheLastDigit_data() { addRows({{"input", inputs}}); }

    void aKeyRemovesTheLastDigit()
    {
        PinStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.tapDigits(u"12"_s);
        for (int i = 0; i < 3; ++i) // one more than there are
            stage.hand.tap(stage.centreOf(stage.removeKey()));
        stage.tapDigits(u"34"_s);
        stage.hand.doubleTap(stage.centreOf(stage.removeKey()));
        stage.tapDigits(u"5678"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"5678"_s});
    }

    void aKeyboardEntersThePin_data()
    {
        addRows({{"modifier",
                  {{"none", Qt::NoModifier},
                   {"keypad", Qt::KeypadModifier},
                   {"shift", Qt::ShiftModifier}}},
                 {"remove", keysThatRemove}});
    }

    void aKeyboardEntersThePin()
    {
        PinStage stage;
        const auto modifier = fetch<Qt::KeyboardModifier>("modifier");
        stage.press(Qt::Key_8);
        stage.press(fetch<Qt::Key>("remove"));
        for (const int key : {Qt::Key_0, Qt::Key_9, Qt::Key_1, Qt::Key_2})
            stage.press(Qt::Key(key), modifier);
        QCOMPARE(stage.log.take(), u"entered"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"0912"_s});
    }

    void otherKeysOfAKeyboardDoNothing()
    {
        PinStage stage;
        stage.dialog->setPinLength(1);
        stage.press(Qt::Key_1, Qt::ControlModifier);
        stage.press(Qt::Key_A);
        stage.press(Qt::Key_Colon);
        stage.press(Qt::Key_Slash);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, u"1"_s, true);
        QCoreApplication::sendEvent(&stage.view, &repeated);
        QCOMPARE(stage.log.take(), QString());
    }

    void acceptClosesTheDialog()
    {
        PinStage stage;
        stage.log.on(u"entered"_s, [&stage] { stage.dialog->accept(); });
        stage.log.on(u"accepted"_s, [&stage] {
            QVERIFY(!stage.dialog->isOpen());
            QVERIFY(!stage.dialog->isVisible());
        });
        stage.tapDigits(u"1234"_s);
        QCOMPARE(stage.log.take(), u"entered accepted"_s);
        letEventsRun();
        QCOMPARE(stage.log.take(), u"closed"_s);
        stage.dialog->accept();
        stage.dialog->cancel();
        stage.dialog->reject();
        letEventsRun();
        QCOMPARE(stage.log.take(), QString());
    }

    void theCrossCancels_data() { addRows({{"input", inputs}}); }

    void theCrossCancels()
    {
        PinStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.drag(stage.centreOf(stage.cancelKey()), QPoint(5, 5));
        QVERIFY(stage.dialog->isOpen());
        stage.hand.tap(stage.centreOf(stage.cancelKey()));
        QVERIFY(!stage.dialog->isOpen());
        letEventsRun();
        QCOMPARE(stage.log.take(), u"cancelled closed"_s);
    }

    void aKeyboardCancels_data() { addRows({{"key", keysThatCancel}}); }

    void aKeyboardCancels()
    {
        PinStage stage;
        stage.press(fetch<Qt::Key>("key"));
        letEventsRun();
        QCOMPARE(stage.log.take(), u"cancelled closed"_s);
    }

    void rejectRemovesTheDigits()
    {
        PinStage stage;
        stage.log.on(u"entered"_s, [&stage] { stage.dialog->reject(); });
        stage.tapDigits(u"12341111"_s);
        QCOMPARE(stage.log.take(), u"entered entered"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"1111"_s});
        QVERIFY(stage.dialog->isOpen());
    }

    void itTakesTheDirectionOfItsView_data()
    {
        addRows({{"own direction", {{"none", -1}, {"left to right", Qt::LeftToRight}}}});
    }

    void itTakesTheDirectionOfItsView()
    {
        const int own = fetch<int>("own direction");
        PinStage stage;
        stage.dialog->cancel();
        QTRY_VERIFY(!stage.dialog->isOpen());
        if (own >= 0)
            stage.dialog->setLayoutDirection(Qt::LayoutDirection(own));
        stage.view.setLayoutDirection(Qt::RightToLeft);
        stage.dialog->open(&stage.view.ownScene);
        QCOMPARE(stage.dialog->layoutDirection(), own >= 0 ? Qt::LeftToRight : Qt::RightToLeft);
        stage.dialog->cancel();
        stage.view.setLayoutDirection(Qt::LeftToRight);
        stage.dialog->open(&stage.view.ownScene);
        QCOMPARE(stage.dialog->layoutDirection(), Qt::LeftToRight);
    }

    void digitsAreIgnoredUntilTheAnswer()
    {
        PinStage stage;
        stage.tapDigits(u"12345"_s);
        stage.hand.tap(stage.centreOf(stage.removeKey()));
        stage.tapDigits(u"6"_s);
        QCOMPARE(stage.log.take(), u"entered"_s);
        stage.dialog->reject();
        stage.tapDigits(u"6789"_s);
        QCOMPARE(stage.log.take(), u"entered"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"6789"_s});
    }

    void aWrongPinShakesTheDialog_data()
    {
        addRows({{"shaken by", {{"reject", 0}, {"return", Qt::Key_Return}}},
                 {"moves", {{"no", 0}, {"yes", 1}}}});
    }

    void aWrongPinShakesTheDialog()
    {
        PinStage stage;
        const bool moves = fetch<bool>("moves");
        KELMotion::setEnabled(moves);
        const QPoint rest = stage.centreOf(stage.key(u'5'));
        double mostLeft = 0;
        double mostRight = 0;
        const auto *const keypad = stage.key(u'5')->parentWidget();
        connect(keypad, &QGraphicsObject::xChanged, keypad, [&mostLeft, &mostRight, keypad] {
            mostLeft = qMin(mostLeft, keypad->x());
            mostRight = qMax(mostRight, keypad->x());
        });
        const auto key = fetch<int>("shaken by");
        if (key == 0)
            stage.dialog->reject();
        else
            stage.press(Qt::Key(key));
        KELMotion::setEnabled(true);
        QCOMPARE(stage.centreOf(stage.key(u'5')), rest);
        if (moves)
            QTRY_VERIFY(mostLeft < -2 && mostRight > 2);
        QTRY_COMPARE(stage.centreOf(stage.key(u'5')), rest);
        QCOMPARE(mostLeft < 0 || mostRight > 0, moves);
        QCOMPARE(stage.dialog->pos(), QPointF());
    }

    void returnKeepsTheDigits()
    {
        PinStage stage;
        stage.tapDigits(u"123"_s);
        stage.press(Qt::Key_Return);
        stage.tapDigits(u"4"_s);
        QCOMPARE(stage.log.lastArguments(), QVariantList{u"1234"_s});
    }

    void whatIsBehindGetsNothing_data()
    {
        addRows({{"input", inputs},
                 {"button", {{"left", Qt::LeftButton}, {"right", Qt::RightButton}}}});
    }

    void whatIsBehindGetsNothing()
    {
        PinStage stage;
        stage.hand.use(fetch<Input>("input"));
        const QPoint behind = stage.centreOf(stage.behind);
        stage.hand.press(behind, fetch<Qt::MouseButton>("button"));
        stage.hand.release(behind, fetch<Qt::MouseButton>("button"));
        stage.hand.hover(behind);
        stage.hand.hover(behind + QPoint(5, 5));
        stage.hand.openContextMenu(behind);
        QCOMPARE(stage.logBehind.takeWithHover(), QString());
        QVERIFY(stage.dialog->isOpen());
        stage.dialog->accept();
        stage.hand.tap(behind);
        QVERIFY(stage.logBehind.count(u"clicked"_s) == 1);
    }

    void aFurtherFingerGetsThroughToNothing()
    {
        PinStage stage;
        stage.hand.fingers().press(0, stage.centreOf(stage.key(u'5')));
        stage.hand.fingers().tap(1, stage.centreOf(stage.behind));
        QCOMPARE(stage.logBehind.take(), QString());
    }

    void theWheelReachesNothingBehind()
    {
        PinStage stage;
        auto *range = new KELRange;
        range->setGeometry(0, 0, 480, 272);
        stage.view.ownScene.addItem(range);
        const QPointF pos(5, 100);
        const auto turn = [&] {
            QWheelEvent event(pos, stage.view.viewport()->mapToGlobal(pos.toPoint()), QPoint(),
                              QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(stage.view.viewport(), &event);
        };
        turn();
        QCOMPARE(range->value(), 0.0);
        stage.dialog->cancel();
        turn();
        QVERIFY(range->value() > 0);
    }

    void isNotTheActivePanel()
    {
        KelTestView first(QSize(480, 272));
        KelTestView second(QSize(480, 272));
        first.showOnce();
        auto *dialog = new KELPinDialog;
        dialog->open(&first.ownScene);
        QCOMPARE(first.ownScene.activePanel(), nullptr);
        dialog->cancel();
        second.showOnce();
        dialog->open(&second.ownScene);
        QCOMPARE(second.ownScene.activePanel(), nullptr);
        dialog->cancel();
        dialog->open(&second.ownScene);
        QCOMPARE(second.ownScene.activePanel(), nullptr);
    }

    void aPressThatIsGoingOnBehindIsLost()
    {
        PinStage stage(false);
        stage.hand.press(stage.centreOf(stage.behind));
        QVERIFY(stage.behind->isMouseDown());
        stage.dialog->open(&stage.view.ownScene);
        QVERIFY(!stage.behind->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.logBehind.count(u"clicked"_s), 0);
    }

    void theFocusStays_data() { addRows({{"input", inputs}}); }

    void theFocusStays()
    {
        PinStage stage(false);
        auto *proxy = stage.view.ownScene.addWidget(new QLineEdit);
        proxy->setFocus();
        stage.hand.use(fetch<Input>("input"));
        QGraphicsItem *const activePanel = stage.view.ownScene.activePanel();
        stage.dialog->open(&stage.view.ownScene);
        stage.press(Qt::Key_5);
        QCOMPARE(stage.view.ownScene.activePanel(), activePanel);
        stage.hand.tap(stage.centreOf(stage.key(u'5')));
        stage.hand.tap(stage.centreOf(stage.behind));
        stage.dialog->accept();
        QCOMPARE(stage.view.ownScene.focusItem(), proxy);
        QTest::keyClick(stage.view.viewport(), Qt::Key_6);
        QCOMPARE(static_cast<QLineEdit *>(proxy->widget())->text(), u"6"_s);
    }
};

KEL_TEST_MAIN(tst_KELPinDialog)
#include "tst_kelpindialog.moc"
