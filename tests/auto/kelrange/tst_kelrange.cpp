// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"
#include "rows.h"
#include "signallog.h"

#include <kelrange.h>
#include <keltouch.h>

#include <QtWidgets/QGraphicsLinearLayout>

#include <limits>

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
const double notANumber = qQNaN();

const std::vector<Named> ways{{"delete", 0}, {"deleteLater", 1}};

} // namespace

class tst_KELRange : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheDocumentedDefaults()
    {
        const KELRange range;
        QCOMPARE(range.value(), 0.0);
        QCOMPARE(range.minimum(), 0.0);
        QCOMPARE(range.maximum(), 100.0);
        QCOMPARE(range.step(), 0.0);
        QCOMPARE(range.tickInterval(), 0.0);
        QCOMPARE(range.orientation(), Qt::Horizontal);
        QVERIFY(!range.isBubbleShown());
        QCOMPARE(range.decimals(), 0);
        QCOMPARE(range.suffix(), QString());
        QCOMPARE(range.focusPolicy(), Qt::StrongFocus);
    }

    void aPropertyIsOfRealType_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("value") << QByteArray("value") << QVariant(12.5);
        QTest::newRow("minimum") << QByteArray("minimum") << QVariant(-12.5);
        QTest::newRow("maximum") << QByteArray("maximum") << QVariant(12.5);
        QTest::newRow("step") << QByteArray("step") << QVariant(0.5);
        QTest::newRow("ticks") << QByteArray("tickInterval") << QVariant(20.0);
        QTest::newRow("bubble") << QByteArray("bubbleShown") << QVariant(true);
        QTest::newRow("decimals") << QByteArray("decimals") << QVariant(2);
        QTest::newRow("suffix") << QByteArray("suffix") << QVariant(u" px"_s);
    }

    void aPropertyIsOfRealType()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const QVariant, value);
        KELRange range;
        QVERIFY(range.setProperty(name, value));
        QCOMPARE(range.property(name), value);
        QCOMPARE(range.property(name).userType(), value.userType());
    }

    void orientationIsAProperty()
    {
        KELRange range;
        QVERIFY(range.setProperty("orientation", QVariant::fromValue(Qt::Vertical)));
        QCOMPARE(range.orientation(), Qt::Vertical);
    }

    void aValueGoesToTheNearestAllowedOne_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("wanted");
        QTest::addColumn<double>("value");
        QTest::newRow("without a step") << 0.0 << 100.0 << 0.0 << 33.3 << 33.3;
        QTest::newRow("below") << 10.0 << 100.0 << 0.0 << 3.0 << 10.0;
        QTest::newRow("above") << 0.0 << 100.0 << 0.0 << 1000.0 << 100.0;
        QTest::newRow("rounded down") << 0.0 << 100.0 << 10.0 << 34.9 << 30.0;
        QTest::newRow("rounded up") << 0.0 << 100.0 << 10.0 << 35.1 << 40.0;
        QTest::newRow("halves go up") << 0.0 << 100.0 << 10.0 << 35.0 << 40.0;
        QTest::newRow("halves go up below 0") << -100.0 << 0.0 << 10.0 << -35.0 << -30.0;
        QTest::newRow("from the minimum") << 5.0 << 100.0 << 10.0 << 33.0 << 35.0;
        QTest::newRow("the maximum is allowed") << 0.0 << 100.0 << 30.0 << 100.0 << 100.0;
        QTest::newRow("nearer to the maximum") << 0.0 << 100.0 << 30.0 << 95.5 << 100.0;
        QTest::newRow("nearer to the last step") << 0.0 << 100.0 << 30.0 << 94.5 << 90.0;
        QTest::newRow("a step of more than the range") << 0.0 << 10.0 << 30.0 << 6.0 << 10.0;
        QTest::newRow("the lower end of that") << 0.0 << 10.0 << 30.0 << 4.0 << 0.0;
        QTest::newRow("a tiny step") << -1e300 << 1e300 << 1e-300 << 5.0 << 5.0;
    }

    void aValueGoesToTheNearestAllowedOne()
    {
        QFETCH(const double, minimum);
        QFETCH(const double, maximum);
        QFETCH(const double, step);
        QFETCH(const double, wanted);
        QFETCH(const double, value);
        KELRange range;
        range.setRange(minimum, maximum);
        range.setStep(step);
        range.setValue(wanted);
        QCOMPARE(range.value(), value);
        range.setValue(range.value());
        QCOMPARE(range.value(), value);
    }

    void theMaximumIsExact()
    {
        KELRange range;
        range.setRange(0, 0.3);
        range.setStep(0.1);
        range.setValue(0.3);
        QVERIFY(range.value() == 0.3);
    }

    void whatIsNotFiniteIsIgnored()
    {
        KELRange range;
        range.setValue(40);
        range.setStep(5);
        SignalLog log;
        log.listenTo(&range);
        for (const double odd : {notANumber, infinite, -infinite}) {
            range.setValue(odd);
            range.setRange(odd, 50);
            range.setRange(0, odd);
            range.setMinimum(odd);
            range.setMaximum(odd);
            range.setStep(odd);
            range.setTickInterval(odd);
        }
        QCOMPARE(range.value(), 40.0);
        QCOMPARE(range.minimum(), 0.0);
        QCOMPARE(range.maximum(), 100.0);
        QCOMPARE(range.step(), 5.0);
        QCOMPARE(range.tickInterval(), 0.0);
        QCOMPARE(log.take(), QString());
    }

    void boundsAreKeptInOrder()
    {
        KELRange range;
        range.setRange(50, 10);
        QCOMPARE(range.minimum(), 50.0);
        QCOMPARE(range.maximum(), 50.0);
        QCOMPARE(range.value(), 50.0);
        range.setMaximum(20);
        QCOMPARE(range.minimum(), 20.0);
        QCOMPARE(range.maximum(), 20.0);
        range.setMinimum(70);
        QCOMPARE(range.minimum(), 70.0);
        QCOMPARE(range.maximum(), 70.0);
        range.setRange(-std::numeric_limits<double>::max(), std::numeric_limits<double>::max());
        QCOMPARE(range.minimum(), -1e300);
        QCOMPARE(range.maximum(), 1e300);
    }

    void negativeDistancesCountAsNone()
    {
        KELRange range;
        range.setStep(-3);
        range.setTickInterval(-3);
        QCOMPARE(range.step(), 0.0);
        QCOMPARE(range.tickInterval(), 0.0);
        range.setDecimals(-1);
        QCOMPARE(range.decimals(), 0);
        range.setDecimals(99);
        QCOMPARE(range.decimals(), 15);
    }

    void onlyAChangeIsTold()
    {
        KELRange range;
        SignalLog log;
        log.listenTo(&range);
        range.setValue(0);
        QCOMPARE(log.take(), QString());
        range.setValue(30);
        QCOMPARE(log.take(), u"valueChanged"_s);
        QCOMPARE(log.lastArguments(), QVariantList{30.0});
        range.setValue(30);
        range.setRange(0, 50);
        QCOMPARE(log.take(), QString());
        range.setMaximum(20);
        QCOMPARE(log.take(), u"valueChanged"_s);
        range.setValue(17);
        log.take();
        range.setStep(15);
        QCOMPARE(log.take(), u"valueChanged"_s);
        QCOMPARE(range.value(), 15.0);
    }

    void twoRangesMaySetEachOther()
    {
        KELRange fine;
        KELRange coarse;
        coarse.setStep(10);
        connect(&fine, &KELRange::valueChanged, &coarse, &KELRange::setValue);
        connect(&coarse, &KELRange::valueChanged, &fine, &KELRange::setValue);
        fine.setValue(33);
        QCOMPARE(coarse.value(), 30.0);
        QCOMPARE(fine.value(), 30.0);
    }

    void theTextHasDecimalsAndASuffix()
    {
        KELRange range;
        QCOMPARE(range.textOf(21.55), QLocale().toString(21.55, 'f', 0));
        range.setDecimals(1);
        range.setSuffix(u" V"_s);
        QCOMPARE(range.textOf(2.25), QLocale().toString(2.25, 'f', 1) + u" V"_s);
    }

    void asksForATouchTarget()
    {
        KELTouch::setLeastMillimetres(9);
        KELTouch::setPixelsPerMillimetre(6);
        KELRange range;
        QCOMPARE(range.effectiveSizeHint(Qt::MinimumSize), QSizeF(108, 54));
        QCOMPARE(range.effectiveSizeHint(Qt::PreferredSize), QSizeF(216, 54));
        range.setOrientation(Qt::Vertical);
        QCOMPARE(range.effectiveSizeHint(Qt::MinimumSize), QSizeF(54, 108));
        QCOMPARE(range.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(range.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        KELTouch::setPixelsPerMillimetre(1);
        range.styleChanged();
        QCOMPARE(range.effectiveSizeHint(Qt::MinimumSize), QSizeF(36, 72));
        KELTouch::setPixelsPerMillimetre(0);
    }

    void theBubbleHasRoom()
    {
        KELTouch::setPixelsPerMillimetre(1);
        KELRange range;
        range.setBubbleShown(true);
        const QFontMetricsF metrics(range.partStyle()->font);
        const qreal textHeight = std::ceil(metrics.height());
        QCOMPARE(range.effectiveSizeHint(Qt::MinimumSize).height(), textHeight + 8 + 4 + 28 + 4);
        range.setOrientation(Qt::Vertical);
        range.setSuffix(u" kilograms"_s);
        const qreal textWidth = std::ceil(metrics.horizontalAdvance(range.textOf(100)));
        QCOMPARE(range.effectiveSizeHint(Qt::MinimumSize).width(), textWidth + 16 + 4 + 28 + 4);
        KELTouch::setPixelsPerMillimetre(0);
    }

    void fillsALayoutAlongTheTrack()
    {
        QGraphicsWidget page;
        auto *layout = new QGraphicsLinearLayout(Qt::Vertical, &page);
        layout->setContentsMargins(0, 0, 0, 0);
        auto *range = new KELRange;
        layout->addItem(range);
        page.resize(500, 60);
        layout->activate();
        QCOMPARE(range->size(), QSizeF(500, 60));
    }

    void aSlotMayDeleteTheRange_data() { addRows({{"way", ways}}); }

    void aSlotMayDeleteTheRange()
    {
        const bool isLater = fetch<int>("way") == 1;
        for (int setter = 0; setter < 4; ++setter) {
            QPointer<KELRange> range(new KELRange);
            range->setValue(55);
            connect(range, &KELRange::valueChanged, range, [&] {
                if (isLater)
                    range->deleteLater();
                else
                    delete range;
            });
            if (setter == 0)
                range->setValue(20);
            else if (setter == 1)
                range->setMaximum(50);
            else if (setter == 2)
                range->setMinimum(60);
            else
                range->setStep(10);
            QTRY_VERIFY(!range);
        }
    }
};

KEL_TEST_MAIN(tst_KELRange)
#include "tst_kelrange.moc"
