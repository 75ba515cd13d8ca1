// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"

#include <kelcontentview.h>
#include <keldialogbase.h>

#include <QtCore/QAnimationDriver>
#include <QtCore/QPointer>
#include <QtCore/QPropertyAnimation>

#include <limits>

namespace {

constexpr int shakeMs = 300;
const QRect startRect(200, 186, 400, 250);

// The clock of all animations: it stands still between two calls of goTo().
class Clock : public QAnimationDriver
{
public:
    Clock()
    {
        m_probe.setStartValue(0);
        m_probe.setEndValue(1);
        m_probe.setDuration(std::numeric_limits<int>::max());
        install();
        // Running before the shake begins, so that Qt's clock is, too.
        m_probe.start();
        QCoreApplication::sendPostedEvents();
        advance();
    }

    // Lets what still runs end within the test function.
    ~Clock() override { goTo(time() + 2 * shakeMs); }

    // To be called right after the shake was started: that is 0 ms.
    void begin()
    {
        // Qt takes up what was started when the event loop runs.
        QCoreApplication::sendPostedEvents();
        m_beginMs = m_probe.currentTime();
    }

    // Shows the frame of this time.
    void goTo(int ms)
    {
        m_elapsedMs += ms - time();
        advance();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    int time() const { return m_probe.currentTime() - m_beginMs; }

    qint64 elapsed() const override { return isRunning() ? m_elapsedMs : 0; }

private:
    Q_DISABLE_COPY(Clock)

    qint64 m_elapsedMs = 0;
    int m_beginMs = 0;
    QVariantAnimation m_probe;
};

// What a shake was, read when it is about to delete itself.
struct Shake
{
    QPointer<QPropertyAnimation> animation;
    QPointer<QObject> target;
    QPointer<QObject> parent;
    QByteArray property;
    int durationMs = 0;
    int loops = 0;
    int stoppedAtMs = 0;
    QEasingCurve easing;
    QVariantAnimation::KeyValues keys;
};

// Collects the property animations that delete themselves, and counts the moves of widgets.
class Shakes : public QObject
{
public:
    Shakes() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *const animation = qobject_cast<QPropertyAnimation *>(watched);
        if (event->type() == QEvent::DeferredDelete && animation)
            done.append(Shake{animation, animation->targetObject(), animation->parent(),
                              animation->propertyName(), animation->duration(),
                              animation->loopCount(), animation->currentTime(),
                              animation->easingCurve(), animation->keyValues()});
        moves += event->type() == QEvent::Move && watched->isWidgetType();
        return QObject::eventFilter(watched, event);
    }

    QVector<Shake> done;
    int moves = 0;
};

// The frames of a shake, by hand.
class Plan
{
public:
    explicit Plan(int distance, const QRect &start = startRect)
    {
        const int d = distance;
        const QVector<int> offsets = {0, -d, -d, d, d, -d, -d, d, d, -d, 0};
        m_frames.setEasingCurve(QEasingCurve::InOutSine);
        m_frames.setDuration(shakeMs);
        for (int i = 0; i < offsets.size(); ++i)
            m_frames.setKeyValueAt(i * 0.1, start.translated(offsets.at(i), 0));
    }

    QRect at(int ms)
    {
        m_frames.setCurrentTime(ms);
        return m_frames.currentValue().toRect();
    }

private:
    QVariantAnimation m_frames;
};

// A dialog and the time.
class ShakeStage
{
public:
    explicit ShakeStage(QWidget *parent = nullptr) : dialog(new KELDialogBase(parent)) { }
    ~ShakeStage() { delete dialog; }

    // That is 0 ms.
    void shake(int distance)
    {
        dialog->dialogShake(distance);
        clock.begin();
    }
    void goToEnd() { clock.goTo(shakeMs); }
    // Shows frames up to the end.
    void follow(Plan &&plan, int stepMs = 5)
    {
        for (int ms = stepMs; ms <= shakeMs; ms += stepMs) {
            clock.goTo(ms);
            QCOMPARE(clock.time(), ms);
            QCOMPARE(dialog->geometry(), plan.at(ms));
        }
    }
    // Ends the shake, the only one so far.
    Shake finished()
    {
        goToEnd();
        return shakes.done.size() == 1 ? shakes.done.constFirst() : Shake();
    }

    Shakes shakes;
    const QPointer<KELDialogBase> dialog;
    Clock clock;

private:
    Q_DISABLE_COPY(ShakeStage)
};

} // namespace

class tst_KELDialogBaseShake : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyFrameIsAsPlanned_data()
    {
        addRows({{"distance",
                  {{"1", 1},
                   {"5", 5},
                   {"10", 10},
                   {"37", 37},
                   {"250", 250},
                   {"-1", -1},
                   {"-10", -10},
                   {"-250", -250}}},
                 {"shown", {{"hidden", false}, {"shown", true}}}});
    }

    void everyFrameIsAsPlanned()
    {
        ShakeStage stage;
        stage.dialog->setVisible(fetch<bool>("shown"));
        stage.shake(fetch<int>("distance"));
        QCOMPARE(stage.dialog->geometry(), startRect);
        stage.follow(Plan(fetch<int>("distance")), 1);
        QCOMPARE(stage.dialog->geometry(), startRect);
    }

    void restsAtEachSide_data()
    {
        QTest::addColumn<int>("ms");
        QTest::addColumn<int>("side");

        // In the middle between two equal keys, as far as the easing curve has come then.
        QTest::newRow("left, 15 %") << 76 << -1;
        QTest::newRow("right, 35 %") << 121 << 1;
        QTest::newRow("left, 55 %") << 160 << -1;
        QTest::newRow("right, 75 %") << 200 << 1;
        QTest::newRow("centre, 100 %") << 300 << 0;
    }

    void restsAtEachSide()
    {
        QFETCH(const int, ms);
        QFETCH(const int, side);
        for (const int distance : {40, -40}) {
            ShakeStage stage;
            stage.shake(distance);
            // It stays there for a moment.
            for (const int frame : {ms, ms + 4}) {
                stage.clock.goTo(frame);
                QCOMPARE(stage.dialog->geometry(), startRect.translated(side * distance, 0));
            }
        }
    }

    void firstFramesGoToTheLeft_data()
    {
        addRows({{"distance", {{"positive distance", 100}, {"negative distance", -100}}}});
    }

    void firstFramesGoToTheLeft()
    {
        const int distance = fetch<int>("distance");
        ShakeStage stage;
        stage.shake(distance);
        int last = stage.dialog->x();
        for (const int ms : {16, 32, 48}) {
            stage.clock.goTo(ms);
            QCOMPARE(stage.dialog->x() < last, distance > 0);
            QVERIFY(stage.dialog->x() != last);
            last = stage.dialog->x();
        }
    }

    void animatesTheGeometry()
    {
        ShakeStage stage;
        stage.shake(12);
        const Shake shake = stage.finished();
        QCOMPARE(shake.target.data(), stage.dialog.data());
        QCOMPARE(shake.property, QByteArray("geometry"));
        QCOMPARE(shake.parent.data(), nullptr);
        QCOMPARE(shake.durationMs, shakeMs);
        QCOMPARE(shake.loops, 1);
        QCOMPARE(shake.easing.type(), QEasingCurve::InOutSine);
    }

    void keysAreHeldInPairs()
    {
        ShakeStage stage;
        stage.shake(12);
        QStringList keys;
        for (const auto &key : stage.finished().keys) {
            const QRect rect = key.second.toRect();
            keys.append(u"%1:%2"_s.arg(key.first).arg(rect.x() - startRect.x()));
            QCOMPARE(rect.y(), startRect.y());
            QCOMPARE(rect.size(), startRect.size());
        }
        QCOMPARE(keys.join(QLatin1Char(' ')),
                 u"0:0 0.1:-12 0.2:-12 0.3:12 0.4:12 0.5:-12 0.6:-12 0.7:12 0.8:12 "
                 "0.9:-12 1:0"_s);
    }

    void takesItsTimeAndDeletesItself()
    {
        ShakeStage stage;
        stage.shake(12);
        stage.clock.goTo(shakeMs - 1);
        QCOMPARE(stage.shakes.done.size(), 0);
        QCOMPARE(stage.finished().stoppedAtMs, shakeMs);
        QVERIFY(!stage.shakes.done.constFirst().animation);
        QCOMPARE(stage.dialog->geometry(), startRect);
        stage.shakes.moves = 0;
        stage.clock.goTo(3 * shakeMs);
        QCOMPARE(stage.shakes.moves, 0);
    }

    void takesThatTimeOnTheRealClock()
    {
        const Shakes shakes;
        KELDialogBase dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QElapsedTimer stopwatch;
        stopwatch.start();
        dialog.dialogShake(12);
        QTRY_COMPARE_WITH_TIMEOUT(shakes.done.size(), 1, 60000);
        // Qt's clock counts whole milliseconds.
        QVERIFY2(stopwatch.elapsed() >= shakeMs - 2,
                 qPrintable(QString::number(stopwatch.elapsed())));
        QCOMPARE(dialog.geometry(), startRect);
    }

    void zeroDistanceRunsInPlace()
    {
        ShakeStage stage;
        stage.dialog->show();
        stage.shakes.moves = 0;
        stage.shake(0);
        for (int ms = 10; ms < shakeMs; ms += 10) {
            stage.clock.goTo(ms);
            QCOMPARE(stage.dialog->geometry(), startRect);
            QCOMPARE(stage.shakes.done.size(), 0);
        }
        const QVariantAnimation::KeyValues keys = stage.finished().keys;
        QCOMPARE(keys.size(), 11);
        for (const auto &key : keys)
            QCOMPARE(key.second.toRect(), startRect);
        QCOMPARE(stage.shakes.moves, 0);
    }

    void startsWhereTheDialogIs_data()
    {
        QTest::addColumn<QRect>("place");
        QTest::newRow("elsewhere") << QRect(20, 30, 400, 250);
        QTest::newRow("in another size") << QRect(200, 186, 300, 500);
        QTest::newRow("at the corner") << QRect(0, 0, 100, 100);
        QTest::newRow("partly outside the screen") << QRect(-150, -60, 400, 250);
    }

    void startsWhereTheDialogIs()
    {
        QFETCH(const QRect, place);
        ShakeStage stage;
        stage.dialog->setGeometry(place);
        stage.shake(25);
        stage.follow(Plan(25, place));
        QCOMPARE(stage.dialog->geometry(), place);
    }

    void placeIsReadOnce_data()
    {
        QTest::addColumn<QRect>("changed");
        QTest::newRow("moved") << QRect(500, 400, 400, 250);
        QTest::newRow("resized") << QRect(startRect.topLeft(), QSize(100, 90));
    }

    void placeIsReadOnce()
    {
        QFETCH(const QRect, changed);
        ShakeStage stage;
        stage.shake(25);
        stage.clock.goTo(50);
        stage.dialog->setGeometry(changed);
        QCOMPARE(stage.dialog->geometry(), changed);
        stage.clock.goTo(60);
        QCOMPARE(stage.dialog->geometry(), Plan(25).at(60));
        stage.goToEnd();
        QCOMPARE(stage.dialog->geometry(), startRect);
    }

    void secondShakeBeginsAtThePlaceReached_data()
    {
        addRows({{"ms",
                  {{"at once", 0},
                   {"at the left", 76},
                   {"at the right", 121},
                   {"between the sides", 140},
                   {"at the last moment", 299}}}});
    }

    void secondShakeBeginsAtThePlaceReached()
    {
        const int ms = fetch<int>("ms");
        ShakeStage stage;
        stage.shake(40);
        if (ms > 0)
            stage.clock.goTo(ms);
        const QRect reached = stage.dialog->geometry();
        QCOMPARE(reached, Plan(40).at(ms));
        stage.shake(-15);
        stage.clock.goTo(5);
        // The first one has given way.
        QCOMPARE(stage.shakes.done.size(), 1);
        QCOMPARE(stage.shakes.done.constFirst().stoppedAtMs, ms);
        QVERIFY(!stage.shakes.done.constFirst().animation);
        stage.clock.goTo(shakeMs - 1);
        QCOMPARE(stage.shakes.done.size(), 1);
        stage.goToEnd();
        QCOMPARE(stage.shakes.done.size(), 2);
        QCOMPARE(stage.dialog->geometry(), reached);
    }

    void secondShakeIsAsPlanned_data() { secondShakeBeginsAtThePlaceReached_data(); }

    void secondShakeIsAsPlanned()
    {
        ShakeStage stage;
        stage.shake(40);
        if (fetch<int>("ms") > 0)
            stage.clock.goTo(fetch<int>("ms"));
        const QRect reached = stage.dialog->geometry();
        stage.shake(-15);
        stage.follow(Plan(-15, reached));
    }

    void shakesAgainAfterwards()
    {
        ShakeStage stage;
        for (int distance = 10; distance <= 30; distance += 10) {
            stage.shake(distance);
            stage.follow(Plan(distance));
            QCOMPARE(stage.dialog->geometry(), startRect);
            QCOMPARE(stage.shakes.done.size(), distance / 10);
        }
    }

    void dialogsShakeIndependently()
    {
        ShakeStage stage;
        KELDialogBase other;
        Plan otherPlan(-33);
        other.dialogShake(-33);
        stage.shake(10);
        for (int ms = 5; ms <= shakeMs; ms += 5) {
            stage.clock.goTo(ms);
            QCOMPARE(stage.dialog->geometry(), Plan(10).at(ms));
            QCOMPARE(other.geometry(), otherPlan.at(ms));
        }
    }

    void childDialogShakesInItsParent()
    {
        const QRect place(100, 100, 700, 500);
        QWidget parent;
        parent.setGeometry(place);
        ShakeStage stage(&parent);
        parent.show();
        stage.shake(40);
        stage.follow(Plan(40));
        QCOMPARE(parent.geometry(), place);
    }

    void hugeDistancesComeBack_data()
    {
        addRows({{"distance",
                  {{"largest", std::numeric_limits<int>::max()},
                   {"smallest", std::numeric_limits<int>::min()},
                   {"next to the smallest", -std::numeric_limits<int>::max()},
                   {"one thousand million", 1000000000}}}});
    }

    void hugeDistancesComeBack()
    {
        ShakeStage stage;
        stage.dialog->show();
        stage.shake(fetch<int>("distance"));
        for (int ms = 10; ms <= shakeMs; ms += 10) {
            stage.clock.goTo(ms);
            QCOMPARE(stage.dialog->y(), startRect.y());
            QCOMPARE(stage.dialog->size(), startRect.size());
        }
        QCOMPARE(stage.dialog->geometry(), startRect);
        QCOMPARE(stage.shakes.done.size(), 1);
    }

    void closedDialogComesToRest_data()
    {
        addRows(
            {{"result",
              {{"closed", -1}, {"rejected", QDialog::Rejected}, {"accepted", QDialog::Accepted}}}});
    }

    void closedDialogComesToRest()
    {
        const int result = fetch<int>("result");
        ShakeStage stage;
        stage.dialog->show();
        stage.shake(40);
        stage.clock.goTo(76);
        if (result < 0)
            stage.dialog->close();
        else
            stage.dialog->done(result);
        QVERIFY(stage.dialog->isHidden());
        stage.goToEnd();
        QVERIFY(stage.dialog->isHidden());
        QCOMPARE(stage.dialog->geometry(), startRect);
        QCOMPARE(stage.shakes.done.size(), 1);
        stage.dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(stage.dialog));
        QCOMPARE(stage.dialog->geometry(), startRect);
    }

    void modalDialogShakes()
    {
        ShakeStage stage;
        QTimer::singleShot(0, stage.dialog, [&] {
            stage.shake(40);
            stage.follow(Plan(40));
            stage.dialog->accept();
        });
        QCOMPARE(stage.dialog->exec(), int(QDialog::Accepted));
        QCOMPARE(stage.shakes.done.size(), 1);
    }

    void dialogDeletedWhileShaking_data()
    {
        addRows(
            {{"shakes", {{"once", 1}, {"twice", 2}}},
             {"ms", {{"at once", 0}, {"after some frames", 76}, {"before the last frame", 299}}}});
    }

    void dialogDeletedWhileShaking()
    {
        const int ms = fetch<int>("ms");
        ShakeStage stage;
        stage.dialog->show();
        for (int i = 1; i <= fetch<int>("shakes"); ++i)
            stage.shake(10 * i);
        if (ms > 0)
            stage.clock.goTo(ms);
        delete stage.dialog;
        stage.clock.goTo(ms < shakeMs - 1 ? shakeMs - 1 : shakeMs);
        for (const Shake &shake : qAsConst(stage.shakes.done))
            QVERIFY(!shake.animation);
        const int stopped = stage.shakes.done.size();
        stage.clock.goTo(3 * shakeMs);
        QCOMPARE(stage.shakes.done.size(), stopped);
    }

    void dialogDeletedLater()
    {
        ShakeStage stage;
        stage.dialog->show();
        stage.shake(40);
        stage.dialog->deleteLater();
        stage.clock.goTo(50);
        QVERIFY(!stage.dialog);
        stage.goToEnd();
    }

    void applicationTakesOverTheGeometry()
    {
        ShakeStage stage;
        stage.shake(40);
        stage.clock.goTo(76);
        // Qt lets one animation at a time change a property.
        const QRect target(0, 0, 400, 250);
        QPropertyAnimation flight(stage.dialog, "geometry");
        flight.setEndValue(target);
        flight.setDuration(100);
        flight.start();
        stage.clock.begin();
        stage.clock.goTo(100);
        QCOMPARE(stage.dialog->geometry(), target);
        QCOMPARE(stage.shakes.done.size(), 1);
        stage.clock.goTo(400);
        QCOMPARE(stage.dialog->geometry(), target);
    }
};

KEL_TEST_MAIN(tst_KELDialogBaseShake)
#include "tst_keldialogbaseshake.moc"
