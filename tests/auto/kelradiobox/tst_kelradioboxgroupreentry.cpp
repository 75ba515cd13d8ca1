// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "groupstage.h"

namespace {

// How box 1 comes to be selected while box 0 is.
enum class Flow { SetId, Check, Mouse, Touch };

// The signal whose slot interferes.
enum class Moment { Press, NewChecked, OldUnchecked, OldChanged, IdChanged, NewChanged };

enum class Act {
    SelectThird,
    SelectOld,
    SelectNew,
    CheckThird,
    CheckOld,
    CheckNew,
    UncheckNew,
    UncheckOld,
    AddUnderFreeId,
    AddOldAgain,
    AddNewAgain,
    DeleteGroup,
    DeleteGroupLater,
    DeleteOld,
    DeleteOldLater,
    DeleteNew,
    DeleteNewLater,
    DeleteThird,
    DeleteAllBoxes,
    DeleteNewAndGroup,
    ReplaceOld,
    ReplaceNew,
    ClearScene
};

const Named flows[] = {{"setId", int(Flow::SetId)},
                       {"setCheck", int(Flow::Check)},
                       {"mouse", int(Flow::Mouse)},
                       {"touch", int(Flow::Touch)}};

const Named moments[] = {{"press", int(Moment::Press)},
                         {"new checked", int(Moment::NewChecked)},
                         {"old unchecked", int(Moment::OldUnchecked)},
                         {"old changed", int(Moment::OldChanged)},
                         {"id changed", int(Moment::IdChanged)},
                         {"new changed", int(Moment::NewChanged)}};

const Named acts[] = {{"select third", int(Act::SelectThird)},
                      {"select old", int(Act::SelectOld)},
                      {"select new", int(Act::SelectNew)},
                      {"check third", int(Act::CheckThird)},
                      {"check old", int(Act::CheckOld)},
                      {"check new", int(Act::CheckNew)},
                      {"uncheck new", int(Act::UncheckNew)},
                      {"uncheck old", int(Act::UncheckOld)},
                      {"add under a free id", int(Act::AddUnderFreeId)},
                      {"add old again", int(Act::AddOldAgain)},
                      {"add new again", int(Act::AddNewAgain)},
                      {"delete group", int(Act::DeleteGroup)},
                      {"delete group later", int(Act::DeleteGroupLater)},
                      {"delete old", int(Act::DeleteOld)},
                      {"delete old later", int(Act::DeleteOldLater)},
                      {"delete new", int(Act::DeleteNew)},
                      {"delete new later", int(Act::DeleteNewLater)},
                      {"delete third", int(Act::DeleteThird)},
                      {"delete all boxes", int(Act::DeleteAllBoxes)},
                      {"delete new and group", int(Act::DeleteNewAndGroup)},
                      {"replace old", int(Act::ReplaceOld)},
                      {"replace new", int(Act::ReplaceNew)},
                      {"clear scene", int(Act::ClearScene)}};

void selectNew(GroupStage &stage, Flow flow)
{
    switch (flow) {
    case Flow::SetId:
        return stage.group->setId(1);
    case Flow::Check:
        return stage.boxes[1]->setCheck(true);
    case Flow::Mouse:
        return stage.tap(Input::Mouse, GroupStage::centreOf(1));
    case Flow::Touch:
        return stage.tap(Input::Touch, GroupStage::centreOf(1));
    }
}

void connectTo(GroupStage &stage, Moment moment, const std::function<void()> &slot)
{
    const auto call = [slot] { slot(); };
    switch (moment) {
    case Moment::Press:
        QObject::connect(stage.boxes[1], &KELRadioBox::mousePress, &stage.view, call);
        break;
    case Moment::NewChecked:
        QObject::connect(stage.boxes[1], &KELRadioBox::checked, &stage.view, call);
        break;
    case Moment::OldUnchecked:
        QObject::connect(stage.boxes[0], &KELRadioBox::unchecked, &stage.view, call);
        break;
    case Moment::OldChanged:
        QObject::connect(stage.boxes[0], &KELRadioBox::checkChanged, &stage.view, call);
        break;
    case Moment::IdChanged:
        QObject::connect(stage.group, &KELRadioBoxGroup::idChanged, &stage.view, call);
        break;
    case Moment::NewChanged:
        QObject::connect(stage.boxes[1], &KELRadioBox::checkChanged, &stage.view, call);
        break;
    }
}

void replace(GroupStage &stage, int place)
{
    delete stage.boxes[place];
    stage.boxes[place] = stage.addBoxToScene(place);
    stage.group->addRadioBox(stage.boxes[place], place);
}

void deleteBoxes(GroupStage &stage)
{
    for (auto &box : stage.boxes)
        delete box;
}

void perform(GroupStage &stage, Act act)
{
    switch (act) {
    case Act::SelectThird:
        return stage.group->setId(2);
    case Act::SelectOld:
        return stage.group->setId(0);
    case Act::SelectNew:
        return stage.group->setId(1);
    case Act::CheckThird:
        return stage.boxes[2]->setCheck(true);
    case Act::CheckOld:
        return stage.boxes[0]->setCheck(true);
    case Act::CheckNew:
        return stage.boxes[1]->setCheck(true);
    case Act::UncheckNew:
        return stage.boxes[1]->setCheck(false);
    case Act::UncheckOld:
        return stage.boxes[0]->setCheck(false);
    case Act::AddUnderFreeId: {
        auto *box = new KELRadioBox;
        stage.view.ownScene.addItem(box);
        return stage.group->addRadioBox(box, 10);
    }
    case Act::AddOldAgain:
        return stage.group->addRadioBox(stage.boxes[0], 20);
    case Act::AddNewAgain:
        return stage.group->addRadioBox(stage.boxes[1], 21);
    case Act::DeleteGroup:
        delete stage.group;
        return;
    case Act::DeleteGroupLater:
        return stage.group->deleteLater();
    case Act::DeleteOld:
        delete stage.boxes[0];
        return;
    case Act::DeleteOldLater:
        return stage.boxes[0]->deleteLater();
    case Act::DeleteNew:
        delete stage.boxes[1];
        return;
    case Act::DeleteNewLater:
        return stage.boxes[1]->deleteLater();
    case Act::DeleteThird:
        delete stage.boxes[2];
        return;
    case Act::DeleteAllBoxes:
        return deleteBoxes(stage);
    case Act::DeleteNewAndGroup:
        delete stage.boxes[1];
        delete stage.group;
        return;
    case Act::ReplaceOld:
        return replace(stage, 0);
    case Act::ReplaceNew:
        return replace(stage, 1);
    case Act::ClearScene:
        return stage.view.ownScene.clear();
    }
}

// Empty when at most the selected box is checked, and it alone is deaf.
QString disorder(const GroupStage &stage)
{
    QVector<int> deaf;
    QVector<int> listening;
    for (int i = 0; i < GroupStage::boxCount; ++i) {
        if (stage.boxes[i])
            (stage.group->id() % 10 == i ? deaf : listening).append(i);
    }
    if (stage.deafBoxes() != deaf)
        return u"not the selected box is deaf"_s;
    if (stage.listeningBoxes() != listening)
        return u"not every other box is live"_s;
    for (const int checked : stage.checkedBoxes()) {
        if (!deaf.contains(checked))
            return u"box %1 is checked, the id is %2"_s.arg(checked).arg(stage.group->id());
    }
    return QString();
}

bool isOneChecked(const GroupStage &stage)
{
    return stage.checkedBoxes() == QVector<int>({stage.group->id() % 10});
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
            stage.tap(Input::Mouse, GroupStage::centreOf(place));
            if (!isOneChecked(stage) || !disorder(stage).isEmpty())
                return u"tap on %1: "_s.arg(place) + disorder(stage);
        }
    }
    return QString();
}

void addFlows()
{
    QTest::addColumn<int>("flow");

    for (const Named &flow : flows)
        QTest::newRow(flow.name) << flow.value;
}

bool isTap(Flow flow)
{
    return flow == Flow::Mouse || flow == Flow::Touch;
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
        QTest::addColumn<int>("flow");
        QTest::addColumn<int>("moment");
        QTest::addColumn<int>("act");
        QTest::addColumn<bool>("beforeTheGroup");

        for (const Named &flow : flows) {
            for (const Named &moment : moments) {
                if (Moment(moment.value) == Moment::Press && !isTap(Flow(flow.value)))
                    continue;
                for (const Named &act : acts) {
                    for (const bool beforeTheGroup : {false, true}) {
                        QTest::addRow("%s, %s, %s, connected %s the group", flow.name, moment.name,
                                      act.name, beforeTheGroup ? "before" : "after")
                            << flow.value << moment.value << act.value << beforeTheGroup;
                    }
                }
            }
        }
    }

    void groupStaysInOrder()
    {
        QFETCH(int, flow);
        QFETCH(int, moment);
        QFETCH(int, act);
        QFETCH(bool, beforeTheGroup);
        GroupStage stage;
        int calls = 0;
        bool added = false;
        const auto interfere = [&] {
            if (added && ++calls == 1)
                perform(stage, Act(act));
        };
        if (beforeTheGroup)
            connectTo(stage, Moment(moment), interfere);
        stage.addAll();
        if (!beforeTheGroup)
            connectTo(stage, Moment(moment), interfere);
        added = true;
        // Only touch events pass through the window.
        QVERIFY(Flow(flow) != Flow::Touch || stage.show());
        selectNew(stage, Flow(flow));
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
        if (hasSelectedBox && Act(act) != Act::UncheckNew)
            QVERIFY2(isOneChecked(stage), "no box is checked");
        QCOMPARE(failureToGoOn(stage), QString());
    }

    void otherSelectedInsideOldUnchecked_data() { addFlows(); }

    void otherSelectedInsideOldUnchecked()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, [&] { stage.group->setId(2); });
        selectNew(stage, Flow(flow));
        const QString middle = u"unchecked 0, checked 2, changed 2, id, changed 0"_s;
        const QString clicked = u"checked 1, %1, unchecked 1, changed 1, changed 1"_s;
        if (Flow(flow) == Flow::SetId)
            QCOMPARE(stage.takeNames(), middle);
        else if (Flow(flow) == Flow::Check)
            QCOMPARE(stage.takeNames(), clicked.arg(middle));
        else
            // The tapped box is live again, but its press was over when it was given up.
            QVERIFY(stage.takeNames().startsWith(u"press 1, "_s + clicked.arg(middle)));
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
    }

    void otherSelectedInsideOldChanged_data() { addFlows(); }

    void otherSelectedInsideOldChanged()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        const QSignalSpy idChanged(stage.group, &KELRadioBoxGroup::idChanged);
        connect(stage.boxes[0], &KELRadioBox::checkChanged, this, [&] { stage.group->setId(2); });
        selectNew(stage, Flow(flow));
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(idChanged.count(), 1);
        QCOMPARE(disorder(stage), QString());
    }

    void otherSelectedInsideNewChecked_data() { addFlows(); }

    void otherSelectedInsideNewChecked()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        QVector<int> ids;
        connect(stage.group, &KELRadioBoxGroup::idChanged, this,
                [&] { ids.append(stage.group->id()); });
        connect(stage.boxes[1], &KELRadioBox::checked, this, [&] { stage.group->setId(2); });
        selectNew(stage, Flow(flow));
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
        QCOMPARE(ids.last(), 2);
        // The new box was selected already, and so both changes are told.
        QCOMPARE(ids.size(), 2);
    }

    void otherSelectedInsideNewCheckedBeforeTheGroupActs_data() { addFlows(); }

    void otherSelectedInsideNewCheckedBeforeTheGroupActs()
    {
        QFETCH(int, flow);
        GroupStage stage;
        int calls = 0;
        // A limit, so that an endless game of two slots does not end the program.
        connect(stage.boxes[1], &KELRadioBox::checked, this, [&] {
            if (++calls < 50)
                stage.group->setId(2);
        });
        stage.addAll();
        QVERIFY(stage.show());
        selectNew(stage, Flow(flow));
        QVERIFY2(calls < 5, "the slot and the group call each other without end");
        QCOMPARE(disorder(stage), QString());
        QVERIFY(isOneChecked(stage));
    }

    void otherSelectedInsideIdChanged_data() { addFlows(); }

    void otherSelectedInsideIdChanged()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        connect(stage.group, &KELRadioBoxGroup::idChanged, this, [&] { stage.group->setId(2); });
        selectNew(stage, Flow(flow));
        const QString names = stage.takeNames();
        QVERIFY2(names.contains(u"id, unchecked 1, changed 1, checked 2, changed 2, id"_s),
                 qPrintable(names));
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
    }

    void otherSelectedInsideNewChanged_data() { addFlows(); }

    void otherSelectedInsideNewChanged()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        int calls = 0;
        connect(stage.boxes[1], &KELRadioBox::checkChanged, this, [&] {
            ++calls;
            stage.group->setId(2);
        });
        selectNew(stage, Flow(flow));
        QCOMPARE(calls, 2);
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
    }

    void oldSelectedInsideOldUnchecked_data() { addFlows(); }

    void oldSelectedInsideOldUnchecked()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        // The old box is still the selected one then: nothing to do.
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, [&] { stage.group->setId(0); });
        selectNew(stage, Flow(flow));
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.takeNames().count(QLatin1String("id")), 1);
        QCOMPARE(disorder(stage), QString());
    }

    void oldCheckedAgainOnce_data() { addFlows(); }

    void oldCheckedAgainOnce()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        int calls = 0;
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, [&] {
            if (++calls == 1)
                stage.boxes[0]->setCheck(true);
        });
        selectNew(stage, Flow(flow));
        QCOMPARE(calls, 2);
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(disorder(stage), QString());
    }

    void oldCheckedAgainEveryTime_data() { addFlows(); }

    void oldCheckedAgainEveryTime()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        int calls = 0;
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, [&] {
            if (++calls < 50)
                stage.boxes[0]->setCheck(true);
        });
        selectNew(stage, Flow(flow));
        QVERIFY2(calls < 5, "the slot and the group call each other without end");
        QVERIFY(isOneChecked(stage));
        QCOMPARE(disorder(stage), QString());
    }

    void laterWishOfThree_data() { addFlows(); }

    void laterWishOfThree()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        auto *fourth = stage.addBoxToScene(3);
        stage.group->addRadioBox(fourth, 3);
        QVERIFY(stage.show());
        const QSignalSpy idChanged(stage.group, &KELRadioBoxGroup::idChanged);
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, [&] {
            stage.group->setId(2);
            fourth->setCheck(true);
        });
        selectNew(stage, Flow(flow));
        QCOMPARE(stage.group->id(), 3);
        QVERIFY(fourth->isCheck());
        QVERIFY(isDeaf(*fourth));
        QCOMPARE(stage.checkedBoxes(), QVector<int>());
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 1, 2}));
        QCOMPARE(idChanged.count(), 2);
    }

    void oldDeletedInsideUnchecked_data() { addFlows(); }

    void oldDeletedInsideUnchecked()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        connect(stage.boxes[0], &KELRadioBox::unchecked, &stage.view,
                [&] { delete stage.boxes[0]; });
        selectNew(stage, Flow(flow));
        QVERIFY(!stage.boxes[0]);
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        const QString names = stage.takeNames();
        QVERIFY2(!names.contains(QLatin1String("changed 0")), qPrintable(names));
        QVERIFY2(names.contains(QLatin1String("id")), qPrintable(names));
    }

    void newDeletedInsideOldUnchecked_data() { addFlows(); }

    void newDeletedInsideOldUnchecked()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        connect(stage.boxes[0], &KELRadioBox::unchecked, &stage.view,
                [&] { delete stage.boxes[1]; });
        selectNew(stage, Flow(flow));
        QVERIFY(!stage.boxes[1]);
        QCOMPARE(stage.checkedBoxes(), QVector<int>());
        QCOMPARE(disorder(stage), QString());
        stage.group->setId(2);
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
    }

    void groupDeletedInsideOldUnchecked_data() { addFlows(); }

    void groupDeletedInsideOldUnchecked()
    {
        QFETCH(int, flow);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        connect(stage.boxes[0], &KELRadioBox::unchecked, &stage.view, [&] { delete stage.group; });
        selectNew(stage, Flow(flow));
        QVERIFY(!stage.group);
        // What was begun by the group is not finished; what the box itself began is.
        QCOMPARE(stage.checkedBoxes(),
                 Flow(flow) == Flow::SetId ? QVector<int>() : QVector<int>({1}));
        const QString names = stage.takeNames();
        QVERIFY2(names.contains(QLatin1String("changed 0")), qPrintable(names));
        QVERIFY2(!names.contains(QLatin1String("id")), qPrintable(names));
    }

    void otherSelectedWhileAdding_data()
    {
        QTest::addColumn<bool>("inChecked");

        QTest::newRow("inside checked") << true;
        QTest::newRow("inside check changed") << false;
    }

    void otherSelectedWhileAdding()
    {
        QFETCH(bool, inChecked);
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[2], 2);
        const auto slot = [&] { stage.group->setId(2); };
        if (inChecked)
            connect(stage.boxes[0], &KELRadioBox::checked, this, slot);
        else
            connect(stage.boxes[0], &KELRadioBox::checkChanged, this, slot);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({2}));
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 1}));
        // The box is in the group all the same, and checking it reaches the group.
        stage.boxes[0]->disconnect(this);
        stage.boxes[0]->setCheck(true);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
    }

    void groupDeletedWhileAdding_data() { otherSelectedWhileAdding_data(); }

    void groupDeletedWhileAdding()
    {
        QFETCH(bool, inChecked);
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[2], 2);
        const auto slot = [&] { delete stage.group; };
        if (inChecked)
            connect(stage.boxes[0], &KELRadioBox::checked, this, slot);
        else
            connect(stage.boxes[0], &KELRadioBox::checkChanged, this, slot);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QVERIFY(!stage.group);
        QVERIFY(stage.boxes[0]->isCheck());
        stage.boxes[0]->setCheck(false);
        stage.boxes[0]->setCheck(true);
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0, 2}));
    }

    void boxDeletedWhileAdding_data() { otherSelectedWhileAdding_data(); }

    void boxDeletedWhileAdding()
    {
        QFETCH(bool, inChecked);
        GroupStage stage;
        const auto slot = [&] { delete stage.boxes[0]; };
        if (inChecked)
            connect(stage.boxes[0], &KELRadioBox::checked, &stage.view, slot);
        else
            connect(stage.boxes[0], &KELRadioBox::checkChanged, &stage.view, slot);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QVERIFY(!stage.boxes[0]);
        QCOMPARE(stage.group->id(), 0);
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
    }

    void boxUncheckedWhileAdding()
    {
        GroupStage stage;
        connect(stage.boxes[0], &KELRadioBox::checked, this,
                [&] { stage.boxes[0]->setCheck(false); });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.checkedBoxes(), QVector<int>());
        QCOMPARE(stage.deafBoxes(), QVector<int>({0}));
    }

    void anotherBoxAddedWhileAdding()
    {
        GroupStage stage;
        connect(stage.boxes[0], &KELRadioBox::checked, this, [&] {
            stage.group->addRadioBox(stage.boxes[1], 0);
            stage.group->addRadioBox(stage.boxes[2], 2);
        });
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList(u"waring : id 0 is already exist"_s));
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({0}));
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(stage.group->id(), 2);
    }

    void sameBoxAddedWhileAdding()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        bool added = false;
        connect(stage.boxes[0], &KELRadioBox::checked, this, [&] {
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
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        int calls = 0;
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, this, [&] {
            if (!stage.boxes[1]->isCheck())
                return;
            ++calls;
            stage.group->setId(2);
        });
        stage.tap(Input::Mouse, stage.centreOf(1));
        QVERIFY(calls > 0);
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
        QVERIFY(!stage.boxes[1]->isMouseDown());
    }

    void boxDeletedLaterWhenItIsUnmarked()
    {
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        bool isAsked = false; // the dying box changes the selection too
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &stage.view, [&] {
            if (isAsked || !stage.boxes[1]->isCheck())
                return;
            isAsked = true;
            stage.boxes[1]->deleteLater();
        });
        stage.tap(Input::Mouse, stage.centreOf(1));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.boxes[1]);
        QCOMPARE(stage.group->id(), 1);
        stage.tap(Input::Mouse, stage.centreOf(2));
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(disorder(stage), QString());
    }

    void groupDeletedWhenTheTappedBoxIsUnmarked()
    {
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        connect(&stage.view.ownScene, &QGraphicsScene::selectionChanged, &stage.view, [&] {
            if (stage.boxes[1]->isCheck())
                delete stage.group;
        });
        stage.tap(Input::Mouse, stage.centreOf(1));
        QVERIFY(!stage.group);
        QVERIFY(stage.boxes[1]->isCheck());
        QVERIFY(!stage.takeNames().contains(QLatin1String("id")));
    }
};

KEL_TEST_MAIN(tst_KELRadioBoxGroupReentry)
#include "tst_kelradioboxgroupreentry.moc"
