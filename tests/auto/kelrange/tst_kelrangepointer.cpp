// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "signallog.h"
#include "stage.h"

#include <kelrange.h>

#include <QtGui/QWheelEvent>

namespace {

const std::vector<Named> directions{{"left to right", Qt::LeftToRight},
                                    {"right to left", Qt::RightToLeft}};
const std::vector<Named> ways{{"delete", 0}, {"deleteLater", 1}, {"delete its parent", 2}};

// A range whose knob moves 2 px for each unit, in a view.
class RangeStage
{
public:
    explicit RangeStage(Qt::Orientation orientation = Qt::Horizontal)
    {
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        parent = new QGraphicsWidget;
        range = new KELRange(parent);
        range->setOrientation(orientation);
        if (orientation == Qt::Horizontal)
            range->setGeometry(50, 100, 236, 60);
        else
            range->setGeometry(150, 20, 60, 236);
        view.ownScene.addItem(parent);
        log.listenTo(range);
    }

    // Where the middle of the knob is at a value.
    QPoint at(double value) const
    {
        if (range->orientation() == Qt::Vertical)
            return QPoint(180, qRound(238 - 2 * value));
        if (range->layoutDirection() == Qt::RightToLeft)
            return QPoint(qRound(268 - 2 * value), 130);
        return QPoint(qRound(68 + 2 * value), 130);
    }

    void turnWheel(int delta, Qt::Orientation orientation = Qt::Vertical)
    {
        view.showOnce();
        const QPoint pos = at(50);
        const QPoint angle = orientation == Qt::Vertical ? QPoint(0, delta) : QPoint(delta, 0);
        QWheelEvent event(pos, view.viewport()->mapToGlobal(pos), QPoint(), angle, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        view.ownScene.sendEvent(range, &event);
    }

    KelTestView view;
    QPointer<QGraphicsWidget> parent;
    QPointer<KELRange> range;
    SignalLog log;
    Hand hand{&view};
};

} // namespace

class tst_KELRangePointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aPressAnywhereTakesHold_data() { addRows({{"input", inputs}, {"direction", directions}}); }

    void aPressAnywhereTakesHold()
    {
        RangeStage stage;
        stage.range->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.at(60));
        QCOMPARE(stage.log.take(), u"pressed valueChanged"_s);
        QCOMPARE(stage.range->value(), 60.0);
        stage.hand.move(stage.at(30));
        QCOMPARE(stage.range->value(), 30.0);
        QCOMPARE(stage.log.take(), u"valueChanged"_s);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"released"_s);
        QVERIFY(!stage.range->isPressed());
        QCOMPARE(stage.range->value(), 30.0);
    }

    void upIsMoreInAVerticalRange()
    {
        RangeStage stage(Qt::Vertical);
        stage.hand.press(stage.at(70));
        QCOMPARE(stage.range->value(), 70.0);
        stage.hand.move(stage.at(20));
        QCOMPARE(stage.range->value(), 20.0);
        stage.hand.release();
    }

    void aPressOnTheKnobKeepsTheGrip_data() { addRows({{"input", inputs}}); }

    void aPressOnTheKnobKeepsTheGrip()
    {
        RangeStage stage;
        stage.range->setValue(33.3); // not on a pixel
        stage.log.take();
        stage.hand.use(fetch<Input>("input"));
        const QPoint grip = stage.at(33.3) + QPoint(11, 20);
        stage.hand.press(grip);
        QCOMPARE(stage.range->value(), 33.3);
        stage.hand.move(grip + QPoint(40, 0));
        QCOMPARE(stage.range->value(), 53.3);
        stage.hand.move(grip);
        QCOMPARE(stage.range->value(), 33.3);
        stage.hand.release();
        stage.log.take();
        stage.hand.tap(grip);
        QCOMPARE(stage.log.take(), u"pressed released"_s);
    }

    void aFingerThatStaysChangesNothing()
    {
        RangeStage stage;
        stage.range->setValue(0.1); // which the place of the finger gives back a little less
        stage.log.take();
        stage.hand.tap(stage.at(0.1) - QPoint(13, 0));
        QCOMPARE(stage.log.take(), u"pressed released"_s);
        QVERIFY(stage.range->value() == 0.1);
    }

    void onlyMovesAlongTheTrackCount()
    {
        RangeStage stage;
        stage.hand.press(stage.at(60));
        stage.log.take();
        stage.hand.move(stage.at(60) + QPoint(0, -90));
        stage.hand.move(stage.at(60) + QPoint(0, 120));
        QCOMPARE(stage.log.take(), QString());
        stage.hand.move(stage.at(80) + QPoint(0, 120));
        QCOMPARE(stage.range->value(), 80.0);
        stage.hand.release();
    }

    void theEndsAreReachedExactly()
    {
        RangeStage stage;
        stage.range->setRange(0.2, 0.9); // 0.2 + (0.9 - 0.2) is less than 0.9
        stage.hand.press(stage.at(50));
        stage.hand.move(stage.at(100));
        QVERIFY(stage.range->value() == 0.9);
        stage.hand.move(stage.at(40));
        stage.hand.move(QPoint(390, 130));
        QVERIFY(stage.range->value() == 0.9);
        stage.hand.move(QPoint(2, 130));
        QVERIFY(stage.range->value() == 0.2);
        stage.hand.release();
    }

    void theReleaseCounts_data() { addRows({{"input", inputs}}); }

    void theReleaseCounts()
    {
        RangeStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.at(60));
        stage.hand.release(stage.at(65));
        QCOMPARE(stage.range->value(), 65.0);
        QCOMPARE(stage.log.take(), u"pressed valueChanged valueChanged released"_s);
    }

    void theKnobGoesInSteps()
    {
        RangeStage stage;
        stage.range->setStep(25);
        stage.hand.press(stage.at(55));
        QCOMPARE(stage.range->value(), 50.0);
        stage.hand.move(stage.at(60));
        QCOMPARE(stage.log.take(), u"pressed valueChanged"_s);
        stage.hand.move(stage.at(63));
        QCOMPARE(stage.range->value(), 75.0);
        stage.hand.release();
    }

    void aTapAfterATapIsATap()
    {
        RangeStage stage;
        stage.hand.doubleTap(stage.at(60));
        QCOMPARE(stage.log.take(), u"pressed valueChanged released pressed released"_s);
    }

    void otherButtonsDoNothing()
    {
        RangeStage stage;
        stage.hand.press(stage.at(60), Qt::RightButton);
        stage.hand.release(stage.at(60), Qt::RightButton);
        QCOMPARE(stage.log.take(), QString());
        stage.hand.press(stage.at(60));
        stage.log.take();
        stage.hand.press(stage.at(60), Qt::RightButton);
        QVERIFY(stage.range->isPressed());
        QCOMPARE(stage.log.take(), QString());
    }

    void aLostPressKeepsTheValue_data()
    {
        addRows({{"loss", {{"hidden", 0}, {"disabled", 1}, {"removed", 2}, {"ungrabbed", 3}}}});
    }

    void aLostPressKeepsTheValue()
    {
        RangeStage stage;
        stage.hand.press(stage.at(60));
        stage.log.take();
        KELRange *const range = stage.range;
        switch (fetch<int>("loss")) {
        case 0:
            range->hide();
            break;
        case 1:
            range->setEnabled(false);
            break;
        case 2:
            stage.view.ownScene.removeItem(range);
            break;
        default:
            range->ungrabMouse();
        }
        QVERIFY(!range->isPressed());
        letEventsRun();
        QCOMPARE(stage.log.take(), u"released"_s);
        stage.hand.move(stage.at(20));
        stage.hand.release();
        QCOMPARE(range->value(), 60.0);
        QCOMPARE(stage.log.take(), QString());
        if (fetch<int>("loss") == 2)
            delete range;
    }

    void aSlotMayHideThePressedRange_data()
    {
        addRows({{"entry", {{"in pressed", 0}, {"in valueChanged", 1}}}});
    }

    void aSlotMayHideThePressedRange()
    {
        RangeStage stage;
        const bool isInPressed = fetch<int>("entry") == 0;
        stage.log.on(isInPressed ? u"pressed"_s : u"valueChanged"_s, [&] { stage.range->hide(); });
        stage.hand.press(stage.at(60));
        QVERIFY(!stage.range->isPressed());
        letEventsRun();
        QCOMPARE(stage.log.take(),
                 isInPressed ? u"pressed released"_s : u"pressed valueChanged released"_s);
    }

    void aSlotMaySetTheValueWhilePressed()
    {
        RangeStage stage;
        connect(stage.range, &KELRange::valueChanged, stage.range,
                [&] { stage.range->setValue(qMin(50.0, stage.range->value())); });
        stage.hand.press(stage.at(60));
        QCOMPARE(stage.range->value(), 50.0);
        stage.hand.move(stage.at(40));
        QCOMPARE(stage.range->value(), 40.0);
        stage.hand.release();
    }

    void keysMoveByAStep_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("mirrored");
        QTest::newRow("right") << int(Qt::Key_Right) << 5.0 << 55.0 << 45.0;
        QTest::newRow("left") << int(Qt::Key_Left) << 5.0 << 45.0 << 55.0;
        QTest::newRow("up") << int(Qt::Key_Up) << 5.0 << 55.0 << 55.0;
        QTest::newRow("down") << int(Qt::Key_Down) << 5.0 << 45.0 << 45.0;
        QTest::newRow("page up") << int(Qt::Key_PageUp) << 2.0 << 70.0 << 70.0;
        QTest::newRow("page down") << int(Qt::Key_PageDown) << 2.0 << 30.0 << 30.0;
        QTest::newRow("home") << int(Qt::Key_Home) << 5.0 << 0.0 << 0.0;
        QTest::newRow("end") << int(Qt::Key_End) << 5.0 << 100.0 << 100.0;
        QTest::newRow("right without a step") << int(Qt::Key_Right) << 0.0 << 51.0 << 49.0;
        QTest::newRow("page up without one") << int(Qt::Key_PageUp) << 0.0 << 60.0 << 60.0;
        QTest::newRow("another key") << int(Qt::Key_A) << 5.0 << 50.0 << 50.0;
    }

    void keysMoveByAStep()
    {
        QFETCH(const int, key);
        QFETCH(const double, step);
        QFETCH(const double, value);
        QFETCH(const double, mirrored);
        RangeStage stage;
        stage.range->setStep(step);
        stage.range->setValue(50);
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        stage.view.ownScene.sendEvent(stage.range, &event);
        QCOMPARE(stage.range->value(), value);
        QCOMPARE(event.isAccepted(), key != Qt::Key_A);
        stage.range->setValue(50);
        stage.range->setLayoutDirection(Qt::RightToLeft);
        stage.key(Qt::Key(key));
        QCOMPARE(stage.range->value(), mirrored);
    }

    void rightIsMoreInAVerticalRange()
    {
        RangeStage stage(Qt::Vertical);
        stage.range->setLayoutDirection(Qt::RightToLeft);
        stage.key(Qt::Key_Right);
        QCOMPARE(stage.range->value(), 1.0);
    }

    void aKeyWithAModifierDoesNothing()
    {
        RangeStage stage;
        stage.key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(stage.range->value(), 0.0);
        stage.key(Qt::Key_End, Qt::KeypadModifier);
        QCOMPARE(stage.range->value(), 100.0);
    }

    void theFirstStepFromTheMaximumMayBeShorter()
    {
        RangeStage stage;
        stage.range->setStep(30);
        stage.key(Qt::Key_End);
        QCOMPARE(stage.range->value(), 100.0);
        stage.key(Qt::Key_Left);
        QCOMPARE(stage.range->value(), 90.0);
        stage.key(Qt::Key_Right);
        QCOMPARE(stage.range->value(), 100.0);
    }

    void aNotchOfTheWheelIsAStep_data()
    {
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("orientation");
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("mirrored");
        QTest::newRow("up") << 120 << int(Qt::Vertical) << 55.0 << 55.0;
        QTest::newRow("down twice") << -240 << int(Qt::Vertical) << 40.0 << 40.0;
        QTest::newRow("right") << -120 << int(Qt::Horizontal) << 55.0 << 45.0;
        QTest::newRow("half a notch") << 60 << int(Qt::Vertical) << 50.0 << 55.0;
    }

    void aNotchOfTheWheelIsAStep()
    {
        QFETCH(const int, delta);
        QFETCH(const int, orientation);
        QFETCH(const double, value);
        QFETCH(const double, mirrored);
        RangeStage stage;
        stage.range->setStep(5);
        stage.range->setValue(50);
        stage.turnWheel(delta, Qt::Orientation(orientation));
        QCOMPARE(stage.range->value(), value);
        stage.range->setLayoutDirection(Qt::RightToLeft);
        stage.range->setValue(50);
        stage.turnWheel(delta, Qt::Orientation(orientation));
        QCOMPARE(stage.range->value(), mirrored); // two halves are a notch
    }

    void theWheelDoesNothingWhilePressed()
    {
        RangeStage stage;
        stage.hand.press(stage.at(60));
        stage.turnWheel(120);
        QCOMPARE(stage.range->value(), 60.0);
        stage.hand.release();
    }

    void aRangeWithoutLengthKeepsItsValue()
    {
        RangeStage stage;
        stage.range->setValue(40);
        stage.range->setMinimumSize(0, 0);
        stage.range->resize(8, 60);
        stage.log.take();
        stage.hand.drag(QPoint(54, 130), QPoint(154, 130));
        QCOMPARE(stage.range->value(), 40.0);
    }

    void aSlotMayDeleteTheRange_data()
    {
        addRows({{"signal", {{"pressed", 0}, {"valueChanged", 1}, {"released", 2}, {"lost", 3}}},
                 {"way", ways},
                 {"input", inputs}});
    }

    void aSlotMayDeleteTheRange()
    {
        RangeStage stage;
        stage.hand.use(fetch<Input>("input"));
        const QStringList entries{u"pressed"_s, u"valueChanged"_s, u"released"_s, u"released"_s};
        stage.log.on(entries.at(fetch<int>("signal")), [&] {
            if (fetch<int>("way") == 0)
                delete stage.range;
            else if (fetch<int>("way") == 1)
                stage.range->deleteLater();
            else
                delete stage.parent;
        });
        const QPoint there = stage.at(30);
        stage.hand.press(stage.at(60));
        stage.hand.move(there);
        if (fetch<int>("signal") == 3 && stage.range)
            stage.range->ungrabMouse();
        stage.hand.release();
        QTRY_VERIFY(!stage.range);
    }
};

KEL_TEST_MAIN(tst_KELRangePointer)
#include "tst_kelrangepointer.moc"
