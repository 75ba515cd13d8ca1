// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "helperstage.h"

using HelperStage::CountingWidget;
using HelperStage::HelperWatch;
using HelperStage::letScheduledHidesRun;
using HelperStage::longPeriodMs;
using HelperStage::PanelInWindow;
using HelperStage::patienceMs;
using HelperStage::periodOf;

// The static show() and the helpers that it makes.
class tst_KELNonModalhelperShow : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void staticShowOfNull()
    {
        const HelperWatch watch;
        KELNonModalhelper::show(nullptr, KELNonModalhelper::TriggerScreen, true, 1);
        QCOMPARE(watch.made.size(), 0);
    }

    void staticShowMakesAHelper_data()
    {
        QTest::addColumn<int>("source");
        QTest::addColumn<bool>("enable");
        QTest::addColumn<int>("ms");
        QTest::addColumn<int>("period");

        QTest::newRow("no source, no timer") << 0 << false << 500 << -1;
        QTest::newRow("parent, no timer") << 1 << false << 0 << -1;
        QTest::newRow("parent, timer") << 1 << true << longPeriodMs << longPeriodMs;
        QTest::newRow("screen, timer of no length") << 2 << true << 0 << 3000;
        QTest::newRow("screen, negative timer") << 2 << true << -7 << 3000;
    }

    void staticShowMakesAHelper()
    {
        QFETCH(int, source);
        QFETCH(bool, enable);
        QFETCH(int, ms);
        QFETCH(int, period);
        CountingWidget widget;
        const HelperWatch watch;
        KELNonModalhelper::show(&widget, HelperStage::Source(source), enable, ms);
        QVERIFY(widget.isVisible());
        QCOMPARE(widget.shows, 1);
        QCOMPARE(watch.made.size(), 1);
        KELNonModalhelper *const helper = watch.last();
        QVERIFY(helper && !helper->parent());
        QCOMPARE(int(helper->triggerSource()), source);
        QCOMPARE(helper->isTimeEnable(), enable);
        QCOMPARE(periodOf(helper), period);
    }

    void staticShowOfAVisibleWidgetWithoutAHelper()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, true, longPeriodMs);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(periodOf(watch.last()), longPeriodMs);
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void staticShowAgainChangesTheTimerOnly_data()
    {
        QTest::addColumn<bool>("first");
        QTest::addColumn<bool>("second");
        QTest::addColumn<int>("period");

        QTest::newRow("timer, then timer") << true << true << longPeriodMs + 2;
        QTest::newRow("timer, then none") << true << false << -1;
        QTest::newRow("none, then timer") << false << true << longPeriodMs + 2;
        QTest::newRow("none, then none") << false << false << -1;
    }

    void staticShowAgainChangesTheTimerOnly()
    {
        QFETCH(bool, first);
        QFETCH(bool, second);
        QFETCH(int, period);
        CountingWidget widget;
        const HelperWatch watch;
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerScreen, first, longPeriodMs + 1);
        const QPointer<KELNonModalhelper> helper = watch.last();
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerNone, second, longPeriodMs + 2);
        QCOMPARE(watch.made.size(), 1);
        QVERIFY(helper);
        QCOMPARE(helper->triggerSource(), KELNonModalhelper::TriggerScreen);
        QCOMPARE(periodOf(helper), period);
        QCOMPARE(helper->isTimeEnable(), first || second);
        QCOMPARE(widget.shows, 1);
        QVERIFY(widget.isVisible());
    }

    void staticShowOfAHiddenWidgetMakesAFreshHelper()
    {
        CountingWidget widget;
        const HelperWatch watch;
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerScreen, true, longPeriodMs);
        const QPointer<KELNonModalhelper> old = watch.last();
        const QSignalSpy triggered(old, &KELNonModalhelper::triggered);
        old->ignoreOnce();
        widget.hide();
        QVERIFY(old);
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerNone, false, 0);
        QVERIFY(!old);
        QCOMPARE(triggered.count(), 0);
        QCOMPARE(watch.made.size(), 2);
        QCOMPARE(watch.alive(), 1);
        QVERIFY(!watch.last()->isTimeEnable());
        QCOMPARE(periodOf(watch.last()), -1);
        QCOMPARE(watch.last()->triggerSource(), KELNonModalhelper::TriggerNone);
        QVERIFY(widget.isVisible());
        QCOMPARE(widget.shows, 2);
    }

    void staticShowBeforeTheHelperIsGone()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        const QPointer<KELNonModalhelper> old = watch.last();
        // After the slot of deleteLater(), which the helper itself connected first.
        connect(old, &KELNonModalhelper::triggered, &stage.window, [&] {
            KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        });
        stage.pressOutside();
        letScheduledHidesRun();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!old);
        QCOMPARE(watch.alive(), 1);
        QVERIFY(stage.panel->isVisible());
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void staticShowKeepsHelpersApart()
    {
        PanelInWindow stages[3];
        const HelperWatch watch;
        for (PanelInWindow &stage : stages)
            KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        QCOMPARE(watch.alive(), 3);
        KELNonModalhelper::show(stages[1].panel, KELNonModalhelper::TriggerParent, true,
                                longPeriodMs);
        QCOMPARE(watch.made.size(), 3);
        QCOMPARE(periodOf(watch.made.at(0)), -1);
        QCOMPARE(periodOf(watch.made.at(1)), longPeriodMs);
        QCOMPARE(periodOf(watch.made.at(2)), -1);
        stages[1].pressOutside();
        letScheduledHidesRun();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(stages[0].panel->isVisible());
        QVERIFY(stages[1].panel->isHidden());
        QVERIFY(stages[2].panel->isVisible());
        QVERIFY(!watch.made.at(1));
        QCOMPARE(watch.alive(), 2);
        KELNonModalhelper::show(stages[2].panel, KELNonModalhelper::TriggerParent, true,
                                longPeriodMs);
        QCOMPARE(watch.made.size(), 3);
        QCOMPARE(periodOf(watch.made.at(2)), longPeriodMs);
    }

    void staticShowDoesNotUseHelpersOfOthers()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper own(stage.panel);
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerNone, true, longPeriodMs);
        QCOMPARE(watch.alive(), 2);
        QVERIFY(!own.isTimeEnable());
        QCOMPARE(own.triggerSource(), KELNonModalhelper::TriggerParent);
        QCOMPARE(periodOf(watch.last()), longPeriodMs);
    }

    void staticShowAfterTheHelperWasDeleted()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerNone, false, 0);
        delete watch.last();
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        QCOMPARE(watch.made.size(), 2);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(watch.last()->triggerSource(), KELNonModalhelper::TriggerParent);
    }

    void staticShowWhileTheParentIsHidden()
    {
        PanelInWindow stage;
        stage.window.hide();
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, true, longPeriodMs);
        QVERIFY(!stage.panel->isVisible());
        // Not hidden itself, so the helper is kept.
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerNone, true,
                                longPeriodMs + 2);
        QCOMPARE(watch.made.size(), 1);
        QCOMPARE(watch.last()->triggerSource(), KELNonModalhelper::TriggerParent);
        QCOMPARE(periodOf(watch.last()), longPeriodMs + 2);
    }

    void helperOfStaticShowDeletesItself_data()
    {
        QTest::addColumn<bool>("byPress");

        QTest::newRow("after a press") << true;
        QTest::newRow("at the end of the period") << false;
    }

    void helperOfStaticShowDeletesItself()
    {
        QFETCH(bool, byPress);
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, !byPress, 1);
        const QPointer<KELNonModalhelper> helper = watch.last();
        bool aliveInTheSlot = false;
        connect(helper, &KELNonModalhelper::triggered, &stage.window,
                [&] { aliveInTheSlot = !helper.isNull(); });
        if (byPress)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!helper, patienceMs);
        QVERIFY(aliveInTheSlot);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(watch.made.size(), 1);
    }

    void helperOfStaticShowDiesWithTheWidget()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, true, longPeriodMs);
        const QSignalSpy triggered(watch.last(), &KELNonModalhelper::triggered);
        delete stage.panel;
        QCOMPARE(watch.made.size(), 1);
        QCOMPARE(watch.alive(), 0);
        QCOMPARE(triggered.count(), 0);
    }

    void widgetDiesWithItsOldHelper()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        stage.panel->hide();
        connect(watch.last(), &QObject::destroyed, &stage.window, [&] { delete stage.panel; });
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, true, longPeriodMs);
        QVERIFY(!stage.panel);
        QCOMPARE(watch.made.size(), 1);
        QCOMPARE(watch.alive(), 0);
    }

    void otherHelpersOutliveTheWidget()
    {
        PanelInWindow stage;
        const QPointer<KELNonModalhelper> helper(new KELNonModalhelper(stage.panel));
        delete stage.panel;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(helper);
        delete helper;
    }

    void ignoredPressLeavesTheHelperOfStaticShow()
    {
        PanelInWindow stage;
        const HelperWatch watch;
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        watch.last()->ignoreOnce();
        stage.pressOutside();
        letScheduledHidesRun();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(watch.alive(), 1);
        QVERIFY(stage.panel->isVisible());
    }
};

KEL_TEST_MAIN(tst_KELNonModalhelperShow)
#include "tst_kelnonmodalhelpershow.moc"
