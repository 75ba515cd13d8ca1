// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "helperstage.h"
#include "leavingprocess.h"

#include <kelapplicationnotify.h>

#include <QtWidgets/QPushButton>

#include <memory>

using HelperStage::CountingWidget;
using HelperStage::HelperWatch;
using HelperStage::letScheduledHidesRun;
using HelperStage::longPeriodMs;
using HelperStage::PanelInWindow;
using HelperStage::patienceMs;
using HelperStage::periodOf;

namespace {

enum class Victim { Helper, Widget, HelperThenWidget, WidgetThenHelper, Window };

struct Named
{
    const char *name;
    Victim victim;
};

const Named victims[] = {
    {"the helper", Victim::Helper},
    {"the widget", Victim::Widget},
    {"the helper, then the widget", Victim::HelperThenWidget},
    {"the widget, then the helper", Victim::WidgetThenHelper},
    {"the window of the widget", Victim::Window},
};

// A panel in a window, with a helper that somebody made or the static show().
class Stage
{
public:
    explicit Stage(bool madeByStaticShow, bool byPress = true) :
        window(new HelperStage::Window(QRect(20, 30, 400, 300))),
        panel(new CountingWidget(window)),
        button(new QPushButton(window))
    {
        panel->setGeometry(PanelInWindow::panelRect);
        button->setGeometry(10, 10, 60, 40);
        window->show();
        const HelperWatch watch;
        if (madeByStaticShow) {
            KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, !byPress, 1);
        } else {
            auto *const made = new KELNonModalhelper(panel);
            if (!byPress)
                made->enableTime(1);
        }
        helper = watch.last();
        QObject::connect(helper, &KELNonModalhelper::triggered, &m_context,
                         [this] { ++triggered; });
    }

    ~Stage()
    {
        delete helper;
        delete window;
    }

    void destroy(Victim victim)
    {
        if (victim == Victim::Helper || victim == Victim::HelperThenWidget)
            delete helper;
        if (victim == Victim::Window)
            delete window;
        else if (victim != Victim::Helper)
            delete panel;
        if (victim == Victim::WidgetThenHelper)
            delete helper;
    }

    bool isDestroyed(Victim victim) const
    {
        const bool takesTheHelper = victim != Victim::Widget && victim != Victim::Window;
        return (!takesTheHelper || !helper) && (victim == Victim::Helper || !panel);
    }

    void pressOutside()
    {
        HelperStage::sendMouse(window, PanelInWindow::outside, PanelInWindow::outside);
    }

    QPointer<QWidget> window;
    QPointer<CountingWidget> panel;
    QPointer<QPushButton> button;
    QPointer<KELNonModalhelper> helper;
    int triggered = 0;

private:
    Q_DISABLE_COPY(Stage)
    QObject m_context;
};

void useWithoutAWidget(KELNonModalhelper *helper)
{
    helper->show();
    helper->startTime();
    helper->stopTime();
    helper->ignoreOnce();
    helper->enableTime(longPeriodMs);
    helper->setTriggerSource(KELNonModalhelper::TriggerScreen);
}

void addVictimRows(bool alsoByPeriod)
{
    QTest::addColumn<int>("victim");
    QTest::addColumn<bool>("madeByStaticShow");
    QTest::addColumn<bool>("byPress");

    for (const Named &row : victims) {
        for (const bool madeByStaticShow : {false, true}) {
            for (const bool byPress : {true, false}) {
                if (!byPress && !alsoByPeriod)
                    continue;
                QTest::addRow("%s%s, %s", row.name, madeByStaticShow ? ", static show()" : "",
                              byPress ? "press" : "period")
                    << int(row.victim) << madeByStaticShow << byPress;
            }
        }
    }
}

} // namespace

// A helper, its widget or both go at every moment.
class tst_KELNonModalhelperLifetime : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void destroyedWithinTheDelay_data() { addVictimRows(false); }

    void destroyedWithinTheDelay()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        stage.pressOutside();
        QCOMPARE(HelperStage::scheduledHides(), 1);
        stage.destroy(Victim(victim));
        QVERIFY(stage.isDestroyed(Victim(victim)));
        letScheduledHidesRun();
        QCOMPARE(stage.triggered, 0);
        if (stage.panel)
            QVERIFY(stage.panel->isVisible());
        if (stage.helper)
            useWithoutAWidget(stage.helper);
    }

    void deletedLaterWithinTheDelay_data() { addVictimRows(false); }

    void deletedLaterWithinTheDelay()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        stage.pressOutside();
        if (Victim(victim) == Victim::Window) {
            stage.window->deleteLater();
        } else {
            if (Victim(victim) == Victim::WidgetThenHelper || Victim(victim) == Victim::Widget)
                stage.panel->deleteLater();
            if (Victim(victim) != Victim::Widget)
                stage.helper->deleteLater();
            if (Victim(victim) == Victim::HelperThenWidget)
                stage.panel->deleteLater();
        }
        letScheduledHidesRun();
        QVERIFY(stage.isDestroyed(Victim(victim)));
        QCOMPARE(stage.triggered, 0);
    }

    void destroyedInThePeriod_data() { addVictimRows(false); }

    void destroyedInThePeriod()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        stage.helper->enableTime(1);
        stage.destroy(Victim(victim));
        if (stage.helper)
            QTRY_COMPARE_WITH_TIMEOUT(periodOf(stage.helper), -1, patienceMs);
        else
            letScheduledHidesRun();
        QCOMPARE(stage.triggered, 0);
        if (stage.panel)
            QVERIFY(stage.panel->isVisible());
    }

    void destroyedInASlot_data() { addVictimRows(true); }

    void destroyedInASlot()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        QFETCH(bool, byPress);
        Stage stage(madeByStaticShow, byPress);
        int later = 0;
        connect(stage.helper, &KELNonModalhelper::triggered, qApp,
                [&] { stage.destroy(Victim(victim)); });
        connect(stage.helper, &KELNonModalhelper::triggered, qApp, [&] { ++later; });
        if (byPress)
            stage.pressOutside();
        QTRY_COMPARE_WITH_TIMEOUT(stage.triggered, 1, patienceMs);
        QVERIFY(stage.isDestroyed(Victim(victim)));
        // The helper of the static show() goes with its widget.
        const bool helperLives = !madeByStaticShow
            && (Victim(victim) == Victim::Widget || Victim(victim) == Victim::Window);
        QCOMPARE(later, int(helperLives));
        QCOMPARE(bool(stage.helper), helperLives);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        letScheduledHidesRun();
        QCOMPARE(stage.triggered, 1);
    }

    void destroyedInANestedLoopOfASlot_data() { addVictimRows(true); }

    void destroyedInANestedLoopOfASlot()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        QFETCH(bool, byPress);
        Stage stage(madeByStaticShow, byPress);
        bool left = false;
        connect(stage.helper, &KELNonModalhelper::triggered, qApp, [&] {
            QTimer::singleShot(0, qApp, [&] { stage.destroy(Victim(victim)); });
            letScheduledHidesRun();
            left = true;
        });
        if (byPress)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(left, patienceMs);
        QVERIFY(stage.isDestroyed(Victim(victim)));
        QCOMPARE(stage.triggered, 1);
    }

    void helperDestroyedInTheHideEvent_data()
    {
        QTest::addColumn<bool>("madeByStaticShow");
        QTest::addColumn<bool>("byPress");

        QTest::newRow("press") << false << true;
        QTest::newRow("period") << false << false;
        QTest::newRow("press, static show()") << true << true;
        QTest::newRow("period, static show()") << true << false;
    }

    void helperDestroyedInTheHideEvent()
    {
        QFETCH(bool, madeByStaticShow);
        QFETCH(bool, byPress);
        Stage stage(madeByStaticShow, byPress);
        stage.panel->whenHidden = [&] { delete stage.helper; };
        if (byPress)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!stage.helper, patienceMs);
        QCOMPARE(stage.triggered, 0);
        QVERIFY(stage.panel->isHidden());
        QCOMPARE(stage.panel->hides, 1);
    }

    void widgetDeletedLaterInTheHideEvent_data() { helperDestroyedInTheHideEvent_data(); }

    void widgetDeletedLaterInTheHideEvent()
    {
        QFETCH(bool, madeByStaticShow);
        QFETCH(bool, byPress);
        Stage stage(madeByStaticShow, byPress);
        stage.panel->whenHidden = [&] { stage.panel->deleteLater(); };
        if (byPress)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(!stage.panel, patienceMs);
        QCOMPARE(stage.triggered, 1);
        QCOMPARE(stage.helper.isNull(), madeByStaticShow);
    }

    void staticShowInTheHideEvent_data() { helperDestroyedInTheHideEvent_data(); }

    void staticShowInTheHideEvent()
    {
        QFETCH(bool, madeByStaticShow);
        QFETCH(bool, byPress);
        const HelperWatch watch;
        Stage stage(madeByStaticShow, byPress);
        const QPointer<KELNonModalhelper> old = stage.helper;
        bool shownAgain = false;
        stage.panel->whenHidden = [&] {
            if (std::exchange(shownAgain, true))
                return;
            KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        };
        if (byPress)
            stage.pressOutside();
        QTRY_VERIFY_WITH_TIMEOUT(shownAgain, patienceMs);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // A helper of the static show() is replaced in the middle of its work; another one is not
        // touched.
        QCOMPARE(old.isNull(), madeByStaticShow);
        QCOMPARE(stage.triggered, madeByStaticShow ? 0 : 1);
        QCOMPARE(watch.made.size(), 2);
        const QPointer<KELNonModalhelper> fresh = watch.last();
        QVERIFY(fresh);
        QVERIFY(stage.panel->isVisible());
        delete old;
        stage.pressOutside();
        letScheduledHidesRun();
        QVERIFY(stage.panel->isHidden());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!fresh);
    }

    void helperDestroyedInTheShowEvent_data()
    {
        QTest::addColumn<bool>("madeByStaticShow");

        QTest::newRow("show()") << false;
        QTest::newRow("static show()") << true;
    }

    void helperDestroyedInTheShowEvent()
    {
        QFETCH(bool, madeByStaticShow);
        CountingWidget widget;
        const HelperWatch watch;
        widget.whenShown = [&] { delete watch.last(); };
        if (madeByStaticShow) {
            KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerParent, true, longPeriodMs);
        } else {
            auto *const helper = new KELNonModalhelper(&widget);
            helper->enableTime(longPeriodMs);
            helper->show();
        }
        QCOMPARE(watch.made.size(), 1);
        QCOMPARE(watch.alive(), 0);
        QVERIFY(widget.isVisible());
        // The destroyed helper is not found again.
        widget.whenShown = nullptr;
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerScreen, false, 0);
        QCOMPARE(watch.made.size(), 2);
        QCOMPARE(watch.alive(), 1);
    }

    void staticShowInTheShowEvent_data()
    {
        QTest::addColumn<bool>("outer");
        QTest::addColumn<bool>("inner");

        QTest::newRow("no timer") << false << false;
        QTest::newRow("a timer, then none") << true << false;
        QTest::newRow("none, then a timer") << false << true;
        QTest::newRow("a timer, then another") << true << true;
    }

    void staticShowInTheShowEvent()
    {
        QFETCH(bool, outer);
        QFETCH(bool, inner);
        HelperStage::Window window(QRect(20, 30, 400, 300));
        auto *const panel = new CountingWidget(&window);
        panel->setGeometry(PanelInWindow::panelRect);
        window.show();
        panel->hide();
        panel->shows = 0;
        const HelperWatch watch;
        panel->whenShown = [&] {
            KELNonModalhelper::show(panel, KELNonModalhelper::TriggerNone, inner, longPeriodMs + 2);
        };
        KELNonModalhelper::show(panel, KELNonModalhelper::TriggerParent, outer, longPeriodMs + 1);
        QCOMPARE(watch.made.size(), 1);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(panel->shows, 1);
        QCOMPARE(watch.last()->triggerSource(), KELNonModalhelper::TriggerParent);
        // The outer show() begins the period once the widget is shown.
        const int expected = inner ? longPeriodMs + 2 : outer ? longPeriodMs + 1 : -1;
        QCOMPARE(periodOf(watch.last()), expected);
        HelperStage::sendMouse(&window, PanelInWindow::outside, PanelInWindow::outside);
        letScheduledHidesRun();
        QVERIFY(panel->isHidden());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(watch.alive(), 0);
    }

    void staticShowInTheShowEventOfAReplacedHelper()
    {
        CountingWidget widget;
        const HelperWatch watch;
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerNone, false, 0);
        widget.hide();
        widget.whenShown = [&] {
            KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerNone, false, 0);
        };
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerScreen, false, 0);
        QCOMPARE(watch.made.size(), 2);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(watch.last()->triggerSource(), KELNonModalhelper::TriggerScreen);
    }

    void hiddenInTheShowEvent()
    {
        CountingWidget widget;
        const HelperWatch watch;
        widget.whenShown = [&] { widget.hide(); };
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerScreen, true, 1);
        QCOMPARE(watch.alive(), 1);
        const QPointer<KELNonModalhelper> helper = watch.last();
        const QSignalSpy triggered(helper, &KELNonModalhelper::triggered);
        QVERIFY(widget.isHidden());
        QTRY_COMPARE_WITH_TIMEOUT(periodOf(helper), -1, patienceMs);
        QCOMPARE(triggered.count(), 0);
        widget.whenShown = nullptr;
        KELNonModalhelper::show(&widget, KELNonModalhelper::TriggerScreen, false, 0);
        QVERIFY(!helper);
        QCOMPARE(watch.alive(), 1);
    }

    void destroyedByAnEarlierFilterOfThePress_data() { addVictimRows(false); }

    void destroyedByAnEarlierFilterOfThePress()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        KELApplicationNotify earlier(nullptr, QEvent::MouseButtonPress);
        QCoreApplication::instance()->installEventFilter(&earlier);
        connect(&earlier, &KELApplicationNotify::notify, this,
                [&] { stage.destroy(Victim(victim)); });
        stage.pressOutside();
        QCoreApplication::instance()->removeEventFilter(&earlier);
        QVERIFY(stage.isDestroyed(Victim(victim)));
        QCOMPARE(HelperStage::scheduledHides(), 0);
        letScheduledHidesRun();
        QCOMPARE(stage.triggered, 0);
    }

    void destroyedByASlotOfItsNotifier_data() { addVictimRows(false); }

    void destroyedByASlotOfItsNotifier()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        auto *const notifier = stage.helper->findChild<KELApplicationNotify *>();
        QVERIFY(notifier);
        connect(notifier, &KELApplicationNotify::notify, this,
                [&] { stage.destroy(Victim(victim)); });
        stage.pressOutside();
        QVERIFY(stage.isDestroyed(Victim(victim)));
        letScheduledHidesRun();
        QCOMPARE(stage.triggered, 0);
    }

    void destroyedByTheTargetOfThePress_data() { addVictimRows(false); }

    void destroyedByTheTargetOfThePress()
    {
        QFETCH(int, victim);
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        stage.button->setFocusPolicy(Qt::NoFocus);
        stage.button->show();
        stage.helper->setTriggerSource(KELNonModalhelper::TriggerScreen);
        QVERIFY(QTest::qWaitForWindowExposed(stage.window));
        connect(stage.button, &QPushButton::pressed, this, [&] {
            // Not in its own event.
            if (Victim(victim) == Victim::Window)
                stage.window->deleteLater();
            else
                stage.destroy(Victim(victim));
        });
        const QPoint pos(20, 20);
        QTest::mousePress(stage.window->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
        QTRY_VERIFY_WITH_TIMEOUT(stage.isDestroyed(Victim(victim)), patienceMs);
        letScheduledHidesRun();
        if (Victim(victim) != Victim::Window)
            QCOMPARE(stage.triggered, 0);
        if (stage.window)
            QTest::mouseRelease(stage.window->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
    }

    void widgetDestroyedWhileWatched_data()
    {
        QTest::addColumn<int>("source");

        QTest::newRow("none") << 0;
        QTest::newRow("parent") << 1;
        QTest::newRow("screen") << 2;
        QTest::newRow("a value without a name") << 3;
    }

    void widgetDestroyedWhileWatched()
    {
        QFETCH(int, source);
        Stage stage(false);
        stage.helper->setTriggerSource(HelperStage::Source(source));
        delete stage.panel;
        stage.pressOutside();
        QCOMPARE(HelperStage::scheduledHides(), 0);
        useWithoutAWidget(stage.helper);
        stage.pressOutside();
        letScheduledHidesRun();
        QCOMPARE(stage.triggered, 0);
    }

    void widgetDestroyedWithItsTimerRunning()
    {
        Stage stage(false);
        stage.helper->enableTime(1);
        delete stage.panel;
        QCOMPARE(periodOf(stage.helper), 1);
        QTRY_COMPARE_WITH_TIMEOUT(periodOf(stage.helper), -1, patienceMs);
        QCOMPARE(stage.triggered, 0);
    }

    void helperDestroyedByAnotherOfTheSamePress()
    {
        Stage stage(false);
        const QPointer<KELNonModalhelper> other(new KELNonModalhelper(stage.panel));
        int otherTriggered = 0;
        connect(other, &KELNonModalhelper::triggered, this, [&] { ++otherTriggered; });
        connect(stage.helper, &KELNonModalhelper::triggered, this, [&] { delete other; });
        connect(other, &KELNonModalhelper::triggered, this, [&] { delete stage.helper; });
        stage.pressOutside();
        letScheduledHidesRun();
        QCOMPARE(stage.triggered + otherTriggered, 1);
        QVERIFY(bool(stage.helper) != bool(other));
        delete other;
    }

    void hiddenBySomebodyElseWithinTheDelay_data()
    {
        QTest::addColumn<bool>("madeByStaticShow");

        QTest::newRow("own helper") << false;
        QTest::newRow("helper of the static show()") << true;
    }

    void hiddenBySomebodyElseWithinTheDelay()
    {
        QFETCH(bool, madeByStaticShow);
        Stage stage(madeByStaticShow);
        stage.pressOutside();
        stage.panel->hide();
        QCOMPARE(stage.triggered, 0);
        letScheduledHidesRun();
        QCOMPARE(stage.triggered, 1);
        QCOMPARE(stage.panel->hides, 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(stage.helper.isNull(), madeByStaticShow);
    }

    void shownAgainWithinTheDelay()
    {
        // A fresh helper does not inherit the hide that its predecessor has scheduled.
        Stage stage(true);
        const HelperWatch watch;
        stage.pressOutside();
        stage.panel->hide();
        KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, false, 0);
        letScheduledHidesRun();
        QVERIFY(!stage.helper);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(stage.triggered, 0);
        QVERIFY(stage.panel->isVisible());
    }

    void newWidgetAtTheSamePlace()
    {
        // The address of a destroyed widget says nothing.
        alignas(CountingWidget) unsigned char memory[sizeof(CountingWidget)];
        const HelperWatch watch;
        auto *widget = new (memory) CountingWidget;
        KELNonModalhelper::show(widget, KELNonModalhelper::TriggerScreen, true, longPeriodMs);
        widget->~CountingWidget();
        widget = new (memory) CountingWidget;
        KELNonModalhelper::show(widget, KELNonModalhelper::TriggerNone, false, 0);
        QCOMPARE(watch.made.size(), 2);
        QCOMPARE(watch.alive(), 1);
        QCOMPARE(watch.last()->triggerSource(), KELNonModalhelper::TriggerNone);
        widget->~CountingWidget();
        QCOMPARE(watch.alive(), 0);
    }

    void manyHelpersLeaveNothingBehind()
    {
        const HelperWatch watch;
        PanelInWindow stage;
        for (int i = 0; i < 20; ++i) {
            KELNonModalhelper::show(stage.panel, KELNonModalhelper::TriggerParent, true,
                                    longPeriodMs);
            QCOMPARE(watch.alive(), 1);
            stage.pressOutside();
            letScheduledHidesRun();
            QVERIFY(stage.panel->isHidden());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(watch.alive(), 0);
        }
        QCOMPARE(watch.made.size(), 20);
    }

    void endOfTheProcess_data()
    {
        QTest::addColumn<QString>("way");

        for (const LeavingProcess::Way &way : LeavingProcess::ways)
            QTest::newRow(way.name) << QString::fromLatin1(way.name);
    }

    void endOfTheProcess()
    {
        QFETCH(QString, way);
        const LeavingProcess::Result result = LeavingProcess::start(way);
        QCOMPARE(result.output, u"left\n"_s);
        QCOMPARE(result.exitCode, 0);
    }
};

int main(int argc, char *argv[])
{
    if (argc == 3 && qstrcmp(argv[1], "--leave") == 0)
        return LeavingProcess::run(argv[2], argc, argv);
    QApplication app(argc, argv);
    tst_KELNonModalhelperLifetime test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_kelnonmodalhelperlifetime.moc"
