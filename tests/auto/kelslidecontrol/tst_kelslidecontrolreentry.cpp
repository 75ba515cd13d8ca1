// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "losses.h"
#include "sliderstage.h"

namespace {

enum class Moment { Press, Jump, SecondJump, Drag };

const Loss &currentLoss()
{
    return losses().at(fetch<size_t>("loss"));
}

// Ends with a slider that can be used again.
void losePress(SliderStage &stage, const Loss &loss)
{
    loss.lose(stage);
    QTRY_VERIFY(!stage->style()->isMouseDown);
    loss.restore(stage);
    QCoreApplication::processEvents();
}

} // namespace

// What happens to a slider while a finger is on it: slots that change it, and lost presses.
class tst_KELSlideControlReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void valueSetInThePressSlot()
    {
        SliderStage stage;
        float wanted = 5;
        stage.log.on(u"press"_s, [&] { stage->setValue(wanted); });
        // The knob moves by 10 px and stays below the finger: the drag begins at the new value.
        stage.hand.press(QPoint(45, 120));
        QCOMPARE(stage->value(), 5.0F);
        stage.hand.move(QPoint(65, 120));
        QCOMPARE(stage->value(), 15.0F);
        stage.hand.release();
        // The knob moves away: a jump.
        wanted = 90;
        stage.hand.press(grooveAt(20));
        QCOMPARE(stage->value(), 20.0F);
        stage.hand.move(QPoint(100, 120));
        QCOMPARE(stage->value(), 20.0F);
        stage.hand.release();
        // The knob comes below the finger: no jump.
        wanted = 50;
        stage.hand.press(QPoint(130, 120));
        QCOMPARE(stage->value(), 50.0F);
        stage.hand.move(QPoint(140, 120));
        QCOMPARE(stage->value(), 55.0F);
        stage.hand.release();
    }

    void geometryChangedInThePressSlot()
    {
        SliderStage stage;
        stage.view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QRectF rect;
        stage.log.on(u"press"_s, [&] { place(stage.get(), rect); });
        // Half the travel: the jump goes by it.
        rect = QRectF(20, 100, 130, 40);
        stage.hand.tap(QPoint(70, 120));
        QCOMPARE(stage->value(), 50.0F);
        // The knob leaves the finger, then comes back below it.
        rect = QRectF(60, 100, 130, 40);
        stage.hand.tap(QPoint(80, 120));
        QCOMPARE(stage->value(), 20.0F);
        rect = QRectF(140, 100, 230, 40);
        stage.log.take();
        stage.hand.press(QPoint(185, 120));
        QCOMPARE(stage.log.take(), u"press"_s);
        stage.hand.move(QPoint(205, 120));
        QCOMPARE(stage->value(), 30.0F);
        // A change during the drag counts from the next move on.
        place(stage.get(), QRectF(140, 100, 130, 40));
        stage.hand.move(QPoint(195, 120));
        QCOMPARE(stage->value(), 30.0F);
        stage.hand.release();
    }

    void boundsChangedInThePressSlot()
    {
        SliderStage stage;
        stage.log.on(u"press"_s, [&] {
            stage->setMinimun(-100);
            stage->setMaximun(300);
        });
        stage.hand.tap(QPoint(120, 120));
        QCOMPARE(stage->value(), 100.0F);
        stage.hand.press(QPoint(130, 120));
        stage.hand.move(QPoint(150, 120));
        QCOMPARE(stage->value(), 140.0F);
        // Also during the drag.
        stage->setMaximun(100);
        stage.hand.move(QPoint(110, 120));
        QCOMPARE(stage->value(), 80.0F);
        stage.hand.release();
    }

    void valueSetInTheValueSlot()
    {
        SliderStage stage;
        stage.log.on(u"valueChanged"_s, [&] {
            if (stage->value() > 40)
                stage->setValue(40);
        });
        stage.hand.press(knobAt(0));
        stage.hand.move(knobAt(75));
        QCOMPARE(stage->value(), 40.0F);
        QCOMPARE(stage.log.take(), u"press valueChanged valueChanged"_s);
        stage.hand.move(knobAt(30));
        QCOMPARE(stage->value(), 30.0F);
        stage.hand.release();
        stage.hand.tap(grooveAt(90));
        QCOMPARE(stage->value(), 40.0F);
        // The knob is where the last value put it.
        stage.log.take();
        stage.hand.tap(QPoint(101, 120));
        QCOMPARE(stage.log.take(), u"press release clicked"_s);
    }

    void movesAfterTheLossDoNotDrag_data()
    {
        addRows({{"loss", lossNames()}, {"atOnce", {{"later", false}, {"at once", true}}}});
    }

    void movesAfterTheLossDoNotDrag()
    {
        const Loss &loss = currentLoss();
        SliderStage stage;
        stage.hand.press(knobAt(0));
        stage.hand.move(knobAt(20));
        QCOMPARE(stage.log.take(), u"press valueChanged"_s);
        loss.lose(stage);
        if (!fetch<bool>("atOnce"))
            letEventsRun();
        stage.hand.move(knobAt(30));
        QTRY_VERIFY(!stage->style()->isMouseDown);
        stage.hand.move(knobAt(40));
        loss.restore(stage);
        QCoreApplication::processEvents();
        // The finger is still down, or has been lifted elsewhere.
        stage.hand.move(knobAt(50));
        QCOMPARE(stage.log.take(), QString());
        stage.hand.release();
        QCOMPARE(stage->value(), 20.0F);

        stage.hand.drag(knobAt(20), knobAt(30));
        QCOMPARE(stage->value(), 30.0F);
    }

    void pressByMistakeNeitherJumpsNorDrags_data()
    {
        addRows({{"loss", lossesThatLeaveTheGrab()},
                 {"onKnob", {{"after a jump", false}, {"after a press on the knob", true}}},
                 {"input", inputs},
                 {"onOther", {{"on nothing", false}, {"on another control", true}}}});
    }

    void pressByMistakeNeitherJumpsNorDrags()
    {
        const bool onOther = fetch<bool>("onOther");
        SliderStage stage;
        stage.hand.press(fetch<bool>("onKnob") ? knobAt(0) : grooveAt(50));
        losePress(stage, currentLoss());
        // The release went elsewhere: the scene still takes the slider for the pressed one.
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), stage.control.data());
        const float value = stage->value();
        stage.log.take();

        stage.hand.use(fetch<Input>("input"));
        const QPoint pos = onOther ? stage.otherCentre() : QPoint(200, 200);
        stage.hand.press(pos);
        stage.hand.move(pos + QPoint(3, 0));
        stage.hand.move(pos - QPoint(3, 0));
        stage.hand.release();
        QCOMPARE(stage.log.take(),
                 onOther ? u"other.press other.release other.clicked"_s : QString());
        QCOMPARE(stage->value(), value);
    }

    void nextPressOnTheSliderAfterALoss_data()
    {
        addRows({{"loss", lossNames()}, {"input", inputs}});
    }

    void nextPressOnTheSliderAfterALoss()
    {
        const auto input = fetch<Input>("input");
        SliderStage stage;
        const auto pressAndLose = [&](const QPoint &pos) {
            stage.hand.use(Input::Mouse);
            stage.hand.press(pos);
            losePress(stage, currentLoss());
            stage.log.take();
            stage.hand.use(input);
        };
        // One jump, not two.
        pressAndLose(knobAt(0));
        stage.hand.press(grooveAt(50));
        QCOMPARE(stage.log.take(), u"press valueChanged"_s);
        QCOMPARE(stage->value(), 50.0F);
        stage.hand.move(grooveAt(60));
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"release"_s);
        QCOMPARE(stage->value(), 50.0F);
        // And a drag after a lost jump.
        pressAndLose(grooveAt(0));
        QCOMPARE(stage->value(), 0.0F);
        stage.hand.drag(knobAt(0), knobAt(20));
        QCOMPARE(stage->value(), 20.0F);
        // The window system may take it for the second of a double click.
        pressAndLose(knobAt(20));
        stage.hand.use(Input::Mouse);
        stage.hand.pressAgain(aboveKnobAt(70));
        stage.hand.release();
        QVERIFY(stage.log.take().startsWith(QLatin1String("press valueChanged ")));
        QCOMPARE(stage->value(), 70.0F);
    }

    void pointerLostInThePressSlot_data() { addRows({{"loss", lossNames()}}); }

    void pointerLostInThePressSlot()
    {
        const Loss &loss = currentLoss();
        SliderStage stage;
        bool isLost = false;
        stage.log.on(u"press"_s, [&] {
            if (!std::exchange(isLost, true))
                loss.lose(stage);
        });
        stage.hand.press(knobAt(0));
        stage.hand.move(knobAt(20));
        QCOMPARE(stage->value(), 0.0F);
        QTRY_VERIFY(!stage->style()->isMouseDown);
        loss.restore(stage);
        QCoreApplication::processEvents();
        QCOMPARE(stage.log.take(), u"press"_s);
        stage.hand.tap(grooveAt(50));
        QCOMPARE(stage->value(), 50.0F);
    }

    // What all controls do in the slots of their presses is tested with all of them.
    void deletedInASlot_data()
    {
        addRows({{"moment",
                  {{"press on the knob", int(Moment::Press)},
                   {"value of a jump", int(Moment::Jump)},
                   {"value of the jump of a double click", int(Moment::SecondJump)},
                   {"value of a drag", int(Moment::Drag)}}},
                 {"way", deletionWays},
                 {"input", inputs}});
    }

    void deletedInASlot()
    {
        const auto moment = fetch<Moment>("moment");
        const auto way = fetch<Way>("way");
        SliderStage stage(0, fetch<Input>("input"));
        int calls = 0;
        stage.log.on(moment == Moment::Press ? u"press"_s : u"valueChanged"_s, [&] {
            if (++calls != (moment == Moment::SecondJump ? 2 : 1))
                return;
            stage.destroy(way);
            stage.log.take();
        });

        const bool onKnob = moment == Moment::Press || moment == Moment::Drag;
        const QPoint pos = onKnob ? knobAt(0) : aboveKnobAt(50);
        stage.hand.press(pos);
        if (moment == Moment::SecondJump) {
            stage.hand.release();
            stage.hand.pressAgain(pos);
        }
        stage.hand.move(pos + QPoint(40, 0));
        stage.hand.move(pos + QPoint(60, 0));
        stage.hand.release();
        QCOMPARE(stage.destroyCalls, 1);
        // Whoever still reads the slider is told so by the memory checker; signals are told here.
        if (way != Way::DeleteLater)
            QCOMPARE(stage.log.take(), QString());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QCOMPARE(stage.other.isNull(), way == Way::ClearScene);
        QVERIFY(stage.nextControlIsClicked());
    }

    // It ignores its press, and so the release goes elsewhere.
    void unselectableSliderJumps()
    {
        SliderStage stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.hand.tap(grooveAt(50));
        QCOMPARE(stage.log.take(), u"press valueChanged"_s);
        QCOMPARE(stage->value(), 50.0F);
    }

    void unselectableSliderDeletedInTheValueSlot_data() { addRows({{"way", deletionWays}}); }

    // Qt warns when an item that is gone has ignored its press.
    void unselectableSliderDeletedInTheValueSlot()
    {
        SliderStage stage;
        stage->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.log.on(u"valueChanged"_s, [&] { stage.destroy(fetch<Way>("way")); });
        stage.hand.tap(grooveAt(50));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
    }

private:
    static std::vector<Named> lossesThatLeaveTheGrab()
    {
        std::vector<Named> found;
        for (const Named &loss : lossNames()) {
            for (const char *name :
                 {"popup window opened", "application-modal dialog opened", "view hidden"}) {
                if (qstrcmp(loss.name, name) == 0)
                    found.push_back(loss);
            }
        }
        return found;
    }
};

KEL_TEST_MAIN(tst_KELSlideControlReentry)
#include "tst_kelslidecontrolreentry.moc"
