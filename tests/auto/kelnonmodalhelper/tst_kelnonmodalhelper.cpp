// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "helperstage.h"

#include <kelapplicationnotify.h>

#include <QtCore/QElapsedTimer>

#include <limits>
#include <memory>

namespace {

struct Call
{
    const char *name;
    std::function<void(HelperStage &)> run;
};

const std::vector<Call> starts = {
    {"enableTime()", [](HelperStage &s) { s.helper->enableTime(longPeriodMs); }},
    {"show()", [](HelperStage &s) { s.helper->show(); }},
    {"startTime()", [](HelperStage &s) { s.helper->startTime(); }},
    {"a press inside", [](HelperStage &s) { s.pressInside(); }},
    {"a press on another window",
     [](HelperStage & /*stage*/) {
         Window other(QRect(450, 30, 100, 100));
         other.show();
         sendMouse(&other, QPointF(1, 1), QPointF(451, 31));
     }},
};

} // namespace

// State and timer. The static show() and what each press does have programs of their own.
class tst_KELNonModalhelper : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainObject()
    {
        const QMetaObject &meta = Helper::staticMetaObject;
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        QCOMPARE(meta.method(meta.indexOfSignal("triggered()")).methodType(), QMetaMethod::Signal);
    }

    void valuesOfTheTriggerSource()
    {
        QCOMPARE(int(Helper::TriggerNone), 0);
        QCOMPARE(int(Helper::TriggerParent), 1);
        QCOMPARE(int(Helper::TriggerScreen), 2);
    }

    void startsWithItsDefaults()
    {
        HelperStage stage;
        QVERIFY(!stage.helper->parent());
        QCOMPARE(stage.helper->triggerSource(), Helper::TriggerParent);
        QVERIFY(!stage.helper->isTimeEnable());
        QCOMPARE(stage.period(), -1);
        stage.tapOutside();
        QCOMPARE(stage.triggered(), 1);
    }

    void hasOneNotifier()
    {
        qRegisterMetaType<QEvent *>();
        Helper helper(nullptr);
        const auto notifiers = helper.findChildren<KELApplicationNotify *>();
        QCOMPARE(notifiers.size(), 1);
        QCOMPARE(notifiers.constFirst()->parent(), &helper);
        const QSignalSpy seen(notifiers.constFirst(), &KELApplicationNotify::notify);
        QObject receiver;
        sendMouse(&receiver, QPointF(), QPointF(), QEvent::MouseButtonRelease);
        QCOMPARE(seen.count(), 0);
        sendMouse(&receiver, QPointF(), QPointF());
        QCOMPARE(seen.count(), 1);
    }

    void constructionLeavesTheWidgetAlone_data()
    {
        addRows({{"shown", {{"hidden", false}, {"shown", true}}}});
    }

    void constructionLeavesTheWidgetAlone()
    {
        CountingWidget widget;
        widget.setVisible(fetch<bool>("shown"));
        const Helper helper(&widget);
        QCOMPARE(widget.isVisible(), fetch<bool>("shown"));
        QCOMPARE(widget.hides, 0);
    }

    void triggerSourceIsStored_data() { addRows({{"source", sources}}); }

    void triggerSourceIsStored()
    {
        Helper helper(nullptr);
        helper.setTriggerSource(fetch<Source>("source"));
        QCOMPARE(helper.triggerSource(), fetch<Source>("source"));
        helper.setTriggerSource(Helper::TriggerParent);
        QCOMPARE(helper.triggerSource(), Helper::TriggerParent);
    }

    void periodIsStored_data()
    {
        addRows({{"ms",
                  {{"0", 0},
                   {"-5", -5},
                   {"-1", -1},
                   {"the smallest int", std::numeric_limits<int>::min()},
                   {"1", 1},
                   {"2", 2},
                   {"2999", 2999},
                   {"3001", 3001},
                   {"the largest int", std::numeric_limits<int>::max()}}}});
    }

    void periodIsStored()
    {
        const HelperStage stage;
        const int ms = fetch<int>("ms");
        stage.helper->enableTime(ms);
        QVERIFY(stage.helper->isTimeEnable());
        QCOMPARE(timersOf(stage.helper).size(), 1);
        QCOMPARE(stage.period(), ms > 0 ? ms : 3000);
    }

    void enableTimeStartsUnlessHidden_data()
    {
        addRows({{"panel", {{"shown", false}, {"hidden", true}}},
                 {"window", {{"shown", false}, {"in a hidden window", true}}}});
    }

    void enableTimeStartsUnlessHidden()
    {
        const HelperStage stage;
        stage.panel->setHidden(fetch<bool>("panel"));
        stage.window->setHidden(fetch<bool>("window"));
        stage.helper->enableTime(longPeriodMs);
        QVERIFY(stage.helper->isTimeEnable());
        QCOMPARE(stage.period(), fetch<bool>("panel") ? -1 : longPeriodMs);
    }

    void enableTimeChangesTheRunningPeriod()
    {
        const HelperStage stage(Maker::Application, 60);
        stage.helper->enableTime(longPeriodMs);
        QCOMPARE(timersOf(stage.helper).size(), 1);
        QCOMPARE(stage.period(), longPeriodMs);
        stage.helper->stopTime();
        stage.helper->enableTime(longPeriodMs + 1);
        QCOMPARE(stage.period(), longPeriodMs + 1);
    }

    void enableTimeIsNotTakenBack()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        stage.helper->stopTime();
        stage.helper->show();
        stage.endPeriod();
        QVERIFY(stage.panel->isHidden());
        QVERIFY(stage.helper->isTimeEnable());
        stage.helper->show();
        QCOMPARE(stage.period(), longPeriodMs);
    }

    void stopTimeStopsOnly()
    {
        const HelperStage stage(Maker::Application, longPeriodMs);
        stage.helper->stopTime();
        QCOMPARE(stage.period(), -1);
        QVERIFY(stage.helper->isTimeEnable());
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(stage.triggered(), 0);
    }

    void stopTimeIsForOneHelper()
    {
        const HelperStage stage(Maker::Application, longPeriodMs);
        Helper other(stage.panel);
        other.enableTime(longPeriodMs);
        other.stopTime();
        QCOMPARE(periodOf(&other), -1);
        QCOMPARE(stage.period(), longPeriodMs);
    }

    void periodBeginsAfterStopTime_data() { addRows({{"with", namesOf(starts)}}); }

    void periodBeginsAfterStopTime()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        stage.helper->stopTime();
        starts[fetch<size_t>("with")].run(stage);
        QCOMPARE(stage.period(), longPeriodMs);
    }

    void runningPeriodBeginsAnew_data() { periodBeginsAfterStopTime_data(); }

    void runningPeriodBeginsAnew()
    {
        HelperStage stage;
        stage.markPeriod();
        starts[fetch<size_t>("with")].run(stage);
        QCOMPARE(timersOf(stage.helper).size(), 1);
        QCOMPARE(stage.period(), longPeriodMs);
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(scheduledHides(), 0);
    }

    void popupLeavesTheRunningPeriodAlone()
    {
        HelperStage stage;
        stage.markPeriod();
        Window toolTip(QRect(450, 30, 100, 100), nullptr, Qt::ToolTip);
        toolTip.show();
        sendMouse(&toolTip, QPointF(1, 1), QPointF(451, 31));
        QCOMPARE(stage.period(), markedPeriodMs);
    }

    void noPeriodWithoutEnableTime_data()
    {
        addRows({{"with", namesOf(starts)}},
                [](const std::vector<int> &row) { return row[0] != 0; });
    }

    void noPeriodWithoutEnableTime()
    {
        HelperStage stage;
        stage.helper->stopTime();
        QVERIFY(!stage.helper->isTimeEnable());
        starts[fetch<size_t>("with")].run(stage);
        QCOMPARE(stage.period(), -1);
    }

    void startTimeWhileHidden()
    {
        const HelperStage stage;
        stage.panel->hide();
        stage.helper->enableTime(longPeriodMs);
        stage.helper->startTime();
        QCOMPARE(stage.period(), longPeriodMs);
        QVERIFY(stage.panel->isHidden());
    }

    void showShowsTheWidget()
    {
        CountingWidget widget;
        Helper helper(&widget);
        helper.show();
        QVERIFY(widget.isVisible());
        QCOMPARE(widget.shows, 1);
        widget.hide();
        helper.enableTime(longPeriodMs);
        QCOMPARE(periodOf(&helper), -1);
        helper.show();
        QVERIFY(widget.isVisible());
        QCOMPARE(periodOf(&helper), longPeriodMs);
    }

    void nothingElseShowsTheWidget()
    {
        HelperStage stage;
        stage.panel->hide();
        stage.helper->setTriggerSource(Helper::TriggerScreen);
        stage.helper->enableTime(longPeriodMs);
        stage.helper->startTime();
        stage.pressOutside();
        stage.pressInside();
        stage.helper->ignoreOnce();
        stage.endPeriod();
        stage.helper->stopTime();
        QVERIFY(stage.panel->isHidden());
    }

    void withoutAWidget()
    {
        HelperStage stage(Maker::Nobody);
        stage.helper = new Helper(nullptr);
        stage.log.listenTo(stage.helper);
        stage.helper->enableTime(longPeriodMs);
        QVERIFY(stage.helper->isTimeEnable());
        QCOMPARE(stage.period(), -1);
        stage.helper->show();
        QCOMPARE(stage.period(), -1);
        stage.helper->startTime();
        QCOMPARE(stage.period(), longPeriodMs);
        stage.endPeriod();
        QCOMPARE(stage.period(), -1);
        stage.tapOutside();
        QCOMPARE(stage.triggered(), 0);
    }

    // The only ones on the real clock.
    void periodEnds_data()
    {
        addRows({{"ms", {{"1 ms", 1}, {"60 ms", 60}, {"333 ms", 333}}},
                 {"byShow", {{"begun at once", false}, {"begun by show()", true}}}});
    }

    void periodEnds()
    {
        const int periodMs = fetch<int>("ms");
        HelperStage stage;
        stage.panel->setHidden(fetch<bool>("byShow"));
        QElapsedTimer clock;
        qint64 elapsedMs = -1;
        stage.log.on(u"triggered"_s, [&] { elapsedMs = clock.elapsed(); });
        clock.start();
        stage.helper->enableTime(periodMs);
        if (fetch<bool>("byShow"))
            stage.helper->show();
        QVERIFY(stage.panel->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(stage.triggered(), 1, patienceMs);
        QVERIFY2(elapsedMs >= periodMs, qPrintable(QString::number(elapsedMs)));
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.period(), -1);
    }

    void hiddenBeforeTheSignal()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        QStringList log;
        stage.panel->whenHidden = [&] { log.append(u"hidden"_s); };
        stage.log.on(u"triggered"_s, [&] {
            log.append(stage.panel->isHidden() ? u"triggered"_s : u"triggered while visible"_s);
        });
        stage.endPeriod();
        QCOMPARE(log, QStringList({"hidden", "triggered"}));
    }

    void timerIsSingleUse()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        stage.log.on(u"triggered"_s, [&] { QCOMPARE(stage.period(), -1); });
        stage.endPeriod();
        QCOMPARE(stage.triggered(), 1);
        // Shown by somebody else, it stays.
        stage.panel->show();
        QCOMPARE(stage.period(), -1);
        stage.helper->show();
        stage.endPeriod();
        QCOMPARE(stage.triggered(), 2);
    }

    void endOfThePeriodWhileHidden()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        stage.panel->hide();
        QCOMPARE(stage.period(), longPeriodMs);
        stage.endPeriod();
        QCOMPARE(stage.period(), -1);
        QCOMPARE(stage.triggered(), 0);
        QCOMPARE(stage.panel->hides, 1);
    }

    void endOfThePeriodWhileTheParentIsHidden()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        stage.window->hide();
        QVERIFY(!stage.panel->isHidden());
        stage.endPeriod();
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.triggered(), 1);
    }

    void foreignTimerIsNotThePeriod()
    {
        const HelperStage stage(Maker::Application, longPeriodMs);
        const int own = timerOf(stage.helper);
        const int foreign = stage.helper->startTimer(longPeriodMs);
        QTimerEvent event(foreign);
        QCoreApplication::sendEvent(stage.helper, &event);
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(stage.triggered(), 0);
        stage.helper->killTimer(foreign);
        QCOMPARE(timersOf(stage.helper).size(), 1);
        QCOMPARE(timerOf(stage.helper), own);
    }

    void hideIsDelayed()
    {
        HelperStage stage;
        QElapsedTimer clock;
        qint64 elapsedNs = -1;
        stage.log.on(u"triggered"_s, [&] {
            elapsedNs = clock.nsecsElapsed();
            QVERIFY(stage.panel->isHidden());
        });
        for (int i = 1; i <= 20; ++i) {
            clock.start();
            stage.pressOutside();
            QVERIFY(stage.panel->isVisible());
            QCOMPARE(stage.triggered(), i - 1);
            QTRY_COMPARE_WITH_TIMEOUT(stage.triggered(), i, patienceMs);
            QVERIFY2(elapsedNs >= 5000000, qPrintable(QString::number(elapsedNs)));
            stage.panel->show();
        }
    }

    void hideUsesAPreciseTimer()
    {
        HelperStage stage;
        QCOMPARE(scheduledHides(), 0);
        stage.pressOutside();
        QCOMPARE(scheduledHides(), 1);
        letScheduledHidesRun();
        QCOMPARE(scheduledHides(), 0);
        QVERIFY(stage.panel->isHidden());
    }

    void hideStopsTheTimerFirst()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        QList<int> periods;
        stage.panel->whenHidden = [&] { periods.append(stage.period()); };
        stage.log.on(u"triggered"_s, [&] { periods.append(stage.period()); });
        stage.pressOutside();
        QCOMPARE(stage.period(), longPeriodMs);
        letScheduledHidesRun();
        QCOMPARE(periods, QList<int>({-1, -1}));
    }

    void pressesAreIgnoredUntilTheSignalIsOut()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        QList<int> periods;
        stage.panel->whenHidden = [&] {
            stage.pressOutside();
            periods.append(stage.period());
        };
        stage.log.on(u"triggered"_s, [&] {
            stage.panel->show();
            stage.pressOutside();
            periods.append(stage.period());
        });
        stage.tapOutside();
        QCOMPARE(periods, QList<int>({-1, -1}));
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 1);
        QVERIFY(stage.panel->isVisible());
        stage.tapOutside();
        QCOMPARE(stage.triggered(), 2);
    }

    void shownAgainItIsWatchedAgain()
    {
        HelperStage stage;
        for (int i = 1; i <= 3; ++i) {
            stage.helper->show();
            QVERIFY(stage.panel->isVisible());
            stage.tapOutside();
            QVERIFY(stage.panel->isHidden());
            QCOMPARE(stage.triggered(), i);
        }
    }

    void ignoreOnceLetsOnePressPass_data()
    {
        addRows({{"calls", {{"once", 1}, {"twice", 2}}},
                 {"pressed", {{"before the press", false}, {"within the delay", true}}}});
    }

    void ignoreOnceLetsOnePressPass()
    {
        const bool isPressed = fetch<bool>("pressed");
        HelperStage stage;
        if (isPressed)
            stage.pressOutside();
        for (int i = 0; i < fetch<int>("calls"); ++i)
            stage.helper->ignoreOnce();
        if (!isPressed)
            stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(stage.triggered(), 0);
        stage.tapOutside();
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.triggered(), 1);
    }

    void ignoreOnceKeepsThePeriod()
    {
        HelperStage stage;
        stage.markPeriod();
        stage.helper->ignoreOnce();
        stage.tapOutside();
        QCOMPARE(stage.period(), markedPeriodMs);
    }

    void ignoreOnceDoesNotHoldThePeriod()
    {
        HelperStage stage(Maker::Application, longPeriodMs);
        stage.helper->ignoreOnce();
        stage.endPeriod();
        QCOMPARE(stage.triggered(), 1);
        QVERIFY(stage.panel->isHidden());
        // The wish is still there.
        stage.panel->show();
        stage.tapOutside();
        QVERIFY(stage.panel->isVisible());
    }

    void ignoreOnceWaitsForAPressThatWouldHide()
    {
        HelperStage stage;
        stage.helper->ignoreOnce();
        stage.pressInside();
        letScheduledHidesRun();
        stage.panel->hide();
        stage.tapOutside();
        stage.helper->show();
        stage.tapOutside();
        QVERIFY(stage.panel->isVisible());
        stage.tapOutside();
        QVERIFY(stage.panel->isHidden());
    }

    void destructionLeavesTheWidgetAlone()
    {
        const HelperStage stage(Maker::Application, longPeriodMs);
        delete stage.helper;
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(stage.panel->hides, 0);
        QCOMPARE(stage.triggered(), 0);
    }

    void destroyedHelperIsDeaf()
    {
        HelperStage stage;
        delete stage.helper;
        stage.pressOutside();
        QCOMPARE(scheduledHides(), 0);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
    }
};

KEL_TEST_MAIN(tst_KELNonModalhelper)
#include "tst_kelnonmodalhelper.moc"
