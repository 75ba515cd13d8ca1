// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "groupmodel.h"
#include "groupstage.h"

#include <QtCore/QRandomGenerator>

#include <memory>

namespace {

// A group and eight places for boxes, next to the model of both.
class RandomWalk
{
public:
    explicit RandomWalk(quint32 seed) : random(seed)
    {
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        QObject::connect(&group, &KELRadioBoxGroup::idChanged, &view, [this] { ++idChanges; });
    }

    void step()
    {
        const int place = random.bounded(GroupModel::boxCount);
        const int id = random.bounded(-1, 7);
        switch (random.bounded(8)) {
        case 0:
        case 1:
            return add(place, id);
        case 2:
        case 3:
            did = u"setId(%1)"_s.arg(id);
            model.select(id);
            return group.setId(id);
        case 4:
        case 5:
        case 6:
            return tap(place);
        default:
            return destroyOrSetCheck(place);
        }
    }

    // Empty when the group and the boxes are as the model says.
    QString difference()
    {
        QStringList list;
        if (group.id() != model.current)
            list.append(u"id %1, not %2"_s.arg(group.id()).arg(model.current));
        if (group.property("id") != QVariant(model.current != 0))
            list.append(u"property"_s);
        if (idChanges != model.idChanges)
            list.append(u"%1 idChanged, not %2"_s.arg(idChanges).arg(model.idChanges));
        for (int place = 0; place < GroupModel::boxCount; ++place) {
            const auto &box = boxes[std::size_t(place)];
            if (!box)
                continue;
            if (box->isCheck() != model.at(place).checked)
                list.append(u"checked of box %1"_s.arg(place));
            if (!(model.at(place).deaf ? isDeaf(*box) : isListening(*box)))
                list.append(u"input of box %1"_s.arg(place));
        }
        const QStringList lines = KelTest::takeDebugLines();
        if (lines != std::exchange(expectedLines, QStringList()))
            list.append(lines);
        return list.isEmpty() ? QString() : did + u": "_s + list.join(QLatin1Char(' '));
    }

    KelTestView view;
    GroupModel model;

private:
    void add(int place, int id)
    {
        did = u"add box %1 as %2"_s.arg(place).arg(id);
        auto &box = boxes[std::size_t(place)];
        if (!box) {
            box = std::make_unique<KELRadioBox>();
            box->setboundRect(45 * place, 10, 40, 40);
            view.ownScene.addItem(box.get());
        }
        // A checked box that comes under another id would stay checked.
        if (model.boxToId.count(place) == 0) {
            box->setCheck(false);
            model.uncheck(place);
        }
        if (!model.add(place, id))
            expectedLines.append(u"waring : id %1 is already exist"_s.arg(id));
        group.addRadioBox(box.get(), id);
    }

    void tap(int place)
    {
        did = u"tap box %1"_s.arg(place);
        if (boxes[std::size_t(place)])
            model.tap(place);
        tapUnshown(&view, QPoint(45 * place + 20, 30));
    }

    void destroyOrSetCheck(int place)
    {
        auto &box = boxes[std::size_t(place)];
        if (!box)
            return;
        const bool check = random.bounded(2) == 1;
        if (random.bounded(2) == 0) {
            did = u"destroy box %1"_s.arg(place);
            model.destroy(place);
            box.reset();
            return;
        }
        did = u"setCheck(%1) of box %2"_s.arg(check).arg(place);
        if (check)
            model.check(place);
        else
            model.uncheck(place);
        box->setCheck(check);
    }

    QRandomGenerator random;
    KELRadioBoxGroup group;
    std::array<std::unique_ptr<KELRadioBox>, GroupModel::boxCount> boxes;
    int idChanges = 0;
    QStringList expectedLines;
    QString did;
};

} // namespace

class tst_KELRadioBoxGroupPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setDoubleClickInterval(5000); }

    void tapSelects_data() { addRows({{"input", inputs}}); }

    void tapSelects()
    {
        FullGroup stage(fetch<Input>("input"));
        stage.hand.press(stage.centreOf(1));
        QCOMPARE(stage.log.take(), u"1.press "_s + signalsOfCheck(0, 1));
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        stage.hand.release();
        QCOMPARE(stage.log.take(), QString());
        QVERIFY(stage.boxes[1]->isCheck());
    }

    void stateInsideTheSignalsOfATap_data() { addRows({{"input", inputs}}); }

    void stateInsideTheSignalsOfATap()
    {
        FullGroup stage(fetch<Input>("input"));
        QStringList list;
        const auto note = [&] {
            list.append(u"%1: "_s.arg(stage.group->id()) + stage.checkedBoxes());
        };
        stage.log.on(u"1.checked"_s, note);
        for (const QString &signal : {u"0.unchecked"_s, u"idChanged"_s, u"1.checkChanged"_s})
            stage.after.on(signal, note);
        stage.tap(1);
        QCOMPARE(list, QStringList({u"0: 0 1"_s, u"0: 1"_s, u"1: 1"_s, u"1: 1"_s}));
    }

    void tapLeavesNoPressBehind_data() { addRows({{"input", inputs}}); }

    void tapLeavesNoPressBehind()
    {
        FullGroup stage(fetch<Input>("input"));
        stage.hand.press(stage.centreOf(1));
        QVERIFY(!stage.boxes[1]->KELRoundRectControl::style()->isMouseDown);
        QVERIFY(!stage.boxes[1]->isMouseDown());
        QVERIFY2(!hasTimers(stage.boxes[1]), "the long press is still to come");
        QVERIFY(!stage.boxes[1]->isSelected());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
        stage.log.take();
        stage.hand.release();
        QCOMPARE(stage.log.take(), QString());
    }

    void tapOnTheSelectedBoxGoesBelow_data() { addRows({{"input", inputs}}); }

    void tapOnTheSelectedBoxGoesBelow()
    {
        FullGroup stage(fetch<Input>("input"));
        stage.tap(0);
        QCOMPARE(stage.log.take(), u"below.press below.release below.clicked"_s);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.tap(1);
        QCOMPARE(stage.log.take(), u"1.press "_s + signalsOfCheck(0, 1));
    }

    void secondTapGoesBelow_data() { addRows({{"input", inputs}}); }

    void secondTapGoesBelow()
    {
        FullGroup stage(fetch<Input>("input"));
        stage.tap(1);
        QCOMPARE(stage.log.take(), u"1.press "_s + signalsOfCheck(0, 1));
        stage.tap(1);
        QVERIFY(stage.log.take().startsWith(u"below.press "_s));
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void everyOtherBoxIsLive_data() { addRows({{"input", inputs}}); }

    void everyOtherBoxIsLive()
    {
        FullGroup stage(fetch<Input>("input"));
        int selected = 0;
        for (const int next : {1, 2, 0, 2, 1, 0, 1}) {
            stage.tap(next);
            QCOMPARE(stage.log.take(), u"%1.press "_s.arg(next) + signalsOfCheck(selected, next));
            QCOMPARE(stage.state(), u"id %1, checked %1, deaf %1"_s.arg(next));
            selected = next;
        }
    }

    void tapWithoutASelectedBox_data() { addRows({{"input", inputs}}); }

    void tapWithoutASelectedBox()
    {
        GroupStage stage(fetch<Input>("input"));
        for (int i = 0; i < 3; ++i)
            stage.group->addRadioBox(stage.boxes[i], i + 1);
        stage.tap(1);
        QCOMPARE(stage.log.take(), u"1.press 1.checked idChanged 1.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 2, checked 1, deaf 1"_s);
    }

    void selectedInsideItsOwnPress_data()
    {
        addRows({{"input", inputs}, {"bySetId", {{"setId", true}, {"setCheck", false}}}});
    }

    void selectedInsideItsOwnPress()
    {
        const bool bySetId = fetch<bool>("bySetId");
        FullGroup stage(fetch<Input>("input"));
        stage.log.on(u"1.press"_s, [&] {
            if (bySetId)
                stage.group->setId(1);
            else
                stage.boxes[1]->setCheck(true);
        });
        stage.tap(1);
        // The press itself must not uncheck the box that was selected in its slot.
        QCOMPARE(stage.log.take(),
                 u"1.press "_s + (bySetId ? signalsOfSetId(0, 1) : signalsOfCheck(0, 1)));
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        QVERIFY(!stage.boxes[1]->KELRoundRectControl::style()->isMouseDown);
    }

    void selectedBoxThatHoldsTheGrabStaysChecked_data() { addRows({{"input", inputs}}); }

    void selectedBoxThatHoldsTheGrabStaysChecked()
    {
        FullGroup stage(fetch<Input>("input"));
        stage.tap(1);
        stage.boxes[1]->grabMouse();
        stage.tap(2);
        QVERIFY(stage.log.take().contains(u"1.press"_s));
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void selectedBoxGetsNoHover()
    {
        FullGroup stage;
        const QPoint beside(20, 250);
        const auto hover = [&](const QPoint &pos) {
            stage.hand.hover(pos);
            stage.hand.hover(beside);
            return stage.log.takeWithHover().remove(u"below.enter below.leave"_s);
        };
        QCOMPARE(hover(stage.centreOf(0)), QString());
        QCOMPARE(hover(stage.centreOf(1)), u"1.enter 1.leave"_s);
        stage.group->setId(1);
        stage.log.take();
        QCOMPARE(hover(stage.centreOf(1)), QString());
        QCOMPARE(hover(stage.centreOf(0)), u"0.enter 0.leave"_s);
    }

    void disabledBoxCanBeSelected()
    {
        FullGroup stage;
        stage.boxes[1]->setEnabled(false);
        stage.tap(1);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.group->setId(1);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        QVERIFY(!stage.boxes[1]->isEnabled());
    }

    void randomWalk_data()
    {
        addRows({{"seed", {{"1", 1}, {"20", 20}, {"300", 300}, {"4000", 4000}}}});
    }

    void randomWalk()
    {
        RandomWalk walk(quint32(fetch<int>("seed")));
        QVERIFY(walk.view.showAndWait());
        for (int step = 0; step < 5000; ++step) {
            walk.step();
            const QString difference = walk.difference();
            QVERIFY2(difference.isEmpty(), qPrintable(u"step %1, %2"_s.arg(step).arg(difference)));
            QVERIFY2(walk.model.isExclusive(), "the model is wrong");
        }
        QVERIFY(walk.model.idChanges > 500);
    }
};

KEL_TEST_MAIN(tst_KELRadioBoxGroupPointer)
#include "tst_kelradioboxgrouppointer.moc"
