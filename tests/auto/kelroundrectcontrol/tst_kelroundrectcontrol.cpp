// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelroundrectcontrol.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtWidgets/QMenu>

#include <limits>
#include <memory>

Q_DECLARE_METATYPE(QGraphicsScene::ItemIndexMethod)

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();

// Counts what reaches its virtual functions.
class CountingControl : public KELRoundRectControl
{
public:
    explicit CountingControl(QGraphicsObject *parent = nullptr) : KELRoundRectControl(parent) { }

    void onCheckedEvent(bool check) override
    {
        checks.append(check);
        statesInHook.append(isCheck());
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++paints;
        KELRoundRectControl::paint(painter, option, widget);
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
    int paints = 0;
    int styles = 0;
    int rectCalls = 0;
};

class PlainParent : public QGraphicsObject
{
public:
    explicit PlainParent(const QRectF &bounds) : m_bounds(bounds) { }
    QRectF boundingRect() const override { return m_bounds; }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }

private:
    QRectF m_bounds;
};

// As large as its children.
class WrappingParent : public QGraphicsObject
{
public:
    QRectF boundingRect() const override { return childrenBoundingRect(); }
    void paint(QPainter * /*painter*/, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    { }
};

// Unlike QTest::mouseClick() it does not mind when nobody takes the press.
void tap(QGraphicsView *view, const QPoint &pos)
{
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, pos, view->viewport()->mapToGlobal(pos), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
}

KELRoundRectControlStyle optionOf(const KELRoundRectControl &control)
{
    KELRoundRectControlStyle option = KELRoundRectControlStyle();
    control.initStyleOption(&option, nullptr);
    return option;
}

} // namespace

class tst_KELRoundRectControl : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void constructorSetsCacheAndPanel()
    {
        const KELRoundRectControl control;
        QCOMPARE(control.cacheMode(), QGraphicsItem::DeviceCoordinateCache);
        QCOMPARE(control.flags(), QGraphicsItem::GraphicsItemFlags(QGraphicsItem::ItemIsPanel));
        QVERIFY(control.isPanel());
    }

    void constructorLeavesInputAlone()
    {
        const KELRoundRectControl control;
        QCOMPARE(control.acceptHoverEvents(), false);
        QCOMPARE(control.acceptTouchEvents(), false);
        QCOMPARE(control.acceptedMouseButtons(), QGraphicsRectItem().acceptedMouseButtons());
        QCOMPARE(control.filtersChildEvents(), false);
        QCOMPARE(control.handlesChildEvents(), false);
        QCOMPARE(control.isMouseDown(), false);
        QCOMPARE(control.isCheck(), false);
        QVERIFY(control.text().isNull());
    }

    void constructorTakesTheParentItem()
    {
        KELRoundRectControl parent;
        const auto *child = new KELRoundRectControl(&parent);
        QCOMPARE(child->parentItem(), &parent);
        QCOMPARE(KELRoundRectControl().parentItem(), nullptr);
        QCOMPARE(KELRoundRectControl(nullptr).parentItem(), nullptr);
    }

    void constructorUsesItsOwnInitStyle()
    {
        const CountingControl control;
        QCOMPARE(control.styles, 0);
        QVERIFY(control.style());
    }

    void initStyleReturnsANewRecordWithoutStoringIt()
    {
        KELRoundRectControl control;
        KELRoundRectControlStyle *const before = control.style();
        before->text = u"kept"_s;
        const std::unique_ptr<KELRoundRectControlStyle> made(control.initStyle());
        QVERIFY(made.get() != before);
        QCOMPARE(control.style(), before);
        QCOMPARE(control.text(), u"kept"_s);
        QCOMPARE(made->boundRect, QRectF(100, 100, 100, 30));
        QVERIFY(made->text.isNull());
    }

    void destructorSchedulesTheMenuForDeletion()
    {
        auto control = std::make_unique<KELRoundRectControl>();
        const QPointer<QMenu> menu = new QMenu;
        control->style()->contextMenu = menu;
        control.reset();
        QVERIFY(menu);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!menu);
    }

    void destructorWithoutMenu()
    {
        auto control = std::make_unique<KELRoundRectControl>();
        auto menu = std::make_unique<QMenu>();
        control->style()->contextMenu = menu.get();
        control->style()->contextMenu = nullptr;
        control.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(menu->isEmpty());
    }

    void childrenDieWithTheParent()
    {
        auto parent = std::make_unique<KELRoundRectControl>();
        const QPointer<KELRoundRectControl> child = new KELRoundRectControl(parent.get());
        const QPointer<QMenu> menu = new QMenu;
        child->style()->contextMenu = menu;
        parent.reset();
        QVERIFY(!child);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!menu);
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

        QTest::newRow("parent away from the origin")
            << QRectF(10, 20, 200, 100) << QRectF(5, 5, 50, 30) << QRectF(15, 25, 50, 30);
        QTest::newRow("parent at the origin")
            << QRectF(0, 0, 200, 100) << QRectF(5, 5, 50, 30) << QRectF(5, 5, 50, 30);
        QTest::newRow("parent at a negative place")
            << QRectF(-10, -20.5, 200, 100) << QRectF(5, 5, 50, 30) << QRectF(-5, -15.5, 50, 30);
        QTest::newRow("empty parent")
            << QRectF(10, 20, 0, 0) << QRectF(5, 5, 50, 30) << QRectF(15, 25, 50, 30);
        QTest::newRow("negative size")
            << QRectF(10, 20, 200, 100) << QRectF(5, 5, -50, -30) << QRectF(15, 25, -50, -30);
    }

    void boundingRectMovesByTheParentsCorner()
    {
        QFETCH(QRectF, parentRect);
        QFETCH(QRectF, rect);
        QFETCH(QRectF, expected);

        KELRoundRectControl parent;
        parent.setboundRect(parentRect);
        auto *child = new KELRoundRectControl(&parent);
        child->setboundRect(rect);
        QCOMPARE(child->boundingRect(), expected);

        PlainParent plainParent(parentRect);
        auto *plainChild = new KELRoundRectControl(&plainParent);
        plainChild->setboundRect(rect);
        QCOMPARE(plainChild->boundingRect(), expected);
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

    void setboundRectStoresTheRectangleOnly()
    {
        CountingControl control;
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
        KelTestView view;
        view.ownScene.setItemIndexMethod(QGraphicsScene::NoIndex);
        auto *control = new CountingControl;
        control->KELRoundRectControl::setboundRect(10, 10, 100, 30);
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        QTRY_VERIFY(control->paints > 0);
        QCoreApplication::processEvents();
        control->paints = 0;
        QSignalSpy changed(&view.ownScene, &QGraphicsScene::changed);

        control->setboundRect(QRectF(20, 20, 100, 30));
        control->KELRoundRectControl::setboundRect(30, 20, 100, 30);
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(changed.count(), 0);
        QCOMPARE(control->paints, 0);

        control->update();
        QTRY_VERIFY(control->paints > 0);
        QVERIFY(changed.count() > 0);
    }

    void strangeGeometry_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QGraphicsScene::ItemIndexMethod>("index");

        const struct
        {
            const char *name;
            QRectF rect;
        } rects[] = {
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
        for (const auto &row : rects) {
            QTest::addRow("%s, no index", row.name) << row.rect << QGraphicsScene::NoIndex;
            QTest::addRow("%s, tree index", row.name) << row.rect << QGraphicsScene::BspTreeIndex;
        }
    }

    void strangeGeometry()
    {
        QFETCH(QRectF, rect);
        QFETCH(QGraphicsScene::ItemIndexMethod, index);

        const auto furnish = [](KELRoundRectControl *control) {
            control->setText(u"a caption\nof two lines"_s);
            control->style()->pixmap = QPixmap(8, 8);
            control->style()->pixmap.fill(Qt::red);
            control->style()->icon = KELIconFont('W');
            control->style()->xRadius = 4;
            control->style()->yRadius = 4;
        };
        KelTestView view;
        view.ownScene.setItemIndexMethod(index);
        auto *healthy = new CountingControl;
        healthy->KELRoundRectControl::setboundRect(20, 100, 100, 30);
        view.ownScene.addItem(healthy);
        auto *control = new KELRoundRectControl;
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        control->setAcceptHoverEvents(true);
        control->setboundRect(rect);
        furnish(control);
        auto *child = new KELRoundRectControl(control);
        child->setboundRect(5, 5, 20, 20);
        furnish(child);
        view.ownScene.addItem(control);

        QVERIFY(view.showAndWait());
        QTRY_VERIFY(healthy->paints > 0);
        tap(&view, QPoint(60, 30));
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

    void setCheckCallsTheHookOnChange_data()
    {
        QTest::addColumn<QList<bool>>("calls");
        QTest::addColumn<QList<bool>>("expected");

        QTest::newRow("check") << QList<bool>{true} << QList<bool>{true};
        QTest::newRow("check twice") << QList<bool>{true, true} << QList<bool>{true};
        QTest::newRow("uncheck an unchecked one") << QList<bool>{false} << QList<bool>{};
        QTest::newRow("check and uncheck")
            << QList<bool>{true, false, false, true} << QList<bool>{true, false, true};
    }

    void setCheckCallsTheHookOnChange()
    {
        QFETCH(QList<bool>, calls);
        QFETCH(QList<bool>, expected);
        CountingControl control;
        for (const bool check : calls) {
            control.setCheck(check);
            QCOMPARE(control.isCheck(), check);
            QCOMPARE(control.style()->isCheck, check);
        }
        QCOMPARE(control.checks, expected);
        QCOMPARE(control.statesInHook, expected);
    }

    void setCheckEmitsNothing()
    {
        KELRoundRectControl control;
        std::vector<std::unique_ptr<QSignalSpy>> spies;
        const QMetaObject *const meta = control.metaObject();
        for (int i = 0; i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal)
                spies.push_back(std::make_unique<QSignalSpy>(&control, meta->method(i)));
        }
        QVERIFY(spies.size() > 7);
        control.setCheck(true);
        control.setCheck(false);
        for (const auto &spy : spies)
            QCOMPARE(spy->count(), 0);
    }

    void setCheckRepaintsOnChange()
    {
        KelTestView view;
        auto *control = new CountingControl;
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        QTRY_VERIFY(control->paints > 0);
        QCoreApplication::processEvents();

        control->paints = 0;
        control->setCheck(false);
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(control->paints, 0);
        control->setCheck(true);
        QTRY_COMPARE(control->paints, 1);
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
        KelTestView view;
        auto *control = new CountingControl;
        view.ownScene.addItem(control);
        QVERIFY(view.showAndWait());
        QTRY_VERIFY(control->paints > 0);
        QCoreApplication::processEvents();

        control->paints = 0;
        control->setText(u"caption"_s);
        QTRY_COMPARE(control->paints, 1);
        control->setText(u"caption"_s);
        QTRY_COMPARE(control->paints, 2);
    }

    void stateQueriesReadTheRecord()
    {
        KELRoundRectControl control;
        control.style()->isMouseDown = true;
        control.style()->isCheck = true;
        control.style()->text = u"caption"_s;
        QCOMPARE(control.isMouseDown(), true);
        QCOMPARE(control.isCheck(), true);
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
        QCOMPARE(control.isCheck(), true);
        QCOMPARE(control.text(), u"x"_s);
    }

    void optionTakesTheBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 200);
        CountingControl control(&parent);
        control.setboundRect(5, 5, 50, 30);
        QCOMPARE(optionOf(control).boundRect, QRectF(15, 25, 50, 30));
        control.fixedBounds = QRectF(1, 2, 3, 4);
        QCOMPARE(optionOf(control).boundRect, QRectF(1, 2, 3, 4));
    }

    void optionTakesFontMarginsRadiiAndTrimming()
    {
        KELRoundRectControl control;
        control.style()->font.setPixelSize(77);
        control.style()->margins = QMarginsF(1, 2, 3, 4);
        control.style()->xRadius = 5;
        control.style()->yRadius = 6;
        QCOMPARE(optionOf(control).font.pixelSize(), 77);
        QCOMPARE(optionOf(control).margins, QMarginsF(1, 2, 3, 4));
        QCOMPARE(optionOf(control).xRadius, 5.0);
        QCOMPARE(optionOf(control).yRadius, 6.0);
        QCOMPARE(optionOf(control).trimText, true);
        control.style()->trimText = false;
        QCOMPARE(optionOf(control).trimText, false);
    }

    void optionTakesTheFill()
    {
        KELRoundRectControl control;
        control.style()->backgroundBrush = QBrush(Qt::red, Qt::DiagCrossPattern);
        QCOMPARE(optionOf(control).backgroundBrush, QBrush(Qt::red, Qt::DiagCrossPattern));
        control.style()->backgroundBrush = QBrush(Qt::red, Qt::NoBrush);
        QCOMPARE(optionOf(control).backgroundBrush, QBrush(Qt::NoBrush));
    }

    void optionTakesTheOutline_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");
        QTest::addColumn<bool>("taken");

        QTest::newRow("brush and width") << QBrush(Qt::red) << 2.0F << true;
        QTest::newRow("hairline") << QBrush(Qt::red) << 0.001F << true;
        QTest::newRow("no width") << QBrush(Qt::red) << 0.0F << false;
        QTest::newRow("negative width") << QBrush(Qt::red) << -1.0F << false;
        QTest::newRow("width not a number") << QBrush(Qt::red) << float(notANumber) << false;
        QTest::newRow("no brush") << QBrush(Qt::red, Qt::NoBrush) << 2.0F << false;
    }

    void optionTakesTheOutline()
    {
        QFETCH(QBrush, brush);
        QFETCH(float, width);
        QFETCH(bool, taken);
        KELRoundRectControl control;
        control.style()->borderBrush = brush;
        control.style()->borderWidth = width;
        const KELRoundRectControlStyle option = optionOf(control);
        QCOMPARE(option.borderBrush, taken ? brush : QBrush(Qt::NoBrush));
        if (taken)
            QCOMPARE(option.borderWidth, width);
    }

    void optionTakesTheCaption_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("taken");

        QTest::newRow("brush and text") << QBrush(Qt::red) << u"caption"_s << true;
        QTest::newRow("empty text") << QBrush(Qt::red) << u""_s << false;
        QTest::newRow("null text") << QBrush(Qt::red) << QString() << false;
        QTest::newRow("no brush") << QBrush(Qt::red, Qt::NoBrush) << u"caption"_s << false;
    }

    void optionTakesTheCaption()
    {
        QFETCH(QBrush, brush);
        QFETCH(QString, text);
        QFETCH(bool, taken);
        KELRoundRectControl control;
        control.style()->foregroundBrush = brush;
        control.style()->text = text;
        control.style()->textFlags = Qt::AlignRight;
        const KELRoundRectControlStyle option = optionOf(control);
        QCOMPARE(option.foregroundBrush,
                 brush.style() == Qt::NoBrush ? QBrush(Qt::NoBrush) : brush);
        QCOMPARE(option.text, taken ? text : QString());
        QCOMPARE(option.text.isNull(), !taken);
        if (taken)
            QCOMPARE(option.textFlags, int(Qt::AlignRight));
    }

    void optionTakesThePixmap()
    {
        KELRoundRectControl control;
        QVERIFY(optionOf(control).pixmap.isNull());
        control.style()->pixmap = QPixmap(3, 4);
        QCOMPARE(optionOf(control).pixmap.cacheKey(), control.style()->pixmap.cacheKey());
    }

    void optionTakesTheGlyph()
    {
        KELRoundRectControl control;
        control.style()->iconSize = 55;
        QVERIFY(optionOf(control).icon.isNull());
        control.style()->icon = KELIconFont('Q');
        QCOMPARE(optionOf(control).icon.getIcon(), QChar('Q'));
        QCOMPARE(optionOf(control).iconSize, 55);
    }

    void optionOfAGlyphHasTheFlags()
    {
        KELRoundRectControl control;
        control.style()->icon = KELIconFont('Q');
        QCOMPARE(optionOf(control).textFlags, 0x1084);
        control.style()->textFlags = Qt::AlignBottom;
        QCOMPARE(optionOf(control).textFlags, int(Qt::AlignBottom));
    }

    void optionHasNeitherStatesNorMenu()
    {
        QMenu menu;
        KELRoundRectControl control;
        control.style()->isMouseDown = true;
        control.style()->isCheck = true;
        control.style()->contextMenu = &menu;
        const KELRoundRectControlStyle option = optionOf(control);
        control.style()->contextMenu = nullptr;
        QCOMPARE(option.isMouseDown, false);
        QCOMPARE(option.isCheck, false);
        QCOMPARE(option.contextMenu, nullptr);
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
        QVERIFY(view.showAndWait());
        QSignalSpy pressed(controls.last(), &KELRoundRectControl::mousePress);
        view.press(QPoint(245, 80));
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
};

KEL_TEST_MAIN(tst_KELRoundRectControl)

#include "tst_kelroundrectcontrol.moc"
