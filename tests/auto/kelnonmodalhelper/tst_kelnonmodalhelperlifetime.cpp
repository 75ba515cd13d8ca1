// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "leavingprocess.h"
#include "program.h"

#include <kelapplicationnotify.h>

#include <QtWidgets/QPushButton>

namespace {

enum class Victim { Helper, Widget, HelperThenWidget, WidgetThenHelper, Window };

const std::vector<Named> victims = {
    {"the helper", int(Victim::Helper)},
    {"the widget", int(Victim::Widget)},
    {"the helper, then the widget", int(Victim::HelperThenWidget)},
    {"the widget, then the helper", int(Victim::WidgetThenHelper)},
    {"the window of the widget", int(Victim::Window)},
};

const Column occasions = {"ms", {{"press", 0}, {"period", 1}}};

void addVictims()
{
    addRows({{"victim", victims}, {"maker", makers}});
}

// The stage of a row that loses its victim.
class VictimStage : public HelperStage
{
public:
    explicit VictimStage(int periodMs = 0) :
        HelperStage(fetch<Maker>("maker"), periodMs), m_victim(fetch<Victim>("victim"))
    { }

    template <typename Destroy>
    void destroyWith(const Destroy &destroy)
    {
        if (m_victim == Victim::Helper || m_victim == Victim::HelperThenWidget)
            destroy(helper.data());
        if (m_victim == Victim::Window)
            destroy(window.data());
        else if (m_victim != Victim::Helper)
            destroy(panel.data());
        if (m_victim == Victim::WidgetThenHelper && helper)
            destroy(helper.data());
    }
    void destroy()
    {
        destroyWith([](QObject *object) { delete object; });
    }
    void deleteLater()
    {
        destroyWith([](QObject *object) { object->deleteLater(); });
    }

    bool isDestroyed() const
    {
        const bool takesTheHelper = m_victim != Victim::Widget && m_victim != Victim::Window;
        return (!takesTheHelper || !helper) && (m_victim == Victim::Helper || !panel);
    }
    // The helper of the static show() goes with its widget.
    bool keepsTheHelper() const
    {
        return fetch<Maker>("maker") == Maker::Application
            && (m_victim == Victim::Widget || m_victim == Victim::Window);
    }

private:
    const Victim m_victim;
};

void useWithoutAWidget(Helper *helper)
{
    helper->show();
    helper->startTime();
    helper->stopTime();
    helper->ignoreOnce();
    helper->enableTime(longPeriodMs);
    helper->setTriggerSource(Helper::TriggerScreen);
}

} // namespace

// A helper, its widget or both go at every moment.
class tst_KELNonModalhelperLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void destroyedWithinTheDelay_data() { addVictims(); }

    void destroyedWithinTheDelay()
    {
        VictimStage stage;
        stage.pressOutside();
        QCOMPARE(scheduledHides(), 1);
        stage.destroy();
        QVERIFY(stage.isDestroyed());
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 0);
        if (stage.panel)
            QVERIFY(stage.panel->isVisible());
        if (stage.helper)
            useWithoutAWidget(stage.helper);
    }

    void deletedLaterWithinTheDelay_data() { addVictims(); }

    void deletedLaterWithinTheDelay()
    {
        VictimStage stage;
        stage.pressOutside();
        stage.deleteLater();
        letScheduledHidesRun();
        QVERIFY(stage.isDestroyed());
        QCOMPARE(stage.triggered(), 0);
    }

    void destroyedInThePeriod_data() { addVictims(); }

    void destroyedInThePeriod()
    {
        VictimStage stage(1);
        stage.destroy();
        if (stage.helper) {
            QCOMPARE(stage.period(), 1);
            QTRY_COMPARE_WITH_TIMEOUT(stage.period(), -1, patienceMs);
        } else {
            letScheduledHidesRun();
        }
        QCOMPARE(stage.triggered(), 0);
        if (stage.panel)
            QVERIFY(stage.panel->isVisible());
    }

    void destroyedInASlot_data() { addRows({{"victim", victims}, {"maker", makers}, occasions}); }

    void destroyedInASlot()
    {
        VictimStage stage(fetch<int>("ms"));
        int later = 0;
        connect(stage.helper, &Helper::triggered, qApp, [&] { stage.destroy(); });
        connect(stage.helper, &Helper::triggered, qApp, [&] { ++later; });
        if (fetch<int>("ms") == 0)
            stage.pressOutside();
        QTRY_COMPARE_WITH_TIMEOUT(stage.triggered(), 1, patienceMs);
        QVERIFY(stage.isDestroyed());
        QCOMPARE(later, int(stage.keepsTheHelper()));
        QCOMPARE(bool(stage.helper), stage.keepsTheHelper());
        sendDeferredDeletes();
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 1);
    }

    void destroyedInANestedLoopOfASlot_data() { destroyedInASlot_data(); }

    void destroyedInANestedLoopOfASlot()
    {
        VictimStage stage(fetch<int>("ms"));
        bool left = false;
        stage.log.on(u"triggered"_s, [&] {
            QTimer::singleShot(0, qApp, [&] { stage.destroy(); });
            letScheduledHidesRun();
            left = true;
        });
        if (fetch<int>("ms") == 0)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(left, patienceMs);
        QVERIFY(stage.isDestroyed());
        QCOMPARE(stage.triggered(), 1);
    }

    void helperDestroyedInTheHideEvent_data() { addRows({{"maker", makers}, occasions}); }

    void helperDestroyedInTheHideEvent()
    {
        HelperStage stage(fetch<Maker>("maker"), fetch<int>("ms"));
        stage.panel->whenHidden = [&] { delete stage.helper; };
        if (fetch<int>("ms") == 0)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!stage.helper, patienceMs);
        QCOMPARE(stage.triggered(), 0);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.panel->hides, 1);
    }

    void widgetDeletedLaterInTheHideEvent_data() { helperDestroyedInTheHideEvent_data(); }

    void widgetDeletedLaterInTheHideEvent()
    {
        HelperStage stage(fetch<Maker>("maker"), fetch<int>("ms"));
        stage.panel->whenHidden = [&] { stage.panel->deleteLater(); };
        if (fetch<int>("ms") == 0)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!stage.panel, patienceMs);
        QCOMPARE(stage.triggered(), 1);
        QCOMPARE(bool(stage.helper), fetch<Maker>("maker") == Maker::Application);
    }

    void staticShowInTheHideEvent_data() { helperDestroyedInTheHideEvent_data(); }

    void staticShowInTheHideEvent()
    {
        const bool isReplaced = fetch<Maker>("maker") == Maker::StaticShow;
        HelperStage stage(fetch<Maker>("maker"), fetch<int>("ms"));
        const QPointer<Helper> old = stage.helper;
        stage.panel->whenHidden = [&] {
            if (stage.watch.made.size() == 1)
                Helper::show(stage.panel, Helper::TriggerParent, false, 0);
        };
        if (fetch<int>("ms") == 0)
            stage.pressOutside();
        QTRY_COMPARE_WITH_TIMEOUT(stage.watch.made.size(), 2, patienceMs);
        sendDeferredDeletes();
        // A helper of the static show() is replaced in the middle of its work; another one is not
        // touched.
        QCOMPARE(old.isNull(), isReplaced);
        QCOMPARE(stage.triggered(), isReplaced ? 0 : 1);
        QVERIFY(stage.watch.last());
        QVERIFY(stage.panel->isVisible());
        delete old;
        stage.tapOutside();
        QVERIFY(stage.panel->isHidden());
        QVERIFY(!stage.watch.last());
    }

    void helperDestroyedInTheShowEvent_data() { addRows({{"maker", makers}}); }

    void helperDestroyedInTheShowEvent()
    {
        HelperStage stage(Maker::Nobody);
        stage.panel->hide();
        stage.panel->whenShown = [&] { delete stage.watch.last(); };
        if (fetch<Maker>("maker") == Maker::StaticShow) {
            stage.show(Helper::TriggerParent, true, longPeriodMs);
        } else {
            auto *const helper = new Helper(stage.panel);
            helper->enableTime(longPeriodMs);
            helper->show();
        }
        QCOMPARE(stage.watch.made.size(), 1);
        QCOMPARE(stage.watch.alive(), 0);
        QVERIFY(stage.panel->isVisible());
        // The destroyed helper is not found again.
        stage.panel->whenShown = [] {};
        stage.show(Helper::TriggerScreen);
        QCOMPARE(stage.watch.made.size(), 2);
        QCOMPARE(stage.watch.alive(), 1);
    }

    void staticShowInTheShowEvent_data()
    {
        addRows({{"outer", {{"no timer", false}, {"a timer", true}}},
                 {"inner", {{"then none", false}, {"then another", true}}}});
    }

    void staticShowInTheShowEvent()
    {
        const bool isInnerTimed = fetch<bool>("inner");
        const bool isOuterTimed = fetch<bool>("outer");
        HelperStage stage(Maker::Nobody);
        stage.panel->hide();
        stage.panel->whenShown = [&] {
            Helper::show(stage.panel, Helper::TriggerNone, isInnerTimed, longPeriodMs + 2);
        };
        stage.show(Helper::TriggerParent, isOuterTimed, longPeriodMs + 1);
        QCOMPARE(stage.watch.made.size(), 1);
        QCOMPARE(stage.watch.alive(), 1);
        QCOMPARE(stage.panel->shows, 1);
        QCOMPARE(stage.helper->triggerSource(), Helper::TriggerParent);
        // The outer show() begins the period once the widget is shown.
        QCOMPARE(stage.period(),
                 isInnerTimed       ? longPeriodMs + 2
                     : isOuterTimed ? longPeriodMs + 1
                                    : -1);
        stage.tapOutside();
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.watch.alive(), 0);
    }

    void staticShowInTheShowEventOfAReplacedHelper()
    {
        HelperStage stage(Maker::StaticShow);
        stage.panel->hide();
        stage.panel->whenShown = [&] { Helper::show(stage.panel, Helper::TriggerNone, false, 0); };
        stage.show(Helper::TriggerScreen);
        QCOMPARE(stage.watch.made.size(), 2);
        QCOMPARE(stage.watch.alive(), 1);
        QCOMPARE(stage.helper->triggerSource(), Helper::TriggerScreen);
    }

    void hiddenInTheShowEvent()
    {
        HelperStage stage(Maker::Nobody);
        stage.panel->hide();
        stage.panel->whenShown = [&] { stage.panel->hide(); };
        stage.show(Helper::TriggerScreen, true, longPeriodMs);
        const QPointer<Helper> old = stage.helper;
        QVERIFY(stage.panel->isHidden());
        stage.endPeriod();
        QCOMPARE(stage.period(), -1);
        QCOMPARE(stage.triggered(), 0);
        stage.panel->whenShown = [] {};
        stage.show(Helper::TriggerScreen);
        QVERIFY(!old);
        QCOMPARE(stage.watch.alive(), 1);
    }

    void destroyedByAnEarlierFilterOfThePress_data() { addVictims(); }

    void destroyedByAnEarlierFilterOfThePress()
    {
        VictimStage stage;
        KELApplicationNotify earlier(nullptr, QEvent::MouseButtonPress);
        QCoreApplication::instance()->installEventFilter(&earlier);
        connect(&earlier, &KELApplicationNotify::notify, this, [&] { stage.destroy(); });
        stage.pressOutside();
        QCoreApplication::instance()->removeEventFilter(&earlier);
        QVERIFY(stage.isDestroyed());
        QCOMPARE(scheduledHides(), 0);
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 0);
    }

    void destroyedByASlotOfItsNotifier_data() { addVictims(); }

    void destroyedByASlotOfItsNotifier()
    {
        VictimStage stage;
        auto *const notifier = stage.helper->findChild<KELApplicationNotify *>();
        QVERIFY(notifier);
        connect(notifier, &KELApplicationNotify::notify, this, [&] { stage.destroy(); });
        stage.pressOutside();
        QVERIFY(stage.isDestroyed());
        letScheduledHidesRun();
        QCOMPARE(stage.triggered(), 0);
    }

    void destroyedByTheTargetOfThePress_data() { addVictims(); }

    void destroyedByTheTargetOfThePress()
    {
        VictimStage stage;
        auto *const button = new QPushButton(stage.window);
        button->setGeometry(10, 10, 60, 40);
        // A window that becomes active late takes no focus from it then.
        button->setFocusPolicy(Qt::NoFocus);
        button->show();
        stage.helper->setTriggerSource(Helper::TriggerScreen);
        QVERIFY(QTest::qWaitForWindowExposed(stage.window));
        const bool isInItsOwnEvent = fetch<Victim>("victim") == Victim::Window;
        connect(button, &QPushButton::pressed, this,
                [&] { isInItsOwnEvent ? stage.deleteLater() : stage.destroy(); });
        WindowHand hand;
        hand.press(button, QPoint(10, 10));
        QTRY_VERIFY_WITH_TIMEOUT(stage.isDestroyed(), patienceMs);
        letScheduledHidesRun();
        if (!isInItsOwnEvent)
            QCOMPARE(stage.triggered(), 0);
        hand.release();
    }

    void widgetDestroyedWhileWatched_data() { addRows({{"source", sources}}); }

    void widgetDestroyedWhileWatched()
    {
        HelperStage stage;
        stage.helper->setTriggerSource(fetch<Source>("source"));
        delete stage.panel;
        stage.pressOutside();
        QCOMPARE(scheduledHides(), 0);
        useWithoutAWidget(stage.helper);
        stage.tapOutside();
        QCOMPARE(stage.triggered(), 0);
    }

    void helperDestroyedByAnotherOfTheSamePress()
    {
        HelperStage stage;
        const QPointer<Helper> other(new Helper(stage.panel));
        stage.log.listenTo(other, u"other"_s);
        stage.log.on(u"triggered"_s, [&] { delete other; });
        stage.log.on(u"other.triggered"_s, [&] { delete stage.helper; });
        stage.tapOutside();
        QCOMPARE(stage.log.entries().size(), 1);
        QVERIFY(bool(stage.helper) != bool(other));
        delete other;
    }

    void hiddenBySomebodyElseWithinTheDelay_data() { addRows({{"maker", makers}}); }

    void hiddenBySomebodyElseWithinTheDelay()
    {
        HelperStage stage(fetch<Maker>("maker"), longPeriodMs);
        stage.log.on(u"triggered"_s, [&] { QCOMPARE(stage.period(), -1); });
        stage.pressOutside();
        stage.panel->hide();
        QCOMPARE(stage.triggered(), 0);
        letScheduledHidesRun();
        sendDeferredDeletes();
        QCOMPARE(stage.triggered(), 1);
        QCOMPARE(stage.panel->hides, 1);
        QCOMPARE(bool(stage.helper), fetch<Maker>("maker") == Maker::Application);
    }

    void shownAgainWithinTheDelay()
    {
        // A fresh helper does not inherit the hide that its predecessor has scheduled.
        HelperStage stage(Maker::StaticShow);
        const QPointer<Helper> old = stage.helper;
        stage.pressOutside();
        stage.panel->hide();
        stage.show(Helper::TriggerParent);
        letScheduledHidesRun();
        QVERIFY(!old);
        QCOMPARE(stage.watch.alive(), 1);
        QCOMPARE(stage.triggered(), 0);
        QVERIFY(stage.panel->isVisible());
    }

    void newWidgetAtTheSamePlace()
    {
        // The address of a destroyed widget says nothing.
        alignas(CountingWidget) unsigned char memory[sizeof(CountingWidget)];
        const HelperWatch watch;
        auto *widget = new (memory) CountingWidget;
        Helper::show(widget, Helper::TriggerScreen, true, longPeriodMs);
        widget->~CountingWidget();
        widget = new (memory) CountingWidget;
        Helper::show(widget, Helper::TriggerNone, false, 0);
        QCOMPARE(watch.made.size(), 2);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(watch.last()->triggerSource(), Helper::TriggerNone);
        widget->~CountingWidget();
        QCOMPARE(watch.alive(), 0);
    }

    void manyHelpersLeaveNothingBehind()
    {
        HelperStage stage(Maker::Nobody);
        for (int i = 0; i < 20; ++i) {
            stage.show(Helper::TriggerParent, true, longPeriodMs);
            QCOMPARE(stage.watch.alive(), 1);
            stage.tapOutside();
            QVERIFY(stage.panel->isHidden());
            QCOMPARE(stage.watch.alive(), 0);
        }
        QCOMPARE(stage.watch.made.size(), 20);
    }

    void endOfTheProcess_data() { addRows({{"ending", namesOf(LeavingProcess::endings)}}); }

    void endOfTheProcess()
    {
        const ProgramEnd end = runProgram(QCoreApplication::applicationFilePath(),
                                          {u"--leave"_s, QString::number(fetch<int>("ending"))});
        QCOMPARE(end.output, u"left\n"_s);
        QCOMPARE(end.exitCode, 0);
    }
};

int main(int argc, char *argv[])
{
    if (argc == 3 && qstrcmp(argv[1], "--leave") == 0) {
        LeavingProcess::run(argc, argv);
        return EXIT_SUCCESS;
    }
    QApplication app(argc, argv);
    tst_KELNonModalhelperLifetime test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kelnonmodalhelperlifetime.moc"
