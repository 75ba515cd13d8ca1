// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "looks.h"
#include "record.h"
#include "stage.h"

#include <QtCore/QMetaMethod>

#include <limits>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();

using Style = KELRoundRectControlStyle;

// Writes down what reaches its virtual functions.
class OpenControl : public Counting<KELRoundRectControl>
{
public:
    explicit OpenControl(QGraphicsObject *parent = nullptr) : Counting(parent) { }

    void onCheckedEvent(bool check) override
    {
        checks.append(check);
        statesInHook.append(isCheck());
    }
    KELRoundRectControlStyle *initStyle() override
    {
        ++styles;
        return KELRoundRectControl::initStyle();
    }
    void setboundRect(const QRectF &rect) override
    {
        ++rectCalls;
        KELRoundRectControl::setboundRect(rect);
    }
    using KELRoundRectControl::setboundRect;
    QRectF boundingRect() const override
    {
        return fixedBounds.isNull() ? KELRoundRectControl::boundingRect() : fixedBounds;
    }

    QList<bool> checks;
    QList<bool> statesInHook;
    QRectF fixedBounds;
    int styles = 0;
    int rectCalls = 0;
};

// As large as its children.
class WrappingParent : public PlainItem
{
public:
    QRectF boundingRect() const override { return childrenBoundingRect(); }
};

// A control that is shown, and whose paints are counted from now on.
struct PaintedStage : Stage<OpenControl>
{
    PaintedStage()
    {
        // The tree index must not meet a geometry change that nobody tells it of.
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        view.showOnce();
        [this] { QTRY_VERIFY(get()->paints > 0); }();
        letEventsRun();
        get()->paints = 0;
    }
};

struct Geometry
{
    const char *name;
    QRectF rect;
};

const Geometry strangeGeometries[] = {
    {"empty", QRectF(20, 20, 0, 0)},
    {"negative size", QRectF(120, 60, -100, -30)},
    {"negative width", QRectF(120, 20, -100, 30)},
    {"x not a number", QRectF(notANumber, 20, 100, 30)},
    {"y not a number", QRectF(20, notANumber, 100, 30)},
    {"width not a number", QRectF(20, 20, notANumber, 30)},
    {"height not a number", QRectF(20, 20, 100, notANumber)},
    {"nothing is a number", QRectF(notANumber, notANumber, notANumber, notANumber)},
    {"infinite x", QRectF(infinite, 20, 100, 30)},
    {"infinite negative y", QRectF(20, -infinite, 100, 30)},
    {"infinite width", QRectF(20, 20, infinite, 30)},
    {"infinite size", QRectF(20, 20, infinite, infinite)},
    {"infinite everywhere", QRectF(-infinite, -infinite, infinite, infinite)},
    {"huge place", QRectF(1e300, -1e300, 100, 30)},
    {"huge size", QRectF(20, 20, 1e300, 1e300)},
    {"huge negative size", QRectF(20, 20, -1e300, -1e300)},
    {"beyond the largest int", QRectF(20, 20, 3e9, 3e9)},
    {"tiny", QRectF(20, 20, 1e-300, 1e-300)},
};

struct OptionCase
{
    const char *name;
    Look change; // of the record
    Look inOption; // what follows from it in the option
};

const std::vector<OptionCase> &optionCases()
{
    const Look same = [](Style &) {};
    const Look noFill = [](Style &s) { s.backgroundBrush = QBrush(); };
    const Look noText = [](Style &s) { s.text = QString(); };
    const Look noCaption = [](Style &s) {
        s.text = QString();
        s.foregroundBrush = QBrush();
    };
    const Look noOutline = [](Style &s) {
        s.borderWidth = 0;
        s.borderBrush = QBrush();
    };
    static const std::vector<OptionCase> all = {
        {"everything", same, same},
        {"trimmed caption", [](Style &s) { s.trimText = true; }, same},
        {"fill without brush", [](Style &s) { s.backgroundBrush.setStyle(Qt::NoBrush); }, noFill},
        {"hairline", [](Style &s) { s.borderWidth = 0.001F; }, same},
        {"outline without width", [](Style &s) { s.borderWidth = 0; }, noOutline},
        {"outline of negative width", [](Style &s) { s.borderWidth = -1; }, noOutline},
        {"outline width not a number", [](Style &s) { s.borderWidth = float(notANumber); },
         noOutline},
        {"outline without brush", [](Style &s) { s.borderBrush.setStyle(Qt::NoBrush); }, noOutline},
        {"empty text", [](Style &s) { s.text = u""_s; }, noText},
        {"null text", [](Style &s) { s.text = QString(); }, noText},
        {"caption without brush", [](Style &s) { s.foregroundBrush.setStyle(Qt::NoBrush); },
         noCaption},
        {"no pixmap", [](Style &s) { s.pixmap = QPixmap(); }, same},
        {"no glyph", [](Style &s) { s.icon.setIcon(QChar()); },
         [](Style &s) { s.icon = KELIconFont(); }},
    };
    return all;
}

// Compares the option of a filled record with what the row says.
template <typename OwnStyle, typename Control>
QString optionDifference(Control *control, const OptionCase &row, bool hasStates)
{
    QMenu menu;
    Style *const style = control->style();
    Record::fill(style);
    row.change(*style);
    style->contextMenu = &menu;
    OwnStyle option = OwnStyle();
    control->initStyleOption(&option, nullptr);
    style->contextMenu = nullptr;

    Style expected = *style;
    expected.boundRect = control->boundingRect();
    expected.isMouseDown = expected.isCheck = hasStates;
    row.inOption(expected);
    return Record::difference(option, expected);
}

} // namespace

class tst_KELRoundRectControl : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void newControlLeavesInputAlone()
    {
        const KELRoundRectControl control;
        const QGraphicsRectItem plain;
        QCOMPARE(control.acceptedMouseButtons(), plain.acceptedMouseButtons());
        QVERIFY(!control.filtersChildEvents());
        QVERIFY(!control.handlesChildEvents());
        QVERIFY(!control.isMouseDown());
        QVERIFY(!control.isCheck());
        QVERIFY(control.text().isNull());
        QVERIFY(control.isPanel());
        ControlTest::hasInputSettingsOfTheBase<KELRoundRectControl>();
    }

    void constructorUsesItsOwnInitStyle()
    {
        const OpenControl control;
        QCOMPARE(control.styles, 0);
        QVERIFY(control.style());
    }

    void initStyleReturnsANewRecordWithoutStoringIt()
    {
        KELRoundRectControl control;
        Style *const before = control.style();
        Record::fill(before);
        const std::unique_ptr<Style> made(control.initStyle());
        QVERIFY(made.get() != before);
        QCOMPARE(control.style(), before);
        QCOMPARE(control.text(), u"caption"_s);
        QCOMPARE(Record::difference(*made, Record::defaults()), QString());
    }

    void menuDiesAfterTheControl()
    {
        auto parent = std::make_unique<KELRoundRectControl>();
        const QPointer<KELRoundRectControl> child = new KELRoundRectControl(parent.get());
        const QPointer<QMenu> menu = newMenu();
        const QPointer<QMenu> childMenu = newMenu();
        parent->style()->contextMenu = menu;
        child->style()->contextMenu = childMenu;
        parent.reset();
        QVERIFY(!child);
        QVERIFY(menu && childMenu);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!menu && !childMenu);
    }

    void menuThatWasTakenBackLivesOn()
    {
        auto control = std::make_unique<KELRoundRectControl>();
        QMenu menu;
        control->style()->contextMenu = &menu;
        control->style()->contextMenu = nullptr;
        control.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(menu.isEmpty());
    }

    void rectStartsAtTheOrigin()
    {
        KELRoundRectControl parent;
        auto *child = new KELRoundRectControl(&parent);
        child->setboundRect(7, 8, 33, 44);
        QCOMPARE(child->rect(), QRectF(0, 0, 33, 44));
        QCOMPARE(parent.rect(), QRectF(0, 0, 100, 30));
    }

    void boundingRectIsTheStoredRectangle()
    {
        KELRoundRectControl control;
        QCOMPARE(control.boundingRect(), QRectF(100, 100, 100, 30));
        control.style()->boundRect = QRectF(-5, 6.5, 70, 80);
        QCOMPARE(control.boundingRect(), QRectF(-5, 6.5, 70, 80));
        control.setPos(300, 300);
        QCOMPARE(control.boundingRect(), QRectF(-5, 6.5, 70, 80));
    }

    void boundingRectMovesByTheParentsCorner_data()
    {
        QTest::addColumn<QRectF>("parentRect");
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QRectF>("expected");

        const QRectF rect(5, 5, 50, 30);
        QTest::newRow("parent away from the origin")
            << QRectF(10, 20, 200, 100) << rect << QRectF(15, 25, 50, 30);
        QTest::newRow("parent at the origin") << QRectF(0, 0, 200, 100) << rect << rect;
        QTest::newRow("parent at a negative place")
            << QRectF(-10, -20.5, 200, 100) << rect << QRectF(-5, -15.5, 50, 30);
        QTest::newRow("empty parent") << QRectF(10, 20, 0, 0) << rect << QRectF(15, 25, 50, 30);
        QTest::newRow("negative size")
            << QRectF(10, 20, 200, 100) << QRectF(5, 5, -50, -30) << QRectF(15, 25, -50, -30);
    }

    void boundingRectMovesByTheParentsCorner()
    {
        const auto parentRect = fetch<QRectF>("parentRect");
        KELRoundRectControl parent;
        parent.setboundRect(parentRect);
        PlainItem plainParent(parentRect);
        for (QGraphicsObject *const item : {static_cast<QGraphicsObject *>(&parent),
                                            static_cast<QGraphicsObject *>(&plainParent)}) {
            auto *child = new KELRoundRectControl(item);
            child->setboundRect(fetch<QRectF>("rect"));
            QCOMPARE(child->boundingRect(), fetch<QRectF>("expected"));
        }
    }

    void boundingRectsOfNestedControlsAddUp()
    {
        KELRoundRectControl grandParent;
        grandParent.setboundRect(1, 2, 300, 300);
        auto *parent = new KELRoundRectControl(&grandParent);
        parent->setboundRect(10, 20, 200, 200);
        auto *child = new KELRoundRectControl(parent);
        child->setboundRect(100, 100, 50, 50);
        QCOMPARE(parent->boundingRect(), QRectF(11, 22, 200, 200));
        QCOMPARE(child->boundingRect(), QRectF(111, 122, 50, 50));
    }

    void boundingRectFollowsTheParent()
    {
        KELRoundRectControl first;
        first.setboundRect(10, 20, 200, 200);
        KELRoundRectControl control;
        control.setboundRect(1, 1, 5, 5);
        control.setParentItem(&first);
        QCOMPARE(control.boundingRect(), QRectF(11, 21, 5, 5));
        first.setboundRect(30, 40, 200, 200);
        QCOMPARE(control.boundingRect(), QRectF(31, 41, 5, 5));
        control.setParentItem(nullptr);
        QCOMPARE(control.boundingRect(), QRectF(1, 1, 5, 5));
    }

    void parentAsLargeAsItsChildren()
    {
        KelTestView view;
        auto *const parent = new WrappingParent;
        QList<KELRoundRectControl *> controls;
        for (int i = 0; i < 12; ++i) {
            controls.append(new KELRoundRectControl(parent));
            controls.last()->setboundRect(10 + i * 20, 30, 15, 40);
        }
        QCOMPARE(controls.first()->boundingRect(), QRectF(20, 60, 15, 40));
        QCOMPARE(controls.last()->boundingRect(), QRectF(240, 60, 15, 40));
        view.ownScene.addItem(parent);
        const QSignalSpy pressed(controls.last(), &KELRoundRectControl::mousePress);
        Hand(&view).press(QPoint(245, 80));
        QCOMPARE(pressed.count(), 1);
    }

    void nestedParentsAsLargeAsTheirChildren()
    {
        WrappingParent outer;
        auto *const inner = new WrappingParent;
        inner->setParentItem(&outer);
        auto *const control = new KELRoundRectControl(inner);
        control->setboundRect(5, 6, 10, 10);
        auto *const child = new KELRoundRectControl(control);
        child->setboundRect(1, 1, 2, 2);
        QVERIFY(control->boundingRect().isValid());
        QVERIFY(child->boundingRect().isValid());
        QCOMPARE(child->boundingRect().topLeft() - control->boundingRect().topLeft(),
                 QPointF(1, 1));
        QVERIFY(outer.boundingRect().isValid());
    }

    void setboundRectStoresTheRectangleOnly()
    {
        OpenControl control;
        control.setPos(3, 4);
        control.setboundRect(QRectF(9, 8, 7, 6));
        QCOMPARE(control.style()->boundRect, QRectF(9, 8, 7, 6));
        QCOMPARE(control.rectCalls, 1);
        KELRoundRectControl *const base = &control;
        base->setboundRect(1, 2, 3, 4);
        QCOMPARE(control.style()->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(control.rectCalls, 1);
        QCOMPARE(control.pos(), QPointF(3, 4));
    }

    void setboundRectNeitherRepaintsNorTellsTheScene()
    {
        PaintedStage stage;
        const QSignalSpy changed(&stage.view.ownScene, &QGraphicsScene::changed);
        stage->setboundRect(QRectF(20, 20, 100, 30));
        stage->setboundRect(30, 20, 100, 30);
        letEventsRun();
        QCOMPARE(changed.count(), 0);
        QCOMPARE(stage->paints, 0);
        stage->update();
        QTRY_VERIFY(stage->paints > 0);
        QVERIFY(changed.count() > 0);
    }

    void strangeGeometry_data()
    {
        addRows({{"rect", namesOf(strangeGeometries)},
                 {"index",
                  {{"no index", QGraphicsScene::NoIndex},
                   {"tree index", QGraphicsScene::BspTreeIndex}}}});
    }

    // Nothing crashes or hangs, and another control goes on being painted.
    void strangeGeometry()
    {
        const QRectF rect = strangeGeometries[fetch<size_t>("rect")].rect;
        const auto index = fetch<QGraphicsScene::ItemIndexMethod>("index");
        const auto furnish = [](KELRoundRectControl *control) {
            Record::fill(control->style());
            control->setText(u"a caption\nof two lines"_s);
        };
        KelTestView view;
        view.ownScene.setItemIndexMethod(index);
        auto *healthy = new OpenControl;
        healthy->setboundRect(20, 100, 100, 30);
        view.ownScene.addItem(healthy);
        auto *control = new KELRoundRectControl;
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        control->setAcceptHoverEvents(true);
        furnish(control);
        control->setboundRect(rect);
        auto *child = new KELRoundRectControl(control);
        furnish(child);
        child->setboundRect(5, 5, 20, 20);
        view.ownScene.addItem(control);

        Hand(&view).tap(QPoint(60, 30));
        QTRY_VERIFY(healthy->paints > 0);
        control->update();
        control->setRotation(30);
        view.scale(2, 2);
        QCoreApplication::processEvents();
        // The tree index must not meet a geometry change that nobody tells it of.
        if (index == QGraphicsScene::NoIndex) {
            control->setboundRect(20, 20, 100, 30);
            control->update();
            QCoreApplication::processEvents();
            control->setboundRect(rect);
        }
        healthy->paints = 0;
        healthy->update();
        QTRY_VERIFY(healthy->paints > 0);
    }

    void setCheckCallsTheHookOnChange()
    {
        OpenControl control;
        for (const bool check : {false, true, true, false, false, true}) {
            control.setCheck(check);
            QCOMPARE(control.isCheck(), check);
            QCOMPARE(control.style()->isCheck, check);
        }
        QCOMPARE(control.checks, QList<bool>({true, false, true}));
        QCOMPARE(control.statesInHook, control.checks);
    }

    void setCheckEmitsNothing()
    {
        KELRoundRectControl control;
        SignalLog log;
        log.listenTo(&control);
        control.setCheck(true);
        control.setCheck(false);
        QCOMPARE(log.takeWithHover(), QString());
    }

    void setCheckRepaintsOnChange()
    {
        PaintedStage stage;
        stage->setCheck(false);
        letEventsRun();
        QCOMPARE(stage->paints, 0);
        stage->setCheck(true);
        QTRY_COMPARE(stage->paints, 1);
    }

    void setTextStoresTheCaption()
    {
        KELRoundRectControl control;
        control.setText(u"one\ntwo"_s);
        QCOMPARE(control.text(), u"one\ntwo"_s);
        QCOMPARE(control.style()->text, u"one\ntwo"_s);
        control.setText(QString());
        QVERIFY(control.text().isNull());
    }

    void setTextRepaintsAlsoWithoutAChange()
    {
        PaintedStage stage;
        stage->setText(u"caption"_s);
        QTRY_COMPARE(stage->paints, 1);
        stage->setText(u"caption"_s);
        QTRY_COMPARE(stage->paints, 2);
    }

    void stateQueriesReadTheRecord()
    {
        KELRoundRectControl control;
        Record::fill(control.style());
        QVERIFY(control.isMouseDown());
        QVERIFY(control.isCheck());
        QCOMPARE(control.text(), u"caption"_s);
    }

    void metaObjectHasTheSignalsAndSlots()
    {
        const QMetaObject &meta = KELRoundRectControl::staticMetaObject;
        QCOMPARE(meta.className(), "KELRoundRectControl");
        QCOMPARE(meta.superClass(), &QGraphicsObject::staticMetaObject);
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            QCOMPARE(method.access(), QMetaMethod::Public);
            QCOMPARE(method.typeName(), "void");
            methods.append(
                QLatin1String(method.methodType() == QMetaMethod::Signal ? "signal " : "slot ")
                + QString::fromLatin1(method.methodSignature()));
        }
        methods.sort();
        QCOMPARE(methods,
                 QStringList({u"signal mouseClicked()"_s, u"signal mouseDoubleClicked()"_s,
                              u"signal mouseEnter()"_s, u"signal mouseLeave()"_s,
                              u"signal mouseLongPress()"_s, u"signal mousePress(QPointF)"_s,
                              u"signal mouseRelease(QPointF)"_s, u"slot setCheck(bool)"_s,
                              u"slot setText(QString)"_s}));
    }

    void metaObjectHasNoProperties()
    {
        const QMetaObject &meta = KELRoundRectControl::staticMetaObject;
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
    }

    void slotsAreCallableByName()
    {
        KELRoundRectControl control;
        QVERIFY(QMetaObject::invokeMethod(&control, "setCheck", Q_ARG(bool, true)));
        QVERIFY(QMetaObject::invokeMethod(&control, "setText", Q_ARG(QString, u"x"_s)));
        QVERIFY(control.isCheck());
        QCOMPARE(control.text(), u"x"_s);
    }

    void optionTakesTheBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 200);
        OpenControl control(&parent);
        control.setboundRect(5, 5, 50, 30);
        Style option = Style();
        control.initStyleOption(&option, nullptr);
        QCOMPARE(option.boundRect, QRectF(15, 25, 50, 30));
        control.fixedBounds = QRectF(1, 2, 3, 4);
        control.initStyleOption(&option, nullptr);
        QCOMPARE(option.boundRect, QRectF(1, 2, 3, 4));
    }

    void optionIsWhatTheRecordShows_data()
    {
        addRows({{"record", namesOf(optionCases())},
                 {"isButton", {{"plain control", false}, {"push button", true}}}});
    }

    // Without the menu, and without the states, on which no look of the base depends.
    void optionIsWhatTheRecordShows()
    {
        const OptionCase &row = optionCases().at(fetch<size_t>("record"));
        KELRoundRectControl control;
        KELPushButton button;
        button.setIsMouseDownTemplate({});
        const QString difference = fetch<bool>("isButton")
            ? optionDifference<KELPushButtonStyle>(&button, row, true)
            : optionDifference<Style>(&control, row, false);
        QCOMPARE(difference, QString());
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControl)

#include "tst_kelroundrectcontrol.moc"
