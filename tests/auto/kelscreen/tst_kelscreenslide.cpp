// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "pagestage.h"
#include "rows.h"

#include <kelmotion.h>
#include <kelpushbutton.h>

#include <utility>

class tst_KELScreenSlide : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pagesSlideIfToldTo_data()
    {
        addRows({{"direction", {{"left to right", 0}, {"right to left", 1}}},
                 {"forward", {{"forward", 1}, {"back", 0}}}});
    }

    void pagesSlideIfToldTo()
    {
        PageStage stage;
        stage.screen.setLayoutDirection(Qt::LayoutDirection(fetch<int>("direction")));
        stage.screen.push(stage.first);
        const bool isForward = fetch<bool>("forward");
        if (!isForward)
            stage.screen.push(stage.second);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        if (isForward)
            stage.screen.push(stage.second);
        else
            stage.screen.pop();
        const QPointer<KELPage> coming = isForward ? stage.second : stage.first;
        const QPointer<KELPage> going = isForward ? stage.first : stage.second;
        const bool isFromRight = isForward != bool(fetch<int>("direction"));
        QVERIFY(going->isVisible());
        QVERIFY(isFromRight ? coming->x() > 0 : coming->x() < 0);
        QCOMPARE(coming->x() - going->x(), isFromRight ? 400.0 : -400.0);
        QTRY_COMPARE_WITH_TIMEOUT(coming->x(), 0.0, slideEndMs);
        // The last step of a slide may round to its end before it is over.
        QTRY_VERIFY(!going || !going->isVisible());
    }

    void aSlideEnds_data()
    {
        addRows({{"by",
                  {{"a press", 0},
                   {"a key", 1},
                   {"a new size", 2},
                   {"hiding", 3},
                   {"a wheel", 4},
                   {"a further finger", 5},
                   {"another direction", 6}}}});
    }

    void aSlideEnds()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        Fingers fingers(stage.screen.viewport());
        fingers.press(0, QPoint(10, 10));
        stage.screen.setSlideEnabled(true);
        stage.screen.push(stage.second);
        QVERIFY(stage.second->x() > 0);
        switch (fetch<int>("by")) {
        case 0:
            Hand(stage.screen.viewport()).press(QPoint(10, 10));
            break;
        case 1:
            QTest::keyPress(&stage.screen, Qt::Key_A);
            break;
        case 2:
            stage.screen.resize(300, 300);
            break;
        case 4: {
            QWheelEvent event(QPointF(10, 10), QPointF(10, 10), QPoint(), QPoint(0, 120),
                              Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(stage.screen.viewport(), &event);
            break;
        }
        case 6:
            stage.screen.setLayoutDirection(Qt::RightToLeft);
            break;
        case 5:
            fingers.press(1, QPoint(20, 20));
            break;
        default:
            stage.screen.hide();
        }
        QCOMPARE(stage.second->x(), 0.0);
        QVERIFY(!stage.first->isVisibleTo(nullptr));
    }

    void withoutMotionNothingSlides()
    {
        KELMotion::setEnabled(false);
        PageStage stage;
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        stage.screen.push(stage.second);
        KELMotion::setEnabled(true);
        QCOMPARE(stage.second->x(), 0.0);
        QVERIFY(!stage.first->isVisible());
    }

    void nothingSlidesOnAHiddenScreen()
    {
        PageStage stage;
        stage.screen.setSlideEnabled(true);
        stage.pushBoth();
        QCOMPARE(stage.second->x(), 0.0);
        QVERIFY(!stage.first->isVisible());
    }

    void aPageThatIsHiddenDoesNotSlide()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        stage.first->hide();
        stage.screen.push(stage.second);
        QVERIFY(!stage.first->isVisible());
        QCOMPARE(stage.second->x(), 0.0);
    }

    void aPageThatSlidesOutMayBeTakenAway()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        stage.screen.push(stage.second);
        stage.screen.scene()->removeItem(stage.first);
        QTRY_COMPARE_WITH_TIMEOUT(stage.second->x(), 0.0, slideEndMs);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(stage.first && stage.first->isVisible());
        QCOMPARE(stage.screen.pageCount(), 1);
    }

    void slotsMayDeletePages_data()
    {
        addRows({{"signal",
                  {{"first.left", 0}, {"second.entered", 1}, {"screen.currentPageChanged", 2}}},
                 {"victim", {{"the first page", 0}, {"the second page", 1}, {"both", 2}}},
                 {"slide", {{"sliding", 1}, {"at once", 0}}}});
    }

    void slotsMayDeletePages()
    {
        static const QStringList entries = {u"first.left"_s, u"second.entered"_s,
                                            u"screen.currentPageChanged"_s};
        PageStage stage;
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(fetch<bool>("slide"));
        const int victim = fetch<int>("victim");
        bool isDone = false; // a page that dies makes signals, too
        stage.log.on(entries.at(fetch<int>("signal")), [&stage, &isDone, victim] {
            if (std::exchange(isDone, true))
                return;
            if (victim != 1)
                delete stage.first;
            if (victim != 0)
                delete stage.second;
        });
        stage.screen.push(stage.second);
        QCOMPARE(stage.screen.pageCount(), victim == 2 ? 0 : 1);
        QCOMPARE(stage.screen.currentPage(),
                 victim == 2       ? nullptr
                     : victim == 1 ? stage.first.data()
                                   : stage.second.data());
        stage.screen.hide();
        QVERIFY(!stage.screen.currentPage() || stage.screen.currentPage()->x() == 0);
    }

    void aPoppedPageIsSeenUntilItIsOut()
    {
        PageStage stage;
        stage.pushBoth();
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        stage.screen.pop();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(stage.second && stage.second->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!stage.second, slideEndMs);
        QCOMPARE(stage.first->x(), 0.0);
    }

    void aSlotMayKeepAPoppedPage_data() { addRows({{"slide", {{"sliding", 1}, {"at once", 0}}}}); }

    void aSlotMayKeepAPoppedPage()
    {
        PageStage stage;
        stage.pushBoth();
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(fetch<bool>("slide"));
        bool isDone = false;
        stage.log.on(u"second.left"_s, [&stage, &isDone] {
            if (!std::exchange(isDone, true))
                stage.screen.push(stage.second);
        });
        stage.screen.pop();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(stage.screen.currentPage(), stage.second.data());
        QVERIFY(stage.second && stage.second->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(stage.second->x(), 0.0, slideEndMs);
    }

    void aPressIsLostWhenItsPageSlidesAway_data() { addRows({{"input", inputs}}); }

    void aPressIsLostWhenItsPageSlidesAway()
    {
        PageStage stage;
        auto *const button = new KELPushButton(stage.first);
        button->setboundRect(0, 0, 100, 100);
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        SignalLog log;
        log.listenTo(button);
        Hand hand(stage.screen.viewport(), fetch<Input>("input"));
        hand.press(QPoint(50, 50));
        stage.screen.push(stage.second);
        hand.release();
        QCOMPARE(log.count(u"clicked"_s), 0);
        QCOMPARE(stage.screen.pageCount(), 2);
    }

    void aFurtherFingersPressIsLostWhenItsPageSlidesAway()
    {
        PageStage stage;
        auto *const button = new KELPushButton(stage.first);
        auto *const other = new KELPushButton(stage.first);
        button->setboundRect(0, 0, 100, 100);
        other->setboundRect(200, 0, 100, 100);
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        SignalLog log;
        log.listenTo(other);
        connect(button, &KELPushButton::mouseClicked, this,
                [&stage] { stage.screen.push(stage.second); });
        Fingers fingers(stage.screen.viewport());
        fingers.press(0, QPoint(50, 50));
        fingers.press(1, QPoint(250, 50));
        QCOMPARE(log.count(u"press"_s), 1);
        fingers.releaseAt(0, QPoint(50, 50));
        QVERIFY(stage.second->x() > 0);
        fingers.releaseAt(1, QPoint(250, 50));
        QCOMPARE(log.count(u"clicked"_s), 0);
    }

    void aSecondTapHitsTheNewPage_data() { addRows({{"input", inputs}}); }

    void aSecondTapHitsTheNewPage()
    {
        PageStage stage;
        auto *const button = new KELPushButton(stage.first);
        button->setboundRect(0, 0, 400, 300);
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(true);
        int clicks = 0;
        connect(button, &KELPushButton::mouseClicked, this, [&stage, &clicks] {
            ++clicks;
            stage.screen.push(stage.second);
        });
        Hand(stage.screen.viewport(), fetch<Input>("input")).doubleTap(QPoint(50, 50));
        QCOMPARE(clicks, 1);
        QCOMPARE(stage.second->x(), 0.0);
    }

    void aPageMayDieWhenItHides_data() { addRows({{"slide", {{"sliding", 1}, {"at once", 0}}}}); }

    void aPageMayDieWhenItHides()
    {
        PageStage stage;
        stage.screen.push(stage.first);
        QVERIFY(stage.show());
        stage.screen.setSlideEnabled(fetch<bool>("slide"));
        connect(stage.first, &KELPage::visibleChanged, &stage.screen, [&stage] {
            if (!stage.first->isVisible())
                delete stage.first;
        });
        stage.screen.push(stage.second);
        stage.screen.resize(200, 200);
        QVERIFY(!stage.first);
        QCOMPARE(stage.screen.pageCount(), 1);
        QCOMPARE(stage.second->x(), 0.0);
    }
};

KEL_TEST_MAIN(tst_KELScreenSlide)
#include "tst_kelscreenslide.moc"
