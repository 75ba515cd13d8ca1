// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "pagestage.h"
#include "rows.h"

#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsRectItem>

#include <utility>

namespace {

// Every second pixel is black, in both directions, so that any scaling shows.
class PixelItem : public QGraphicsItem
{
public:
    using QGraphicsItem::QGraphicsItem;

    static void draw(QPainter *painter, const QSize &size)
    {
        for (int y = 0; y < size.height(); ++y) {
            for (int x = y % 2; x < size.width(); x += 2)
                painter->fillRect(x, y, 1, 1, Qt::black);
        }
    }
    QRectF boundingRect() const override { return {0, 0, 120, 90}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    {
        draw(painter, QSize(120, 90));
    }
};

class StayingPage : public KELPage
{
public:
    int asked = 0;

protected:
    bool backEvent() override { return ++asked == 1; }
};

// Knows why it has got the focus.
class FocusItem : public QGraphicsWidget
{
public:
    explicit FocusItem(QGraphicsItem *parent) : QGraphicsWidget(parent)
    {
        setFocusPolicy(Qt::StrongFocus);
    }

    Qt::FocusReason reason = Qt::NoFocusReason;

protected:
    void focusInEvent(QFocusEvent *event) override { reason = event->reason(); }
};

} // namespace

class tst_KELScreen : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aNewScreenIsPlainAndOpaque()
    {
        const KELScreen screen;
        QCOMPARE(screen.size(), QSize(800, 480));
        QCOMPARE(screen.pageCount(), 0);
        QVERIFY(!screen.currentPage());
        QVERIFY(!screen.isSlideEnabled());
        QCOMPARE(screen.scene()->itemIndexMethod(), QGraphicsScene::NoIndex);
        QCOMPARE(screen.scene()->backgroundBrush(), QBrush(QColor(0xf3f5f8)));
        QVERIFY(screen.windowFlags() & Qt::FramelessWindowHint);
        QVERIFY(screen.viewport()->testAttribute(Qt::WA_OpaquePaintEvent));
    }

    void oneItemPixelIsOneWidgetPixel_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("as large as the item") << QSize(120, 90);
        QTest::newRow("odd") << QSize(401, 299);
        QTest::newRow("tall") << QSize(240, 400);
        QTest::newRow("smaller than the item") << QSize(50, 40);
    }

    void oneItemPixelIsOneWidgetPixel()
    {
        QFETCH(const QSize, size);
        KELScreen screen;
        auto *const page = new KELPage;
        new PixelItem(page);
        // Far outside: the view does not follow it.
        new QGraphicsRectItem(QRectF(-5000, -5000, 10, 10), page);
        screen.push(page);
        screen.resize(size);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QImage expected(size, QImage::Format_RGB32);
        expected.fill(QColor(0xf3f5f8));
        QPainter painter(&expected);
        PixelItem::draw(&painter, QSize(120, 90));
        painter.end();
        const QImage actual = screen.grab().toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(KelImage::difference(actual, expected), QString());
    }

    void aTranslucentBackgroundLiesOnBlack()
    {
        KELScreen screen;
        screen.resize(50, 40);
        screen.scene()->setBackgroundBrush(QColor(200, 100, 50, 128));
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QImage expected(50, 40, QImage::Format_RGB32);
        expected.fill(Qt::black);
        QPainter(&expected).fillRect(expected.rect(), QColor(200, 100, 50, 128));
        QCOMPARE(screen.grab().toImage().convertToFormat(QImage::Format_RGB32), expected);
    }

    void signalsComeInOrder()
    {
        PageStage stage;
        QVERIFY(stage.screen.push(stage.first));
        QCOMPARE(stage.log.take(), u"first.entered screen.currentPageChanged"_s);
        QVERIFY(stage.screen.push(stage.second));
        QCOMPARE(stage.log.take(), u"first.left second.entered screen.currentPageChanged"_s);
        QCOMPARE(stage.screen.currentPage(), stage.second.data());
        QVERIFY(stage.screen.pop());
        QCOMPARE(stage.log.take(), u"second.left first.entered screen.currentPageChanged"_s);
        QVERIFY(!stage.screen.pop());
        QCOMPARE(stage.screen.pageCount(), 1);
        QTRY_VERIFY(!stage.second);
        QCOMPARE(stage.log.take(), QString());
    }

    void onlyTheCurrentPageIsVisible()
    {
        PageStage stage;
        QVERIFY(stage.show());
        stage.pushBoth();
        QVERIFY(!stage.first->isVisible());
        QVERIFY(stage.second->isVisible());
        stage.screen.pop();
        QVERIFY(stage.first->isVisible());
        QVERIFY(!stage.second->isVisible());
    }

    void badPagesAreRefused()
    {
        PageStage stage;
        stage.pushBoth();
        QVERIFY(!stage.screen.push(nullptr));
        QVERIFY(!stage.screen.push(stage.first));
        QVERIFY(!stage.screen.push(stage.second));
        QCOMPARE(stage.log.take(), QString());
    }

    void aPageMovesFromScreenToScreen()
    {
        PageStage stage;
        stage.pushBoth();
        KELScreen other;
        QVERIFY(other.push(stage.second));
        QCOMPARE(stage.second->screen(), &other);
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
        QCOMPARE(stage.log.take(),
                 u"second.left first.entered screen.currentPageChanged second.entered"_s);
    }

    void aSlotMayPushThePageThatMoves()
    {
        PageStage stage;
        stage.pushBoth();
        KELScreen other;
        connect(stage.second, &KELPage::left, &stage.screen,
                [&stage] { stage.screen.push(stage.second); });
        QVERIFY(!other.push(stage.second));
        QCOMPARE(stage.second->screen(), &stage.screen);
        QCOMPARE(stage.screen.pageCount(), 2);
        QCOMPARE(other.pageCount(), 0);
        stage.second->disconnect(&stage.screen);
    }

    void aPageMayBeTakenAway_data()
    {
        addRows({{"way", {{"other scene", 0}, {"parent item", 1}, {"deleted", 2}}}});
    }

    void aPageMayBeTakenAway()
    {
        PageStage stage;
        QGraphicsScene scene;
        stage.pushBoth();
        const auto way = fetch<int>("way");
        QGraphicsRectItem parent;
        if (way == 0)
            scene.addItem(stage.second);
        else if (way == 1)
            stage.second->setParentItem(&parent);
        else
            delete stage.second;
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
        QVERIFY(stage.first->isVisible());
        const auto left = way == 2 ? QString() : u"second.left "_s;
        QCOMPARE(stage.log.take(), left + u"first.entered screen.currentPageChanged"_s);
        QVERIFY(!stage.second || !stage.second->screen());
        delete stage.second;
    }

    void pagesFollowTheSize()
    {
        PageStage stage;
        stage.pushBoth();
        QVERIFY(stage.show());
        for (const QSize &size : {QSize(480, 272), QSize(272, 480)}) {
            stage.screen.resize(size);
            QCOMPARE(stage.first->geometry(), QRectF(QPointF(), size));
            QCOMPARE(stage.second->geometry(), QRectF(QPointF(), size));
            QCOMPARE(stage.screen.sceneRect(), QRectF(QPointF(), size));
        }
    }

    void pagesFollowTheDirection()
    {
        PageStage stage;
        stage.pushBoth();
        stage.screen.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(stage.first->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(stage.second->layoutDirection(), Qt::RightToLeft);
    }

    void aPageComesBackWithItsFocus()
    {
        PageStage stage;
        QVERIFY(stage.show());
        stage.screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.screen));
        auto *const item = new FocusItem(stage.first);
        stage.screen.push(stage.first);
        item->setFocus();
        QVERIFY(item->hasFocus());
        stage.screen.push(stage.second);
        QVERIFY(!item->hasFocus());
        stage.screen.pop();
        QCOMPARE(stage.screen.scene()->focusItem(), item);
        QCOMPARE(item->reason, Qt::ActiveWindowFocusReason); // a ring shows as it did
    }

    void keysGoBack_data()
    {
        addRows({{"key", {{"back", Qt::Key_Back}, {"escape", Qt::Key_Escape}}}});
    }

    void keysGoBack()
    {
        PageStage stage;
        stage.pushBoth();
        QVERIFY(stage.show());
        QTest::keyClick(&stage.screen, fetch<Qt::Key>("key"));
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
        QKeyEvent again(QEvent::KeyPress, fetch<Qt::Key>("key"), Qt::NoModifier);
        QCoreApplication::sendEvent(&stage.screen, &again);
        QVERIFY(!again.isAccepted());
        QCOMPARE(stage.screen.pageCount(), 1);
    }

    void aPageMayRefuseToGoBack()
    {
        KELScreen screen;
        auto *const page = new StayingPage;
        screen.push(new KELPage);
        screen.push(page);
        screen.back();
        QCOMPARE(screen.currentPage(), page);
        screen.back();
        QCOMPARE(screen.pageCount(), 1);
    }

    void aSlotOnLostFocusMayGoBack()
    {
        PageStage stage;
        QVERIFY(stage.show());
        stage.screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.screen));
        auto *const item = new QGraphicsWidget(stage.first);
        item->setFocusPolicy(Qt::StrongFocus);
        stage.screen.push(stage.first);
        item->setFocus();
        stage.log.take();
        connect(stage.screen.scene(), &QGraphicsScene::focusItemChanged, &stage.screen,
                [&stage] { stage.screen.pop(); });
        stage.screen.push(stage.second);
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
        QVERIFY(stage.first->isVisible());
        QCOMPARE(stage.log.take(), QString());
    }

    void aDyingPageMayDeleteTheScreen()
    {
        auto *const screen = new KELScreen;
        const QPointer<KELScreen> guard(screen);
        auto *const first = new KELPage;
        auto *const second = new KELPage;
        screen->push(first);
        screen->push(second);
        connect(first, &KELPage::entered, screen, [screen] { delete screen; });
        delete second;
        QVERIFY(!guard);
    }

    void aSlotMayGoBackAtOnce()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        stage.log.take();
        stage.log.on(u"first.left"_s, [&stage] { stage.screen.pop(); });
        stage.screen.push(stage.second);
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
        QCOMPARE(stage.log.take(), u"first.left first.entered screen.currentPageChanged"_s);
    }

    void aSlotMayGoOnAtOnce()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        stage.log.take();
        auto *const third = new KELPage;
        stage.log.listenTo(third, u"third"_s);
        bool isDone = false;
        stage.log.on(u"first.left"_s, [&stage, &isDone, third] {
            if (!std::exchange(isDone, true))
                stage.screen.push(third);
        });
        stage.screen.push(stage.second);
        QCOMPARE(stage.screen.currentPage(), third);
        QCOMPARE(stage.log.take(), u"first.left third.entered screen.currentPageChanged"_s);
        stage.screen.pop();
        QCOMPARE(stage.log.take(), u"third.left second.entered screen.currentPageChanged"_s);
    }

    void aPageThatIsTakenAwayHasLeft()
    {
        PageStage stage;
        stage.pushBoth();
        stage.screen.scene()->removeItem(stage.second);
        QCOMPARE(stage.log.take(), u"second.left first.entered screen.currentPageChanged"_s);
        stage.screen.scene()->removeItem(stage.first);
        QCOMPARE(stage.log.take(), u"first.left screen.currentPageChanged"_s);
        QVERIFY(!stage.screen.currentPage());
    }

    void aPageHasItsSizeBeforeTheScreenIsShown()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        QCOMPARE(stage.first->size(), QSizeF(400, 300));
        stage.screen.resize(300, 400);
        stage.screen.push(stage.second);
        QCOMPARE(stage.second->size(), QSizeF(300, 400));
    }

    void aPageKeepsADirectionOfItsOwn()
    {
        PageStage stage;
        stage.first->setLayoutDirection(Qt::RightToLeft);
        stage.pushBoth();
        QCOMPARE(stage.first->layoutDirection(), Qt::RightToLeft);
        stage.screen.setLayoutDirection(Qt::RightToLeft);
        stage.screen.setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(stage.first->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(stage.second->layoutDirection(), Qt::LeftToRight);
    }

    void focusStaysOffAPageThatHadNone()
    {
        PageStage stage;
        QVERIFY(stage.show());
        stage.screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&stage.screen));
        for (KELPage *page : {stage.first.data(), stage.second.data()})
            (new QGraphicsWidget(page))->setFocusPolicy(Qt::StrongFocus);
        stage.screen.push(stage.first);
        stage.first->childItems().constFirst()->setFocus();
        stage.screen.push(stage.second);
        QCOMPARE(stage.screen.scene()->focusItem(), nullptr);
        stage.screen.pop();
        QCOMPARE(stage.screen.scene()->focusItem(), stage.first->childItems().constFirst());
    }

    void aHeldKeyGoesBackOnce()
    {
        PageStage stage;
        stage.screen.push(new KELPage);
        stage.pushBoth();
        QVERIFY(stage.show());
        QTest::keyPress(&stage.screen, Qt::Key_Escape);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&stage.screen, &repeated);
        QVERIFY(repeated.isAccepted());
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
    }

    void aKeyThatTheLastPageTakesIsTaken()
    {
        KELScreen screen;
        screen.push(new StayingPage);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        QKeyEvent taken(QEvent::KeyPress, Qt::Key_Back, Qt::NoModifier);
        QCoreApplication::sendEvent(&screen, &taken);
        QVERIFY(taken.isAccepted());
        QKeyEvent ignored(QEvent::KeyPress, Qt::Key_Back, Qt::NoModifier);
        QCoreApplication::sendEvent(&screen, &ignored);
        QVERIFY(!ignored.isAccepted());
    }

    void atRestAPageStaysWhereItIsPut()
    {
        PageStage stage;
        stage.pushBoth();
        QVERIFY(stage.show());
        stage.second->setPos(0, -120); // above a keyboard
        QTest::keyPress(&stage.screen, Qt::Key_A);
        Hand(stage.screen.viewport()).tap(QPoint(10, 10));
        QCOMPARE(stage.second->pos(), QPointF(0, -120));
    }

    void nothingOfAParentShowsThrough()
    {
        QWidget parent;
        parent.setPalette(Qt::red);
        parent.resize(100, 80);
        auto *const screen = new KELScreen(&parent);
        screen->resize(100, 80);
        screen->scene()->setBackgroundBrush(QColor(0, 0, 0, 0));
        screen->push(new KELPage);
        parent.show();
        QVERIFY(QTest::qWaitForWindowExposed(&parent));
        QCOMPARE(KelImage::inkOf(parent.grab().toImage(), Qt::black), QRect());
    }

    void aPageMayDieOfItsNewSize()
    {
        PageStage stage;
        auto *const third = new KELPage;
        stage.screen.push(third);
        stage.pushBoth();
        connect(stage.second, &KELPage::geometryChanged, &stage.screen, [&stage, third] {
            delete third;
            delete stage.first;
            delete stage.second;
        });
        stage.screen.resize(200, 200);
        QVERIFY(stage.show());
        QCOMPARE(stage.screen.pageCount(), 0);
    }

    void aNewPageMayDieWhenItIsShown()
    {
        PageStage stage;
        stage.second->hide();
        stage.screen.push(stage.first);
        stage.log.take();
        connect(stage.second, &KELPage::visibleChanged, &stage.screen,
                [&stage] { delete stage.second; });
        stage.screen.push(stage.second);
        QVERIFY(!stage.second);
        QCOMPARE(stage.screen.currentPage(), stage.first.data());
        QVERIFY(stage.first->isVisible());
    }

    void aDyingScreenHasNoPages()
    {
        auto *const screen = new KELScreen;
        auto *const page = new KELPage;
        screen->push(page);
        screen->push(new KELPage);
        KELPage late;
        bool isAsked = false;
        connect(page, &QObject::destroyed, screen, [&] {
            isAsked = true;
            QCOMPARE(screen->pageCount(), 0);
            QCOMPARE(screen->currentPage(), nullptr);
            QVERIFY(!screen->push(&late));
            screen->back();
        });
        delete screen;
        QVERIFY(isAsked);
    }

    void withoutItsSceneAScreenTakesNoPages_data()
    {
        addRows({{"way", {{"cleared", 0}, {"deleted", 1}, {"another", 2}, {"none", 3}}}});
    }

    void withoutItsSceneAScreenTakesNoPages()
    {
        QGraphicsScene another;
        PageStage stage;
        stage.pushBoth();
        QVERIFY(stage.show());
        const auto way = fetch<int>("way");
        if (way == 0)
            stage.screen.scene()->clear();
        else if (way == 1)
            delete stage.screen.scene();
        else
            stage.screen.setScene(way == 2 ? &another : nullptr);
        stage.screen.resize(200, 200);
        auto *const page = new KELPage;
        const bool isTaken = stage.screen.push(page);
        QCOMPARE(isTaken, way != 1);
        QCOMPARE(stage.screen.pageCount(), way == 0 ? 1 : way == 1 ? 0 : 3);
        if (!isTaken)
            delete page;
    }
};

KEL_TEST_MAIN(tst_KELScreen)
#include "tst_kelscreen.moc"
