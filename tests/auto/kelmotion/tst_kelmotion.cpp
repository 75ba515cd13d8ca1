// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include <kelmotion.h>
#include <kelscreen.h>

namespace {

// A page slides.
bool isAnythingMoving(const KELScreen &screen)
{
    return screen.currentPage() && screen.currentPage()->x() != 0;
}

} // namespace

class tst_KELMotion : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void thingsMoveUnlessToldOtherwise()
    {
        QVERIFY(KELMotion::isEnabled());
        KELMotion::setEnabled(false);
        QVERIFY(!KELMotion::isEnabled());
        KELMotion::setEnabled(true);
        QVERIFY(KELMotion::isEnabled());
    }

    // One that is under way ends as it began.
    void switchingOffConcernsTheNextMovement()
    {
        KELScreen screen;
        screen.setSlideEnabled(true);
        screen.push(new KELPage);
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen));
        screen.push(new KELPage);
        QVERIFY(isAnythingMoving(screen));
        KELMotion::setEnabled(false);
        QVERIFY(isAnythingMoving(screen));
        QTRY_VERIFY(!isAnythingMoving(screen));
        screen.push(new KELPage);
        QVERIFY(!isAnythingMoving(screen));
        KELMotion::setEnabled(true);
    }
};

KEL_TEST_MAIN(tst_KELMotion)
#include "tst_kelmotion.moc"
