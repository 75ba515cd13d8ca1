// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "groupstage.h"

namespace {

// How box 1 comes to be selected while box 0 is.
enum class Flow { SetId, Check, Mouse, Touch };

const std::vector<Named> taps = {{"mouse", int(Flow::Mouse)}, {"touch", int(Flow::Touch)}};
const std::vector<Named> flows = {{"setId", int(Flow::SetId)},
                                  {"setCheck", int(Flow::Check)},
                                  {"mouse", int(Flow::Mouse)},
                                  {"touch", int(Flow::Touch)}};

// The signal whose slot interferes.
struct Moment
{
    const char *name;
    QString signal;
};

const std::vector<Moment> moments = {
    {"new checked", u"1.checked"_s},      {"old unchecked", u"0.unchecked"_s},
    {"old changed", u"0.checkChanged"_s}, {"id changed", u"idChanged"_s},
    {"new changed", u"1.checkChanged"_s}, {"press", u"1.press"_s}};

// A slot connected after the group asks for a box. Once box 1 is selected, that change is told too;
// the old box is still the selected one when it is unchecked.
struct Wish
{
    const char *name;
    QString signal;
    int wanted;
    int selectedThen;
    int idChanges;
};

const std::vector<Wish> wishes = {{"third, old changed", u"0.checkChanged"_s, 2, 2, 1},
                                  {"third, new checked", u"1.checked"_s, 2, 2, 2},
                                  {"third, new changed", u"1.checkChanged"_s, 2, 2, 2},
                                  {"old, old unchecked", u"0.unchecked"_s, 0, 1, 1}};

struct Act
{
    const char *name;
    std::function<void(GroupStage &)> perform;
};

const std::vector<Act> acts = {
    {"select third", [](GroupStage &s) { s.group->setId(2); }},
    {"select old", [](GroupStage &s) { s.group->setId(0); }},
    {"select new", [](GroupStage &s) { s.group->setId(1); }},
    {"check third", [](GroupStage &s) { s.boxes[2]->setCheck(true); }},
    {"check old", [](GroupStage &s) { s.boxes[0]->setCheck(true); }},
    {"check new", [](GroupStage &s) { s.boxes[1]->setCheck(true); }},
    {"uncheck new", [](GroupStage &s) { s.boxes[1]->setCheck(false); }},
    {"uncheck old", [](GroupStage &s) { s.boxes[0]->setCheck(false); }},
    {"add under a free id",
     [](GroupStage &s) {
         auto *box = new KELRadioBox;
         s.view.ownScene.addItem(box);
         s.group->addRadioBox(box, 10);
     }},
    {"add old again", [](GroupStage &s) { s.group->addRadioBox(s.boxes[0], 20); }},
    {"add new again", [](GroupStage &s) { s.group->addRadioBox(s.boxes[1], 21); }},
    {"delete group", [](GroupStage &s) { delete s.group; }},
    {"delete group later", [](GroupStage &s) { s.group->deleteLater(); }},
    {"delete old", [](GroupStage &s) { delete s.boxes[0]; }},
    {"delete old later", [](GroupStage &s) { s.boxes[0]->deleteLater(); }},
    {"delete new", [](GroupStage &s) { delete s.boxes[1]; }},
    {"delete new later", [](GroupStage &s) { s.boxes[1]->deleteLater(); }},
    {"delete third", [](GroupStage &s) { delete s.boxes[2]; }},
    {"delete all boxes",
     [](GroupStage &s) {
         for (auto &box : s.boxes)
             delete box;
     }},
    {"delete new and group",
     [](GroupStage &s) {
         delete s.boxes[1];
         delete s.group;
     }},
    {"replace old", [](GroupStage &s) { s.replaceBox(0); }},
    {"replace new", [](GroupStage &s) { s.replaceBox(1); }},
    {"clear scene", [](GroupStage &s) { s.view.ownScene.clear(); }},
};

Flow flowOfRow()
{
    return fetch<Flow>("flow");
}

void selectNew(GroupStage &stage)
{
    switch (flowOfRow()) {
    case Flow::SetId:
        return stage.group->setId(1);
    case Flow::Check:
        return stage.boxes[1]->setCheck(true);
    case Flow::Mouse:
        return tapUnshown(&stage.view, GroupStage::centreOf(1));
    case Flow::Touch:
        stage.hand.use(Input::Touch);
        return stage.tap(1);
    }
}

// Empty when at most the selected box is checked, and it alone is deaf.
QString disorder(const GroupStage &stage)
{
    for (int i = 0; i < GroupStage::boxCount; ++i) {
        const KELRadioBox *const box = stage.boxes[i];
        if (!box)
            continue;
        const bool isSelected = stage.group->id() % 10 == i;
        if (isSelected ? !isDeaf(*box) : !isListening(*box) || box->isCheck())
            return stage.state();
    }
    return QString();
}

bool isOneChecked(const GroupStage &stage)
{
    return stage.checkedBoxes() == QString::number(stage.group->id() % 10);
}

// Shows that the group works as ever: selects every box there is, by program and by finger.
QString failureToGoOn(GroupStage &stage)
{
    QVector<int> places;
    for (int i = 0; i < GroupStage::boxCount; ++i) {
        if (stage.boxes[i])
            places.append(i);
    }
    // Twice: the first of them may be the selected one, and then it keeps the state it has.
    for (int round = 0; places.size() > 1 && round < 2; ++round) {
        for (const int place : qAsConst(places)) {
            stage.group->setId(place);
            if (round == 1 && !(isOneChecked(stage) && disorder(stage).isEmpty()))
                return u"setId(%1): "_s.arg(place) + disorder(stage);
        }
        for (const int place : qAsConst(places)) {
            tapUnshown(&stage.view, GroupStage::centreOf(place));
            if (!isOneChecked(stage) || !disorder(stage).isEmpty())
                return u"tap on %1: "_s.arg(place) + disorder(stage);
        }
    }
    return QString();
}

void addInterferences(const std::vector<Named> &flowsMeant, const std::vector<Named> &momentsMeant)
{
    addRows({{"flow", flowsMeant},
             {"moment", momentsMeant},
             {"act", namesOf(acts)},
             {"isFirst",
              {{"connected after the group", false}, {"connected before the group", true}}}});
}

} // namespace

// Slots that interfere while a group changes from box 0 to box 1.
class tst_KELRadioBoxGroupReentry : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void groupStaysInOrder_data()
    {
        std::vector<Named> names = namesOf(moments);
        names.pop_back(); // only a tap is a press
        addInterferences(flows, names);
    }

    void groupStaysInOrder() { interfere(); }

    void groupStaysInOrderInThePress_data() { addInterferences(taps, {namesOf(moments).back()}); }

    void groupStaysInOrderInThePress() { interfere(); }

    void otherSelectedInsideOldUnchecked_data() { addRows({{"flow", flows}}); }

    void otherSelectedInsideOldUnchecked()
    {
        FullGroup stage;
        stage.after.on(u"0.unchecked"_s, [&] { stage.group->setId(2); });
        selectNew(stage);
        const QString middle = u"0.unchecked 2.checked 2.checkChanged idChanged 0.checkChanged"_s;
        const QString clicked = u"1.checked %1 1.unchecked 1.checkChanged 1.checkChanged"_s.arg(
            middle);
        if (flowOfRow() == Flow::SetId)
            QCOMPARE(stage.log.take(), middle);
        else if (flowOfRow() == Flow::Check)
            QCOMPARE(stage.log.take(), clicked);
        else
            // The tapped box is live again, but its press was over when it was given up.
            QVERIFY(stage.log.take().startsWith(u"1.press "_s + clicked));
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void otherSelectedInASlot_data() { addRows({{"wish", namesOf(wishes)}, {"flow", flows}}); }

    void otherSelectedInASlot()
    {
        const Wish &wish = wishes[fetch<size_t>("wish")];
        FullGroup stage;
        stage.after.on(wish.signal, [&] { stage.group->setId(wish.wanted); });
        selectNew(stage);
        QCOMPARE(stage.state(), u"id %1, checked %1, deaf %1"_s.arg(wish.selectedThen));
        QCOMPARE(stage.log.count(u"idChanged"_s), wish.idChanges);
    }

    void endlessWish_data()
    {
        addRows({{"isOld",
                  {{"third selected when the new one is checked, before the group acts", false},
                   {"old one checked whenever it is unchecked", true}}},
                 {"flow", flows}});
    }

    void endlessWish()
    {
        const bool isOld = fetch<bool>("isOld");
        FullGroup stage;
        int calls = 0;
        // A limit, so that an endless game of two slots does not end the program.
        const auto wish = [&] {
            if (++calls >= 50)
                return;
            if (isOld)
                stage.boxes[0]->setCheck(true);
            else
                stage.group->setId(2);
        };
        if (isOld)
            stage.after.on(u"0.unchecked"_s, wish);
        else
            stage.log.on(u"1.checked"_s, wish);
        selectNew(stage);
        QVERIFY2(calls < 5, "the slot and the group call each other without end");
        QCOMPARE(disorder(stage), QString());
        QVERIFY(isOneChecked(stage));
    }

    void otherSelectedInsideIdChanged_data() { addRows({{"flow", flows}}); }

    void otherSelectedInsideIdChanged()
    {
        FullGroup stage;
        stage.after.on(u"idChanged"_s, [&] { stage.group->setId(2); });
        selectNew(stage);
        const QString names = stage.log.take();
        QVERIFY2(names.contains(u"idChanged 1.unchecked 1.checkChanged 2.checked 2.checkChanged "
                                "idChanged"_s),
                 qPrintable(names));
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void oldCheckedAgainOnce_data() { addRows({{"flow", flows}}); }

    void oldCheckedAgainOnce()
    {
        FullGroup stage;
        int calls = 0;
        stage.after.on(u"0.unchecked"_s, [&] {
            if (++calls == 1)
                stage.boxes[0]->setCheck(true);
        });
        selectNew(stage);
        QCOMPARE(calls, 2);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void laterWishOfThree_data() { addRows({{"flow", flows}}); }

    void laterWishOfThree()
    {
        FullGroup stage;
        auto *fourth = stage.addBoxToScene(3);
        stage.group->addRadioBox(fourth, 3);
        stage.after.on(u"0.unchecked"_s, [&] {
            stage.group->setId(2);
            fourth->setCheck(true);
        });
        selectNew(stage);
        QCOMPARE(stage.state(), u"id 3, checked none, deaf none"_s);
        QVERIFY(fourth->isCheck());
        QVERIFY(isDeaf(*fourth));
        QCOMPARE(stage.log.count(u"idChanged"_s), 2);
    }

    void oldDeletedInsideUnchecked_data() { addRows({{"flow", flows}}); }

    void oldDeletedInsideUnchecked()
    {
        FullGroup stage;
        stage.after.on(u"0.unchecked"_s, [&] { delete stage.boxes[0]; });
        selectNew(stage);
        QVERIFY(!stage.boxes[0]);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        QCOMPARE(stage.log.count(u"0.checkChanged"_s), 0);
        QCOMPARE(stage.log.count(u"idChanged"_s), 1);
    }

    void newDeletedInsideOldUnchecked_data() { addRows({{"flow", flows}}); }

    void newDeletedInsideOldUnchecked()
    {
        FullGroup stage;
        stage.after.on(u"0.unchecked"_s, [&] { delete stage.boxes[1]; });
        selectNew(stage);
        QVERIFY(!stage.boxes[1]);
        QCOMPARE(stage.checkedBoxes(), u"none"_s);
        QCOMPARE(disorder(stage), QString());
        stage.group->setId(2);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void groupDeletedInsideOldUnchecked_data() { addRows({{"flow", flows}}); }

    void groupDeletedInsideOldUnchecked()
    {
        FullGroup stage;
        stage.after.on(u"0.unchecked"_s, [&] { delete stage.group; });
        selectNew(stage);
        QVERIFY(!stage.group);
        // What was begun by the group is not finished; what the box itself began is.
        QCOMPARE(stage.checkedBoxes(), flowOfRow() == Flow::SetId ? u"none"_s : u"1"_s);
        QCOMPARE(stage.log.count(u"0.checkChanged"_s), 1);
        QCOMPARE(stage.log.count(u"idChanged"_s), 0);
    }

    void otherSelectedWhileAdding_data() { addSignalsOfAdding(); }

    void otherSelectedWhileAdding()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[2], 2);
        bool isAdded = false;
        stage.log.on(signalOfAdding(), [&] {
            if (!isAdded)
                stage.group->setId(2);
        });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
        // The box is in the group all the same, and checking it reaches the group.
        isAdded = true;
        stage.boxes[0]->setCheck(true);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
    }

    void groupDeletedWhileAdding_data() { addSignalsOfAdding(); }

    void groupDeletedWhileAdding()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[2], 2);
        stage.log.on(signalOfAdding(), [&] { delete stage.group; });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QVERIFY(!stage.group);
        QVERIFY(stage.boxes[0]->isCheck());
        stage.boxes[0]->setCheck(false);
        stage.boxes[0]->setCheck(true);
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.checkedBoxes(), u"0 2"_s);
    }

    void boxDeletedWhileAdding_data() { addSignalsOfAdding(); }

    void boxDeletedWhileAdding()
    {
        GroupStage stage;
        stage.log.on(signalOfAdding(), [&] { delete stage.boxes[0]; });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QVERIFY(!stage.boxes[0]);
        QCOMPARE(stage.group->id(), 0);
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.state(), u"id 0, checked 1, deaf 1"_s);
    }

    void boxUncheckedWhileAdding()
    {
        GroupStage stage;
        stage.log.on(u"0.checked"_s, [&] { stage.boxes[0]->setCheck(false); });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(stage.state(), u"id 0, checked none, deaf 0"_s);
    }

    void anotherBoxAddedWhileAdding()
    {
        GroupStage stage;
        stage.log.on(u"0.checked"_s, [&] {
            stage.group->addRadioBox(stage.boxes[1], 0);
            stage.group->addRadioBox(stage.boxes[2], 2);
        });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList(duplicateLine(0)));
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void sameBoxAddedWhileAdding()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        bool added = false;
        stage.log.on(u"0.checked"_s, [&] {
            if (!std::exchange(added, true))
                stage.group->addRadioBox(stage.boxes[0], 20);
        });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(disorder(stage), QString());
        QVERIFY(isOneChecked(stage));
        stage.group->setId(1);
        stage.boxes[0]->setCheck(true);
        QCOMPARE(stage.group->id(), 20);
        QVERIFY(isOneChecked(stage));
    }

    // A tap marks the box in the scene, and making it deaf unmarks it: the scene tells that too.
    void otherSelectedWhenTheTappedBoxIsUnmarked()
    {
        FullGroup stage;
        int calls = 0;
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, this, [&] {
            if (!stage.boxes[1]->isCheck())
                return;
            ++calls;
            stage.group->setId(2);
        });
        stage.tap(1);
        QVERIFY(calls > 0);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
        QVERIFY(!stage.boxes[1]->isMouseDown());
    }

    void boxDeletedLaterWhenItIsUnmarked()
    {
        FullGroup stage;
        bool isAsked = false; // the dying box changes the selection too
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &stage.view, [&] {
            if (isAsked || !stage.boxes[1]->isCheck())
                return;
            isAsked = true;
            stage.boxes[1]->deleteLater();
        });
        stage.tap(1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.boxes[1]);
        QCOMPARE(stage.group->id(), 1);
        stage.tap(2);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void groupDeletedWhenTheTappedBoxIsUnmarked()
    {
        FullGroup stage;
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &stage.view, [&] {
            if (stage.boxes[1]->isCheck())
                delete stage.group;
        });
        stage.tap(1);
        QVERIFY(!stage.group);
        QVERIFY(stage.boxes[1]->isCheck());
        QCOMPARE(stage.log.count(u"idChanged"_s), 0);
    }

private:
    static void interfere()
    {
        const Act &act = acts[fetch<size_t>("act")];
        FullGroup stage;
        int calls = 0;
        SignalLog &log = fetch<bool>("isFirst") ? stage.log : stage.after;
        log.on(moments[fetch<size_t>("moment")].signal, [&] {
            if (++calls == 1)
                act.perform(stage);
        });
        selectNew(stage);
        QVERIFY(calls > 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(takeDebugLines(), QStringList());

        if (!stage.group) {
            for (const auto &box : stage.boxes) {
                if (box)
                    box->setCheck(!box->isCheck());
            }
            return;
        }
        QCOMPARE(disorder(stage), QString());
        const bool hasSelectedBox = stage.boxes[stage.group->id() % 10] != nullptr;
        if (hasSelectedBox && qstrcmp(act.name, "uncheck new") != 0)
            QVERIFY2(isOneChecked(stage), "no box is checked");
        QCOMPARE(failureToGoOn(stage), QString());
    }

    static void addSignalsOfAdding()
    {
        addRows({{"inChecked", {{"inside checked", true}, {"inside check changed", false}}}});
    }
    static QString signalOfAdding()
    {
        return fetch<bool>("inChecked") ? u"0.checked"_s : u"0.checkChanged"_s;
    }
};

KEL_TEST_MAIN(tst_KELRadioBoxGroupReentry)
#include "tst_kelradioboxgroupreentry.moc"
