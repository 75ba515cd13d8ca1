// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"

#include <kelglide_p.h>
#include <kelmotion.h>

#include <QtCore/QTimerEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int longMs = 60000; // as good as for ever
constexpr int shortMs = 60;

// Gives a glide its time, as its owner does, and writes down where it was.
class Owner : public QObject
{
public:
    ~Owner() override { KELMotion::setEnabled(true); }

    void glideTo(qreal target, int ms) { glide.glideTo(target, ms, this); }

    KELGlide glide;
    QVector<double> places;
    int otherTimers = 0;

protected:
    void timerEvent(QTimerEvent *event) override
    {
        if (glide.tick(event->timerId()))
            places.append(glide.value());
        else
            ++otherTimers;
    }
};

} // namespace

class tst_KELGlide : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void itSlowsDown()
    {
        Owner owner;
        owner.glide.setValue(100);
        owner.glideTo(200, 1000);
        QVERIFY(owner.glide.isMoving());
        const std::vector<std::pair<int, double>> places = {
            {0, 100}, {250, 157.8125}, {500, 187.5}, {750, 198.4375}};
        for (const auto &[ms, value] : places) {
            owner.glide.showAt(ms);
            QCOMPARE(owner.glide.value(), value);
            QCOMPARE(owner.glide.timeLeft(), 1 - ms / 1000.0);
        }
        owner.glide.showAt(1000);
        QCOMPARE(owner.glide.value(), 200.0);
        QCOMPARE(owner.glide.timeLeft(), 0.0);
        QVERIFY(!owner.glide.isMoving());
    }

    void itArrivesByItself()
    {
        Owner owner;
        owner.glideTo(10, shortMs);
        QCOMPARE(owner.glide.value(), 0.0);
        QTRY_VERIFY(!owner.glide.isMoving());
        QCOMPARE(owner.places.count(10.0), 1);
        QCOMPARE(owner.places.last(), 10.0);
        QVERIFY(std::is_sorted(owner.places.cbegin(), owner.places.cend()));
    }

    void itArrivesWhenItIsFinished()
    {
        Owner owner;
        owner.glideTo(10, longMs);
        owner.glide.finish();
        QCOMPARE(owner.glide.value(), 10.0);
        QVERIFY(!owner.glide.isMoving());
        owner.glide.setValue(3);
        owner.glide.finish();
        QCOMPARE(owner.glide.value(), 3.0);
    }

    void itStopsWhereItIs()
    {
        Owner owner;
        owner.glideTo(100, 1000);
        owner.glide.showAt(500);
        owner.glide.stop();
        QCOMPARE(owner.glide.value(), 87.5);
        QVERIFY(!owner.glide.isMoving());
    }

    void noTimeIsNoMotion_data()
    {
        addRows({{"ms", {{"none", 0}, {"negative", -5}, {"switched off", longMs}}}});
    }

    void noTimeIsNoMotion()
    {
        const int ms = fetch<int>("ms");
        Owner owner;
        KELMotion::setEnabled(ms != longMs);
        owner.glideTo(3, ms);
        QCOMPARE(owner.glide.value(), 3.0);
        QVERIFY(!owner.glide.isMoving());
    }

    // The switch is for the next movement.
    void aMovementEndsAsItBegan()
    {
        Owner owner;
        owner.glideTo(10, longMs);
        KELMotion::setEnabled(false);
        QVERIFY(owner.glide.isMoving());
        owner.glideTo(20, longMs);
        QVERIFY(!owner.glide.isMoving());
        QCOMPARE(owner.glide.value(), 20.0);
    }

    void aNewTargetStartsFromWhereItIs()
    {
        Owner owner;
        owner.glideTo(100, 1000);
        owner.glide.showAt(500);
        owner.glideTo(0, 1000);
        QCOMPARE(owner.glide.value(), 87.5);
        owner.glide.showAt(500);
        QCOMPARE(owner.glide.value(), 87.5 / 8);
        owner.glide.setValue(7);
        QVERIFY(!owner.glide.isMoving());
        QCOMPARE(owner.glide.value(), 7.0);
    }

    void otherTimersAreNotItsOwn()
    {
        Owner owner;
        owner.startTimer(1);
        owner.glideTo(10, shortMs);
        QTRY_VERIFY(!owner.glide.isMoving() && owner.otherTimers > 0);
        QCOMPARE(owner.glide.value(), 10.0);
    }

    void aTargetThatIsNoNumberIsReached()
    {
        Owner owner;
        owner.glideTo(std::numeric_limits<double>::quiet_NaN(), shortMs);
        QTRY_VERIFY(!owner.glide.isMoving());
        QVERIFY(std::isnan(owner.glide.value()));
    }
};

KEL_TEST_MAIN(tst_KELGlide)
#include "tst_kelglide.moc"
