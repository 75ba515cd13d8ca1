// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dialogstage.h"
#include "xserver.h"

#include <kelpushbutton.h>

#include <QtCore/QElapsedTimer>

#include <limits>

class tst_KELNonModalDialogClosing : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressOutsideClosesIt_data() { addRows({{"input", inputs}}); }

    void pressOutsideClosesIt()
    {
        DialogStage stage(fetch<Input>("input"));
        bool wasHidden = false;
        stage.log.on(u"disappeared"_s, [&] { wasHidden = stage.panel->isHidden(); });
        stage.tapOutside();
        QTRY_COMPARE_WITH_TIMEOUT(stage.disappeared(), 1, patienceMs);
        QVERIFY(wasHidden);
        QVERIFY(stage.panel->isHidden());
        QVERIFY(stage.ground.isVisible());
        QCOMPARE(stage.ground.presses, 1);
        stage.tapOutside();
        waitForTheHide();
        QCOMPARE(stage.disappeared(), 1);
    }

    void pressInsideKeepsIt_data() { addRows({{"input", inputs}}); }

    void pressInsideKeepsIt()
    {
        DialogStage stage(fetch<Input>("input"));
        const QRect rect = stage.panel->rect();
        for (const QPoint &pos : {rect.center(), rect.topLeft(), rect.bottomRight()}) {
            stage.hand.tap(stage.panel, pos);
            waitForTheHide();
            QVERIFY(stage.panel->isVisible());
        }
        QCOMPARE(stage.disappeared(), 0);
    }

    void pressOnAnotherPanelClosesIt_data() { addRows({{"input", inputs}}); }

    void pressOnAnotherPanelClosesIt()
    {
        DialogStage stage(fetch<Input>("input"));
        Panel other;
        other.move(20, 20);
        showAndWait(&other);
        const QSignalSpy otherDisappeared(&other, &KELNonModalDialog::disappeared);
        stage.hand.tap(&other, other.rect().center());
        QTRY_VERIFY_WITH_TIMEOUT(stage.panel->isHidden(), patienceMs);
        waitForTheHide();
        QVERIFY(other.isVisible());
        QCOMPARE(otherDisappeared.count(), 0);
    }

    void onePressIsIgnored_data() { addRows({{"input", inputs}}); }

    void onePressIsIgnored()
    {
        DialogStage stage(fetch<Input>("input"));
        stage.panel->ignoreOnce();
        stage.panel->ignoreOnce();
        stage.tapOutside();
        waitForTheHide();
        QVERIFY(stage.panel->isVisible());
        QCOMPARE(stage.disappeared(), 0);
        stage.tapOutside();
        QTRY_COMPARE_WITH_TIMEOUT(stage.disappeared(), 1, patienceMs);
        QVERIFY(stage.panel->isHidden());
    }

    void pressClosesNothingWithoutSource()
    {
        DialogStage stage;
        stage.panel->setTriggerSource(Helper::TriggerNone);
        stage.tapOutside();
        waitForTheHide();
        QVERIFY(stage.panel->isVisible());
    }

    void childClosesOnAPressBesideIt_data()
    {
        addRows({{"source",
                  {{"anywhere, in a full-screen window", Helper::TriggerScreen},
                   {"on its parent", Helper::TriggerParent}}}});
    }

    void childClosesOnAPressBesideIt()
    {
        const auto source = fetch<Helper::TriggerSource>("source");
        const bool byParent = source == Helper::TriggerParent;
        DialogStage stage;
        Ground parent(byParent ? QRect(280, 20, 400, 400) : QRect(0, 0, 700, 500));
        Panel child(QString(), nullptr, &parent);
        child.setTriggerSource(source);
        child.move(byParent ? QPoint(100, 100) : QPoint(300, 200));
        child.show();
        showAndWait(&parent);
        const QSignalSpy disappeared(&child, &KELNonModalDialog::disappeared);
        if (byParent)
            stage.tapOutside();
        stage.hand.tap(&parent, child.geometry().center());
        waitForTheHide();
        QVERIFY(child.isVisible());
        stage.hand.tap(&parent, QPoint(20, 20));
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(child.isHidden());
        QVERIFY(parent.isVisible());
    }

    void isShownAndClosedAgain_data() { addRows({{"input", inputs}}); }

    void isShownAndClosedAgain()
    {
        DialogStage stage(fetch<Input>("input"));
        const KELRoundRectControl *const content = stage.panel->content();
        for (int round = 1; round <= 3; ++round) {
            if (round == 2)
                KELNonModalDialog::showOne(stage.panel);
            showAndWait(stage.panel);
            stage.tapOutside();
            QTRY_COMPARE_WITH_TIMEOUT(stage.disappeared(), round, patienceMs);
            QVERIFY(stage.panel->isHidden());
            QCOMPARE(stage.panel->content(), content);
        }
    }

    void buttonOpensAndCloses_data()
    {
        addRows({{"input", inputs}, {"slow", {{"quickly", false}, {"slowly", true}}}});
    }

    void buttonOpensAndCloses()
    {
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

        WindowHand hand(fetch<Input>("input"));
        QList<bool> visible;
        for (int i = 0; i < 3; ++i) {
            hand.press(&bar, bar.centreOf(button));
            if (fetch<bool>("slow"))
                waitForTheHide();
            hand.release();
            waitForTheHide();
            visible.append(panel.isVisible());
        }
        QCOMPARE(visible, QList<bool>({true, false, true}));
        QCOMPARE(disappeared.count(), 0);
        // A press beside the button closes it all the same.
        hand.tap(&bar, QPoint(200, 120));
        QTRY_COMPARE_WITH_TIMEOUT(disappeared.count(), 1, patienceMs);
        QVERIFY(panel.isHidden());
    }

    void periodHasItsLength_data()
    {
        addRows({{"ms",
                  {{"given", 2000},
                   {"one", 1},
                   {"long", longPeriodMs},
                   {"zero", 0},
                   {"negative", -5},
                   {"smallest", std::numeric_limits<int>::min()}}}});
    }

    void periodHasItsLength()
    {
        const int ms = fetch<int>("ms");
        Panel panel;
        panel.enableTime(ms);
        QCOMPARE(panel.period(), -1);
        panel.show();
        QCOMPARE(panel.period(), ms > 0 ? ms : 3000);
        // While it is visible the period is changed at once.
        panel.enableTime(7000);
        QCOMPARE(panel.period(), 7000);
    }

    void periodBeginsWhenShown_data()
    {
        addRows({{"with", {{"show()", 0}, {"showOne()", 1}, {"enableTime() while visible", 2}}}});
    }

    // On the real clock.
    void periodBeginsWhenShown()
    {
        constexpr int periodMs = 120;
        const int with = fetch<int>("with");
        Panel panel;
        QElapsedTimer stopwatch;
        qint64 closedAfterMs = -1;
        connect(&panel, &KELNonModalDialog::disappeared, this,
                [&] { closedAfterMs = stopwatch.elapsed(); });
        if (with == 2)
            panel.show();
        else
            panel.enableTime(periodMs);
        QCOMPARE(panel.period(), -1);
        stopwatch.start();
        if (with == 2)
            panel.enableTime(periodMs);
        else if (with == 1)
            KELNonModalDialog::showOne(&panel);
        else
            panel.show();
        QTRY_VERIFY_WITH_TIMEOUT(closedAfterMs >= 0, patienceMs);
        QVERIFY(panel.isHidden());
        // Qt's timers count whole milliseconds.
        QVERIFY2(closedAfterMs >= periodMs - 2, qPrintable(QString::number(closedAfterMs)));
    }

    void periodBeginsAnewWhenShownAgain()
    {
        Panel panel;
        panel.enableTime(longPeriodMs);
        panel.show();
        panel.hide();
        panel.enableTime(longPeriodMs + 1);
        QCOMPARE(panel.period(), longPeriodMs);
        panel.show();
        QCOMPARE(panel.period(), longPeriodMs + 1);
    }

    // The helper's own tests say that a press ends the running one.
    void pressInsideBeginsThePeriod_data() { addRows({{"input", inputs}}); }

    void pressInsideBeginsThePeriod()
    {
        DialogStage stage(fetch<Input>("input"));
        stage.panel->enableTime(longPeriodMs);
        stage.panel->helper()->stopTime();
        stage.tapInside();
        QCOMPARE(stage.panel->period(), longPeriodMs);
    }

    void staysWithoutPeriod()
    {
        DialogStage stage;
        stage.tapInside();
        QCOMPARE(stage.panel->period(), -1);
        QVERIFY(stage.panel->isVisible());
    }

    void closesOnceByAPressInThePeriod()
    {
        DialogStage stage;
        stage.panel->enableTime(longPeriodMs);
        stage.tapOutside();
        QTRY_COMPARE_WITH_TIMEOUT(stage.disappeared(), 1, patienceMs);
        QCOMPARE(stage.panel->period(), -1);
    }

    void closesOnceByThePeriodBeforeAPress()
    {
        DialogStage stage;
        stage.panel->enableTime(longPeriodMs);
        stage.panel->endPeriod();
        QCOMPARE(stage.disappeared(), 1);
        stage.tapOutside();
        waitForTheHide();
        QCOMPARE(stage.disappeared(), 1);
        QVERIFY(stage.panel->isHidden());
    }

    void hiddenByTheApplicationReportsNothing_data()
    {
        addRows({{"closed", {{"hide()", false}, {"close()", true}}}});
    }

    void hiddenByTheApplicationReportsNothing()
    {
        DialogStage stage;
        stage.panel->enableTime(longPeriodMs);
        if (fetch<bool>("closed"))
            stage.panel->close();
        else
            stage.panel->hide();
        QVERIFY(stage.panel->isHidden());
        stage.tapOutside();
        waitForTheHide();
        stage.panel->endPeriod();
        QCOMPARE(stage.disappeared(), 0);
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
