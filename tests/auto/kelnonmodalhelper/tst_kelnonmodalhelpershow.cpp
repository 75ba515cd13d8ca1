// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "helperstage.h"

// The static show() and the helpers that it makes.
class tst_KELNonModalhelperShow : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void staticShowOfNull()
    {
        const HelperWatch watch;
        Helper::show(nullptr, Helper::TriggerScreen, true, 1);
        QCOMPARE(watch.made.size(), 0);
    }

    void staticShowMakesAHelper_data()
    {
        addRows({{"source", sources},
                 {"timed", {{"no timer", false}, {"timer", true}}},
                 {"ms", {{"long", longPeriodMs}, {"of no length", 0}, {"negative", -7}}}});
    }

    void staticShowMakesAHelper()
    {
        const bool isTimed = fetch<bool>("timed");
        const int ms = fetch<int>("ms");
        CountingWidget widget;
        const HelperWatch watch;
        Helper::show(&widget, fetch<Source>("source"), isTimed, ms);
        QVERIFY(widget.isVisible());
        QCOMPARE(widget.shows, 1);
        QCOMPARE(watch.made.size(), 1);
        Helper *const helper = watch.last();
        QVERIFY(helper && !helper->parent());
        QCOMPARE(helper->triggerSource(), fetch<Source>("source"));
        QCOMPARE(helper->isTimeEnable(), isTimed);
        QCOMPARE(periodOf(helper), !isTimed ? -1 : ms > 0 ? ms : 3000);
    }

    void staticShowOfAVisibleWidgetWithoutAHelper()
    {
        HelperStage stage(Maker::StaticShow, longPeriodMs);
        QCOMPARE(stage.watch.alive(), 1);
        QCOMPARE(stage.period(), longPeriodMs);
        stage.tapOutside();
        QVERIFY(stage.panel->isHidden());
    }

    void staticShowAgainChangesTheTimerOnly_data()
    {
        addRows({{"first", {{"no timer", false}, {"timer", true}}},
                 {"second", {{"then none", false}, {"then timer", true}}}});
    }

    void staticShowAgainChangesTheTimerOnly()
    {
        const bool isFirst = fetch<bool>("first");
        const bool isSecond = fetch<bool>("second");
        CountingWidget widget;
        const HelperWatch watch;
        Helper::show(&widget, Helper::TriggerScreen, isFirst, longPeriodMs + 1);
        Helper::show(&widget, Helper::TriggerNone, isSecond, longPeriodMs + 2);
        QCOMPARE(watch.made.size(), 1);
        QVERIFY(watch.last());
        QCOMPARE(watch.last()->triggerSource(), Helper::TriggerScreen);
        QCOMPARE(periodOf(watch.last()), isSecond ? longPeriodMs + 2 : -1);
        QCOMPARE(watch.last()->isTimeEnable(), isFirst || isSecond);
        QCOMPARE(widget.shows, 1);
        QVERIFY(widget.isVisible());
    }

    void staticShowOfAHiddenWidgetMakesAFreshHelper()
    {
        HelperStage stage(Maker::StaticShow, longPeriodMs);
        const QPointer<Helper> old = stage.helper;
        old->ignoreOnce();
        stage.panel->hide();
        QVERIFY(old);
        stage.show(Helper::TriggerNone);
        QVERIFY(!old);
        QCOMPARE(stage.triggered(), 0);
        QCOMPARE(stage.watch.made.size(), 2);
        QCOMPARE(stage.watch.alive(), 1);
        QVERIFY(!stage.helper->isTimeEnable());
        QCOMPARE(stage.period(), -1);
        QCOMPARE(stage.helper->triggerSource(), Helper::TriggerNone);
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(stage.panel->shows, 1);
    }

    void staticShowBeforeTheHelperIsGone()
    {
        HelperStage stage(Maker::StaticShow);
        const QPointer<Helper> old = stage.helper;
        // After the slot of deleteLater(), which the helper itself connected first.
        connect(old, &Helper::triggered, this, [&] { stage.show(Helper::TriggerParent); });
        stage.tapOutside();
        QVERIFY(!old);
        QCOMPARE(stage.watch.alive(), 1);
        QVERIFY(stage.panel->isVisible());
        stage.tapOutside();
        QVERIFY(stage.panel->isHidden());
    }

    void staticShowKeepsHelpersApart()
    {
        const HelperWatch watch;
        HelperStage stages[3] = {HelperStage(Maker::StaticShow), HelperStage(Maker::StaticShow),
                                 HelperStage(Maker::StaticShow)};
        QCOMPARE(watch.alive(), 3);
        Helper::show(stages[1].panel, Helper::TriggerParent, true, longPeriodMs);
        QCOMPARE(watch.made.size(), 3);
        QCOMPARE(stages[0].period(), -1);
        QCOMPARE(stages[1].period(), longPeriodMs);
        QCOMPARE(stages[2].period(), -1);
        stages[1].tapOutside();
        QVERIFY(stages[0].panel->isVisible());
        QVERIFY(stages[1].panel->isHidden());
        QVERIFY(stages[2].panel->isVisible());
        QVERIFY(!stages[1].helper);
        QCOMPARE(watch.alive(), 2);
        Helper::show(stages[2].panel, Helper::TriggerParent, true, longPeriodMs);
        QCOMPARE(watch.made.size(), 3);
        QCOMPARE(stages[2].period(), longPeriodMs);
    }

    void staticShowDoesNotUseHelpersOfOthers()
    {
        HelperStage stage;
        const QPointer<Helper> own = stage.helper;
        stage.show(Helper::TriggerNone, true, longPeriodMs);
        QCOMPARE(stage.watch.alive(), 2);
        QVERIFY(!own->isTimeEnable());
        QCOMPARE(own->triggerSource(), Helper::TriggerParent);
        QCOMPARE(stage.period(), longPeriodMs);
        delete own;
    }

    void staticShowAfterTheHelperWasDeleted()
    {
        HelperStage stage(Maker::StaticShow);
        delete stage.helper;
        stage.show(Helper::TriggerScreen);
        QCOMPARE(stage.watch.made.size(), 2);
        QCOMPARE(stage.watch.alive(), 1);
        QCOMPARE(stage.helper->triggerSource(), Helper::TriggerScreen);
    }

    void staticShowWhileTheParentIsHidden()
    {
        HelperStage stage(Maker::Nobody);
        stage.window->hide();
        stage.show(Helper::TriggerParent, true, longPeriodMs);
        QVERIFY(!stage.panel->isVisible());
        // Not hidden itself, so the helper is kept.
        stage.show(Helper::TriggerNone, true, longPeriodMs + 2);
        QCOMPARE(stage.watch.made.size(), 1);
        QCOMPARE(stage.helper->triggerSource(), Helper::TriggerParent);
        QCOMPARE(stage.period(), longPeriodMs + 2);
    }

    void helperOfStaticShowDeletesItself_data()
    {
        addRows({{"ms", {{"after a press", 0}, {"at the end of the period", 1}}}});
    }

    void helperOfStaticShowDeletesItself()
    {
        HelperStage stage(Maker::StaticShow, fetch<int>("ms"));
        bool aliveInTheSlot = false;
        stage.log.on(u"triggered"_s, [&] { aliveInTheSlot = !stage.helper.isNull(); });
        if (fetch<int>("ms") == 0)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!stage.helper, patienceMs);
        QVERIFY(aliveInTheSlot);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.watch.made.size(), 1);
    }

    void helperOfStaticShowDiesWithTheWidget()
    {
        const HelperStage stage(Maker::StaticShow, longPeriodMs);
        delete stage.panel;
        QCOMPARE(stage.watch.made.size(), 1);
        QCOMPARE(stage.watch.alive(), 0);
        QCOMPARE(stage.triggered(), 0);
    }

    void widgetDiesWithItsOldHelper()
    {
        HelperStage stage(Maker::StaticShow);
        stage.panel->hide();
        connect(stage.helper, &QObject::destroyed, this, [&] { delete stage.panel; });
        Helper::show(stage.panel, Helper::TriggerParent, true, longPeriodMs);
        QVERIFY(!stage.panel);
        QCOMPARE(stage.watch.made.size(), 1);
        QCOMPARE(stage.watch.alive(), 0);
    }

    void otherHelpersOutliveTheWidget()
    {
        const HelperStage stage;
        delete stage.panel;
        sendDeferredDeletes();
        QVERIFY(stage.helper);
    }

    void ignoredPressLeavesTheHelperOfStaticShow()
    {
        HelperStage stage(Maker::StaticShow);
        stage.helper->ignoreOnce();
        stage.tapOutside();
        QCOMPARE(stage.watch.alive(), 1);
        QVERIFY(stage.panel->isVisible());
    }
};

KEL_TEST_MAIN(tst_KELNonModalhelperShow)
#include "tst_kelnonmodalhelpershow.moc"
