// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "groupmodel.h"
#include "groupstage.h"

#include <QtCore/QRandomGenerator>

#include <memory>

namespace {

constexpr int wellAfterLongPressMs = 600;

void addInputs()
{
    QTest::addColumn<int>("input");

    for (const Named &input : inputs)
        QTest::newRow(input.name) << input.value;
}

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
        const QPoint pos(45 * place + 20, 30);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(view.viewport(), &event);
        }
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

    void tapSelects_data() { addInputs(); }

    void tapSelects()
    {
        QFETCH(int, input);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        stage.press(Input(input), stage.centreOf(1));
        QCOMPARE(stage.takeNames(), u"press 1, checked 1, unchecked 0, changed 0, id, changed 1"_s);
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 2}));
        stage.release(Input(input), stage.centreOf(1));
        QCOMPARE(stage.takeNames(), QString());
        QVERIFY(stage.boxes[1]->isCheck());
    }

    void stateInsideTheSignalsOfATap_data() { addInputs(); }

    void stateInsideTheSignalsOfATap()
    {
        QFETCH(int, input);
        GroupStage stage;
        QStringList list;
        const auto note = [&] {
            QString text = QString::number(stage.group->id()) + QLatin1Char(':');
            for (const int checked : stage.checkedBoxes())
                text += u" %1"_s.arg(checked);
            list.append(text);
        };
        // Connected before the group is, and so called before the group acts.
        connect(stage.boxes[1], &KELRadioBox::checked, this, note);
        stage.addAll();
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, note);
        connect(stage.group, &KELRadioBoxGroup::idChanged, this, note);
        connect(stage.boxes[1], &KELRadioBox::checkChanged, this, note);
        QVERIFY(stage.show());
        stage.press(Input(input), stage.centreOf(1));
        QCOMPARE(list, QStringList({u"0: 0 1"_s, u"0: 1"_s, u"1: 1"_s, u"1: 1"_s}));
        stage.release(Input(input), stage.centreOf(1));
    }

    void tapLeavesNoPressBehind_data() { addInputs(); }

    void tapLeavesNoPressBehind()
    {
        QFETCH(int, input);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        stage.press(Input(input), stage.centreOf(1));
        QVERIFY(!stage.boxes[1]->KELRoundRectControl::style()->isMouseDown);
        QVERIFY(!stage.boxes[1]->isMouseDown());
        QVERIFY2(!hasTimer(stage.boxes[1]), "the long press is still to come");
        QVERIFY(!stage.boxes[1]->isSelected());
        QCOMPARE(stage.view.ownScene.mouseGrabberItem(), nullptr);
        stage.takeNames();
        QTest::qWait(wellAfterLongPressMs);
        stage.release(Input(input), stage.centreOf(1));
        QCOMPARE(stage.takeNames(), QString());
    }

    void tapOnTheSelectedBoxGoesBelow_data() { addInputs(); }

    void tapOnTheSelectedBoxGoesBelow()
    {
        QFETCH(int, input);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        const QSignalSpy below(stage.below, &KELPushButton::mouseClicked);
        stage.tap(Input(input), stage.centreOf(0));
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(below.count(), 1);
        stage.tap(Input(input), stage.centreOf(1));
        QCOMPARE(below.count(), 1);
    }

    void secondTapGoesBelow_data() { addInputs(); }

    void secondTapGoesBelow()
    {
        QFETCH(int, input);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        const QSignalSpy below(stage.below, &KELPushButton::mouseClicked);
        stage.tap(Input(input), stage.centreOf(1));
        stage.takeNames();
        QCOMPARE(below.count(), 0);
        stage.tap(Input(input), stage.centreOf(1));
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(below.count(), 1);
    }

    void everyOtherBoxIsLive_data() { addInputs(); }

    void everyOtherBoxIsLive()
    {
        QFETCH(int, input);
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        int selected = 0;
        for (const int next : {1, 2, 0, 2, 1, 0, 1}) {
            stage.tap(Input(input), stage.centreOf(next));
            QCOMPARE(
                stage.takeNames(),
                u"press %1, checked %1, unchecked %2, changed %2, id, changed %1"_s.arg(next).arg(
                    selected));
            QCOMPARE(stage.checkedBoxes(), QVector<int>({next}));
            QCOMPARE(stage.group->id(), next);
            selected = next;
        }
    }

    void tapWithoutASelectedBox_data() { addInputs(); }

    void tapWithoutASelectedBox()
    {
        QFETCH(int, input);
        GroupStage stage;
        for (int i = 0; i < 3; ++i)
            stage.group->addRadioBox(stage.boxes[i], i + 1);
        QVERIFY(stage.show());
        stage.tap(Input(input), stage.centreOf(1));
        QCOMPARE(stage.takeNames(), u"press 1, checked 1, id, changed 1"_s);
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
    }

    void selectedInsideItsOwnPress_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<bool>("bySetId");

        for (const Named &input : inputs) {
            QTest::addRow("%s, setId", input.name) << input.value << true;
            QTest::addRow("%s, setCheck", input.name) << input.value << false;
        }
    }

    void selectedInsideItsOwnPress()
    {
        QFETCH(int, input);
        QFETCH(bool, bySetId);
        GroupStage stage;
        stage.addAll();
        connect(stage.boxes[1], &KELRadioBox::mousePress, this, [&] {
            if (bySetId)
                stage.group->setId(1);
            else
                stage.boxes[1]->setCheck(true);
        });
        QVERIFY(stage.show());
        stage.tap(Input(input), stage.centreOf(1));
        // The press itself must not uncheck the box that was selected in its slot.
        QCOMPARE(stage.takeNames(),
                 bySetId ? u"press 1, unchecked 0, changed 0, checked 1, changed 1, id"_s
                         : u"press 1, checked 1, unchecked 0, changed 0, id, changed 1"_s);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        QVERIFY(!stage.boxes[1]->KELRoundRectControl::style()->isMouseDown);
    }

    void selectedBoxGetsNoHover()
    {
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
        stage.hover(besideTheBoxes);
        stage.hover(stage.centreOf(0));
        stage.hover(besideTheBoxes);
        QCOMPARE(stage.takeHovers(), QString());
        stage.hover(stage.centreOf(1));
        stage.hover(besideTheBoxes);
        QCOMPARE(stage.takeHovers(), u"enter 1, leave 1"_s);
        stage.group->setId(1);
        stage.hover(stage.centreOf(1));
        stage.hover(stage.centreOf(0));
        stage.hover(besideTheBoxes);
        QCOMPARE(stage.takeHovers(), u"enter 0, leave 0"_s);
    }

    void disabledBoxCanBeSelected()
    {
        GroupStage stage;
        stage.addAll();
        stage.boxes[1]->setEnabled(false);
        QVERIFY(stage.show());
        stage.tap(Input::Mouse, stage.centreOf(1));
        QCOMPARE(stage.takeNames(), QString());
        stage.group->setId(1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QVERIFY(!stage.boxes[1]->isEnabled());
    }

    void randomWalk_data()
    {
        QTest::addColumn<quint32>("seed");

        for (const quint32 seed : {1U, 20U, 300U, 4000U})
            QTest::addRow("seed %u", seed) << seed;
    }

    void randomWalk()
    {
        QFETCH(quint32, seed);
        RandomWalk walk(seed);
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
