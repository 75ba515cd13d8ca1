// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "liststage.h"

#include <kelmotion.h>

namespace {

constexpr int flingEndMs = 10000;

} // namespace

class tst_KELListPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aTapIsAClick_data() { addRows({{"input", inputs}}); }

    void aTapIsAClick()
    {
        ListStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.view.showOnce();
        stage.hand.tap(stage.placeOf(2));
        QCOMPARE(stage.log.take(), u"clicked"_s);
        QCOMPARE(stage.log.lastArguments().value(0).toModelIndex(), stage.model->index(2, 0));
        QCOMPARE(stage.list->currentRow(), -1);
        stage.list->setSelectable(true);
        stage.hand.tap(stage.placeOf(1));
        QCOMPARE(stage.log.take(), u"currentRowChanged clicked"_s);
        QCOMPARE(stage.list->currentRow(), 1);
    }

    void aTapTurnsASwitch()
    {
        ListStage stage;
        stage.view.showOnce();
        stage.model->item(1)->setCheckable(true);
        stage.hand.tap(stage.placeOf(1));
        QCOMPARE(stage.model->item(1)->checkState(), Qt::Checked);
        stage.hand.tap(stage.placeOf(1));
        QCOMPARE(stage.model->item(1)->checkState(), Qt::Unchecked);
        QCOMPARE(stage.log.take(), u"clicked clicked"_s);
    }

    void disabledRowsTakeNoTap()
    {
        ListStage stage;
        stage.view.showOnce();
        stage.model->item(1)->setEnabled(false);
        stage.hand.tap(stage.placeOf(1));
        QCOMPARE(stage.log.take(), QString());
    }

    void aFingerThatTremblesTaps()
    {
        ListStage stage;
        stage.view.showOnce();
        stage.hand.press(stage.placeOf(1));
        for (const QPoint &by : {QPoint(3, 2), QPoint(0, 7), QPoint(-4, -4)})
            stage.hand.move(stage.placeOf(1) + by);
        stage.hand.release();
        QCOMPARE(stage.log.take(), u"clicked"_s);
        QCOMPARE(stage.list->position(), 0);
    }

    void theListFollowsTheFinger_data() { addRows({{"input", inputs}}); }

    void theListFollowsTheFinger()
    {
        ListStage stage;
        stage.hand.use(fetch<Input>("input"));
        stage.view.showOnce();
        stage.list->setPosition(500);
        const QPoint start = stage.placeOf(9);
        stage.hand.press(start);
        stage.hand.move(start - QPoint(0, 11));
        QVERIFY(stage.list->isMoving());
        for (const int way : {11, 30, 73, 40, -20, -77}) {
            stage.hand.move(start - QPoint(0, way));
            QCOMPARE(stage.list->position(), 500 + way - KELPart::slopPx);
        }
        KELMotion::setEnabled(false);
        stage.hand.release();
        KELMotion::setEnabled(true);
        QCOMPARE(stage.list->position(), 500 - 77 - KELPart::slopPx);
        QCOMPARE(stage.takeLog(), QString());
    }

    void beyondItsEndsItGoesHalfTheWayAndComesBack()
    {
        ListStage stage;
        stage.view.showOnce();
        const QPoint start = stage.placeOf(1);
        stage.hand.press(start);
        stage.hand.move(start + QPoint(0, 11));
        stage.hand.move(start + QPoint(0, 60));
        QCOMPARE(stage.list->position(), -25);
        stage.hand.release();
        QVERIFY(stage.list->isMoving());
        QTRY_VERIFY(!stage.list->isMoving());
        QCOMPARE(stage.list->position(), 0);
    }

    void aSidewaysDragDoesNothing()
    {
        ListStage stage;
        stage.view.showOnce();
        const QPoint start = stage.placeOf(1);
        stage.hand.press(start);
        stage.hand.move(start + QPoint(15, 3));
        stage.hand.move(start + QPoint(15, 90));
        stage.hand.release();
        QCOMPARE(stage.list->position(), 0);
        QCOMPARE(stage.log.take(), QString());
    }

    void aFlickGoesOnAndIsNoTap()
    {
        ListStage stage(10000);
        stage.view.showOnce();
        stage.flick(-100);
        const int released = stage.list->position();
        QCOMPARE(released, 100 - KELPart::slopPx);
        QVERIFY(stage.list->isMoving());
        QTRY_VERIFY(stage.list->position() > released + 50);
        QCOMPARE(stage.takeLog(), QString());
    }

    void aTapStopsAFlickAndIsNoTap()
    {
        ListStage stage(10000);
        stage.view.showOnce();
        stage.flick(-100);
        const int released = stage.list->position();
        QTRY_VERIFY(stage.list->position() > released + 10);
        stage.hand.press(QPoint(100, 100));
        QVERIFY(!stage.list->isMoving());
        const int stopped = stage.list->position();
        stage.hand.release();
        QCOMPARE(stage.list->position(), stopped);
        QCOMPARE(stage.takeLog(), QString());
        stage.hand.tap(QPoint(100, 100));
        QCOMPARE(stage.takeLog(), u"clicked"_s);
    }

    void aFlickEndsAtTheLastRow()
    {
        ListStage stage(10);
        stage.view.showOnce();
        for (int i = 0; i < 3; ++i)
            stage.flick(-200);
        QTRY_VERIFY_WITH_TIMEOUT(!stage.list->isMoving(), flingEndMs);
        QCOMPARE(stage.list->position(), 10 * rowPx - 256);
    }

    void withoutMotionAFlickStops()
    {
        ListStage stage;
        stage.view.showOnce();
        KELMotion::setEnabled(false);
        stage.flick(-100);
        KELMotion::setEnabled(true);
        QVERIFY(!stage.list->isMoving());
        QCOMPARE(stage.list->position(), 100 - KELPart::slopPx);
    }

    void hidingStopsAFlick()
    {
        ListStage stage(10000);
        stage.view.showOnce();
        stage.flick(-100);
        stage.list->hide();
        QVERIFY(!stage.list->isMoving());
    }

    void rowsMayVanishUnderAFlick_data()
    {
        addRows({{"change",
                  {{"some are left", 0},
                   {"none is left", 1},
                   {"reset", 2},
                   {"the model dies", 3},
                   {"some above are gone", 4}}}});
    }

    void rowsMayVanishUnderAFlick()
    {
        ListStage stage(10000);
        stage.view.showOnce();
        stage.list->setPosition(3000);
        stage.flick(-100);
        const int released = stage.list->position();
        QTRY_VERIFY(stage.list->position() > released);
        const int change = fetch<int>("change");
        const int position = stage.list->position();
        if (change == 0)
            stage.model->removeRows(20, 9980);
        else if (change == 1)
            stage.model->removeRows(0, 10000);
        else if (change == 2)
            stage.model->clear();
        else if (change == 3)
            stage.model.reset();
        else
            stage.model->removeRows(0, 10);
        QCOMPARE(stage.list->position(),
                 change == 0       ? 20 * rowPx - 256
                     : change == 4 ? position - 10 * rowPx
                                   : 0);
        if (change != 4) {
            QTRY_VERIFY(!stage.list->isMoving());
            return;
        }
        const int kept = stage.list->position();
        QTRY_VERIFY(stage.list->position() > kept); // it goes on
    }

    void aSecondFingerIsIgnored()
    {
        ListStage stage;
        stage.hand.use(Input::Touch);
        stage.view.showOnce();
        const QPoint start = stage.placeOf(1);
        stage.hand.press(start);
        stage.hand.fingers().press(1, stage.placeOf(3));
        stage.hand.fingers().move(1, stage.placeOf(2));
        QCOMPARE(stage.list->position(), 0);
        stage.hand.fingers().release(1);
        stage.hand.release();
        QCOMPARE(stage.takeLog(), u"clicked"_s);
    }

    void aCancelledTouchIsNoTap()
    {
        ListStage stage;
        stage.hand.use(Input::Touch);
        stage.view.showOnce();
        stage.hand.press(stage.placeOf(1));
        stage.hand.move(stage.placeOf(1) + QPoint(0, 60));
        stage.hand.cancel();
        QTRY_VERIFY(!stage.list->isMoving());
        QTRY_COMPARE(stage.list->position(), 0);
        QCOMPARE(stage.takeLog(), QString());
    }

    void theWheelScrolls()
    {
        ListStage stage;
        stage.view.showOnce();
        const QPoint pos = stage.placeOf(1);
        for (const int notch : {-120, -120, 120}) {
            QWheelEvent wheel(pos, stage.view.viewport()->mapToGlobal(pos), QPoint(),
                              QPoint(0, notch), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(stage.view.viewport(), &wheel);
        }
        QCOMPARE(stage.list->position(), rowPx / 2);
    }
};

KEL_TEST_MAIN(tst_KELListPointer)
#include "tst_kellistpointer.moc"
