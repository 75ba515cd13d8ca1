// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelcontentview.h>
#include <keldialogbase.h>

#include <QtCore/QAnimationDriver>
#include <QtCore/QPointer>
#include <QtCore/QPropertyAnimation>

#include <limits>
#include <memory>

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

// Collects the property animations that delete themselves.
class Shakes : public QObject
{
public:
    Shakes() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::DeferredDelete) {
            if (auto *animation = qobject_cast<QPropertyAnimation *>(watched))
                note(animation);
        }
        return QObject::eventFilter(watched, event);
    }

    QVector<Shake> done;

private:
    void note(QPropertyAnimation *animation)
    {
        Shake shake;
        shake.animation = animation;
        shake.target = animation->targetObject();
        shake.parent = animation->parent();
        shake.property = animation->propertyName();
        shake.durationMs = animation->duration();
        shake.loops = animation->loopCount();
        shake.stoppedAtMs = animation->currentTime();
        shake.easing = animation->easingCurve();
        shake.keys = animation->keyValues();
        done.append(shake);
    }
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

    QVariantAnimation::KeyValues keys() const { return m_frames.keyValues(); }

private:
    QVariantAnimation m_frames;
};

// Where a widget was moved to.
class MoveRecorder : public QObject
{
public:
    explicit MoveRecorder(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Move)
            places.append(static_cast<QMoveEvent *>(event)->pos());
        return QObject::eventFilter(watched, event);
    }
    QVector<QPoint> places;
};

} // namespace

class tst_KELDialogBaseShake : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyFrameIsAsPlanned_data()
    {
        QTest::addColumn<int>("distance");
        QTest::addColumn<bool>("shown");

        for (const int distance : {1, 5, 10, 37, 250, -1, -10, -250}) {
            QTest::addRow("%d, hidden", distance) << distance << false;
            QTest::addRow("%d, shown", distance) << distance << true;
        }
    }

    void everyFrameIsAsPlanned()
    {
        QFETCH(int, distance);
        QFETCH(bool, shown);
        KELDialogBase dialog;
        dialog.setVisible(shown);
        Clock clock;
        Plan plan(distance);
        dialog.dialogShake(distance);
        QCOMPARE(dialog.geometry(), startRect);
        clock.begin();
        for (int ms = 1; ms <= shakeMs; ++ms) {
            clock.goTo(ms);
            QCOMPARE(clock.time(), ms);
            QCOMPARE(dialog.geometry(), plan.at(ms));
        }
        QCOMPARE(dialog.geometry(), startRect);
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
        QFETCH(int, ms);
        QFETCH(int, side);
        for (const int distance : {40, -40}) {
            KELDialogBase dialog;
            Clock clock;
            dialog.dialogShake(distance);
            clock.begin();
            clock.goTo(ms);
            QCOMPARE(dialog.geometry(), startRect.translated(side * distance, 0));
            // It stays there for a moment.
            clock.goTo(ms + 4);
            QCOMPARE(dialog.geometry(), startRect.translated(side * distance, 0));
        }
    }

    void firstFramesGoToTheLeft_data()
    {
        QTest::addColumn<int>("distance");
        QTest::addColumn<bool>("toTheLeft");

        QTest::newRow("positive distance") << 100 << true;
        QTest::newRow("negative distance") << -100 << false;
    }

    void firstFramesGoToTheLeft()
    {
        QFETCH(int, distance);
        QFETCH(bool, toTheLeft);
        KELDialogBase dialog;
        Clock clock;
        dialog.dialogShake(distance);
        clock.begin();
        int last = dialog.x();
        for (const int ms : {16, 32, 48}) {
            clock.goTo(ms);
            QCOMPARE(dialog.x() < last, toTheLeft);
            QVERIFY(dialog.x() != last);
            last = dialog.x();
        }
    }

    void animatesTheGeometry()
    {
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        dialog.dialogShake(12);
        clock.begin();
        clock.goTo(shakeMs);
        QCOMPARE(shakes.done.size(), 1);
        const Shake shake = shakes.done.constFirst();
        QCOMPARE(shake.target.data(), &dialog);
        QCOMPARE(shake.property, QByteArray("geometry"));
        QCOMPARE(shake.parent.data(), nullptr);
        QCOMPARE(shake.durationMs, shakeMs);
        QCOMPARE(shake.loops, 1);
        QCOMPARE(shake.easing.type(), QEasingCurve::InOutSine);
    }

    void keysAreHeldInPairs()
    {
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        dialog.dialogShake(12);
        clock.begin();
        clock.goTo(shakeMs);
        QCOMPARE(shakes.done.size(), 1);
        QStringList keys;
        for (const auto &key : shakes.done.constFirst().keys) {
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
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        dialog.dialogShake(12);
        clock.begin();
        clock.goTo(shakeMs - 1);
        QCOMPARE(shakes.done.size(), 0);
        clock.goTo(shakeMs);
        QCOMPARE(shakes.done.size(), 1);
        QCOMPARE(shakes.done.constFirst().stoppedAtMs, shakeMs);
        QVERIFY(!shakes.done.constFirst().animation);
        QCOMPARE(dialog.geometry(), startRect);
        const MoveRecorder recorder(&dialog);
        clock.goTo(3 * shakeMs);
        QCOMPARE(recorder.places.size(), 0);
    }

    void takesThatTimeOnTheRealClock()
    {
        Shakes shakes;
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
        Shakes shakes;
        KELDialogBase dialog;
        dialog.show();
        const MoveRecorder recorder(&dialog);
        Clock clock;
        dialog.dialogShake(0);
        clock.begin();
        for (int ms = 10; ms < shakeMs; ms += 10) {
            clock.goTo(ms);
            QCOMPARE(dialog.geometry(), startRect);
            QCOMPARE(shakes.done.size(), 0);
        }
        clock.goTo(shakeMs);
        QCOMPARE(shakes.done.size(), 1);
        QCOMPARE(recorder.places.size(), 0);
        for (const auto &key : shakes.done.constFirst().keys)
            QCOMPARE(key.second.toRect(), startRect);
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
        QFETCH(QRect, place);
        KELDialogBase dialog(u"text"_s, 3, nullptr);
        dialog.setGeometry(place);
        Clock clock;
        Plan plan(25, place);
        dialog.dialogShake(25);
        clock.begin();
        for (int ms = 5; ms <= shakeMs; ms += 5) {
            clock.goTo(ms);
            QCOMPARE(dialog.geometry(), plan.at(ms));
        }
        QCOMPARE(dialog.geometry(), place);
    }

    void placeIsReadOnce()
    {
        KELDialogBase dialog;
        Clock clock;
        Plan plan(25);
        dialog.dialogShake(25);
        clock.begin();
        clock.goTo(50);
        dialog.move(500, 400);
        QCOMPARE(dialog.pos(), QPoint(500, 400));
        clock.goTo(60);
        QCOMPARE(dialog.geometry(), plan.at(60));
        clock.goTo(shakeMs);
        QCOMPARE(dialog.geometry(), startRect);
    }

    void sizeIsReadOnce()
    {
        KELDialogBase dialog;
        Clock clock;
        Plan plan(25);
        dialog.dialogShake(25);
        clock.begin();
        clock.goTo(50);
        dialog.resize(100, 90);
        clock.goTo(60);
        QCOMPARE(dialog.geometry(), plan.at(60));
        clock.goTo(shakeMs);
        QCOMPARE(dialog.size(), startRect.size());
    }

    void secondShakeBeginsAtThePlaceReached_data()
    {
        QTest::addColumn<int>("ms");
        QTest::newRow("at once") << 0;
        QTest::newRow("at the left") << 76;
        QTest::newRow("at the right") << 121;
        QTest::newRow("between the sides") << 140;
        QTest::newRow("at the last moment") << 299;
    }

    void secondShakeBeginsAtThePlaceReached()
    {
        QFETCH(int, ms);
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        Plan first(40);
        dialog.dialogShake(40);
        clock.begin();
        if (ms > 0)
            clock.goTo(ms);
        const QRect reached = dialog.geometry();
        QCOMPARE(reached, first.at(ms));
        Plan second(-15, reached);
        dialog.dialogShake(-15);
        clock.begin();
        for (int time = 5; time < shakeMs; time += 5) {
            clock.goTo(time);
            QCOMPARE(dialog.geometry(), second.at(time));
            // The first one has given way.
            QCOMPARE(shakes.done.size(), 1);
        }
        QCOMPARE(shakes.done.constFirst().stoppedAtMs, ms);
        QVERIFY(!shakes.done.constFirst().animation);
        clock.goTo(shakeMs);
        QCOMPARE(dialog.geometry(), reached);
        QCOMPARE(shakes.done.size(), 2);
    }

    void shakesAgainAfterwards()
    {
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        for (int distance = 10; distance <= 30; distance += 10) {
            Plan plan(distance);
            dialog.dialogShake(distance);
            clock.begin();
            clock.goTo(76);
            QCOMPARE(dialog.geometry(), plan.at(76));
            clock.goTo(shakeMs);
            QCOMPARE(dialog.geometry(), startRect);
            QCOMPARE(shakes.done.size(), distance / 10);
        }
    }

    void dialogsShakeIndependently()
    {
        KELDialogBase one;
        KELDialogBase other;
        Clock clock;
        Plan onePlan(10);
        Plan otherPlan(-33);
        one.dialogShake(10);
        other.dialogShake(-33);
        clock.begin();
        for (int ms = 5; ms <= shakeMs; ms += 5) {
            clock.goTo(ms);
            QCOMPARE(one.geometry(), onePlan.at(ms));
            QCOMPARE(other.geometry(), otherPlan.at(ms));
        }
    }

    void childDialogShakesInItsParent()
    {
        QWidget parent;
        parent.setGeometry(100, 100, 700, 500);
        KELDialogBase dialog(&parent);
        dialog.setGeometry(startRect);
        parent.show();
        dialog.show();
        Clock clock;
        Plan plan(40);
        dialog.dialogShake(40);
        clock.begin();
        for (int ms = 5; ms <= shakeMs; ms += 5) {
            clock.goTo(ms);
            QCOMPARE(dialog.geometry(), plan.at(ms));
            QCOMPARE(parent.geometry(), QRect(100, 100, 700, 500));
        }
    }

    void hugeDistancesComeBack_data()
    {
        QTest::addColumn<int>("distance");
        QTest::newRow("largest") << std::numeric_limits<int>::max();
        QTest::newRow("smallest") << std::numeric_limits<int>::min();
        QTest::newRow("next to the smallest") << -std::numeric_limits<int>::max();
        QTest::newRow("one thousand million") << 1000000000;
    }

    void hugeDistancesComeBack()
    {
        QFETCH(int, distance);
        Shakes shakes;
        KELDialogBase dialog;
        dialog.show();
        Clock clock;
        dialog.dialogShake(distance);
        clock.begin();
        for (int ms = 10; ms <= shakeMs; ms += 10) {
            clock.goTo(ms);
            QCOMPARE(dialog.y(), startRect.y());
            QCOMPARE(dialog.size(), startRect.size());
        }
        QCOMPARE(dialog.geometry(), startRect);
        QCOMPARE(shakes.done.size(), 1);
    }

    void closedDialogComesToRest_data()
    {
        QTest::addColumn<int>("result");
        QTest::newRow("closed") << -1;
        QTest::newRow("rejected") << int(QDialog::Rejected);
        QTest::newRow("accepted") << int(QDialog::Accepted);
    }

    void closedDialogComesToRest()
    {
        QFETCH(int, result);
        Shakes shakes;
        KELDialogBase dialog;
        dialog.show();
        Clock clock;
        dialog.dialogShake(40);
        clock.begin();
        clock.goTo(76);
        if (result < 0)
            dialog.close();
        else
            dialog.done(result);
        QVERIFY(dialog.isHidden());
        clock.goTo(shakeMs);
        QVERIFY(dialog.isHidden());
        QCOMPARE(dialog.geometry(), startRect);
        QCOMPARE(shakes.done.size(), 1);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCOMPARE(dialog.geometry(), startRect);
    }

    void modalDialogShakes()
    {
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        Plan plan(40);
        QList<QRect> frames;
        QTimer::singleShot(0, &dialog, [&] {
            dialog.dialogShake(40);
            clock.begin();
            for (const int ms : {76, 121, 300}) {
                clock.goTo(ms);
                frames.append(dialog.geometry());
            }
            dialog.accept();
        });
        QCOMPARE(dialog.exec(), int(QDialog::Accepted));
        QCOMPARE(frames, QList<QRect>({plan.at(76), plan.at(121), startRect}));
    }

    void dialogDeletedWhileShaking_data()
    {
        QTest::addColumn<int>("ms");
        QTest::addColumn<bool>("twice");
        QTest::newRow("at once") << 0 << false;
        QTest::newRow("after some frames") << 76 << false;
        QTest::newRow("before the last frame") << 299 << false;
        QTest::newRow("second shake") << 76 << true;
    }

    void dialogDeletedWhileShaking()
    {
        QFETCH(int, ms);
        QFETCH(bool, twice);
        Shakes shakes;
        auto dialog = std::make_unique<KELDialogBase>();
        dialog->show();
        Clock clock;
        dialog->dialogShake(40);
        if (twice)
            dialog->dialogShake(30);
        clock.begin();
        if (ms > 0)
            clock.goTo(ms);
        dialog.reset();
        clock.goTo(shakeMs - 1 > ms ? shakeMs - 1 : shakeMs);
        for (const Shake &shake : qAsConst(shakes.done))
            QVERIFY(!shake.animation);
        const int stopped = shakes.done.size();
        clock.goTo(3 * shakeMs);
        QCOMPARE(shakes.done.size(), stopped);
    }

    void dialogDeletedLater()
    {
        const QPointer<KELDialogBase> dialog(new KELDialogBase);
        dialog->show();
        Clock clock;
        dialog->dialogShake(40);
        clock.begin();
        dialog->deleteLater();
        clock.goTo(50);
        QVERIFY(!dialog);
        clock.goTo(shakeMs);
    }

    void applicationTakesOverTheGeometry()
    {
        Shakes shakes;
        KELDialogBase dialog;
        Clock clock;
        dialog.dialogShake(40);
        clock.begin();
        clock.goTo(76);
        // Qt lets one animation at a time change a property.
        QPropertyAnimation flight(&dialog, "geometry");
        flight.setEndValue(QRect(0, 0, 400, 250));
        flight.setDuration(100);
        flight.start();
        clock.begin();
        clock.goTo(100);
        QCOMPARE(dialog.geometry(), QRect(0, 0, 400, 250));
        QCOMPARE(shakes.done.size(), 1);
        clock.goTo(400);
        QCOMPARE(dialog.geometry(), QRect(0, 0, 400, 250));
    }
};

KEL_TEST_MAIN(tst_KELDialogBaseShake)
#include "tst_keldialogbaseshake.moc"
