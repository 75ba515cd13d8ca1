// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dialogstage.h"
#include "xserver.h"

#include <kelpushbutton.h>

#include <QtCore/QAbstractEventDispatcher>

#include <limits>

namespace {

using Helper = KELNonModalhelper;

// Finds the helper of a panel by the end of a period.
class HelperFinder : public QObject
{
public:
    HelperFinder() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Timer && qobject_cast<Helper *>(watched))
            helper = static_cast<Helper *>(watched);
        return QObject::eventFilter(watched, event);
    }

    // The periods that run, in milliseconds.
    QList<int> periods() const
    {
        QList<int> intervals;
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(helper);
        for (const auto &timer : timers)
            intervals.append(timer.interval);
        return intervals;
    }

    QPointer<Helper> helper;
};

void addInputs()
{
    QTest::addColumn<Input>("input");
    QTest::newRow("mouse") << Input::Mouse;
    QTest::newRow("touch") << Input::Touch;
}

} // namespace

Q_DECLARE_METATYPE(Input)

class tst_KELNonModalDialogClosing : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressOutsideClosesIt_data() { addInputs(); }

    void pressOutsideClosesIt()
    {
        QFETCH(Input, input);
        Finger finger(input);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        QVERIFY(panel.showAndWait());
        bool wasHidden = false;
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { wasHidden = panel.isHidden(); });
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        finger.tap(&ground, ground.centre());
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(wasHidden);
        QVERIFY(panel.isHidden());
        QVERIFY(ground.isVisible());
        finger.tap(&ground, ground.centre());
        waitForTheHide();
        QCOMPARE(disappeared.count(), 1);
    }

    void pressOutsideReachesItsTarget_data() { addInputs(); }

    void pressOutsideReachesItsTarget()
    {
        QFETCH(Input, input);
        Finger finger(input);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        QVERIFY(panel.showAndWait());
        finger.tap(&ground, ground.centre());
        QCOMPARE(ground.presses, 1);
        QTRY_VERIFY_WITH_TIMEOUT(panel.isHidden(), patienceMs);
        QCOMPARE(ground.presses, 1);
    }

    void pressInsideKeepsIt_data() { addInputs(); }

    void pressInsideKeepsIt()
    {
        QFETCH(Input, input);
        Finger finger(input);
        Panel panel;
        QVERIFY(panel.showAndWait());
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        const QRect rect = panel.rect();
        for (const QPoint &pos : {rect.center(), rect.topLeft(), rect.bottomRight()}) {
            finger.tap(&panel, pos);
            waitForTheHide();
            QVERIFY(panel.isVisible());
        }
        QCOMPARE(disappeared.count(), 0);
    }

    void pressOnAnotherPanelClosesIt_data() { addInputs(); }

    void pressOnAnotherPanelClosesIt()
    {
        QFETCH(Input, input);
        Finger finger(input);
        Panel panel;
        Panel other;
        other.move(20, 20);
        QVERIFY(panel.showAndWait());
        QVERIFY(other.showAndWait());
        const QSignalSpy otherDisappeared(&other, &KELNonModalDialog::disappeared);
        finger.tap(&other, other.centre());
        QTRY_VERIFY_WITH_TIMEOUT(panel.isHidden(), patienceMs);
        waitForTheHide();
        QVERIFY(other.isVisible());
        QCOMPARE(otherDisappeared.count(), 0);
    }

    void onePressIsIgnored_data() { addInputs(); }

    void onePressIsIgnored()
    {
        QFETCH(Input, input);
        Finger finger(input);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        QVERIFY(panel.showAndWait());
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        panel.ignoreOnce();
        panel.ignoreOnce();
        finger.tap(&ground, ground.centre());
        waitForTheHide();
        QVERIFY(panel.isVisible());
        QCOMPARE(disappeared.count(), 0);
        finger.tap(&ground, ground.centre());
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(panel.isHidden());
    }

    void pressClosesNothingWithoutSource()
    {
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        panel.setTriggerSource(Helper::TriggerNone);
        QVERIFY(panel.showAndWait());
        Finger(Input::Mouse).tap(&ground, ground.centre());
        waitForTheHide();
        QVERIFY(panel.isVisible());
    }

    void childClosesInAFullScreenWindow()
    {
        Finger finger(Input::Touch);
        Ground screen;
        screen.resize(700, 500);
        Panel panel(QString(), nullptr, &screen);
        QVERIFY(screen.showAndWait());
        panel.show();
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        finger.tap(&screen, panel.geometry().center());
        waitForTheHide();
        QVERIFY(panel.isVisible());
        finger.tap(&screen, QPoint(100, 100));
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(panel.isHidden());
    }

    void childClosesOnAPressOnItsParent()
    {
        Finger finger(Input::Touch);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Ground parent;
        parent.setGeometry(280, 20, 400, 400);
        Panel panel(QString(), nullptr, &parent);
        panel.setTriggerSource(Helper::TriggerParent);
        panel.move(100, 100);
        QVERIFY(parent.showAndWait());
        panel.show();
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        finger.tap(&ground, ground.centre());
        finger.tap(&parent, panel.geometry().center());
        waitForTheHide();
        QVERIFY(panel.isVisible());
        finger.tap(&parent, QPoint(20, 20));
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(panel.isHidden());
        QVERIFY(parent.isVisible());
    }

    void isShownAndClosedAgain_data() { addInputs(); }

    void isShownAndClosedAgain()
    {
        QFETCH(Input, input);
        Finger finger(input);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        const KELRoundRectControl *const content = panel.content();
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        for (int round = 1; round <= 3; ++round) {
            if (round == 2)
                KELNonModalDialog::showOne(&panel);
            else
                panel.show();
            QVERIFY(QTest::qWaitForWindowExposed(&panel));
            finger.tap(&ground, ground.centre());
            QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), round, patienceMs);
            QVERIFY(panel.isHidden());
            QCOMPARE(panel.content(), content);
        }
    }

    void buttonOpensAndCloses_data()
    {
        QTest::addColumn<Input>("input");
        QTest::addColumn<bool>("slow");
        QTest::newRow("mouse, quickly") << Input::Mouse << false;
        QTest::newRow("mouse, slowly") << Input::Mouse << true;
        QTest::newRow("touch, quickly") << Input::Touch << false;
        QTest::newRow("touch, slowly") << Input::Touch << true;
    }

    void buttonOpensAndCloses()
    {
        QFETCH(Input, input);
        QFETCH(bool, slow);
        KelTestView bar(QSize(250, 150));
        auto *button = new KELPushButton;
        button->setboundRect(20, 20, 120, 50);
        bar.ownScene.addItem(button);
        bar.QWidget::move(0, 0);
        QVERIFY(bar.showAndWait());
        Panel panel;
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        connect(button, &KELPushButton::mousePress, &panel, [&] {
            if (panel.isVisible())
                panel.ignoreOnce();
        });
        connect(button, &KELPushButton::mouseClicked, &panel,
                [&] { panel.setVisible(!panel.isVisible()); });

        Finger finger(input);
        QList<bool> visible;
        for (int i = 0; i < 3; ++i) {
            finger.press(&bar, bar.centreOf(button));
            if (slow)
                waitForTheHide();
            finger.release(&bar, bar.centreOf(button));
            waitForTheHide();
            visible.append(panel.isVisible());
        }
        QCOMPARE(visible, QList<bool>({true, false, true}));
        QCOMPARE(disappeared.count(), 0);
        // A press beside the button closes it all the same.
        finger.tap(&bar, QPoint(200, 120));
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(panel.isHidden());
    }

    void periodHasItsLength_data()
    {
        QTest::addColumn<int>("ms");
        QTest::addColumn<int>("expectedMs");
        QTest::newRow("given") << 2000 << 2000;
        QTest::newRow("one") << 1 << 1;
        QTest::newRow("long") << 3600000 << 3600000;
        QTest::newRow("zero") << 0 << 3000;
        QTest::newRow("negative") << -5 << 3000;
        QTest::newRow("smallest") << std::numeric_limits<int>::min() << 3000;
    }

    void periodHasItsLength()
    {
        QFETCH(int, ms);
        QFETCH(int, expectedMs);
        const HelperFinder finder;
        Panel panel;
        panel.enableTime(1);
        panel.show();
        QTRY_VERIFY_WITH_TIMEOUT(panel.isHidden(), patienceMs);
        QVERIFY(finder.helper);
        panel.enableTime(ms);
        QCOMPARE(finder.periods(), QList<int>());
        panel.show();
        QCOMPARE(finder.periods(), QList<int>({expectedMs}));
        // While it is visible the period is changed at once.
        panel.enableTime(7000);
        QCOMPARE(finder.periods(), QList<int>({7000}));
    }

    void periodBeginsWhenShown_data()
    {
        QTest::addColumn<bool>("withShowOne");
        QTest::addColumn<bool>("visibleBefore");
        QTest::newRow("show") << false << false;
        QTest::newRow("showOne") << true << false;
        QTest::newRow("enabled while visible") << false << true;
    }

    void periodBeginsWhenShown()
    {
        QFETCH(bool, withShowOne);
        QFETCH(bool, visibleBefore);
        constexpr int periodMs = 120;
        Panel panel;
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        qint64 closedAfterMs = -1;
        QElapsedTimer stopwatch;
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { closedAfterMs = stopwatch.elapsed(); });
        if (visibleBefore)
            panel.show();
        else
            panel.enableTime(periodMs);
        // A hidden panel has no period.
        wait(2 * periodMs);
        QCOMPARE(disappeared.count(), 0);

        stopwatch.start();
        if (visibleBefore)
            panel.enableTime(periodMs);
        else if (withShowOne)
            KELNonModalDialog::showOne(&panel);
        else
            panel.show();
        // Shorter than this and longer than the period: it has ended then.
        wait(periodMs + 20);
        QCOMPARE(disappeared.count(), 1);
        QVERIFY(panel.isHidden());
        // Qt's timers count whole milliseconds.
        QVERIFY2(closedAfterMs >= periodMs - 2, qPrintable(QString::number(closedAfterMs)));
    }

    void periodBeginsAnewWhenShownAgain()
    {
        constexpr int periodMs = 200;
        Panel panel;
        panel.enableTime(periodMs);
        panel.show();
        QElapsedTimer stopwatch;
        // In the middle of the first period.
        QTimer::singleShot(periodMs / 2, Qt::PreciseTimer, &panel, [&] {
            panel.hide();
            stopwatch.start();
            panel.show();
        });
        qint64 closedAfterMs = -1;
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { closedAfterMs = stopwatch.elapsed(); });
        QTRY_VERIFY_WITH_TIMEOUT(closedAfterMs >= 0, patienceMs);
        QVERIFY2(closedAfterMs >= periodMs - 2, qPrintable(QString::number(closedAfterMs)));
    }

    void pressInsideRestartsThePeriod_data() { addInputs(); }

    void pressInsideRestartsThePeriod()
    {
        QFETCH(Input, input);
        constexpr int periodMs = 200;
        Finger finger(input);
        Panel panel;
        QVERIFY(panel.showAndWait());
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        qint64 closedAfterMs = -1;
        QElapsedTimer stopwatch;
        panel.enableTime(periodMs);
        // Called before the period ends, even if both times are over.
        QTimer::singleShot(periodMs / 2, Qt::PreciseTimer, &panel, [&] {
            stopwatch.start();
            finger.tap(&panel, panel.centre());
        });
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { closedAfterMs = stopwatch.elapsed(); });
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(stopwatch.isValid());
        QVERIFY2(closedAfterMs >= periodMs - 2, qPrintable(QString::number(closedAfterMs)));
    }

    void staysWithoutPeriod()
    {
        const HelperFinder finder;
        Panel panel;
        QVERIFY(panel.showAndWait());
        Finger(Input::Mouse).tap(&panel, panel.centre());
        wait(100);
        QVERIFY(panel.isVisible());
        QVERIFY(!finder.helper);
    }

    void helperDiesWithThePanel()
    {
        const HelperFinder finder;
        auto panel = std::make_unique<Panel>();
        panel->enableTime(1);
        panel->show();
        QTRY_VERIFY_WITH_TIMEOUT(panel->isHidden(), patienceMs);
        QVERIFY(finder.helper);
        QCOMPARE(finder.helper->parent(), nullptr);
        panel.reset();
        QVERIFY(!finder.helper);
    }

    void closesOnce_data()
    {
        QTest::addColumn<bool>("pressFirst");
        QTest::newRow("by a press before the period ends") << true;
        QTest::newRow("by the period before a press") << false;
    }

    void closesOnce()
    {
        QFETCH(bool, pressFirst);
        Finger finger(Input::Touch);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        QVERIFY(panel.showAndWait());
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        panel.enableTime(pressFirst ? 150 : 1);
        if (!pressFirst)
            QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        finger.tap(&ground, ground.centre());
        wait(200);
        QCOMPARE(disappeared.count(), 1);
        QVERIFY(panel.isHidden());
    }

    void hiddenByTheApplicationReportsNothing_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("hide()") << false;
        QTest::newRow("close()") << true;
    }

    void hiddenByTheApplicationReportsNothing()
    {
        QFETCH(bool, closed);
        Ground ground;
        QVERIFY(ground.showAndWait());
        Panel panel;
        QVERIFY(panel.showAndWait());
        const QSignalSpy disappeared(&panel, &KELNonModalDialog::disappeared);
        panel.enableTime(50);
        if (closed)
            panel.close();
        else
            panel.hide();
        QVERIFY(panel.isHidden());
        Finger(Input::Mouse).tap(&ground, ground.centre());
        wait(100);
        QCOMPARE(disappeared.count(), 0);
    }
};

int main(int argc, char *argv[])
{
    const XServer server;
    QApplication app(argc, argv);
    tst_KELNonModalDialogClosing test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_kelnonmodaldialogclosing.moc"
