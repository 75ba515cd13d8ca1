// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <keltouch.h>

#include <limits>

class tst_KELTouch : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void theLeastSizeIsRoundedUp_data()
    {
        QTest::addColumn<qreal>("millimetres");
        QTest::addColumn<qreal>("pixels");
        QTest::addColumn<qreal>("size");
        QTest::newRow("whole") << 9.0 << 5.0 << 45.0;
        QTest::newRow("rounded up") << 9.0 << 5.315 << 48.0;
        QTest::newRow("nothing") << 0.0 << 5.0 << 0.0;
        QTest::newRow("negative") << -1.0 << 5.0 << 0.0;
        QTest::newRow("NaN") << std::numeric_limits<qreal>::quiet_NaN() << 5.0 << 0.0;
        QTest::newRow("infinite") << std::numeric_limits<qreal>::infinity() << 5.0 << 0.0;
        QTest::newRow("too much") << 101.0 << 5.0 << 500.0;
        QTest::newRow("too fine") << 9.0 << 101.0 << 900.0;
    }

    void theLeastSizeIsRoundedUp()
    {
        QFETCH(const qreal, millimetres);
        QFETCH(const qreal, pixels);
        QFETCH(const qreal, size);
        const qreal usual = KELTouch::leastMillimetres();
        QCOMPARE(usual, 9.0);
        KELTouch::setLeastMillimetres(millimetres);
        KELTouch::setPixelsPerMillimetre(pixels);
        const qreal actual = KELTouch::leastSize();
        KELTouch::setLeastMillimetres(usual);
        KELTouch::setPixelsPerMillimetre(0);
        QCOMPARE(actual, size);
    }

    void nonsenseRestoresTheScreensResolution_data()
    {
        QTest::addColumn<qreal>("pixels");
        QTest::newRow("0") << 0.0;
        QTest::newRow("negative") << -5.0;
        QTest::newRow("NaN") << std::numeric_limits<qreal>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<qreal>::infinity();
    }

    void nonsenseRestoresTheScreensResolution()
    {
        QFETCH(const qreal, pixels);
        const qreal usual = KELTouch::pixelsPerMillimetre();
        QVERIFY(usual >= 50 / 25.4 && usual <= 500 / 25.4);
        KELTouch::setPixelsPerMillimetre(7);
        QCOMPARE(KELTouch::pixelsPerMillimetre(), 7.0);
        KELTouch::setPixelsPerMillimetre(pixels);
        QCOMPARE(KELTouch::pixelsPerMillimetre(), usual);
    }
};

KEL_TEST_MAIN(tst_KELTouch)
#include "tst_keltouch.moc"
