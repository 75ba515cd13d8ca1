// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "contentstage.h"
#include "hand.h"

#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>

#include <limits>
#include <memory>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();

class FocusItem : public QGraphicsRectItem
{
public:
    explicit FocusItem(QGraphicsItem *parent) : QGraphicsRectItem(0, 0, 10, 10, parent)
    {
        setFlag(ItemIsFocusable);
    }

    QList<Qt::FocusReason> reasons;

protected:
    void focusInEvent(QFocusEvent *event) override { reasons.append(event->reason()); }
};

enum class Way { Delete, DeleteLater, ClearScene, TakeOut };

} // namespace

class tst_KELContentView : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheControl()
    {
        View view;
        KELRoundRectControl *control = view.setNew();
        QVERIFY(view.hasOnly(control));
        QCOMPARE(control->scene(), view.scene());
        QCOMPARE(control->boundingRect(), QRectF(7, 9, 120, 40));
        QCOMPARE(control->pos(), QPointF());
        QCOMPARE(view.size(), QSize(120, 40));
        // The size is read once.
        control->setboundRect(0, 0, 300, 200);
        QCOMPARE(view.size(), QSize(120, 40));
    }

    void sizeIsTruncated_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<qreal>("height");
        QTest::addColumn<QSize>("size");

        QTest::newRow("whole") << 100.0 << 30.0 << QSize(100, 30);
        QTest::newRow("fractions") << 100.9 << 30.5 << QSize(100, 30);
        QTest::newRow("just below the next") << 99.999999 << 1.999999 << QSize(99, 1);
        QTest::newRow("below one") << 0.9 << 0.1 << QSize(0, 0);
        QTest::newRow("zero") << 0.0 << 0.0 << QSize(0, 0);
        QTest::newRow("negative") << -20.5 << -0.9 << QSize(0, 0);
        QTest::newRow("negative width") << -20.0 << 30.0 << QSize(0, 30);
        QTest::newRow("not a number") << notANumber << 30.0 << QSize(0, 30);
        QTest::newRow("not a number twice") << notANumber << notANumber << QSize(0, 0);
        QTest::newRow("infinite width") << infinite << 30.0 << QSize(0, 30);
        QTest::newRow("infinite height") << 30.0 << infinite << QSize(30, 0);
        QTest::newRow("negative infinity") << -infinite << 30.0 << QSize(0, 30);
        QTest::newRow("beyond an integer") << 1e300 << 30.0 << QSize(QWIDGETSIZE_MAX, 30);
        QTest::newRow("beyond a negative integer") << 30.0 << -1e300 << QSize(30, 0);
    }

    void sizeIsTruncated()
    {
        QFETCH(const qreal, width);
        QFETCH(const qreal, height);
        QFETCH(const QSize, size);
        View view;
        view.resize(50, 50);
        const KELRoundRectControl *control = view.setNew(width, height);
        QCOMPARE(view.size(), size);
        QCOMPARE(view.content(), control);
    }

    void contentIsKnownBeforeTheOldOneDies()
    {
        View view;
        const ControlPointer first = view.setNew();
        KELRoundRectControl *second = newControl(50, 20);
        int calls = 0;
        connect(first, &QObject::destroyed, &view, [&] {
            ++calls;
            QCOMPARE(view.content(), second);
            QVERIFY(!second->scene());
            QCOMPARE(view.size(), QSize(120, 40));
        });
        view.setContent(second);
        QCOMPARE(calls, 1);
        QVERIFY(view.hasOnly(second));
        QCOMPARE(view.size(), QSize(50, 20));
    }

    void deletesEverythingElseInTheScene()
    {
        View view;
        const ControlPointer first = view.setNew();
        const ControlPointer child = newChild(first);
        const ControlPointer guest = newControl();
        view.scene()->addItem(guest);
        KELRoundRectControl *second = newControl();
        const KELRoundRectControl *childOfSecond = newChild(second);
        view.setContent(second);
        QVERIFY(!first);
        QVERIFY(!guest);
        QVERIFY(!child);
        QCOMPARE(view.scene()->items().size(), 2);
        QCOMPARE(childOfSecond->parentItem(), second);
    }

    void showsTheSameControlAgain()
    {
        View view;
        const ControlPointer control = view.setNew();
        const ControlPointer guest = newControl();
        view.scene()->addItem(guest);
        control->setboundRect(0, 0, 60, 70);
        view.setContent(control);
        QVERIFY(control);
        QVERIFY(!guest);
        QVERIFY(view.hasOnly(control));
        QCOMPARE(view.size(), QSize(60, 70));
    }

    void showsAChildOfTheContent()
    {
        View view;
        const ControlPointer parent = view.setNew();
        const ControlPointer child = newControl(60, 20, parent);
        view.setContent(child);
        QVERIFY(!parent);
        QVERIFY(child);
        QVERIFY(view.hasOnly(child));
        QCOMPARE(child->parentItem(), nullptr);
        QCOMPARE(view.size(), QSize(60, 20));
    }

    void showsAGrandchildOfAnotherItem()
    {
        View view;
        auto *group = new QGraphicsRectItem(0, 0, 10, 10);
        const ControlPointer middle = newControl();
        middle->setParentItem(group);
        KELRoundRectControl *control = newChild(middle);
        const KELRoundRectControl *below = newChild(control);
        view.scene()->addItem(group);
        view.setContent(control);
        QVERIFY(!middle);
        QCOMPARE(view.content(), control);
        QCOMPARE(control->parentItem(), nullptr);
        QCOMPARE(below->parentItem(), control);
        QCOMPARE(view.scene()->items().size(), 2);
    }

    void showsTheParentOfTheContent()
    {
        View view;
        KELRoundRectControl *parent = newControl();
        KELRoundRectControl *child = newChild(parent);
        view.setContent(child);
        QCOMPARE(child->parentItem(), nullptr);
        child->setParentItem(parent);
        view.setContent(parent);
        QCOMPARE(view.content(), parent);
        QCOMPARE(child->scene(), view.scene());
        QCOMPARE(view.scene()->items().size(), 2);
    }

    void showsAControlOfAnotherScene_data()
    {
        addRows({{"hasParent", {{"on its own", false}, {"child of a control", true}}}});
    }

    void showsAControlOfAnotherScene()
    {
        QGraphicsScene other;
        View view;
        KELRoundRectControl *guest = newControl();
        const ControlPointer control = newControl(60, 20,
                                                  fetch<bool>("hasParent") ? guest : nullptr);
        other.addItem(guest);
        if (!fetch<bool>("hasParent"))
            other.addItem(control);
        view.setContent(control);
        QVERIFY(control);
        QVERIFY(view.hasOnly(control));
        QCOMPARE(control->parentItem(), nullptr);
        QCOMPARE(control->boundingRect(), QRectF(7, 9, 60, 20));
        QCOMPARE(other.items(), QList<QGraphicsItem *>({guest}));
        QCOMPARE(view.size(), QSize(60, 20));
    }

    void showsAControlOfAnotherView()
    {
        View first;
        View second;
        const ControlPointer control = first.setNew();
        second.setContent(control);
        QVERIFY(second.hasOnly(control));
        first.setNew();
        QVERIFY(control);
        QCOMPARE(second.content(), control.data());
    }

    void nullIsIgnored()
    {
        View view;
        QCOMPARE(view.content(), nullptr);
        view.setContent(nullptr);
        QCOMPARE(view.content(), nullptr);
        KELRoundRectControl *control = view.setNew();
        view.setContent(nullptr);
        QVERIFY(view.hasOnly(control));
        QCOMPARE(view.size(), QSize(120, 40));
    }

    void contentIsNullOnceItWasDeleted_data()
    {
        addRows({{"way",
                  {{"delete", int(Way::Delete)},
                   {"delete later", int(Way::DeleteLater)},
                   {"scene cleared", int(Way::ClearScene)},
                   {"taken out and deleted", int(Way::TakeOut)}}}});
    }

    void contentIsNullOnceItWasDeleted()
    {
        const Way way = fetch<Way>("way");
        View view;
        KELRoundRectControl *control = view.setNew();
        view.showAndWait();
        if (way == Way::ClearScene) {
            view.scene()->clear();
        } else if (way == Way::DeleteLater) {
            control->deleteLater();
            QCOMPARE(view.content(), control);
            QCoreApplication::sendPostedEvents(control, QEvent::DeferredDelete);
        } else {
            if (way == Way::TakeOut)
                view.scene()->removeItem(control);
            delete control;
        }
        QCOMPARE(view.content(), nullptr);
        QCOMPARE(view.scene()->items().size(), 0);
        QCOMPARE(view.size(), QSize(120, 40));
        QVERIFY(view.hasOnly(view.setNew(30, 40)));
        QCOMPARE(view.size(), QSize(30, 40));
    }

    void focusGoesToTheItem()
    {
        View view;
        auto *item = new FocusItem(view.setNew());
        view.activate();
        view.scene()->clearFocus();
        item->reasons.clear();
        view.setFocusItem(item);
        QCOMPARE(view.scene()->focusItem(), item);
        QCOMPARE(item->reasons, QList<Qt::FocusReason>({Qt::OtherFocusReason}));
        view.setFocusItem(nullptr);
        QCOMPARE(view.scene()->focusItem(), nullptr);
    }

    void sceneFollowsTheSize_data()
    {
        QTest::addColumn<QSize>("content");
        QTest::addColumn<QSize>("size");

        QTest::newRow("larger") << QSize(100, 80) << QSize(400, 300);
        QTest::newRow("smaller") << QSize(400, 300) << QSize(120, 90);
        QTest::newRow("wide") << QSize(100, 80) << QSize(500, 60);
        QTest::newRow("tall") << QSize(100, 80) << QSize(60, 500);
    }

    void sceneFollowsTheSize()
    {
        QFETCH(const QSize, content);
        QFETCH(const QSize, size);
        View view;
        view.setNew(content.width(), content.height());
        view.showAndWait();
        QCOMPARE(view.sceneRect(), QRectF(QPointF(), content));
        view.resize(size);
        QTRY_COMPARE(view.size(), size);
        QCOMPARE(view.scene()->sceneRect(), QRectF(QPointF(), size));
        QCOMPARE(view.sceneRect(), QRectF(QPointF(), size));

        QGraphicsScene referenceScene(view.sceneRect());
        QGraphicsView reference(&referenceScene);
        reference.setFrameShape(view.frameShape());
        reference.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        reference.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        reference.setStyleSheet(view.styleSheet());
        reference.setWindowFlags(Qt::FramelessWindowHint);
        reference.resize(size);
        reference.show();
        QVERIFY(QTest::qWaitForWindowExposed(&reference));
        reference.fitInView(referenceScene.sceneRect(), Qt::KeepAspectRatio);
        QCOMPARE(view.viewport()->size(), reference.viewport()->size());
        QCOMPARE(view.transform(), reference.transform());
        QCOMPARE(view.transform().m11(), view.transform().m22());
    }

    void scaleLeavesRoomForFrameAndMargins_data()
    {
        QTest::addColumn<QFrame::Shape>("shape");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<qreal>("scale"); // with a frame of 1 px
        QTest::newRow("framed") << QFrame::StyledPanel << QSize(400, 300) << 294 / 300.0;
        QTest::newRow("framed, low") << QFrame::StyledPanel << QSize(100, 40) << 34 / 40.0;
        QTest::newRow("framed, large") << QFrame::StyledPanel << QSize(800, 480) << 474 / 480.0;
        QTest::newRow("without frame") << QFrame::NoFrame << QSize(400, 300) << 296 / 300.0;
        QTest::newRow("without frame, low") << QFrame::NoFrame << QSize(100, 40) << 36 / 40.0;
    }

    void scaleLeavesRoomForFrameAndMargins()
    {
        QFETCH(const QFrame::Shape, shape);
        QFETCH(const QSize, size);
        QFETCH(const qreal, scale);
        const std::unique_ptr<QStyle> style(QStyleFactory::create(u"Fusion"_s));
        View view;
        view.setStyle(style.get());
        view.setFrameShape(shape);
        view.setNew(size.width(), size.height());
        view.showAndWait();
        QCOMPARE(view.frameWidth(), shape == QFrame::NoFrame ? 0 : 1);
        QCOMPARE(view.transform().m11(), scale);
        QCOMPARE(view.transform().m22(), scale);
    }

    void followsASizeTooSmallToFit()
    {
        View view;
        view.setNew();
        view.showAndWait();
        view.resize(1, 1);
        QTRY_COMPARE(view.size(), QSize(1, 1));
        QCOMPARE(view.sceneRect(), QRectF(0, 0, 1, 1));
        QVERIFY(view.transform().isInvertible());
    }

    void sceneFollowsItsItemsBeforeTheFirstResize()
    {
        const KELContentView view;
        QCOMPARE(view.sceneRect(), QRectF());
        view.scene()->addRect(10, 20, 30, 40, Qt::NoPen);
        QCOMPARE(view.sceneRect(), QRectF(10, 20, 30, 40));
    }

    void scalesWithTheLayout()
    {
        // A layout in the window itself gives it size hints, which the offscreen platform complains
        // about.
        QWidget window;
        auto *host = new QWidget(&window);
        auto *layout = new QHBoxLayout(host);
        layout->setContentsMargins(0, 0, 0, 0);
        auto *view = new View;
        layout->addWidget(view);
        const KELRoundRectControl *control = view->setNew(100, 80);
        host->resize(300, 200);
        window.resize(300, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(view->size(), QSize(300, 200));
        QCOMPARE(view->scene()->sceneRect(), QRectF(0, 0, 300, 200));
        QVERIFY(view->transform().m11() <= 1);
        QVERIFY(view->transform().m11() > 0.9);
        QCOMPARE(view->content(), control);
    }

    void pressReachesAControlMovedLater()
    {
        View view;
        KELRoundRectControl *control = view.setNew(20, 20);
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        view.resize(300, 200);
        view.showAndWait();
        QVERIFY(view.scene()->items(QPointF(20, 20)).contains(control));
        QCoreApplication::processEvents();
        control->setboundRect(200, 150, 20, 20);
        const QPointF moved = control->boundingRect().center();
        QVERIFY(view.scene()->items(moved).contains(control));
        QVERIFY(!view.scene()->items(QPointF(20, 20)).contains(control));
        const QSignalSpy clicked(control, &KELRoundRectControl::mouseClicked);
        Hand(view.viewport()).tap(view.mapFromScene(moved));
        QCOMPARE(clicked.count(), 1);
        delete control;
        QCOMPARE(view.scene()->items(moved).size(), 0);
    }

    void viewDeletesItsContent()
    {
        auto view = std::make_unique<View>();
        const ControlPointer control = view->setNew();
        const QPointer<QGraphicsScene> scene(view->scene());
        view->showAndWait();
        view.reset();
        QVERIFY(!control);
        QVERIFY(!scene);
    }

    void viewDeletesItsContentWithItsParent()
    {
        auto window = std::make_unique<QWidget>();
        auto *view = new View(window.get());
        const ControlPointer control = view->setNew();
        window.reset();
        QVERIFY(!control);
    }

    void contentTakenOutOutlivesTheView()
    {
        auto view = std::make_unique<View>();
        const ControlPointer control = view->setNew();
        view->scene()->removeItem(control);
        view.reset();
        QVERIFY(control);
        QCOMPARE(control->scene(), nullptr);
        delete control;
    }

    void worksWithoutItsScene()
    {
        View view;
        view.setNew();
        view.showAndWait();
        delete view.scene();
        QCOMPARE(view.content(), nullptr);
        const std::unique_ptr<KELRoundRectControl> control(newControl());
        view.setContent(control.get());
        QCOMPARE(view.content(), nullptr);
        QCOMPARE(control->scene(), nullptr);
        view.setFocusItem(nullptr);
        view.resize(200, 100);
        QTRY_COMPARE(view.size(), QSize(200, 100));
    }

    void oldContentAsksTheDyingView()
    {
        const QPointer<KELContentView> view(new KELContentView);
        view->setContent(newControl());
        int asked = 0;
        const QObject context;
        connect(view->content(), &QObject::destroyed, &context, [&] {
            ++asked;
            if (view)
                view->setContent(view->content());
        });
        delete view;
        QCOMPARE(asked, 1);
    }
};

KEL_TEST_MAIN(tst_KELContentView)
#include "tst_kelcontentview.moc"
