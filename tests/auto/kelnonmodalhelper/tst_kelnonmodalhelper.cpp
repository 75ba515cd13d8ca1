// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "helperstage.h"

#include <kelapplicationnotify.h>

#include <QtCore/QElapsedTimer>

#include <limits>
#include <memory>

using HelperStage::CountingWidget;
using HelperStage::letScheduledHidesRun;
using HelperStage::longPeriodMs;
using HelperStage::PanelInWindow;
using HelperStage::patienceMs;
using HelperStage::periodOf;

namespace {

constexpr int shortPeriodMs = 60;

void endPeriod(KELNonModalhelper *helper)
{
    QTimerEvent event(HelperStage::timersOf(helper).constFirst().timerId);
    QCoreApplication::sendEvent(helper, &event);
}

} // namespace

// State and timer. The static show() and what each press does have programs of their own.
class tst_KELNonModalhelper : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainObject()
    {
        const QMetaObject &meta = KELNonModalhelper::staticMetaObject;
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        QCOMPARE(meta.method(meta.indexOfSignal("triggered()")).methodType(), QMetaMethod::Signal);
    }

    void valuesOfTheTriggerSource()
    {
        QCOMPARE(int(KELNonModalhelper::TriggerNone), 0);
        QCOMPARE(int(KELNonModalhelper::TriggerParent), 1);
        QCOMPARE(int(KELNonModalhelper::TriggerScreen), 2);
    }

    void startsWithItsDefaults()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        QVERIFY(!helper.parent());
        QCOMPARE(helper.triggerSource(), KELNonModalhelper::TriggerParent);
        QVERIFY(!helper.isTimeEnable());
        QCOMPARE(periodOf(&helper), -1);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        stage.pressOutside();
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), 1);
    }

    void hasOneNotifier()
    {
        KELNonModalhelper helper(nullptr);
        const auto notifiers = helper.findChildren<KELApplicationNotify *>();
        QCOMPARE(notifiers.size(), 1);
        QCOMPARE(notifiers.constFirst()->parent(), &helper);
        int seen = 0;
        connect(notifiers.constFirst(), &KELApplicationNotify::notify, &helper, [&] { ++seen; });
        QObject receiver;
        HelperStage::sendMouse(&receiver, QPointF(), QPointF(), QEvent::MouseButtonRelease);
        QCOMPARE(seen, 0);
        HelperStage::sendMouse(&receiver, QPointF(), QPointF());
        QCOMPARE(seen, 1);
    }

    void constructionLeavesTheWidgetAlone()
    {
        CountingWidget hidden;
        const KELNonModalhelper first(&hidden);
        QVERIFY(hidden.isHidden());
        CountingWidget shown;
        shown.show();
        const KELNonModalhelper second(&shown);
        QVERIFY(shown.isVisible());
        QCOMPARE(shown.hides, 0);
    }

    void triggerSourceIsStored_data()
    {
        QTest::addColumn<int>("source");

        QTest::newRow("none") << 0;
        QTest::newRow("parent") << 1;
        QTest::newRow("screen") << 2;
        QTest::newRow("a value without a name") << 3;
    }

    void triggerSourceIsStored()
    {
        QFETCH(int, source);
        KELNonModalhelper helper(nullptr);
        helper.setTriggerSource(HelperStage::Source(source));
        QCOMPARE(int(helper.triggerSource()), source);
        helper.setTriggerSource(KELNonModalhelper::TriggerParent);
        QCOMPARE(helper.triggerSource(), KELNonModalhelper::TriggerParent);
    }

    void periodIsStored_data()
    {
        QTest::addColumn<int>("ms");
        QTest::addColumn<int>("period");

        QTest::newRow("0") << 0 << 3000;
        QTest::newRow("-5") << -5 << 3000;
        QTest::newRow("-1") << -1 << 3000;
        QTest::newRow("the smallest int") << std::numeric_limits<int>::min() << 3000;
        QTest::newRow("1") << 1 << 1;
        QTest::newRow("2") << 2 << 2;
        QTest::newRow("2999") << 2999 << 2999;
        QTest::newRow("3001") << 3001 << 3001;
        QTest::newRow("the largest int")
            << std::numeric_limits<int>::max() << std::numeric_limits<int>::max();
    }

    void periodIsStored()
    {
        QFETCH(int, ms);
        QFETCH(int, period);
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(ms);
        QVERIFY(helper.isTimeEnable());
        QCOMPARE(HelperStage::timersOf(&helper).size(), 1);
        QCOMPARE(periodOf(&helper), period);
    }

    void enableTimeStartsUnlessHidden_data()
    {
        QTest::addColumn<bool>("panelHidden");
        QTest::addColumn<bool>("windowHidden");
        QTest::addColumn<bool>("starts");

        QTest::newRow("visible") << false << false << true;
        QTest::newRow("hidden") << true << false << false;
        QTest::newRow("not visible, as its parent is hidden") << false << true << true;
    }

    void enableTimeStartsUnlessHidden()
    {
        QFETCH(bool, panelHidden);
        QFETCH(bool, windowHidden);
        QFETCH(bool, starts);
        PanelInWindow stage;
        stage.panel->setHidden(panelHidden);
        stage.window.setHidden(windowHidden);
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        QVERIFY(helper.isTimeEnable());
        QCOMPARE(periodOf(&helper), starts ? longPeriodMs : -1);
    }

    void enableTimeRestarts()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(shortPeriodMs);
        helper.enableTime(longPeriodMs);
        QCOMPARE(HelperStage::timersOf(&helper).size(), 1);
        QCOMPARE(periodOf(&helper), longPeriodMs);
        helper.stopTime();
        helper.enableTime(longPeriodMs + 1);
        QCOMPARE(periodOf(&helper), longPeriodMs + 1);
    }

    void enableTimeIsNotTakenBack()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        helper.stopTime();
        helper.show();
        endPeriod(&helper);
        QVERIFY(stage.panel->isHidden());
        QVERIFY(helper.isTimeEnable());
        helper.show();
        QCOMPARE(periodOf(&helper), longPeriodMs);
    }

    void stopTimeStopsOnly()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(longPeriodMs);
        helper.stopTime();
        QCOMPARE(periodOf(&helper), -1);
        QVERIFY(helper.isTimeEnable());
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(triggered.count(), 0);
    }

    void periodBeginsAfterStopTimeWith_data()
    {
        QTest::addColumn<QString>("call");

        QTest::newRow("show()") << u"show"_s;
        QTest::newRow("startTime()") << u"startTime"_s;
        QTest::newRow("enableTime()") << u"enableTime"_s;
        QTest::newRow("a press") << u"press"_s;
    }

    void periodBeginsAfterStopTimeWith()
    {
        QFETCH(QString, call);
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        helper.stopTime();
        if (call == QLatin1String("show"))
            helper.show();
        else if (call == QLatin1String("startTime"))
            helper.startTime();
        else if (call == QLatin1String("enableTime"))
            helper.enableTime(longPeriodMs);
        else
            stage.pressInside();
        QCOMPARE(periodOf(&helper), longPeriodMs);
    }

    void stopTimeWithoutATimer()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.stopTime();
        QVERIFY(!helper.isTimeEnable());
        helper.show();
        QCOMPARE(periodOf(&helper), -1);
    }

    void startTimeNeedsEnableTime()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.startTime();
        QCOMPARE(periodOf(&helper), -1);
        stage.pressInside();
        QCOMPARE(periodOf(&helper), -1);
    }

    void startTimeWhileHidden()
    {
        PanelInWindow stage;
        stage.panel->hide();
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        helper.startTime();
        QCOMPARE(periodOf(&helper), longPeriodMs);
        QVERIFY(stage.panel->isHidden());
    }

    void startTimeRestarts()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        QTRY_VERIFY_WITH_TIMEOUT(HelperStage::remainingMs(&helper) <= longPeriodMs - 150,
                                 patienceMs);
        helper.startTime();
        QVERIFY(HelperStage::remainingMs(&helper) > longPeriodMs - 150);
        QCOMPARE(HelperStage::timersOf(&helper).size(), 1);
    }

    void showShowsTheWidget()
    {
        CountingWidget widget;
        KELNonModalhelper helper(&widget);
        helper.show();
        QVERIFY(widget.isVisible());
        QCOMPARE(widget.shows, 1);
        QCOMPARE(periodOf(&helper), -1);
        widget.hide();
        helper.enableTime(longPeriodMs);
        QCOMPARE(periodOf(&helper), -1);
        helper.show();
        QVERIFY(widget.isVisible());
        QCOMPARE(periodOf(&helper), longPeriodMs);
    }

    void showRestarts()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        QTRY_VERIFY_WITH_TIMEOUT(HelperStage::remainingMs(&helper) <= longPeriodMs - 150,
                                 patienceMs);
        helper.show();
        QVERIFY(HelperStage::remainingMs(&helper) > longPeriodMs - 150);
        QVERIFY(stage.panel->isVisible());
    }

    void nothingElseShowsTheWidget()
    {
        PanelInWindow stage;
        stage.panel->hide();
        KELNonModalhelper helper(stage.panel);
        helper.setTriggerSource(KELNonModalhelper::TriggerScreen);
        helper.enableTime(longPeriodMs);
        helper.startTime();
        stage.pressOutside();
        stage.pressInside();
        helper.ignoreOnce();
        endPeriod(&helper);
        helper.stopTime();
        QVERIFY(stage.panel->isHidden());
    }

    void withoutAWidget()
    {
        KELNonModalhelper helper(nullptr);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(longPeriodMs);
        QVERIFY(helper.isTimeEnable());
        QCOMPARE(periodOf(&helper), -1);
        helper.show();
        QCOMPARE(periodOf(&helper), -1);
        helper.startTime();
        QCOMPARE(periodOf(&helper), longPeriodMs);
        endPeriod(&helper);
        QCOMPARE(periodOf(&helper), -1);
        PanelInWindow stage;
        stage.pressOutside();
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), 0);
    }

    void periodEnds_data()
    {
        QTest::addColumn<int>("period");
        QTest::addColumn<bool>("byShow");

        QTest::newRow("1 ms") << 1 << false;
        QTest::newRow("60 ms") << 60 << false;
        QTest::newRow("333 ms, begun by show()") << 333 << true;
    }

    void periodEnds()
    {
        QFETCH(int, period);
        QFETCH(bool, byShow);
        PanelInWindow stage;
        stage.panel->setHidden(byShow);
        KELNonModalhelper helper(stage.panel);
        QElapsedTimer clock;
        qint64 elapsedMs = -1;
        int count = 0;
        connect(&helper, &KELNonModalhelper::triggered, &helper, [&] {
            elapsedMs = clock.elapsed();
            ++count;
        });
        clock.start();
        helper.enableTime(period);
        if (byShow)
            helper.show();
        QVERIFY(stage.panel->isVisible());
        QTRY_COMPARE_WITH_TIMEOUT(count, 1, patienceMs);
        QVERIFY2(elapsedMs >= period, qPrintable(QString::number(elapsedMs)));
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(periodOf(&helper), -1);
    }

    void defaultPeriodIsThreeSeconds()
    {
        PanelInWindow stages[2];
        KELNonModalhelper ofZero(stages[0].panel);
        KELNonModalhelper ofMinusFive(stages[1].panel);
        const QSignalSpy zero(&ofZero, &KELNonModalhelper::triggered);
        const QSignalSpy minusFive(&ofMinusFive, &KELNonModalhelper::triggered);
        QElapsedTimer clock;
        clock.start();
        ofZero.enableTime(0);
        ofMinusFive.enableTime(-5);
        qint64 firstMs = -1;
        for (KELNonModalhelper *helper : {&ofZero, &ofMinusFive}) {
            connect(helper, &KELNonModalhelper::triggered, helper, [&] {
                if (firstMs < 0)
                    firstMs = clock.elapsed();
            });
        }
        QTRY_COMPARE_WITH_TIMEOUT(zero.count() + minusFive.count(), 2, patienceMs);
        QVERIFY2(firstMs >= 3000, qPrintable(QString::number(firstMs)));
    }

    void hiddenBeforeTheSignal()
    {
        CountingWidget widget;
        KELNonModalhelper helper(&widget);
        helper.enableTime(longPeriodMs);
        helper.show();
        QStringList log;
        widget.whenHidden = [&] { log.append(u"hidden"_s); };
        connect(&helper, &KELNonModalhelper::triggered, &widget, [&] {
            log.append(widget.isHidden() ? u"triggered"_s : u"triggered while visible"_s);
        });
        endPeriod(&helper);
        QCOMPARE(log, QStringList({"hidden", "triggered"}));
    }

    void timerIsSingleUse()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        connect(&helper, &KELNonModalhelper::triggered, &helper,
                [&] { QCOMPARE(periodOf(&helper), -1); });
        helper.enableTime(1);
        QTRY_COMPARE_WITH_TIMEOUT(triggered.count(), 1, patienceMs);
        // Shown by somebody else, it stays.
        stage.panel->show();
        QCOMPARE(periodOf(&helper), -1);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(triggered.count(), 1);
        helper.show();
        QTRY_COMPARE_WITH_TIMEOUT(triggered.count(), 2, patienceMs);
    }

    void endOfThePeriodWhileHidden()
    {
        CountingWidget widget;
        KELNonModalhelper helper(&widget);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(shortPeriodMs);
        helper.show();
        widget.hide();
        QCOMPARE(periodOf(&helper), shortPeriodMs);
        QTRY_COMPARE_WITH_TIMEOUT(periodOf(&helper), -1, patienceMs);
        QCOMPARE(triggered.count(), 0);
        QCOMPARE(widget.hides, 1);
    }

    void endOfThePeriodWhileTheParentIsHidden()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(longPeriodMs);
        stage.window.hide();
        QVERIFY(!stage.panel->isHidden());
        endPeriod(&helper);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(triggered.count(), 1);
    }

    void foreignTimerIsNotThePeriod()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(longPeriodMs);
        const int own = HelperStage::timersOf(&helper).constFirst().timerId;
        const int foreign = helper.startTimer(longPeriodMs);
        QTimerEvent event(foreign);
        QCoreApplication::sendEvent(&helper, &event);
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(triggered.count(), 0);
        helper.killTimer(foreign);
        QCOMPARE(HelperStage::timersOf(&helper).size(), 1);
        QCOMPARE(HelperStage::timersOf(&helper).constFirst().timerId, own);
    }

    void pressesPutOffTheEnd()
    {
        constexpr int period = 1000;
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        QElapsedTimer sinceThePress;
        qint64 elapsedMs = -1;
        connect(&helper, &KELNonModalhelper::triggered, &helper,
                [&] { elapsedMs = sinceThePress.isValid() ? sinceThePress.elapsed() : -2; });
        helper.enableTime(period);
        QTimer::singleShot(period / 2, &helper, [&] {
            sinceThePress.start();
            stage.pressInside();
        });
        QTRY_VERIFY_WITH_TIMEOUT(elapsedMs != -1, patienceMs);
        QVERIFY2(elapsedMs >= period, qPrintable(QString::number(elapsedMs)));
    }

    void pressRestartsTheRunningPeriod()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        QTRY_VERIFY_WITH_TIMEOUT(HelperStage::remainingMs(&helper) <= longPeriodMs - 150,
                                 patienceMs);
        stage.pressInside();
        QVERIFY(HelperStage::remainingMs(&helper) > longPeriodMs - 150);
    }

    void otherTopLevelWindowRestartsTheRunningPeriod()
    {
        PanelInWindow stage;
        HelperStage::Window unrelated(QRect(450, 30, 100, 100));
        unrelated.show();
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        QTRY_VERIFY_WITH_TIMEOUT(HelperStage::remainingMs(&helper) <= longPeriodMs - 150,
                                 patienceMs);
        HelperStage::sendMouse(&unrelated, QPointF(1, 1), QPointF(451, 31));
        QVERIFY(HelperStage::remainingMs(&helper) > longPeriodMs - 150);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
    }

    void popupLeavesTheRunningPeriodAlone()
    {
        PanelInWindow stage;
        HelperStage::Window toolTip(QRect(450, 30, 100, 100), nullptr, Qt::ToolTip);
        toolTip.show();
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        QTRY_VERIFY_WITH_TIMEOUT(HelperStage::remainingMs(&helper) <= longPeriodMs - 50,
                                 patienceMs);
        const int before = HelperStage::remainingMs(&helper);
        HelperStage::sendMouse(&toolTip, QPointF(1, 1), QPointF(451, 31));
        const int after = HelperStage::remainingMs(&helper);
        QVERIFY(after > 0);
        QVERIFY(after <= before);
    }

    void ownStopTimeEndsThePeriodOfTheHelperOnly()
    {
        PanelInWindow stage;
        KELNonModalhelper one(stage.panel);
        KELNonModalhelper other(stage.panel);
        one.enableTime(longPeriodMs);
        other.enableTime(longPeriodMs);
        one.stopTime();
        QCOMPARE(periodOf(&one), -1);
        QCOMPARE(periodOf(&other), longPeriodMs);
    }

    void hideIsDelayed()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        QElapsedTimer clock;
        qint64 elapsedNs = -1;
        int count = 0;
        connect(&helper, &KELNonModalhelper::triggered, &helper, [&] {
            elapsedNs = clock.nsecsElapsed();
            ++count;
            QVERIFY(stage.panel->isHidden());
        });
        for (int i = 1; i <= 20; ++i) {
            clock.start();
            stage.pressOutside();
            QVERIFY(stage.panel->isVisible());
            QCOMPARE(count, i - 1);
            QTRY_COMPARE_WITH_TIMEOUT(count, i, patienceMs);
            QVERIFY2(elapsedNs >= 5000000, qPrintable(QString::number(elapsedNs)));
            stage.panel->show();
        }
    }

    void hideUsesAPreciseTimer()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        QCOMPARE(HelperStage::scheduledHides(), 0);
        stage.pressOutside();
        QCOMPARE(HelperStage::scheduledHides(), 1);
        letScheduledHidesRun();
        QCOMPARE(HelperStage::scheduledHides(), 0);
        QVERIFY(stage.panel->isHidden());
    }

    void hideStopsTheTimerFirst()
    {
        CountingWidget widget;
        KELNonModalhelper helper(&widget);
        helper.setTriggerSource(KELNonModalhelper::TriggerScreen);
        helper.enableTime(longPeriodMs);
        helper.show();
        widget.setGeometry(0, 0, 100, 100);
        QList<int> periods;
        widget.whenHidden = [&] { periods.append(periodOf(&helper)); };
        connect(&helper, &KELNonModalhelper::triggered, &widget,
                [&] { periods.append(periodOf(&helper)); });
        QCOMPARE(periodOf(&helper), longPeriodMs);
        HelperStage::sendMouse(&widget, QPointF(400, 400), QPointF(400, 400));
        QCOMPARE(periodOf(&helper), longPeriodMs);
        letScheduledHidesRun();
        QCOMPARE(periods, QList<int>({-1, -1}));
    }

    void pressesAreIgnoredUntilTheSignalIsOut()
    {
        CountingWidget widget;
        widget.setGeometry(0, 0, 100, 100);
        KELNonModalhelper helper(&widget);
        helper.setTriggerSource(KELNonModalhelper::TriggerScreen);
        helper.enableTime(longPeriodMs);
        helper.show();
        const auto pressOutside = [&] {
            HelperStage::sendMouse(&widget, QPointF(400, 400), QPointF(400, 400));
        };
        QList<int> periods;
        widget.whenHidden = [&] {
            pressOutside();
            periods.append(periodOf(&helper));
        };
        int count = 0;
        connect(&helper, &KELNonModalhelper::triggered, &widget, [&] {
            ++count;
            widget.show();
            pressOutside();
            periods.append(periodOf(&helper));
        });
        pressOutside();
        letScheduledHidesRun();
        QCOMPARE(periods, QList<int>({-1, -1}));
        letScheduledHidesRun();
        QCOMPARE(count, 1);
        QVERIFY(widget.isVisible());
        pressOutside();
        letScheduledHidesRun();
        QCOMPARE(count, 2);
    }

    void hiddenBySomebodyElseMeanwhile()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.enableTime(longPeriodMs);
        stage.pressOutside();
        stage.panel->hide();
        QCOMPARE(triggered.count(), 0);
        letScheduledHidesRun();
        QCOMPARE(triggered.count(), 1);
        QCOMPARE(periodOf(&helper), -1);
    }

    void shownAgainItIsWatchedAgain()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        for (int i = 1; i <= 3; ++i) {
            helper.show();
            QVERIFY(stage.panel->isVisible());
            stage.pressOutside();
            letScheduledHidesRun();
            QVERIFY(stage.panel->isHidden());
            QCOMPARE(triggered.count(), i);
        }
    }

    void ignoreOnceLetsOnePressPass()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.ignoreOnce();
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(triggered.count(), 0);
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(triggered.count(), 1);
    }

    void ignoreOnceTwiceIsOnce()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.ignoreOnce();
        helper.ignoreOnce();
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void ignoreOnceWithinTheDelay()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        stage.pressOutside();
        helper.ignoreOnce();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void ignoreOnceKeepsThePeriod()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.enableTime(longPeriodMs);
        const int id = HelperStage::timersOf(&helper).constFirst().timerId;
        const int before = HelperStage::remainingMs(&helper);
        helper.ignoreOnce();
        stage.pressOutside();
        letScheduledHidesRun();
        QCOMPARE(periodOf(&helper), longPeriodMs);
        QCOMPARE(HelperStage::timersOf(&helper).constFirst().timerId, id);
        QVERIFY(HelperStage::remainingMs(&helper) < before);
    }

    void ignoreOnceDoesNotHoldThePeriod()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        const QSignalSpy triggered(&helper, &KELNonModalhelper::triggered);
        helper.ignoreOnce();
        helper.enableTime(1);
        QTRY_COMPARE_WITH_TIMEOUT(triggered.count(), 1, patienceMs);
        QVERIFY(stage.panel->isHidden());
        // The wish is still there.
        stage.panel->show();
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
    }

    void ignoreOnceWaitsForAPressThatWouldHide()
    {
        PanelInWindow stage;
        KELNonModalhelper helper(stage.panel);
        helper.ignoreOnce();
        stage.pressInside();
        letScheduledHidesRun();
        stage.panel->hide();
        stage.pressOutside();
        letScheduledHidesRun();
        helper.show();
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
    }

    void destructionLeavesTheWidgetAlone()
    {
        CountingWidget widget;
        auto helper = std::make_unique<KELNonModalhelper>(&widget);
        helper->enableTime(longPeriodMs);
        helper->show();
        const QSignalSpy triggered(helper.get(), &KELNonModalhelper::triggered);
        helper.reset();
        QVERIFY(widget.isVisible());
        QCOMPARE(widget.hides, 0);
        QCOMPARE(triggered.count(), 0);
    }

    void destroyedHelperIsDeaf()
    {
        PanelInWindow stage;
        auto helper = std::make_unique<KELNonModalhelper>(stage.panel);
        helper.reset();
        stage.pressOutside();
        QCOMPARE(HelperStage::scheduledHides(), 0);
        letScheduledHidesRun();
        QVERIFY(stage.panel->isVisible());
    }
};

KEL_TEST_MAIN(tst_KELNonModalhelper)
#include "tst_kelnonmodalhelper.moc"
