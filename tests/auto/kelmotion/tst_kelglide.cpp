// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"

#include <kelglide_p.h>
#include <kelmotion.h>

#include <QtTest/QSignalSpy>

#include <memory>

namespace {

constexpr int longMs = 60000; // as good as for ever
constexpr int shortMs = 30;

// Writes down where a glide is when it says something, and acts on it.
struct Glide
{
    Glide()
    {
        QObject::connect(glide.get(), &KELGlide::moved, [this] { hear(u"moved"_s); });
        QObject::connect(glide.get(), &KELGlide::arrived, [this] { hear(u"arrived"_s); });
    }

    KELGlide *operator->() const { return glide.get(); }

    void hear(const QString &what)
    {
        log.append(u"%1 %2"_s.arg(what).arg(glide->value()));
        if (what == actsOn) {
            const std::function<void()> acting = action;
            acting();
        }
    }

    std::unique_ptr<KELGlide> glide = std::make_unique<KELGlide>(nullptr);
    QStringList log;
    QString actsOn;
    std::function<void()> action;
};

enum class End { ByTime, Finished, WithoutMotion };
const std::vector<Named> ends = {{"by time", int(End::ByTime)},
                                 {"finished", int(End::Finished)},
                                 {"without motion", int(End::WithoutMotion)}};

// The rest is for the caller to wait for.
void begin(KELGlide *glide, End end)
{
    KELMotion::setEnabled(end != End::WithoutMotion);
    glide->glideTo(10, end == End::Finished ? longMs : shortMs);
    KELMotion::setEnabled(true);
    if (end == End::Finished)
        glide->finish();
}

} // namespace

class tst_KELGlide : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void itSlowsDown()
    {
        Glide glide;
        glide->setValue(100);
        glide->glideTo(200, 1000);
        QCOMPARE(glide->state(), QAbstractAnimation::Running);
        QCOMPARE(glide->target(), 200.0);
        const std::vector<std::pair<int, double>> places = {
            {0, 100}, {250, 157.8125}, {500, 187.5}, {750, 198.4375}};
        for (const auto &[ms, value] : places) {
            glide->setCurrentTime(ms);
            QCOMPARE(glide->value(), value);
        }
        QCOMPARE(glide.log.count(u"arrived 200"_s), 0);
    }

    void itArrivesOnce_data() { addRows({{"end", ends}}); }

    void itArrivesOnce()
    {
        const auto end = fetch<End>("end");
        Glide glide;
        begin(glide.glide.get(), end);
        if (end != End::ByTime)
            QCOMPARE(glide->value(), 10.0);
        QTRY_COMPARE(glide.log.count(u"arrived 10"_s), 1);
        QCOMPARE(glide.log.mid(glide.log.size() - 2),
                 QStringList({u"moved 10"_s, u"arrived 10"_s}));
        QCOMPARE(glide->state(), QAbstractAnimation::Stopped);
        QCOMPARE(glide->value(), 10.0);
        glide->finish();
        QCOMPARE(glide.log.count(u"arrived 10"_s), 1);
    }

    void noTimeIsNoMotion_data() { addRows({{"ms", {{"none", 0}, {"negative", -5}}}}); }

    void noTimeIsNoMotion()
    {
        Glide glide;
        glide->glideTo(3, fetch<int>("ms"));
        QCOMPARE(glide.log, QStringList({u"moved 3"_s, u"arrived 3"_s}));
    }

    // The switch is for the next movement.
    void aMovementEndsAsItBegan()
    {
        Glide glide;
        glide->glideTo(10, longMs);
        KELMotion::setEnabled(false);
        QCOMPARE(glide->state(), QAbstractAnimation::Running);
        QCOMPARE(glide.log.count(u"arrived 10"_s), 0);
        glide->glideTo(20, longMs);
        KELMotion::setEnabled(true);
        QCOMPARE(glide->state(), QAbstractAnimation::Stopped);
        QCOMPARE(glide.log.last(), u"arrived 20"_s);
    }

    void aNewTargetStartsFromWhereItIs()
    {
        Glide glide;
        glide->glideTo(100, 1000);
        glide->setCurrentTime(500);
        QCOMPARE(glide->value(), 87.5);
        glide->glideTo(0, 1000);
        QCOMPARE(glide->value(), 87.5);
        QCOMPARE(glide->target(), 0.0);
        glide->setCurrentTime(500);
        QCOMPARE(glide->value(), 87.5 / 8);
        glide->setValue(7);
        QCOMPARE(glide->state(), QAbstractAnimation::Stopped);
        QCOMPARE(glide->value(), 7.0);
        QCOMPARE(glide->target(), 7.0);
        QVERIFY(glide.log.filter(u"arrived"_s).isEmpty());
    }

    void aSlotMayGoOn_data() { addRows({{"end", ends}}); }

    void aSlotMayGoOn()
    {
        const auto end = fetch<End>("end");
        Glide glide;
        glide.actsOn = u"arrived"_s;
        glide.action = [&glide] {
            glide.actsOn.clear();
            glide->glideTo(20, shortMs);
        };
        begin(glide.glide.get(), end);
        QTRY_COMPARE(glide.log.count(u"arrived 20"_s), 1);
        QCOMPARE(glide.log.count(u"arrived 10"_s), 1);
        QCOMPARE(glide->state(), QAbstractAnimation::Stopped);
    }

    // Whoever moves is deleted with the glide in it.
    void aSlotMayDeleteIt_data() { addRows({{"end", ends}}); }

    void aSlotMayDeleteIt()
    {
        const auto end = fetch<End>("end");
        Glide glide;
        glide.actsOn = u"arrived"_s;
        glide.action = [&glide] { glide.glide.reset(); };
        begin(glide.glide.get(), end);
        QTRY_VERIFY(!glide.glide);
        QCoreApplication::processEvents();
    }

    void aTargetThatIsNoNumberIsReached()
    {
        Glide glide;
        glide->glideTo(std::numeric_limits<double>::quiet_NaN(), shortMs);
        QTRY_COMPARE(glide.log.filter(u"arrived"_s).size(), 1);
        QCOMPARE(glide->state(), QAbstractAnimation::Stopped);
    }
};

KEL_TEST_MAIN(tst_KELGlide)
#include "tst_kelglide.moc"
