// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelnonmodaldialog.h>
#include <kelroundrectcontrol.h>
#include <kelsidemenu.h>

#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>

#include <algorithm>
#include <iterator>
#include <limits>
#include <memory>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();

KELRoundRectControl *makeControl(qreal width, qreal height, KELRoundRectControl *parent = nullptr)
{
    auto *control = new KELRoundRectControl(parent);
    control->setboundRect(7, 9, width, height);
    return control;
}

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

} // namespace

class tst_KELContentView : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsEmpty()
    {
        const KELContentView view;
        QCOMPARE(view.content(), nullptr);
        QVERIFY(view.scene());
        QCOMPARE(view.scene()->parent(), &view);
        QCOMPARE(view.scene()->items().size(), 0);
        QCOMPARE(view.scene()->views().size(), 1);
    }

    void hasTheAttributesOfAnOverlay_data()
    {
        QTest::addColumn<bool>("hasParent");

        QTest::newRow("window") << false;
        QTest::newRow("child widget") << true;
    }

    void hasTheAttributesOfAnOverlay()
    {
        QFETCH(bool, hasParent);
        QWidget parent;
        const KELContentView view(hasParent ? &parent : nullptr);
        QCOMPARE(view.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view.styleSheet(), u"background: transparent;"_s);
        QVERIFY(view.testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(view.scene()->itemIndexMethod(), QGraphicsScene::NoIndex);
    }

    void isAFramelessWindowWithoutParent()
    {
        const KELContentView view;
        QVERIFY(view.isWindow());
        QCOMPARE(view.windowFlags() & ~Qt::WindowFlags(Qt::Window), Qt::FramelessWindowHint);
    }

    void isAChildWidgetWithParent()
    {
        QWidget parent;
        const KELContentView view(&parent);
        QCOMPARE(view.parentWidget(), &parent);
        QVERIFY(!view.isWindow());
        QCOMPARE(view.windowFlags(), Qt::FramelessWindowHint);
    }

    void declaresNoInterfaceOfItsOwn()
    {
        const QMetaObject &meta = KELContentView::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), QByteArray("KELContentView"));
        QCOMPARE(meta.superClass(), &QGraphicsView::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void showsTheControl()
    {
        KELContentView view;
        KELRoundRectControl *control = makeControl(120, 40);
        view.setContent(control);
        QCOMPARE(view.content(), control);
        QCOMPARE(control->scene(), view.scene());
        QCOMPARE(view.scene()->items().size(), 1);
        QCOMPARE(view.size(), QSize(120, 40));
        QCOMPARE(control->boundingRect(), QRectF(7, 9, 120, 40));
        QCOMPARE(control->pos(), QPointF());
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
        QFETCH(qreal, width);
        QFETCH(qreal, height);
        QFETCH(QSize, size);
        KELContentView view;
        view.resize(50, 50);
        KELRoundRectControl *control = makeControl(width, height);
        view.setContent(control);
        QCOMPARE(view.size(), size);
        QCOMPARE(view.content(), control);
    }

    void sizeOfAControlIsReadOnce()
    {
        KELContentView view;
        KELRoundRectControl *control = makeControl(120, 40);
        view.setContent(control);
        control->setboundRect(0, 0, 300, 200);
        QCOMPARE(view.size(), QSize(120, 40));
    }

    void contentIsKnownBeforeTheOldOneDies()
    {
        KELContentView view;
        KELRoundRectControl *first = makeControl(120, 40);
        KELRoundRectControl *second = makeControl(50, 20);
        view.setContent(first);
        QStringList steps;
        connect(first, &QObject::destroyed, &view, [&] {
            steps.append(view.content() == second ? u"stored"_s : QString());
            steps.append(second->scene() ? QString() : u"not yet added"_s);
            steps.append(view.size() == QSize(120, 40) ? u"not yet resized"_s : QString());
        });
        view.setContent(second);
        QCOMPARE(steps, QStringList({u"stored"_s, u"not yet added"_s, u"not yet resized"_s}));
        QCOMPARE(view.size(), QSize(50, 20));
    }

    void replacesTheContent()
    {
        KELContentView view;
        KELRoundRectControl *first = makeControl(120, 40);
        KELRoundRectControl *second = makeControl(50, 20);
        const QSignalSpy firstDied(first, &QObject::destroyed);
        const QSignalSpy secondDied(second, &QObject::destroyed);
        view.setContent(first);
        view.setContent(second);
        QCOMPARE(firstDied.count(), 1);
        QCOMPARE(secondDied.count(), 0);
        QCOMPARE(view.content(), second);
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({second}));
        QCOMPARE(view.size(), QSize(50, 20));
    }

    void deletesEverythingElseInTheScene()
    {
        KELContentView view;
        KELRoundRectControl *guest = makeControl(10, 10);
        KELRoundRectControl *first = makeControl(120, 40);
        KELRoundRectControl *child = makeControl(5, 5, first);
        const QSignalSpy guestDied(guest, &QObject::destroyed);
        const QSignalSpy childDied(child, &QObject::destroyed);
        view.setContent(first);
        view.scene()->addItem(guest);
        KELRoundRectControl *second = makeControl(50, 20);
        KELRoundRectControl *childOfSecond = makeControl(5, 5, second);
        view.setContent(second);
        QCOMPARE(guestDied.count(), 1);
        QCOMPARE(childDied.count(), 1);
        QCOMPARE(view.scene()->items().size(), 2);
        QCOMPARE(childOfSecond->parentItem(), second);
    }

    void showsTheSameControlAgain()
    {
        KELContentView view;
        KELRoundRectControl *control = makeControl(120, 40);
        KELRoundRectControl *guest = makeControl(10, 10);
        const QSignalSpy died(control, &QObject::destroyed);
        const QSignalSpy guestDied(guest, &QObject::destroyed);
        view.setContent(control);
        view.scene()->addItem(guest);
        control->setboundRect(0, 0, 60, 70);
        view.setContent(control);
        QCOMPARE(died.count(), 0);
        QCOMPARE(guestDied.count(), 1);
        QCOMPARE(view.content(), control);
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({control}));
        QCOMPARE(view.size(), QSize(60, 70));
    }

    void showsAChildOfTheContent()
    {
        KELContentView view;
        KELRoundRectControl *parent = makeControl(120, 40);
        KELRoundRectControl *child = makeControl(60, 20, parent);
        const QSignalSpy parentDied(parent, &QObject::destroyed);
        const QSignalSpy childDied(child, &QObject::destroyed);
        view.setContent(parent);
        view.setContent(child);
        QCOMPARE(parentDied.count(), 1);
        QCOMPARE(childDied.count(), 0);
        QCOMPARE(view.content(), child);
        QCOMPARE(child->parentItem(), nullptr);
        QCOMPARE(child->scene(), view.scene());
        QCOMPARE(view.size(), QSize(60, 20));
    }

    void showsAGrandchildOfAnotherItem()
    {
        KELContentView view;
        auto *group = new QGraphicsRectItem(0, 0, 10, 10);
        KELRoundRectControl *middle = makeControl(120, 40);
        middle->setParentItem(group);
        KELRoundRectControl *control = makeControl(60, 20, middle);
        KELRoundRectControl *below = makeControl(6, 6, control);
        const QSignalSpy middleDied(middle, &QObject::destroyed);
        view.scene()->addItem(group);
        view.setContent(control);
        QCOMPARE(middleDied.count(), 1);
        QCOMPARE(view.content(), control);
        QCOMPARE(control->parentItem(), nullptr);
        QCOMPARE(below->parentItem(), control);
        QCOMPARE(view.scene()->items().size(), 2);
    }

    void showsTheParentOfTheContent()
    {
        KELContentView view;
        KELRoundRectControl *parent = makeControl(120, 40);
        KELRoundRectControl *child = makeControl(60, 20, parent);
        view.setContent(child);
        QCOMPARE(child->parentItem(), nullptr);
        child->setParentItem(parent);
        view.setContent(parent);
        QCOMPARE(view.content(), parent);
        QCOMPARE(child->scene(), view.scene());
        QCOMPARE(view.scene()->items().size(), 2);
    }

    void showsAControlOfAnotherScene()
    {
        QGraphicsScene other;
        KELContentView view;
        KELRoundRectControl *control = makeControl(60, 20);
        const QSignalSpy died(control, &QObject::destroyed);
        other.addItem(control);
        other.addItem(makeControl(5, 5));
        view.setContent(control);
        QCOMPARE(died.count(), 0);
        QCOMPARE(control->scene(), view.scene());
        QCOMPARE(other.items().size(), 1);
        QCOMPARE(view.size(), QSize(60, 20));
    }

    void showsAChildInAnotherScene()
    {
        QGraphicsScene other;
        KELContentView view;
        KELRoundRectControl *parent = makeControl(120, 40);
        KELRoundRectControl *child = makeControl(60, 20, parent);
        other.addItem(parent);
        view.setContent(child);
        QCOMPARE(child->parentItem(), nullptr);
        QCOMPARE(child->scene(), view.scene());
        QCOMPARE(other.items(), QList<QGraphicsItem *>({parent}));
        QCOMPARE(child->boundingRect(), QRectF(7, 9, 60, 20));
    }

    void showsAControlOfAnotherView()
    {
        KELContentView first;
        KELContentView second;
        KELRoundRectControl *control = makeControl(60, 20);
        first.setContent(control);
        second.setContent(control);
        QCOMPARE(second.content(), control);
        QCOMPARE(control->scene(), second.scene());
        const QSignalSpy died(control, &QObject::destroyed);
        first.setContent(makeControl(10, 10));
        QCOMPARE(died.count(), 0);
        QCOMPARE(second.content(), control);
    }

    void nullIsIgnored()
    {
        KELContentView view;
        view.setContent(nullptr);
        QCOMPARE(view.content(), nullptr);
        KELRoundRectControl *control = makeControl(60, 20);
        view.setContent(control);
        view.setContent(nullptr);
        QCOMPARE(view.content(), control);
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({control}));
        QCOMPARE(view.size(), QSize(60, 20));
    }

    void contentIsNullOnceItWasDeleted_data()
    {
        QTest::addColumn<QString>("way");

        QTest::newRow("delete") << u"delete"_s;
        QTest::newRow("delete later") << u"deleteLater"_s;
        QTest::newRow("scene cleared") << u"clear"_s;
        QTest::newRow("taken out and deleted") << u"removeItem"_s;
    }

    void contentIsNullOnceItWasDeleted()
    {
        QFETCH(QString, way);
        KELContentView view;
        KELRoundRectControl *control = makeControl(60, 20);
        view.setContent(control);
        if (way == QLatin1String("clear")) {
            view.scene()->clear();
        } else if (way == QLatin1String("deleteLater")) {
            control->deleteLater();
            QCOMPARE(view.content(), control);
            QCoreApplication::sendPostedEvents(control, QEvent::DeferredDelete);
        } else {
            if (way == QLatin1String("removeItem"))
                view.scene()->removeItem(control);
            delete control;
        }
        QCOMPARE(view.content(), nullptr);
        QCOMPARE(view.size(), QSize(60, 20));
    }

    void showsAnotherControlAfterTheContentWasDeleted()
    {
        KELContentView view;
        view.setContent(makeControl(60, 20));
        delete view.content();
        KELRoundRectControl *control = makeControl(30, 40);
        view.setContent(control);
        QCOMPARE(view.content(), control);
        QCOMPARE(view.size(), QSize(30, 40));
    }

    void oldContentDeletesTheNewOne()
    {
        KELContentView view;
        KELRoundRectControl *first = makeControl(120, 40);
        KELRoundRectControl *second = makeControl(50, 20);
        view.setContent(first);
        connect(first, &QObject::destroyed, &view, [second] { delete second; });
        view.setContent(second);
        QCOMPARE(view.content(), nullptr);
        QCOMPARE(view.scene()->items().size(), 0);
        QCOMPARE(view.size(), QSize(120, 40));
    }

    void oldContentShowsAThirdOne()
    {
        KELContentView view;
        KELRoundRectControl *first = makeControl(120, 40);
        KELRoundRectControl *second = makeControl(50, 20);
        const QPointer<KELRoundRectControl> third(makeControl(70, 80));
        const QPointer<KELRoundRectControl> secondAlive(second);
        view.setContent(first);
        connect(first, &QObject::destroyed, &view, [&view, &third] { view.setContent(third); });
        view.setContent(second);
        QVERIFY(third);
        QCOMPARE(view.content(), third.data());
        QVERIFY(!secondAlive);
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({third.data()}));
        QCOMPARE(view.size(), QSize(70, 80));
    }

    void oldContentShowsTheNewOneAgain()
    {
        KELContentView view;
        KELRoundRectControl *first = makeControl(120, 40);
        const QPointer<KELRoundRectControl> second(makeControl(50, 20));
        view.setContent(first);
        connect(first, &QObject::destroyed, &view, [&view, &second] { view.setContent(second); });
        view.setContent(second);
        QVERIFY(second);
        QCOMPARE(view.content(), second.data());
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({second.data()}));
        QCOMPARE(view.size(), QSize(50, 20));
    }

    void oldContentAddsAnItem()
    {
        KELContentView view;
        KELRoundRectControl *first = makeControl(120, 40);
        KELRoundRectControl *second = makeControl(50, 20);
        view.setContent(first);
        const QPointer<KELRoundRectControl> guest(makeControl(5, 5));
        connect(first, &QObject::destroyed, &view,
                [&view, &guest] { view.scene()->addItem(guest); });
        view.setContent(second);
        QCOMPARE(view.content(), second);
        QVERIFY(!guest);
        QCOMPARE(view.scene()->items(), QList<QGraphicsItem *>({second}));
    }

    void focusGoesToTheItem()
    {
        KELContentView view;
        KELRoundRectControl *control = makeControl(60, 20);
        auto *item = new FocusItem(control);
        view.setContent(control);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QApplication::setActiveWindow(&view);
        QTRY_VERIFY(view.scene()->isActive());
        view.setFocus();
        view.scene()->clearFocus();
        item->reasons.clear();
        view.setFocusItem(item);
        QCOMPARE(view.scene()->focusItem(), item);
        QCOMPARE(item->reasons, QList<Qt::FocusReason>({Qt::OtherFocusReason}));
    }

    void focusIsClearedByNull()
    {
        KELContentView view;
        KELRoundRectControl *control = makeControl(60, 20);
        auto *item = new FocusItem(control);
        view.setContent(control);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QApplication::setActiveWindow(&view);
        QTRY_VERIFY(view.scene()->isActive());
        view.setFocusItem(item);
        QCOMPARE(view.scene()->focusItem(), item);
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
        QFETCH(QSize, content);
        QFETCH(QSize, size);
        KELContentView view;
        view.setContent(makeControl(content.width(), content.height()));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
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
        KELContentView view;
        view.setStyle(style.get());
        view.setFrameShape(shape);
        view.setContent(makeControl(size.width(), size.height()));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QCOMPARE(view.frameWidth(), shape == QFrame::NoFrame ? 0 : 1);
        QCOMPARE(view.transform().m11(), scale);
        QCOMPARE(view.transform().m22(), scale);
    }

    void followsASizeTooSmallToFit()
    {
        KELContentView view;
        view.setContent(makeControl(100, 80));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.resize(1, 1);
        QTRY_COMPARE(view.size(), QSize(1, 1));
        QCOMPARE(view.sceneRect(), QRectF(0, 0, 1, 1));
        QVERIFY(view.transform().isInvertible());
    }

    void sceneFollowsItsItemsBeforeTheFirstResize()
    {
        KELContentView view;
        QCOMPARE(view.sceneRect(), QRectF());
        auto *item = new QGraphicsRectItem(10, 20, 30, 40);
        item->setPen(Qt::NoPen);
        view.scene()->addItem(item);
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
        auto *view = new KELContentView;
        layout->addWidget(view);
        KELRoundRectControl *control = makeControl(100, 80);
        view->setContent(control);
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
        KELContentView view;
        KELRoundRectControl *control = makeControl(20, 20);
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        view.setContent(control);
        view.resize(300, 200);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QVERIFY(view.scene()->items(QPointF(20, 20)).contains(control));
        QCoreApplication::processEvents();
        control->setboundRect(200, 150, 20, 20);
        const QPointF moved = control->boundingRect().center();
        QVERIFY(view.scene()->items(moved).contains(control));
        QVERIFY(!view.scene()->items(QPointF(20, 20)).contains(control));
        const QSignalSpy clicked(control, &KELRoundRectControl::mouseClicked);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                          view.mapFromScene(moved));
        QCOMPARE(clicked.count(), 1);
        delete control;
        QCOMPARE(view.scene()->items(moved).size(), 0);
    }

    void itemsOfARectangleAreSorted_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("content view") << 0;
        QTest::newRow("side menu") << 1;
        QTest::newRow("panel") << 2;
        QTest::newRow("dialog") << 3;
    }

    void itemsOfARectangleAreSorted()
    {
        QFETCH(const int, kind);
        KELContentView contentView;
        KELSideMenu menu;
        KELNonModalDialog panel;
        const KELDialogBase dialog;
        const QGraphicsView *const views[] = {&contentView, &menu, &panel, dialog.view()};
        QGraphicsScene *scene = views[kind]->scene();
        QList<QGraphicsItem *> items;
        for (const qreal z : {0.0, 5.0, -1.0, 0.0}) {
            KELRoundRectControl *control = makeControl(60, 40);
            control->setZValue(z);
            scene->addItem(control);
            items.append(control);
        }
        items.append(makeControl(10, 10, static_cast<KELRoundRectControl *>(items.first())));

        const QList<QGraphicsItem *> sorted = {items.at(1), items.at(3), items.at(4), items.at(0),
                                               items.at(2)};
        QCOMPARE(scene->items(QRectF(0, 0, 200, 200)), sorted);
        QCOMPARE(scene->items(QPointF(15, 19)), sorted);
        QList<QGraphicsItem *> ascending;
        std::reverse_copy(sorted.cbegin(), sorted.cend(), std::back_inserter(ascending));
        QCOMPARE(scene->items(QRectF(0, 0, 200, 200), Qt::IntersectsItemShape, Qt::AscendingOrder),
                 ascending);
    }

    void viewDeletesItsContent()
    {
        auto view = std::make_unique<KELContentView>();
        KELRoundRectControl *control = makeControl(60, 20);
        const QPointer<QGraphicsScene> scene(view->scene());
        const QSignalSpy died(control, &QObject::destroyed);
        view->setContent(control);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        view.reset();
        QCOMPARE(died.count(), 1);
        QVERIFY(!scene);
    }

    void viewDeletesItsContentWithItsParent()
    {
        auto window = std::make_unique<QWidget>();
        auto *view = new KELContentView(window.get());
        KELRoundRectControl *control = makeControl(60, 20);
        const QSignalSpy died(control, &QObject::destroyed);
        view->setContent(control);
        window.reset();
        QCOMPARE(died.count(), 1);
    }

    void contentDeletedBeforeTheView()
    {
        auto view = std::make_unique<KELContentView>();
        KELRoundRectControl *control = makeControl(60, 20);
        view->setContent(control);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        delete control;
        QCOMPARE(view->scene()->items().size(), 0);
        view.reset();
    }

    void contentTakenOutOutlivesTheView()
    {
        auto view = std::make_unique<KELContentView>();
        const std::unique_ptr<KELRoundRectControl> control(makeControl(60, 20));
        const QSignalSpy died(control.get(), &QObject::destroyed);
        view->setContent(control.get());
        view->scene()->removeItem(control.get());
        view.reset();
        QCOMPARE(died.count(), 0);
        QCOMPARE(control->scene(), nullptr);
    }

    void worksWithoutItsScene()
    {
        KELContentView view;
        view.setContent(makeControl(60, 20));
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        delete view.scene();
        QCOMPARE(view.content(), nullptr);
        const std::unique_ptr<KELRoundRectControl> control(makeControl(30, 40));
        view.setContent(control.get());
        QCOMPARE(view.content(), nullptr);
        QCOMPARE(control->scene(), nullptr);
        view.setFocusItem(nullptr);
        view.resize(200, 100);
        QTRY_COMPARE(view.size(), QSize(200, 100));
        QCOMPARE(view.size(), QSize(200, 100));
    }

    void oldContentAsksTheDyingView()
    {
        const QPointer<KELContentView> view(new KELContentView);
        KELRoundRectControl *control = makeControl(60, 20);
        view->setContent(control);
        int asked = 0;
        QObject context;
        connect(control, &QObject::destroyed, &context, [&view, &asked] {
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
