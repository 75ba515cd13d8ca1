// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "groupstage.h"

#include <QtCore/QLoggingCategory>

#include <limits>
#include <memory>

namespace {

constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

const std::vector<Named> ids = {
    {"1", 1}, {"2", 2}, {"256", 256}, {"-1", -1}, {"smallest", smallest}, {"largest", largest}};

class CountingBox : public KELRadioBox
{
public:
    int checkedReceivers() const { return receivers(SIGNAL(checked())); }
};

} // namespace

// Knows when it is checked through its property.
class OwnPropertyBox : public KELRadioBox
{
    Q_OBJECT
    Q_PROPERTY(bool check READ isCheck WRITE writeCheck NOTIFY checkChanged)

public:
    void writeCheck(bool check)
    {
        ++writes;
        setCheck(check);
    }

    int writes = 0;
};

class tst_KELRadioBoxGroup : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmptyWithIdZero()
    {
        QObject parent;
        const auto *group = new KELRadioBoxGroup(&parent);
        QCOMPARE(group->parent(), &parent);
        QCOMPARE(group->id(), 0);
        QCOMPARE(group->property("id"), QVariant(false));
        QCOMPARE(KELRadioBoxGroup().parent(), nullptr);
        QCOMPARE(KELRadioBoxGroup(nullptr).parent(), nullptr);
    }

    void declaresItsInterface()
    {
        const QMetaObject &meta = KELRadioBoxGroup::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELRadioBoxGroup"));
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
        QVERIFY(meta.indexOfSignal("idChanged()") >= meta.methodOffset());
        const QMetaMethod setId = meta.method(meta.indexOfSlot("setId(int)"));
        QCOMPARE(setId.access(), QMetaMethod::Public);
        QCOMPARE(setId.parameterNames(), QList<QByteArray>({QByteArray("idin")}));
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        const QMetaProperty property = meta.property(meta.propertyOffset());
        QCOMPARE(QByteArray(property.name()), QByteArray("id"));
        QCOMPARE(int(property.type()), int(QVariant::Bool));
        QVERIFY(property.isWritable());
        QCOMPARE(property.notifySignal().methodSignature(), QByteArray("idChanged()"));
    }

    void everyNumberIsAnIdAndAllButZeroAreTrue_data() { addRows({{"id", ids}}); }

    void everyNumberIsAnIdAndAllButZeroAreTrue()
    {
        const int id = fetch<int>("id");
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.group->addRadioBox(stage.boxes[1], id);
        QCOMPARE(stage.group->property("id"), QVariant(false));
        stage.group->setId(id);
        QCOMPARE(stage.group->property("id"), QVariant(true));
        QCOMPARE(stage.state(), u"id %1, checked 1, deaf 1"_s.arg(id));
        stage.group->setId(0);
        QCOMPARE(stage.group->property("id"), QVariant(false));
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.state(), u"id %1, checked 1, deaf 1"_s.arg(id));
    }

    void writingThePropertySelectsZeroOrOne()
    {
        FullGroup stage;
        // Any number but 0 counts as true.
        for (const QVariant &written : {QVariant(true), QVariant(false), QVariant(2)}) {
            QVERIFY(stage.group->setProperty("id", written));
            QCOMPARE(stage.state(), u"id %1, checked %1, deaf %1"_s.arg(int(written.toBool())));
        }
        stage.group->setId(2);
        QVERIFY(stage.group->setProperty("id", true));
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        QCOMPARE(stage.log.take().count(QLatin1String("idChanged")), 5);
    }

    void writingThePropertyWithoutSuchABox()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.log.take();
        stage.group->setProperty("id", true);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        QCOMPARE(stage.log.take(), QString());
    }

    void addingUnderOtherIdsChecksNone()
    {
        GroupStage stage;
        for (int i = 0; i < 3; ++i)
            stage.group->addRadioBox(stage.boxes[i], i + 1);
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"id 0, checked none, deaf none"_s);
    }

    void addingUnderThePresentIdSelects()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.log.take(), u"1.checked 1.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 0, checked 1, deaf 1"_s);
    }

    void addingUnderThePresentIdOfALaterTime()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 7);
        stage.group->setId(7);
        delete stage.boxes[0];
        stage.log.take();
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.log.take(), QString());
        stage.group->addRadioBox(stage.boxes[2], 7);
        QCOMPARE(stage.log.take(), u"2.checked 2.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 7, checked 2, deaf 2"_s);
    }

    void addingKeepsTheStateUnderAnotherId()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.boxes[2]->setAcceptedMouseButtons(Qt::RightButton);
        stage.log.take();
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 2);
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"id 0, checked 1, deaf none, odd 2"_s);
        QCOMPARE(stage.boxes[2]->acceptedMouseButtons(), Qt::RightButton);
    }

    void addingACheckedBoxUnderThePresentId()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.log.take();
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"id 0, checked 1, deaf 1"_s);
    }

    void nullIsIgnored()
    {
        GroupStage stage;
        stage.group->addRadioBox(nullptr, 0);
        stage.group->addRadioBox(nullptr, 1);
        stage.group->setId(1);
        QCOMPARE(stage.state(), u"id 0, checked none, deaf none"_s);
        // The ids are still free.
        stage.addAll();
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.group->addRadioBox(nullptr, 1);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void takenIdIsReported_data()
    {
        addRows({{"id",
                  {{"3", 3}, {"0", 0}, {"-5", -5}, {"smallest", smallest}, {"largest", largest}}}});
    }

    void takenIdIsReported()
    {
        const int id = fetch<int>("id");
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], id);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.log.take();
        stage.group->addRadioBox(stage.boxes[2], id);
        QCOMPARE(takeDebugLines(), QStringList(duplicateLine(id)));
        QCOMPARE(stage.log.take(), QString());
        // The earlier box keeps the id.
        stage.group->addRadioBox(stage.boxes[0], 12);
        stage.group->setId(12);
        stage.group->setId(id);
        QCOMPARE(stage.state(), u"id %1, checked 1, deaf 1"_s.arg(id));
    }

    void takenIdIsReportedInTheDefaultCategory()
    {
        FullGroup stage;
        QLoggingCategory::setFilterRules(u"default.debug=false"_s);
        stage.group->addRadioBox(stage.boxes[2], 1);
        QLoggingCategory::setFilterRules(QString());
        QCOMPARE(takeDebugLines(), QStringList());
        stage.group->addRadioBox(stage.boxes[2], 1);
        QCOMPARE(takeDebugLines(), QStringList(duplicateLine(1)));
    }

    void rejectedBoxIsNotInTheGroup()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 0);
        stage.group->addRadioBox(stage.boxes[2], 1);
        QCOMPARE(takeDebugLines(), QStringList({duplicateLine(0), duplicateLine(1)}));
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.group->setId(1);
        stage.log.take();
        // A box that were connected would select id 0.
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.log.take(), u"2.checked 2.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 1, checked 1 2, deaf 1"_s);
    }

    void sameBoxTwiceUnderOneId()
    {
        FullGroup stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList({duplicateLine(1), duplicateLine(0)}));
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), signalsOfSetId(0, 1));
    }

    void addingLeavesTheParentsAlone()
    {
        KELRoundRectControl parent;
        auto *box = new KELRadioBox(&parent);
        const QObject *const objectParent = box->parent();
        KELRadioBoxGroup group;
        group.addRadioBox(box, 0);
        QCOMPARE(box->parentItem(), &parent);
        QCOMPARE(box->parent(), objectParent);
        QVERIFY(group.children().isEmpty());
    }

    void everyRegistrationConnectsOnce()
    {
        KELRadioBoxGroup group;
        KELRadioBox other;
        CountingBox box;
        group.addRadioBox(&other, 0);
        group.addRadioBox(&box, 0);
        QCOMPARE(box.checkedReceivers(), 0);
        group.addRadioBox(&box, 1);
        QCOMPARE(box.checkedReceivers(), 1);
        group.addRadioBox(&box, 11);
        QCOMPARE(box.checkedReceivers(), 2);
        group.addRadioBox(&box, 1);
        QCOMPARE(takeDebugLines(), QStringList({duplicateLine(0), duplicateLine(1)}));
        group.setId(11);
        group.setId(0);
        QCOMPARE(box.checkedReceivers(), 2);
    }

    void unknownIdIsIgnored_data() { addRows({{"id", ids}}); }

    void unknownIdIsIgnored()
    {
        const int id = fetch<int>("id");
        GroupStage stage;
        stage.group->setId(id);
        QCOMPARE(stage.state(), u"id 0, checked none, deaf none"_s);
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.group->addRadioBox(stage.boxes[1], 17);
        stage.log.take();
        stage.group->setId(id);
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        // Asking for it has not taken it.
        stage.group->addRadioBox(stage.boxes[2], id);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void presentIdIsIgnored()
    {
        FullGroup stage;
        stage.group->setId(0);
        QCOMPARE(stage.log.take(), QString());
        stage.group->setId(2);
        stage.log.take();
        stage.group->setId(2);
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void setIdIsASlot()
    {
        FullGroup stage;
        QVERIFY(QMetaObject::invokeMethod(stage.group, "setId", Q_ARG(int, 2)));
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
        // Called by the signal of a box that is not the new one.
        connect(stage.boxes[2], &KELRadioBox::unchecked, stage.group, [&stage] {
            QVERIFY(QMetaObject::invokeMethod(stage.group, "setId", Q_ARG(int, 1)));
        });
        stage.boxes[2]->setCheck(false);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void setIdTellsInOrder()
    {
        FullGroup stage;
        stage.group->setId(2);
        QCOMPARE(stage.log.take(), signalsOfSetId(0, 2));
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), signalsOfSetId(2, 1));
    }

    void stateInsideTheSignalsOfSetId()
    {
        FullGroup stage;
        QStringList list;
        for (const QString &signal : {u"0.unchecked"_s, u"0.checkChanged"_s, u"1.checked"_s,
                                      u"1.checkChanged"_s, u"idChanged"_s})
            stage.after.on(signal, [&] { list.append(stage.state()); });
        stage.group->setId(1);
        // The old box listens before it is unchecked, and the new one is deaf before it is checked.
        const QString before = u"id 0, checked none, deaf none"_s;
        const QString afterwards = u"id 1, checked 1, deaf 1"_s;
        QCOMPARE(list, QStringList({before, before, afterwards, afterwards, afterwards}));
    }

    void setIdWithoutASelectedBox()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 2);
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), u"1.checked 1.checkChanged idChanged"_s);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        // Nothing was left under the id that had no box.
        stage.group->setId(0);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.group->setId(0);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
    }

    void setIdOfABoxThatIsCheckedAlready()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.addAll();
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), u"0.unchecked 0.checkChanged idChanged"_s);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void setIdChecksThroughTheProperty()
    {
        KELRadioBoxGroup group;
        OwnPropertyBox first;
        OwnPropertyBox second;
        group.addRadioBox(&first, 0);
        QVERIFY(first.isCheck());
        QCOMPARE(first.writes, 0);
        group.addRadioBox(&second, 1);
        group.setId(1);
        QVERIFY(second.isCheck());
        QCOMPARE(second.writes, 1);
        // Unchecking goes past it, and a box that asks by its own checked() is checked already.
        first.setCheck(true);
        QCOMPARE(group.id(), 0);
        QVERIFY(!second.isCheck());
        QCOMPARE(first.writes, 0);
        QCOMPARE(second.writes, 1);
    }

    void everySettingChanges()
    {
        FullGroup stage;
        stage.group->setId(1);
        QVERIFY(isDeaf(*stage.boxes[1]));
        QCOMPARE(stage.boxes[1]->flags(), QGraphicsItem::ItemIsPanel);
        QVERIFY(stage.boxes[1]->isEnabled());
        QVERIFY(isListening(*stage.boxes[0]));
        QCOMPARE(stage.boxes[0]->flags(),
                 QGraphicsItem::ItemIsPanel | QGraphicsItem::ItemIsSelectable);
    }

    void checkingABoxSelectsIt()
    {
        FullGroup stage;
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.log.take(), signalsOfCheck(0, 2));
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
        stage.boxes[1]->setProperty("check", true);
        QCOMPARE(stage.log.take(), signalsOfCheck(2, 1));
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void uncheckingTheSelectedBox()
    {
        FullGroup stage;
        stage.boxes[0]->setCheck(false);
        QCOMPARE(stage.log.take(), u"0.unchecked 0.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 0, checked none, deaf 0"_s);
        stage.boxes[0]->setCheck(true);
        QCOMPARE(stage.log.take(), u"0.checked 0.checkChanged"_s);
        stage.boxes[0]->setCheck(false);
        stage.log.take();
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), u"1.checked 1.checkChanged idChanged"_s);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void selectionIsRepainted()
    {
        FullGroup stage;
        stage.view.showOnce();
        const QColor dot(50, 173, 235);
        const auto colourOf = [&stage](int box) {
            return stage.view.grab().toImage().pixelColor(stage.centreOf(box));
        };
        QTRY_COMPARE(colourOf(0), dot);
        QVERIFY(colourOf(1) != dot);
        stage.group->setId(1);
        QTRY_COMPARE(colourOf(1), dot);
        QTRY_VERIFY(colourOf(0) != dot);
    }

    void boxThatWasCheckedAlreadyIsRepainted()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.addAll();
        // A flag that changes would have it repainted too.
        stage.boxes[1]->setFlag(QGraphicsItem::ItemIsSelectable, false);
        stage.view.showOnce();
        stage.view.grab();
        // An edit of the record shows with the next repaint, where it reaches.
        stage.boxes[1]->KELRoundRectControl::style()->borderBrush = QBrush(Qt::red);
        stage.boxes[1]->KELRoundRectControl::style()->borderWidth = 6;
        const auto outlineIsRed = [&stage](int fromCentre) {
            const QPoint pos = stage.centreOf(1) + QPoint(fromCentre, 0);
            return stage.view.grab().toImage().pixelColor(pos) == QColor(Qt::red);
        };
        QVERIFY(!outlineIsRed(-12));
        stage.group->setId(1);
        QTRY_VERIFY(outlineIsRed(-12));
        QVERIFY(outlineIsRed(12));
    }

    void boxWithTwoIdsStandsForTheLaterOne()
    {
        FullGroup stage;
        stage.group->addRadioBox(stage.boxes[1], 11);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.state(), u"id 11, checked 1, deaf 1"_s);
        QCOMPARE(stage.log.take(), signalsOfCheck(0, 1));
        // Both ids are taken.
        stage.group->addRadioBox(stage.boxes[2], 1);
        stage.group->addRadioBox(stage.boxes[2], 11);
        QCOMPARE(takeDebugLines(), QStringList({duplicateLine(1), duplicateLine(11)}));
        stage.group->setId(0);
        QCOMPARE(stage.log.take(), signalsOfSetId(1, 0));
        stage.group->setId(11);
        QCOMPARE(stage.log.take(), signalsOfSetId(0, 1));
        QCOMPARE(stage.state(), u"id 11, checked 1, deaf 1"_s);
    }

    void boxWithTwoIdsSelectedUnderTheEarlierOne()
    {
        FullGroup stage;
        stage.group->addRadioBox(stage.boxes[1], 11);
        // Its checked() asks for the later id at once.
        stage.group->setId(1);
        QCOMPARE(stage.state(), u"id 11, checked 1, deaf 1"_s);
        stage.group->setId(1);
        QCOMPARE(stage.state(), u"id 11, checked 1, deaf 1"_s);
        stage.group->setId(2);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void boxAddedAgainUnderThePresentId()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 2);
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.log.take(), u"1.checked 1.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 0, checked 1, deaf 1"_s);
        stage.group->setId(2);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.state(), u"id 0, checked 1, deaf 1"_s);
    }

    void selectedBoxDestroyed()
    {
        FullGroup stage;
        stage.group->setId(1);
        stage.log.take();
        delete stage.boxes[1];
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"id 1, checked none, deaf none"_s);
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), QString());
        stage.replaceBox(1);
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.log.take(), u"1.checked 1.checkChanged"_s);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);

        delete stage.boxes[1];
        stage.group->setId(2);
        QCOMPARE(stage.log.take(), u"2.checked 2.checkChanged idChanged"_s);
        stage.group->setId(1);
        QCOMPARE(stage.state(), u"id 2, checked 2, deaf 2"_s);
    }

    void otherBoxDestroyed()
    {
        FullGroup stage;
        delete stage.boxes[1];
        QCOMPARE(stage.log.take(), QString());
        stage.group->setId(1);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.replaceBox(1);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.group->setId(1);
        QCOMPARE(stage.log.take(), signalsOfSetId(0, 1));
    }

    void boxWithTwoIdsDestroyed()
    {
        FullGroup stage;
        stage.group->addRadioBox(stage.boxes[1], 11);
        delete stage.boxes[1];
        stage.group->setId(1);
        stage.group->setId(11);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
        stage.boxes[1] = stage.addBoxToScene(1);
        stage.group->addRadioBox(stage.boxes[1], 11);
        stage.group->addRadioBox(stage.boxes[1], 1);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.state(), u"id 1, checked 1, deaf 1"_s);
    }

    void newBoxInThePlaceOfADestroyedOne()
    {
        KELRadioBoxGroup group;
        KELRadioBox first;
        group.addRadioBox(&first, 0);
        for (int i = 0; i < 20; ++i) {
            auto box = std::make_unique<KELRadioBox>();
            group.addRadioBox(box.get(), 1);
            box.reset();
            // It may well have the address of the one before.
            box = std::make_unique<KELRadioBox>();
            box->setCheck(true);
            QCOMPARE(group.id(), 0);
            QVERIFY(first.isCheck());
            QVERIFY(isListening(*box));
        }
    }

    void groupDestroyedFirst()
    {
        FullGroup stage;
        stage.group->setId(1);
        stage.log.take();
        delete stage.group;
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.state(), u"no group, checked 1, deaf 1"_s);
        stage.tap(2);
        QCOMPARE(stage.log.take(), u"2.press 2.checked 2.checkChanged 2.release 2.clicked"_s);
        QCOMPARE(stage.state(), u"no group, checked 1 2, deaf 1"_s);
        // Another group may take them over.
        stage.boxes[2]->setCheck(false);
        KELRadioBoxGroup next;
        for (int i = 0; i < 3; ++i)
            next.addRadioBox(stage.boxes[i], i + 1);
        next.setId(3);
        QVERIFY(stage.boxes[2]->isCheck());
    }

    void groupDestroyedLast()
    {
        FullGroup stage;
        for (const int place : {2, 0, 1}) {
            delete stage.boxes[place];
            QCOMPARE(stage.group->id(), 0);
            stage.group->setId(place);
            QCOMPARE(stage.group->id(), 0);
        }
        QCOMPARE(stage.log.take(), QString());
    }

    void groupAsChildOfABox_data()
    {
        addRows({{"parent", {{"selected box", 0}, {"another box", 1}}}});
    }

    void groupAsChildOfABox()
    {
        const int parent = fetch<int>("parent");
        FullGroup stage;
        stage.group->setParent(stage.boxes[parent]);
        delete stage.boxes[parent];
        QVERIFY(!stage.group);
        QCOMPARE(stage.log.take(), QString());
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.log.take(), u"2.checked 2.checkChanged"_s);
    }

    void boxesAsChildrenOfTheGroup()
    {
        FullGroup stage;
        for (const int place : {0, 1})
            stage.boxes[place]->QObject::setParent(stage.group);
        delete stage.group;
        QVERIFY(!stage.boxes[0]);
        QVERIFY(!stage.boxes[1]);
        QVERIFY(stage.boxes[2]);
        QCOMPARE(stage.log.take(), QString());
        QCOMPARE(stage.view.ownScene.items().size(), 2);
    }

    void boxOfTwoGroupsDestroyed()
    {
        FullGroup stage;
        KELRadioBoxGroup second;
        second.addRadioBox(stage.boxes[1], 5);
        delete stage.boxes[1];
        second.setId(5);
        stage.group->setId(1);
        QCOMPARE(second.id(), 0);
        QCOMPARE(stage.state(), u"id 0, checked 0, deaf 0"_s);
    }

    void groupDeletedWhenABoxIsDestroyed()
    {
        for (const int place : {0, 1}) {
            FullGroup stage;
            connect(stage.boxes[place], &QObject::destroyed, this,
                    [&stage] { delete stage.group; });
            delete stage.boxes[place];
            QVERIFY(!stage.group);
            QCOMPARE(stage.log.take(), QString());
        }
    }

    void boxesDeletedWhenTheGroupIsDestroyed()
    {
        FullGroup stage;
        connect(stage.group, &QObject::destroyed, this, [&stage] {
            for (auto &box : stage.boxes)
                delete box;
        });
        delete stage.group;
        QCOMPARE(stage.view.ownScene.items().size(), 1);
        QCOMPARE(stage.log.take(), QString());
    }
};

KEL_TEST_MAIN(tst_KELRadioBoxGroup)
#include "tst_kelradioboxgroup.moc"
