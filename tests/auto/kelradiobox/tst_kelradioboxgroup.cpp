// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "groupstage.h"

#include <QtCore/QLoggingCategory>

#include <limits>
#include <memory>

namespace {

constexpr int smallest = std::numeric_limits<int>::min();
constexpr int largest = std::numeric_limits<int>::max();

void addIds()
{
    QTest::addColumn<int>("id");

    for (const int id : {1, 2, 256, -1, smallest, largest})
        QTest::addRow("%d", id) << id;
}

QString duplicateLine(int id)
{
    return u"waring : id %1 is already exist"_s.arg(id);
}

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

    void idPropertyTellsWhetherTheIdIsZero_data() { addIds(); }

    void idPropertyTellsWhetherTheIdIsZero()
    {
        QFETCH(int, id);
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.group->addRadioBox(stage.boxes[1], id);
        QCOMPARE(stage.group->property("id"), QVariant(false));
        stage.group->setId(id);
        QCOMPARE(stage.group->property("id"), QVariant(true));
        QCOMPARE(stage.group->id(), id);
        stage.group->setId(0);
        QCOMPARE(stage.group->property("id"), QVariant(false));
    }

    void writingThePropertySelectsZeroOrOne()
    {
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.group->setProperty("id", true));
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QVERIFY(stage.group->setProperty("id", false));
        QCOMPARE(stage.group->id(), 0);
        // Any number but 0 counts as true.
        QVERIFY(stage.group->setProperty("id", 2));
        QCOMPARE(stage.group->id(), 1);
        stage.group->setId(2);
        QVERIFY(stage.group->setProperty("id", true));
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.takeNames().count(QLatin1String("id")), 5);
    }

    void writingThePropertyWithoutSuchABox()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.takeNames();
        stage.group->setProperty("id", true);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.takeNames(), QString());
    }

    void addingUnderOtherIdsChecksNone()
    {
        GroupStage stage;
        for (int i = 0; i < 3; ++i)
            stage.group->addRadioBox(stage.boxes[i], i + 1);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>());
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 1, 2}));
        QCOMPARE(stage.group->id(), 0);
    }

    void addingUnderThePresentIdSelects()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.takeNames(), u"checked 1, changed 1"_s);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 2}));
        QCOMPARE(stage.group->id(), 0);
    }

    void addingUnderThePresentIdOfALaterTime()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 7);
        stage.group->setId(7);
        delete stage.boxes[0];
        stage.takeNames();
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.takeNames(), QString());
        stage.group->addRadioBox(stage.boxes[2], 7);
        QCOMPARE(stage.takeNames(), u"checked 2, changed 2"_s);
        QCOMPARE(stage.deafBoxes(), QVector<int>({2}));
    }

    void addingKeepsTheStateUnderAnotherId()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.boxes[2]->setAcceptedMouseButtons(Qt::RightButton);
        stage.takeNames();
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 2);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 1}));
        QCOMPARE(stage.boxes[2]->acceptedMouseButtons(), Qt::RightButton);
        QCOMPARE(stage.group->id(), 0);
    }

    void addingACheckedBoxUnderThePresentId()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.takeNames();
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
    }

    void nullIsIgnored()
    {
        GroupStage stage;
        stage.group->addRadioBox(nullptr, 0);
        stage.group->addRadioBox(nullptr, 1);
        stage.group->setId(1);
        QCOMPARE(stage.group->id(), 0);
        // The ids are still free.
        stage.addAll();
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
        stage.group->addRadioBox(nullptr, 1);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void takenIdIsReported_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("line");

        QTest::newRow("3") << 3 << u"waring : id 3 is already exist"_s;
        QTest::newRow("0") << 0 << u"waring : id 0 is already exist"_s;
        QTest::newRow("-5") << -5 << u"waring : id -5 is already exist"_s;
        QTest::newRow("smallest") << smallest << u"waring : id -2147483648 is already exist"_s;
        QTest::newRow("largest") << largest << u"waring : id 2147483647 is already exist"_s;
    }

    void takenIdIsReported()
    {
        QFETCH(int, id);
        QFETCH(QString, line);
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], id);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.takeNames();
        stage.group->addRadioBox(stage.boxes[2], id);
        QCOMPARE(takeDebugLines(), QStringList(line));
        QCOMPARE(stage.takeNames(), QString());
        // The earlier box keeps the id.
        stage.group->addRadioBox(stage.boxes[0], 12);
        stage.group->setId(12);
        stage.group->setId(id);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
    }

    void takenIdIsReportedInTheDefaultCategory()
    {
        GroupStage stage;
        stage.addAll();
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
        QCOMPARE(stage.listeningBoxes(), QVector<int>({1, 2}));
        stage.group->setId(1);
        stage.takeNames();
        // A box that were connected would select id 0.
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked 2, changed 2"_s);
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 2}));
    }

    void sameBoxTwiceUnderOneId()
    {
        GroupStage stage;
        stage.addAll();
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList({duplicateLine(1), duplicateLine(0)}));
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), u"unchecked 0, changed 0, checked 1, changed 1, id"_s);
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

    void unknownIdIsIgnored_data() { addIds(); }

    void unknownIdIsIgnored()
    {
        QFETCH(int, id);
        GroupStage stage;
        stage.group->setId(id);
        QCOMPARE(stage.group->id(), 0);
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.group->addRadioBox(stage.boxes[1], 17);
        stage.takeNames();
        stage.group->setId(id);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({0}));
        // Asking for it has not taken it.
        stage.group->addRadioBox(stage.boxes[2], id);
        QCOMPARE(takeDebugLines(), QStringList());
    }

    void presentIdIsIgnored()
    {
        GroupStage stage;
        stage.addAll();
        stage.group->setId(0);
        QCOMPARE(stage.takeNames(), QString());
        stage.group->setId(2);
        stage.takeNames();
        stage.group->setId(2);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({2}));
    }

    void everyNumberIsAnId_data() { addIds(); }

    void everyNumberIsAnId()
    {
        QFETCH(int, id);
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[0], 0);
        stage.group->addRadioBox(stage.boxes[1], id);
        stage.group->setId(id);
        QCOMPARE(stage.group->id(), id);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        stage.group->setId(0);
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.group->id(), id);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
    }

    void setIdIsASlot()
    {
        GroupStage stage;
        stage.addAll();
        QVERIFY(QMetaObject::invokeMethod(stage.group, "setId", Q_ARG(int, 2)));
        QCOMPARE(stage.group->id(), 2);
        // Called by the signal of a box that is not the new one.
        connect(stage.boxes[2], &KELRadioBox::unchecked, stage.group, [&stage] {
            QVERIFY(QMetaObject::invokeMethod(stage.group, "setId", Q_ARG(int, 1)));
        });
        stage.boxes[2]->setCheck(false);
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
    }

    void setIdTellsInOrder()
    {
        GroupStage stage;
        stage.addAll();
        stage.group->setId(2);
        QCOMPARE(stage.takeNames(), u"unchecked 0, changed 0, checked 2, changed 2, id"_s);
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), u"unchecked 2, changed 2, checked 1, changed 1, id"_s);
    }

    void stateInsideTheSignalsOfSetId()
    {
        GroupStage stage;
        stage.addAll();
        const auto note = [&stage](QStringList *list) {
            return [&stage, list] {
                QString text = QString::number(stage.group->id()) + QLatin1Char(':');
                for (const int deaf : stage.deafBoxes())
                    text += u" %1"_s.arg(deaf);
                list->append(text);
            };
        };
        QStringList list;
        connect(stage.boxes[0], &KELRadioBox::unchecked, this, note(&list));
        connect(stage.boxes[0], &KELRadioBox::checkChanged, this, note(&list));
        connect(stage.boxes[1], &KELRadioBox::checked, this, note(&list));
        connect(stage.boxes[1], &KELRadioBox::checkChanged, this, note(&list));
        connect(stage.group, &KELRadioBoxGroup::idChanged, this, note(&list));
        stage.group->setId(1);
        // The old box listens before it is unchecked, and the new one is deaf before it is checked.
        QCOMPARE(list, QStringList({u"0:"_s, u"0:"_s, u"1: 1"_s, u"1: 1"_s, u"1: 1"_s}));
    }

    void setIdWithoutASelectedBox()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 2);
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), u"checked 1, changed 1, id"_s);
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        // Nothing was left under the id that had no box.
        stage.group->setId(0);
        QCOMPARE(stage.group->id(), 1);
        stage.group->addRadioBox(stage.boxes[0], 0);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.group->setId(0);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
    }

    void setIdOfABoxThatIsCheckedAlready()
    {
        GroupStage stage;
        stage.boxes[1]->setCheck(true);
        stage.addAll();
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), u"unchecked 0, changed 0, id"_s);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
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
        GroupStage stage;
        stage.addAll();
        stage.group->setId(1);
        const KELRadioBox &deaf = *stage.boxes[1];
        QVERIFY(!deaf.acceptHoverEvents());
        QVERIFY(!deaf.acceptTouchEvents());
        QCOMPARE(deaf.flags(), QGraphicsItem::ItemIsPanel);
        QCOMPARE(deaf.acceptedMouseButtons(), Qt::NoButton);
        const KELRadioBox &live = *stage.boxes[0];
        QVERIFY(live.acceptHoverEvents());
        QVERIFY(live.acceptTouchEvents());
        QCOMPARE(live.flags(), QGraphicsItem::ItemIsPanel | QGraphicsItem::ItemIsSelectable);
        QCOMPARE(live.acceptedMouseButtons(), Qt::LeftButton);
        QVERIFY(deaf.isEnabled());
    }

    void checkingABoxSelectsIt()
    {
        GroupStage stage;
        stage.addAll();
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked 2, unchecked 0, changed 0, id, changed 2"_s);
        QCOMPARE(stage.group->id(), 2);
        QCOMPARE(stage.deafBoxes(), QVector<int>({2}));
        stage.boxes[1]->setProperty("check", true);
        QCOMPARE(stage.takeNames(), u"checked 1, unchecked 2, changed 2, id, changed 1"_s);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
    }

    void uncheckingTheSelectedBox()
    {
        GroupStage stage;
        stage.addAll();
        stage.boxes[0]->setCheck(false);
        QCOMPARE(stage.takeNames(), u"unchecked 0, changed 0"_s);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.deafBoxes(), QVector<int>({0}));
        stage.boxes[0]->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked 0, changed 0"_s);
        stage.boxes[0]->setCheck(false);
        stage.takeNames();
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), u"checked 1, changed 1, id"_s);
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
    }

    void selectionIsRepainted()
    {
        GroupStage stage;
        stage.addAll();
        QVERIFY(stage.show());
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
        QVERIFY(stage.show());
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
        GroupStage stage;
        stage.addAll();
        stage.group->addRadioBox(stage.boxes[1], 11);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.group->id(), 11);
        QCOMPARE(stage.takeNames(), u"checked 1, unchecked 0, changed 0, id, changed 1"_s);
        // Both ids are taken.
        stage.group->addRadioBox(stage.boxes[2], 1);
        stage.group->addRadioBox(stage.boxes[2], 11);
        QCOMPARE(takeDebugLines(), QStringList({duplicateLine(1), duplicateLine(11)}));
        stage.group->setId(0);
        QCOMPARE(stage.takeNames(), u"unchecked 1, changed 1, checked 0, changed 0, id"_s);
        stage.group->setId(11);
        QCOMPARE(stage.takeNames(), u"unchecked 0, changed 0, checked 1, changed 1, id"_s);
        QCOMPARE(stage.group->id(), 11);
    }

    void boxWithTwoIdsSelectedUnderTheEarlierOne()
    {
        GroupStage stage;
        stage.addAll();
        stage.group->addRadioBox(stage.boxes[1], 11);
        // Its checked() asks for the later id at once.
        stage.group->setId(1);
        QCOMPARE(stage.group->id(), 11);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        stage.group->setId(1);
        QCOMPARE(stage.group->id(), 11);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        stage.group->setId(2);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({2}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({2}));
    }

    void boxAddedAgainUnderThePresentId()
    {
        GroupStage stage;
        stage.group->addRadioBox(stage.boxes[1], 1);
        stage.group->addRadioBox(stage.boxes[2], 2);
        stage.group->addRadioBox(stage.boxes[1], 0);
        QCOMPARE(stage.takeNames(), u"checked 1, changed 1"_s);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        stage.group->setId(2);
        QCOMPARE(stage.listeningBoxes(), QVector<int>({0, 1}));
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.group->id(), 0);
    }

    void selectedBoxDestroyed()
    {
        GroupStage stage;
        stage.addAll();
        stage.group->setId(1);
        stage.takeNames();
        delete stage.boxes[1];
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.group->id(), 1);
        QCOMPARE(stage.checkedBoxes(), QVector<int>());
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), QString());
        stage.boxes[1] = stage.addBoxToScene(1);
        stage.group->addRadioBox(stage.boxes[1], 1);
        QCOMPARE(takeDebugLines(), QStringList());
        QCOMPARE(stage.takeNames(), u"checked 1, changed 1"_s);
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));

        delete stage.boxes[1];
        stage.group->setId(2);
        QCOMPARE(stage.takeNames(), u"checked 2, changed 2, id"_s);
        stage.group->setId(1);
        QCOMPARE(stage.group->id(), 2);
    }

    void otherBoxDestroyed()
    {
        GroupStage stage;
        stage.addAll();
        delete stage.boxes[1];
        QCOMPARE(stage.takeNames(), QString());
        stage.group->setId(1);
        QCOMPARE(stage.group->id(), 0);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({0}));
        stage.boxes[1] = stage.addBoxToScene(1);
        stage.group->addRadioBox(stage.boxes[1], 1);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.group->setId(1);
        QCOMPARE(stage.takeNames(), u"unchecked 0, changed 0, checked 1, changed 1, id"_s);
    }

    void boxWithTwoIdsDestroyed()
    {
        GroupStage stage;
        stage.addAll();
        stage.group->addRadioBox(stage.boxes[1], 11);
        delete stage.boxes[1];
        stage.group->setId(1);
        stage.group->setId(11);
        QCOMPARE(stage.group->id(), 0);
        stage.boxes[1] = stage.addBoxToScene(1);
        stage.group->addRadioBox(stage.boxes[1], 11);
        stage.group->addRadioBox(stage.boxes[1], 1);
        QCOMPARE(takeDebugLines(), QStringList());
        stage.boxes[1]->setCheck(true);
        QCOMPARE(stage.group->id(), 1);
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
        GroupStage stage;
        stage.addAll();
        stage.group->setId(1);
        stage.takeNames();
        delete stage.group;
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1}));
        QCOMPARE(stage.deafBoxes(), QVector<int>({1}));
        QVERIFY(stage.show());
        stage.tap(Input::Mouse, stage.centreOf(2));
        QCOMPARE(stage.takeNames(), u"press 2, checked 2, changed 2, release 2, click 2"_s);
        QCOMPARE(stage.checkedBoxes(), QVector<int>({1, 2}));
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
        GroupStage stage;
        stage.addAll();
        for (const int place : {2, 0, 1}) {
            delete stage.boxes[place];
            QCOMPARE(stage.group->id(), 0);
            stage.group->setId(place);
            QCOMPARE(stage.group->id(), 0);
        }
        QCOMPARE(stage.takeNames(), QString());
    }

    void groupAsChildOfABox_data()
    {
        QTest::addColumn<int>("parent");

        QTest::newRow("selected box") << 0;
        QTest::newRow("another box") << 1;
    }

    void groupAsChildOfABox()
    {
        QFETCH(int, parent);
        GroupStage stage;
        stage.addAll();
        stage.group->setParent(stage.boxes[parent]);
        delete stage.boxes[parent];
        QVERIFY(!stage.group);
        QCOMPARE(stage.takeNames(), QString());
        stage.boxes[2]->setCheck(true);
        QCOMPARE(stage.takeNames(), u"checked 2, changed 2"_s);
    }

    void boxesAsChildrenOfTheGroup()
    {
        GroupStage stage;
        stage.addAll();
        for (const int place : {0, 1})
            stage.boxes[place]->QObject::setParent(stage.group);
        delete stage.group;
        QVERIFY(!stage.boxes[0]);
        QVERIFY(!stage.boxes[1]);
        QVERIFY(stage.boxes[2]);
        QCOMPARE(stage.takeNames(), QString());
        QCOMPARE(stage.view.ownScene.items().size(), 2);
    }

    void boxOfTwoGroupsDestroyed()
    {
        GroupStage stage;
        stage.addAll();
        KELRadioBoxGroup second;
        second.addRadioBox(stage.boxes[1], 5);
        delete stage.boxes[1];
        second.setId(5);
        stage.group->setId(1);
        QCOMPARE(second.id(), 0);
        QCOMPARE(stage.group->id(), 0);
    }

    void groupDeletedWhenABoxIsDestroyed()
    {
        for (const int place : {0, 1}) {
            GroupStage stage;
            stage.addAll();
            connect(stage.boxes[place], &QObject::destroyed, this,
                    [&stage] { delete stage.group; });
            delete stage.boxes[place];
            QVERIFY(!stage.group);
            QCOMPARE(stage.takeNames(), QString());
        }
    }

    void boxesDeletedWhenTheGroupIsDestroyed()
    {
        GroupStage stage;
        stage.addAll();
        connect(stage.group, &QObject::destroyed, this, [&stage] {
            for (auto &box : stage.boxes)
                delete box;
        });
        delete stage.group;
        QCOMPARE(stage.view.ownScene.items().size(), 1);
        QCOMPARE(stage.takeNames(), QString());
    }
};

KEL_TEST_MAIN(tst_KELRadioBoxGroup)
#include "tst_kelradioboxgroup.moc"
