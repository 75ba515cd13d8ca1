// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "losses.h"

#include <kelcheckbox.h>
#include <kelradiobox.h>

namespace {

enum class Kind { CheckBox, RadioBox };
const std::vector<Named> kinds = {{"check box", int(Kind::CheckBox)},
                                  {"radio box", int(Kind::RadioBox)}};

enum class Signal { Press, Checked, Unchecked, CheckChanged };
const std::vector<Named> signalsOfAChange = {{"checked", int(Signal::Checked)},
                                             {"unchecked", int(Signal::Unchecked)},
                                             {"check changed", int(Signal::CheckChanged)}};
// As the log writes them down.
const QStringList entries = {u"press"_s, u"checked"_s, u"unchecked"_s, u"checkChanged"_s};

QString entryOfTheRow()
{
    return entries.at(fetch<int>("signal"));
}

KELRoundRectControl *newBox()
{
    KELRoundRectControl *box = nullptr;
    if (fetch<Kind>("kind") == Kind::CheckBox)
        box = new KELCheckBox;
    else
        box = new KELRadioBox;
    box->setboundRect(100, 100, 80, 30);
    return box;
}

// The box of the row.
class BoxStage : public ControlStage
{
public:
    BoxStage() : ControlStage(newBox()) { }

    // It is on where unchecked() is to come.
    void makeReadyFor(Signal signal)
    {
        control->setCheck(signal == Signal::Unchecked);
        log.take();
    }
};

void addKinds()
{
    addRows({{"kind", kinds}});
}

void addKindsAndInputs()
{
    addRows({{"kind", kinds}, {"input", inputs}});
}

} // namespace

// What a check box and a radio box that is in no group have in common. That they lose the pointer
// as other controls is in tst_pointerloss.
class tst_Toggle : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void everyChangeEmitsTwoSignals_data() { addKinds(); }

    void everyChangeEmitsTwoSignals()
    {
        BoxStage stage;
        stage.control->setCheck(true);
        QCOMPARE(stage.log.take(), u"checked checkChanged"_s);
        QVERIFY(stage.control->isCheck());
        stage.control->setCheck(false);
        QCOMPARE(stage.log.take(), u"unchecked checkChanged"_s);
        QVERIFY(!stage.control->isCheck());
    }

    void settingThePresentStateDoesNothing_data() { addKinds(); }

    void settingThePresentStateDoesNothing()
    {
        BoxStage stage;
        stage.control->setCheck(false);
        QCOMPARE(stage.log.take(), QString());
        stage.control->setCheck(true);
        stage.log.take();
        stage.control->setCheck(true);
        stage.control->setProperty("check", true);
        QCOMPARE(stage.log.take(), QString());
        QVERIFY(stage.control->isCheck());
    }

    void checkedEvent_data()
    {
        addRows({{"kind", kinds},
                 {"stored", {{"off", false}, {"on", true}}},
                 {"argument", {{"told off", false}, {"told on", true}}}});
    }

    // Compat: a check box tells the stored state, a radio box the argument.
    void checkedEvent()
    {
        const bool stored = fetch<bool>("stored");
        const bool argument = fetch<bool>("argument");
        BoxStage stage;
        stage.control->style()->isCheck = stored;
        stage.control->onCheckedEvent(argument);
        const bool isChecked = fetch<Kind>("kind") == Kind::CheckBox ? stored : argument;
        QCOMPARE(stage.log.take(),
                 isChecked ? u"checked checkChanged"_s : u"unchecked checkChanged"_s);
        QCOMPARE(stage.control->isCheck(), stored);
    }

    void checkIsAProperty_data() { addKinds(); }

    void checkIsAProperty()
    {
        BoxStage stage;
        QCOMPARE(stage.control->property("check"), QVariant(false));
        QVERIFY(stage.control->setProperty("check", true));
        QVERIFY(stage.control->isCheck());
        QCOMPARE(stage.control->property("check"), QVariant(true));
        QCOMPARE(stage.log.take(), u"checked checkChanged"_s);
        stage.control->setCheck(false);
        QCOMPARE(stage.control->property("check"), QVariant(false));
    }

    void stateIsStoredBeforeTheSignals_data() { addKinds(); }

    void stateIsStoredBeforeTheSignals()
    {
        BoxStage stage;
        QList<bool> states;
        for (const QString &entry : entries)
            stage.log.on(entry, [&] { states.append(stage.control->isCheck()); });
        stage.control->setCheck(true);
        stage.control->setCheck(false);
        QCOMPARE(states, QList<bool>({true, true, false, false}));
    }

    void changedBackInsideItsSignal_data() { addKinds(); }

    void changedBackInsideItsSignal()
    {
        BoxStage stage;
        stage.log.on(u"checked"_s, [&] { stage.control->setCheck(false); });
        stage.control->setCheck(true);
        QCOMPARE(stage.log.take(), u"checked unchecked checkChanged checkChanged"_s);
        QVERIFY(!stage.control->isCheck());

        BoxStage other;
        other.makeReadyFor(Signal::Unchecked);
        other.log.on(u"unchecked"_s, [&] { other.control->setCheck(true); });
        other.control->setCheck(false);
        QCOMPARE(other.log.take(), u"unchecked checked checkChanged checkChanged"_s);
        QVERIFY(other.control->isCheck());
    }

    void checkedAgainInsideCheckChanged_data() { addKinds(); }

    void checkedAgainInsideCheckChanged()
    {
        BoxStage stage;
        stage.log.on(u"checkChanged"_s, [&] { stage.control->setCheck(true); });
        stage.control->setCheck(true);
        QCOMPARE(stage.log.take(), u"checked checkChanged"_s);
        stage.control->setCheck(false);
        QCOMPARE(stage.log.take(), u"unchecked checkChanged checked checkChanged"_s);
        QVERIFY(stage.control->isCheck());
    }

    void changeIsRepainted_data() { addKinds(); }

    void changeIsRepainted()
    {
        BoxStage stage;
        stage.control->style()->borderBrush = QBrush(Qt::black);
        stage.view.showOnce();
        // The middle, which the knob never covers and the dot does.
        const auto colour = [&] { return stage.view.grab().toImage().pixelColor(stage.centre()); };
        const QColor off = colour();
        stage.control->setCheck(true);
        QTRY_VERIFY(colour() != off);
        stage.control->setCheck(false);
        QTRY_COMPARE(colour(), off);
    }

    void pressToggles_data() { addKindsAndInputs(); }

    void pressToggles()
    {
        BoxStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.press(stage.centre());
        QVERIFY(stage.control->isCheck());
        QVERIFY(stage.control->isMouseDown());
        QCOMPARE(stage.log.take(), u"press checked checkChanged"_s);
        stage.hand.release();
        QVERIFY(stage.control->isCheck());
        QVERIFY(!stage.control->isMouseDown());
        QCOMPARE(stage.log.take(), u"release clicked"_s);

        stage.hand.tap(QPoint(20, 20)); // lest the next tap be the second one of a double tap
        stage.hand.tap(stage.centre());
        QVERIFY(!stage.control->isCheck());
        QCOMPARE(stage.log.take(), u"press unchecked checkChanged release clicked"_s);
    }

    void moveAwayKeepsTheNewState_data() { addKindsAndInputs(); }

    void moveAwayKeepsTheNewState()
    {
        BoxStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.drag(stage.centre(), QPoint(20, 20));
        QCOMPARE(stage.log.take(), u"press checked checkChanged release"_s);
        QVERIFY(stage.control->isCheck());
    }

    void doubleClickTogglesTwice_data() { addKindsAndInputs(); }

    void doubleClickTogglesTwice()
    {
        BoxStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.hand.doubleTap(stage.centre());
        QCOMPARE(stage.log.take(),
                 u"press checked checkChanged release clicked "
                 "press unchecked checkChanged doubleClicked release clicked"_s);
        QVERIFY(!stage.control->isCheck());
    }

    void otherButtonsAreNotAccepted_data()
    {
        addRows({{"kind", kinds}, {"button", otherMouseButtons}});
    }

    void otherButtonsAreNotAccepted()
    {
        const auto button = fetch<Qt::MouseButton>("button");
        BoxStage stage;
        stage.hand.press(stage.centre(), button);
        stage.hand.release(stage.centre(), button);
        QCOMPARE(stage.log.take(), QString());
        QVERIFY(!stage.control->isCheck());
    }

    void otherButtonsPressButDoNotToggle_data() { otherButtonsAreNotAccepted_data(); }

    void otherButtonsPressButDoNotToggle()
    {
        for (const bool on : {false, true}) {
            BoxStage stage;
            stage.control->setAcceptedMouseButtons(Qt::AllButtons);
            stage.control->setCheck(on);
            stage.log.take();
            stage.hand.press(stage.centre(), fetch<Qt::MouseButton>("button"));
            QCOMPARE(stage.log.take(), u"press"_s);
            QVERIFY(stage.control->style()->isMouseDown);
            QCOMPARE(stage.control->isCheck(), on);
        }
    }

    void pressBesideTheBox_data() { addKindsAndInputs(); }

    void pressBesideTheBox()
    {
        BoxStage stage;
        stage.hand.use(fetch<Input>("input"));
        for (const QPoint &pos :
             {QPoint(98, 115), QPoint(182, 115), QPoint(140, 98), QPoint(140, 132)})
            stage.hand.tap(pos);
        QCOMPARE(stage.log.take(), QString());
        // The corner belongs to the box, although nothing is drawn there.
        stage.hand.tap(QPoint(101, 101));
        QCOMPARE(stage.log.take(), u"press checked checkChanged release clicked"_s);
    }

    void disabledBoxDoesNotToggle_data() { addKindsAndInputs(); }

    void disabledBoxDoesNotToggle()
    {
        BoxStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.control->setEnabled(false);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.take(), QString());
        stage.control->setCheck(true);
        QCOMPARE(stage.log.take(), u"checked checkChanged"_s);
    }

    void checkedInsideThePressSlot_data() { addKinds(); }

    void checkedInsideThePressSlot()
    {
        BoxStage stage;
        stage.log.on(u"press"_s, [&] { stage.control->setCheck(true); });
        stage.hand.press(stage.centre());
        // The press toggles what it finds when its slots have run.
        QCOMPARE(stage.log.take(), u"press checked checkChanged unchecked checkChanged"_s);
        stage.hand.release();
        QVERIFY(!stage.control->isCheck());
    }

    void unselectableBoxToggles_data() { addKinds(); }

    void unselectableBoxToggles()
    {
        BoxStage stage;
        stage.control->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.hand.tap(stage.centre());
        // The press is ignored, and so the release goes elsewhere.
        QCOMPARE(stage.log.take(), u"press checked checkChanged"_s);
        QVERIFY(stage.control->isCheck());
    }

    void pointerLostInsideChecked_data() { addRows({{"kind", kinds}, {"loss", lossNames()}}); }

    void pointerLostInsideChecked()
    {
        const Loss &loss = losses().at(fetch<size_t>("loss"));
        BoxStage stage;
        stage.log.on(u"checked"_s, [&] { loss.lose(stage); });
        stage.hand.press(stage.centre());
        QCOMPARE(stage.log.take(), u"press checked checkChanged"_s);
        QTRY_VERIFY(!stage.control->style()->isMouseDown);
        loss.restore(stage);
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
        QVERIFY(stage.control->isCheck());
    }

    void deletedInASlot_data()
    {
        addRows({{"kind", kinds},
                 {"signal", signalsOfAChange},
                 {"way", deletionWays},
                 {"input", inputs}});
    }

    void deletedInASlot()
    {
        const Way way = fetch<Way>("way");
        BoxStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.makeReadyFor(fetch<Signal>("signal"));
        stage.log.on(entryOfTheRow(), [&] { stage.destroy(way); });
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.destroyCalls, 1);
        const QString names = stage.log.take();
        if (way != Way::DeleteLater)
            QVERIFY2(names.endsWith(entryOfTheRow()), qPrintable(names));
        else
            QVERIFY2(names.contains(QLatin1String("checkChanged")), qPrintable(names));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QVERIFY(stage.nextControlIsClicked());
    }

    void deletedInASlotOfSetCheck_data()
    {
        addRows({{"kind", kinds},
                 {"signal", signalsOfAChange},
                 {"byProperty", {{"by setCheck", false}, {"by the property", true}}}});
    }

    void deletedInASlotOfSetCheck()
    {
        BoxStage stage;
        stage.makeReadyFor(fetch<Signal>("signal"));
        const bool wasOn = stage.control->isCheck();
        stage.log.on(entryOfTheRow(), [&] { delete stage.control; });
        if (fetch<bool>("byProperty"))
            stage.control->setProperty("check", !wasOn);
        else
            stage.control->setCheck(!wasOn);
        QVERIFY(!stage.control);
        QVERIFY(stage.log.take().endsWith(entryOfTheRow()));
    }

    void unselectableBoxDeletedInASlot_data()
    {
        std::vector<Named> all = signalsOfAChange;
        all.push_back({"press", int(Signal::Press)});
        addRows({{"kind", kinds}, {"signal", all}, {"way", deletionWays}});
    }

    // Qt warns when an item that is gone has ignored its press.
    void unselectableBoxDeletedInASlot()
    {
        BoxStage stage;
        stage.makeReadyFor(fetch<Signal>("signal"));
        stage.control->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.log.on(entryOfTheRow(), [&] { stage.destroy(fetch<Way>("way")); });
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.destroyCalls, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.control);
        QCOMPARE(takeWarnings(), QStringList());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
    }
};

KEL_TEST_MAIN(tst_Toggle)
#include "tst_toggle.moc"
