// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sliderstage.h"

namespace {

struct Turn
{
    const char *name;
    std::function<void(SliderStage &)> apply;
};

void scale(SliderStage &stage, qreal factor)
{
    stage.view.ownScene.setSceneRect(QRectF(0, 0, 400 / factor, 300 / factor));
    stage.view.scale(factor, factor);
}

const std::vector<Turn> turns = {
    {"view at 0.5", [](SliderStage &s) { scale(s, 0.5); }},
    {"view at 1.5", [](SliderStage &s) { scale(s, 1.5); }},
    {"view at 2", [](SliderStage &s) { scale(s, 2); }},
    {"rotated view",
     [](SliderStage &s) {
         s.view.ownScene.setSceneRect(QRectF(0, 0, 300, 400));
         s.view.rotate(90);
     }},
    {"slider turned by itself",
     [](SliderStage &s) {
         s->setTransformOriginPoint(135, 120);
         s->setRotation(180);
         s->setPos(30, 50);
     }},
};

} // namespace

class tst_KELSlideControlPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void knobFollowsThePointer_data() { addRows({{"input", inputs}}); }

    void knobFollowsThePointer()
    {
        SliderStage stage(0, fetch<Input>("input"));
        stage.hand.press(knobAt(0));
        QCOMPARE(stage.log.take(), u"press"_s);
        for (const float value : {20.0F, 20.5F, 75.0F, 10.0F, 0.0F, 30.0F}) {
            stage.hand.move(knobAt(value));
            QCOMPARE(stage->value(), value);
            QCOMPARE(stage.log.take(), u"valueChanged"_s);
        }
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
        // The knob is where the pointer left it.
        stage.hand.drag(knobAt(30), knobAt(40));
        QCOMPARE(stage->value(), 40.0F);
    }

    void verticalMotionDoesNotCount_data() { addRows({{"input", inputs}}); }

    void verticalMotionDoesNotCount()
    {
        SliderStage stage(30, fetch<Input>("input"));
        stage.hand.press(knobAt(30));
        for (const int y : {-15, 15, -100, 150}) {
            stage.log.take();
            stage.hand.move(knobAt(30) + QPoint(0, y));
            stage.hand.move(knobAt(30) + QPoint(0, y - 1));
            QCOMPARE(stage->value(), 30.0F);
            // The same value is told again.
            QCOMPARE(stage.log.take(), u"valueChanged valueChanged"_s);
            stage.hand.move(knobAt(40) + QPoint(0, y));
            QCOMPARE(stage->value(), 40.0F);
        }
        stage.hand.release();
    }

    void dragStopsAtTheBounds_data() { addRows({{"input", inputs}}); }

    void dragStopsAtTheBounds()
    {
        SliderStage stage(50, fetch<Input>("input"));
        stage.hand.press(knobAt(50));
        // The way beyond is not lost.
        for (const float value : {100.5F, 175.0F, -0.5F, -15.0F, 55.0F}) {
            stage.hand.move(knobAt(value));
            QCOMPARE(stage->value(), qBound(0.0F, value, 100.0F));
        }
        stage.hand.release();
    }

    void dragCountsFromThePress_data() { addRows({{"input", inputs}}); }

    void dragCountsFromThePress()
    {
        SliderStage stage(50, fetch<Input>("input"));
        stage->setMinimun(-50);
        stage->setMaximun(150);
        // Anywhere on the knob, which covers 120 to 150.
        for (const int x : {121, 135, 149}) {
            stage->setValue(50);
            stage.hand.press(QPoint(x, 120));
            stage.hand.move(QPoint(x + 30, 120));
            QCOMPARE(stage->value(), 80.0F);
            stage.hand.move(QPoint(x - 60, 120));
            QCOMPARE(stage->value(), -10.0F);
            stage.hand.release();
        }
    }

    void dragInSteps_data()
    {
        QTest::addColumn<float>("to");
        QTest::addColumn<float>("expected");
        QTest::newRow("less than a step") << 59.5F << 50.0F;
        QTest::newRow("less than a step down") << 40.5F << 50.0F;
        QTest::newRow("one step") << 60.0F << 60.0F;
        QTest::newRow("1.45 steps") << 64.5F << 60.0F;
        QTest::newRow("1.5 steps") << 65.0F << 70.0F;
        QTest::newRow("-1.5 steps") << 35.0F << 40.0F;
        QTest::newRow("2.5 steps") << 75.0F << 80.0F;
        QTest::newRow("-2.5 steps") << 25.0F << 30.0F;
        QTest::newRow("beyond the maximum") << 145.0F << 100.0F;
    }

    void dragInSteps()
    {
        const auto expected = fetch<float>("expected");
        for (const Input input : {Input::Mouse, Input::Touch}) {
            SliderStage stage(50, input);
            stage->setStep(10);
            stage.hand.press(knobAt(50));
            stage.hand.move(knobAt(fetch<float>("to")));
            QCOMPARE(stage->value(), expected);
            QCOMPARE(stage.log.take(),
                     qFuzzyCompare(expected, 50) ? u"press"_s : u"press valueChanged"_s);
            // The way counts from the press, the step from the present value: back at the press, it
            // is a whole number of steps.
            stage.hand.move(knobAt(50));
            QCOMPARE(stage->value(), 50.0F);
            stage.hand.release();
        }
    }

    void dragTakesTheKnobBackAfterTheRectForm()
    {
        SliderStage stage;
        stage->setboundRect(stageRect);
        // The knob begins 15 px further to the right, and is back in its place with the first move.
        stage.hand.press(QPoint(60, 120));
        QCOMPARE(stage.log.take(), u"press"_s);
        stage.hand.move(QPoint(62, 120));
        QCOMPARE(stage->value(), 1.0F);
        stage.hand.release();
        stage.log.take();
        stage.hand.press(QPoint(60, 120));
        QCOMPARE(stage.log.take(), u"press valueChanged"_s);
        QCOMPARE(stage->value(), 20.0F);
        stage.hand.release();
    }

    void dragWithReversedBounds()
    {
        SliderStage stage;
        stage->setMinimun(100);
        stage->setMaximun(0);
        place(stage.get(), stageRect);
        stage->setValue(50);
        QCOMPARE(stage->value(), 0.0F);
        // The value is at the maximum, so at the right end.
        stage->sendPress(knobAt(100));
        QCOMPARE(stage->value(), 0.0F);
        stage->sendMove(knobAt(90)); // 10 units more, which is above the maximum
        QCOMPARE(stage->value(), 0.0F);
        stage->sendMove(knobAt(110)); // 10 units less, which is below the minimum
        QCOMPARE(stage->value(), 100.0F);
    }

    void pressOnTheKnobChangesNothing_data() { addRows({{"input", inputs}}); }

    void pressOnTheKnobChangesNothing()
    {
        SliderStage stage(50, fetch<Input>("input"));
        stage.hand.tap(knobAt(50));
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
        QCOMPARE(stage->value(), 50.0F);
    }

    void squareOfTheKnobTakesHold_data()
    {
        QTest::addColumn<QPointF>("pos");
        QTest::addColumn<bool>("isOnKnob");
        QTest::newRow("centre") << QPointF(85, 120) << true;
        QTest::newRow("left side") << QPointF(70, 120) << true;
        QTest::newRow("right side") << QPointF(100, 120) << true;
        QTest::newRow("top") << QPointF(85, 105) << true;
        QTest::newRow("bottom") << QPointF(85, 135) << true;
        QTest::newRow("top left corner, outside the circle") << QPointF(70, 105) << true;
        QTest::newRow("top right corner, outside the circle") << QPointF(100, 105) << true;
        QTest::newRow("bottom left corner, outside the circle") << QPointF(70, 135) << true;
        QTest::newRow("bottom right corner, outside the circle") << QPointF(100, 135) << true;
        QTest::newRow("just to the left") << QPointF(69.999, 120) << false;
        QTest::newRow("just to the right") << QPointF(100.001, 120) << false;
        QTest::newRow("just above") << QPointF(85, 104.999) << false;
        QTest::newRow("just below") << QPointF(85, 135.001) << false;
        QTest::newRow("far to the right") << QPointF(240, 120) << false;
        QTest::newRow("below, at its left side") << QPointF(70, 139) << false;
    }

    // Beside it the knob jumps, and follows no move.
    void squareOfTheKnobTakesHold()
    {
        QFETCH(bool, isOnKnob);
        SliderStage stage(25);
        const auto pos = fetch<QPointF>("pos");
        const float jumped = qMin(100.0F, float((pos.x() - 20) / 2));
        stage->sendPress(pos);
        QCOMPARE(stage->value(), isOnKnob ? 25.0F : jumped);
        QCOMPARE(stage.log.take(), isOnKnob ? u"press"_s : u"press valueChanged"_s);
        stage->sendMove(pos + QPointF(20, 7));
        QCOMPARE(stage->value(), isOnKnob ? 35.0F : jumped);
        stage->sendMove(pos - QPointF(20, 0));
        QCOMPARE(stage->value(), isOnKnob ? 15.0F : jumped);
        QCOMPARE(stage.log.take(), isOnKnob ? u"valueChanged valueChanged"_s : QString());
    }

    void valueFollowsTheFormulaToTheBit_data()
    {
        addRows({{"isDrag", {{"jump", false}, {"drag", true}}}});
    }

    void valueFollowsTheFormulaToTheBit()
    {
        const bool isDrag = fetch<bool>("isDrag");
        const QRectF rect(0.3, 10, 173.7, 40);
        const float minimum = -1.1F;
        const float maximum = 7.7F;
        const float startOfDrag = 2.3F;
        const QPointF grip(70.7, 30);
        int singleResults = 0;
        for (int i = -90; i <= 90; ++i) {
            OpenSlider slider;
            slider.setMinimun(minimum);
            slider.setMaximun(maximum);
            place(&slider, rect);
            slider.setValue(startOfDrag);
            const QPointF pos = isDrag ? grip + QPointF(i * 0.57, 0)
                                       : QPointF(70.7 + i * 0.717, 12);
            slider.sendPress(isDrag ? grip : pos);
            slider.sendMove(pos);

            const float range = maximum - minimum;
            const float start = isDrag ? startOfDrag : minimum;
            const double origin = isDrag ? grip.x() : rect.x();
            const double way = (pos.x() - origin) / (rect.width() - 30);
            const float expected = float(double(start) + double(range) * way);
            QVERIFY(slider.value() == qBound(minimum, expected, maximum));
            const float product = range * float(way);
            singleResults += start + product == expected ? 0 : 1;
        }
        // Less precision on the way would show.
        QVERIFY(singleResults > 10);
    }

    void pressOffTheKnobJumps_data()
    {
        addRows({{"input", inputs},
                 {"x",
                  {{"beside the knob", 52},
                   {"half way", 120},
                   {"odd pixel", 121},
                   {"where the travel ends", 220},
                   {"beyond the travel", 247}}}});
    }

    void pressOffTheKnobJumps()
    {
        const int x = fetch<int>("x");
        const float expected = qMin(100.0F, float(x - 20) / 2);
        for (const int y : {103, 120, 138}) {
            SliderStage stage(0, fetch<Input>("input"));
            stage.hand.press(QPoint(x, y));
            QCOMPARE(stage->value(), expected);
            stage.hand.release();
            QCOMPARE(stage.log.take(), u"press valueChanged release clicked"_s);
            QCOMPARE(stage->value(), expected);
        }
    }

    void jumpInSteps_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<float>("expected");
        // The knob of value 50 covers 120 to 150.
        QTest::newRow("less than a step to the right") << 151 << 50.0F;
        QTest::newRow("less than a step to the left") << 86 << 50.0F;
        QTest::newRow("one step to the left") << 80 << 30.0F;
        QTest::newRow("1.5 steps to the right") << 180 << 90.0F;
        QTest::newRow("1.5 steps to the left") << 60 << 30.0F;
        QTest::newRow("2.5 steps to the left") << 20 << 10.0F;
        QTest::newRow("beyond the maximum") << 240 << 100.0F;
    }

    void jumpInSteps()
    {
        const int x = fetch<int>("x");
        const auto expected = fetch<float>("expected");
        SliderStage stage(50);
        stage->setStep(20);
        stage.hand.press(QPoint(x, 120));
        // Neither way the press took hold of the knob.
        for (const int way : {0, 100, -100}) {
            stage.hand.move(QPoint(x + way, 120));
            QCOMPARE(stage->value(), expected);
        }
        QCOMPARE(stage.log.take(),
                 qFuzzyCompare(expected, 50) ? u"press"_s : u"press valueChanged"_s);
        stage.hand.release();
    }

    void jumpPutsTheLeftSideOfTheKnobBelowTheFinger()
    {
        SliderStage stage(50);
        for (const int x : {120, 135, 150}) {
            stage.hand.tap(QPoint(x, 120));
            QCOMPARE(stage.log.take(), u"press release clicked"_s);
        }
        stage.hand.tap(QPoint(119, 120));
        QCOMPARE(stage.log.take(), u"press valueChanged release clicked"_s);
        QCOMPARE(stage->value(), 49.5F);
    }

    void jumpIsNoDrag_data() { addRows({{"input", inputs}}); }

    void jumpIsNoDrag()
    {
        SliderStage stage(0, fetch<Input>("input"));
        stage.hand.press(grooveAt(50));
        for (const int x : {130, 200, 30}) {
            stage.hand.move(QPoint(x, 120));
            QCOMPARE(stage->value(), 50.0F);
        }
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"press valueChanged release"_s);
    }

    void jumpByTheRectangleOfTheRecord()
    {
        SliderStage stage;
        stage->style()->boundRect = QRectF(40, 100, 130, 40);
        stage->sendPress(QPointF(65, 120));
        QCOMPARE(stage->value(), 25.0F);
        // The knob is at 65 now; 100 px of travel.
        stage->sendPress(QPointF(80, 120));
        stage->sendMove(QPointF(90, 120));
        QCOMPARE(stage->value(), 35.0F);
    }

    void controlWithoutTravel_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<QPointF>("pressPos");
        QTest::addColumn<qreal>("way");
        QTest::addColumn<float>("expected");
        // The knob of value 50 covers the control, but not its upper edge.
        const QPointF onKnob(100, 40);
        QTest::newRow("as wide as the knob, dragged right") << 30.0 << onKnob << 5.0 << 100.0F;
        QTest::newRow("as wide as the knob, dragged left") << 30.0 << onKnob << -5.0 << 0.0F;
        QTest::newRow("as wide as the knob, not dragged") << 30.0 << onKnob << 0.0 << notANumber;
        QTest::newRow("as wide as the knob, jump") << 30.0 << QPointF(105, 21) << 0.0 << 100.0F;
        QTest::newRow("as wide as the knob, jump to the left")
            << 30.0 << QPointF(95, 21) << 0.0 << 0.0F;
        QTest::newRow("as wide as the knob, jump to the corner")
            << 30.0 << QPointF(100, 21) << 0.0 << notANumber;
        QTest::newRow("narrower, dragged right") << 10.0 << onKnob << 5.0 << 25.0F;
        QTest::newRow("narrower, dragged left") << 10.0 << onKnob << -5.0 << 75.0F;
        QTest::newRow("narrower, jump") << 10.0 << QPointF(95, 21) << 0.0 << 25.0F;
        QTest::newRow("without width, dragged right") << 0.0 << onKnob << 6.0 << 30.0F;
        QTest::newRow("negative width, dragged right") << -20.0 << onKnob << 5.0 << 40.0F;
    }

    void controlWithoutTravel()
    {
        const auto pressPos = fetch<QPointF>("pressPos");
        OpenSlider slider;
        slider.setValue(50);
        slider.setboundRect(100, 20, fetch<qreal>("width"), 40);
        slider.sendPress(pressPos);
        slider.sendMove(pressPos + QPointF(fetch<qreal>("way"), 0));
        QCOMPARE(slider.value(), fetch<float>("expected")); // where no number equals another
        KelImage::paint(&slider, QSize(200, 100));
        place(&slider, stageRect);
        slider.setValue(25);
        QCOMPARE(slider.value(), 25.0F);
    }

    void oddBounds_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<float>("expected");
        QTest::newRow("equal") << 5.0F << 5.0F << 5.0F;
        QTest::newRow("reversed, above the maximum") << 80.0F << 20.0F << 20.0F;
        QTest::newRow("no upper limit") << 0.0F << infinite << infinite;
        QTest::newRow("no lower limit") << -infinite << 0.0F << notANumber;
        QTest::newRow("no limits") << -infinite << infinite << notANumber;
        QTest::newRow("not a number") << notANumber << notANumber << notANumber;
        QTest::newRow("as far apart as floats") << -largest << largest << largest;
    }

    void oddBounds()
    {
        for (const float step : {0.0F, 10.0F}) {
            SliderStage stage;
            stage->setMinimun(fetch<float>("minimum"));
            stage->setMaximun(fetch<float>("maximum"));
            // Above the knob, wherever that is.
            stage.hand.tap(aboveKnobAt(50));
            QCOMPARE(stage->value(), fetch<float>("expected"));
            // Whatever follows is harmless.
            stage->setStep(step);
            for (const QPoint &pos : {knobAt(0), grooveAt(50), knobAt(100)}) {
                stage.hand.press(pos);
                stage.hand.move(pos + QPoint(40, 0));
                stage.view.grab();
                stage.hand.move(pos - QPoint(15, 0));
                stage.hand.release(pos);
                stage.view.grab();
            }
            // Well again with good bounds.
            stage->setStep(0);
            stage->setMinimun(0);
            stage->setMaximun(100);
            stage->setValue(0);
            stage.hand.tap(grooveAt(50));
            QCOMPARE(stage->value(), 50.0F);
        }
    }

    void draggingRemainsAfterTheRelease()
    {
        SliderStage stage;
        stage.hand.tap(knobAt(0));
        stage->sendMove(knobAt(20));
        QCOMPARE(stage->value(), 20.0F);
        // The scene itself sends no move to a slider that is not pressed.
        stage.hand.move(knobAt(40));
        QCOMPARE(stage->value(), 20.0F);
    }

    void pressBesideTheKnobEndsDragging()
    {
        SliderStage stage;
        stage->sendMove(QPointF(200, 120));
        QCOMPARE(stage->value(), 0.0F);
        stage.hand.tap(knobAt(0));
        stage.hand.tap(grooveAt(50));
        QCOMPARE(stage->value(), 50.0F);
        stage->sendMove(QPointF(160, 120));
        QCOMPARE(stage->value(), 50.0F);

        // Also when the jump is less than a step.
        stage.hand.tap(QPoint(130, 120));
        stage->setStep(90);
        stage.hand.tap(QPoint(170, 120));
        stage->setStep(0);
        stage->sendMove(QPointF(10, 120));
        QCOMPARE(stage->value(), 50.0F);
    }

    // The scene sends every further button to the item that is pressed.
    void secondButtonDuringADrag()
    {
        SliderStage stage;
        stage.hand.press(knobAt(0));
        stage.hand.move(knobAt(20));
        QCOMPARE(stage->value(), 20.0F);
        // On the knob: the drag starts again from here.
        stage.hand.press(QPoint(85, 120), Qt::RightButton);
        QCOMPARE(stage->value(), 20.0F);
        stage.hand.move(QPoint(95, 120));
        QCOMPARE(stage->value(), 25.0F);
        // Beside it: a jump, and no drag any more.
        stage.hand.press(grooveAt(80), Qt::MiddleButton);
        QCOMPARE(stage->value(), 80.0F);
        stage.hand.move(QPoint(120, 120));
        QCOMPARE(stage->value(), 80.0F);
        for (const auto button : {Qt::MiddleButton, Qt::RightButton, Qt::LeftButton})
            stage.hand.release(QPoint(120, 120), button);
        QVERIFY(!stage->isMouseDown());
    }

    void otherButtonsAreIgnored_data() { addRows({{"button", otherMouseButtons}}); }

    void otherButtonsAreIgnored()
    {
        const auto button = fetch<Qt::MouseButton>("button");
        SliderStage stage;
        for (const QPoint &pos : {knobAt(0), grooveAt(50)}) {
            stage.hand.press(pos, button);
            stage->sendMove(pos + QPoint(40, 0));
            stage.hand.release(pos, button);
        }
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage->value(), 0.0F);
    }

    void everyAcceptedButtonActs()
    {
        SliderStage stage;
        stage->setAcceptedMouseButtons(Qt::AllButtons);
        stage.hand.press(grooveAt(50), Qt::RightButton);
        stage.hand.release(grooveAt(50), Qt::RightButton);
        QCOMPARE(stage->value(), 50.0F);
        stage->sendMove(QPointF(180, 120));
        QCOMPARE(stage->value(), 50.0F);
        stage.hand.press(knobAt(50), Qt::MiddleButton);
        QCOMPARE(stage->value(), 50.0F);
        stage->sendMove(knobAt(60));
        QCOMPARE(stage->value(), 60.0F);
        stage.hand.release(knobAt(60), Qt::MiddleButton);
    }

    void doubleClickBesideTheKnob_data() { addRows({{"input", inputs}}); }

    void doubleClickBesideTheKnob()
    {
        SliderStage stage(100, fetch<Input>("input"));
        stage.hand.doubleTap(aboveKnobAt(50));
        QCOMPARE(stage.log.take(),
                 u"press valueChanged release clicked press valueChanged doubleClicked release "
                 "clicked"_s);
        QCOMPARE(stage->value(), 50.0F);
    }

    void doubleClickOnTheKnob_data() { addRows({{"input", inputs}}); }

    void doubleClickOnTheKnob()
    {
        SliderStage stage(0, fetch<Input>("input"));
        stage.hand.tap(knobAt(0));
        stage.hand.pressAgain(knobAt(0));
        stage.hand.move(knobAt(20));
        stage.hand.release();
        QCOMPARE(stage.log.take(),
                 u"press release clicked press doubleClicked valueChanged release"_s);
        QCOMPARE(stage->value(), 20.0F);
    }

    void valueComesAfterThePress_data() { addRows({{"input", inputs}}); }

    void valueComesAfterThePress()
    {
        SliderStage stage(0, fetch<Input>("input"));
        QList<float> valuesAtPress;
        stage.log.on(u"press"_s, [&] {
            valuesAtPress.append(stage->value());
            QVERIFY(stage->isMouseDown());
        });
        stage.hand.press(QPoint(120, 130));
        QCOMPARE(stage.log.take(), u"press valueChanged"_s);
        QCOMPARE(valuesAtPress, QList<float>({0}));
        QCOMPARE(stage.log.takePoints(), QList<QPointF>({QPointF(120, 130)}));
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release clicked"_s);
        QVERIFY(!stage->isMouseDown());
    }

    void smallDragIsAClick_data()
    {
        addRows({{"input", inputs}, {"px", {{"ten", 10}, {"eleven", 11}}}});
    }

    void smallDragIsAClick()
    {
        const int px = fetch<int>("px");
        SliderStage stage(0, fetch<Input>("input"));
        stage.hand.press(knobAt(0));
        stage.hand.move(knobAt(3) + QPoint(0, px - 6)); // 6 px across, the rest down
        QCOMPARE(stage->value(), 3.0F);
        stage.hand.release();
        QCOMPARE(stage.log.take(),
                 px == 10 ? u"press valueChanged release clicked"_s
                          : u"press valueChanged release"_s);
    }

    void clickIsLostBeforeTheValueChanges()
    {
        SliderStage stage;
        QList<bool> pending;
        stage.log.on(u"valueChanged"_s, [&] { pending.append(hasTimers(stage.control)); });
        stage.hand.press(knobAt(0));
        QVERIFY(hasTimers(stage.control));
        stage.hand.move(knobAt(2));
        stage.hand.move(knobAt(20));
        QCOMPARE(pending, QList<bool>({true, false}));
        stage.hand.release();
    }

    void holdIsAClickAndNoLongPress_data()
    {
        addRows({{"input", inputs}, {"onKnob", {{"beside the knob", false}, {"on it", true}}}});
    }

    void holdIsAClickAndNoLongPress()
    {
        const bool onKnob = fetch<bool>("onKnob");
        SliderStage stage(0, fetch<Input>("input"));
        QMenu *const menu = newMenu();
        stage->style()->contextMenu = menu;
        const QSignalSpy opened(menu, &QMenu::aboutToShow);
        whenOpen(menu, [] {});
        stage.hand.press(onKnob ? knobAt(0) : grooveAt(50));
        endLongPressTime(stage.control);
        QVERIFY(stage->isMouseDown());
        QCOMPARE(stage.log.take(), onKnob ? u"press"_s : u"press valueChanged"_s);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release clicked"_s);
        QVERIFY(!hasTimers(stage.control));
        QCOMPARE(opened.count(), 0);
    }

    void disabledSliderGetsNothing_data() { addRows({{"input", inputs}}); }

    void disabledSliderGetsNothing()
    {
        SliderStage stage(0, fetch<Input>("input"));
        stage->setEnabled(false);
        stage.hand.drag(knobAt(0), knobAt(15));
        stage.hand.drag(grooveAt(50), grooveAt(65));
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage->value(), 0.0F);
        stage->setEnabled(true);
        stage.hand.tap(grooveAt(50));
        QCOMPARE(stage->value(), 50.0F);
    }

    void sliderInATurnedOrScaledView_data()
    {
        addRows({{"input", inputs}, {"turn", namesOf(turns)}});
    }

    void sliderInATurnedOrScaledView()
    {
        SliderStage stage(0, fetch<Input>("input"));
        turns[fetch<size_t>("turn")].apply(stage);
        stage.hand.press(stage.at(36, 120));
        stage.hand.move(stage.at(36, 160)); // across the slider
        QCOMPARE(stage->value(), 0.0F);
        stage.hand.move(stage.at(76, 120));
        QCOMPARE(stage->value(), 20.0F);
        stage.hand.release();
        stage.hand.tap(stage.at(160, 120));
        QCOMPARE(stage->value(), 70.0F);
    }

    void sliderInAParentThatBeginsElsewhere()
    {
        Stage<KELSlideControl> stage(QRectF(0, 0, 230, 40));
        auto *parent = new PlainItem(QRectF(40, 10, 300, 80));
        stage.view.ownScene.addItem(parent);
        stage->setParentItem(parent);
        QCOMPARE(stage->boundingRect(), QRectF(40, 10, 230, 40));
        // A jump goes by the stored rectangle.
        stage.hand.tap(QPoint(150, 30));
        QCOMPARE(stage->value(), 75.0F);
        QCOMPARE(stage.log.take(), u"press valueChanged release clicked"_s);
        // So does the knob: 150 to 180 across, 5 to 35 down.
        stage.hand.press(QPoint(165, 20));
        QCOMPARE(stage.log.take(), u"press"_s);
        stage.hand.move(QPoint(185, 20));
        QCOMPARE(stage->value(), 85.0F);
        stage.hand.release();
        stage.hand.tap(QPoint(185, 45));
        QCOMPARE(stage->value(), 92.5F);
    }
};

KEL_TEST_MAIN(tst_KELSlideControlPointer)
#include "tst_kelslidecontrolpointer.moc"
