// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"

namespace {

const QColor pressedColour(50, 70, 100, 200);
const QColor restColour(0, 0, 0, 20);

QColor shownBackground(const KELPushButton &button)
{
    KELPushButtonStyle option = KELPushButtonStyle();
    button.initStyleOption(&option, nullptr);
    return option.backgroundBrush.color();
}

// A button on white.
struct WhiteStage : Stage<KELPushButton>
{
    WhiteStage()
    {
        view.setBackgroundBrush(Qt::white);
        view.showOnce();
    }
    // The colour at the corner of the button on the screen, inside its outline.
    QColor colour() { return view.grab().toImage().pixelColor(110, 110); }
};

QColor onWhite(const QColor &colour)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter(&image).fillRect(image.rect(), colour);
    return image.pixelColor(0, 0);
}

// By mouse or finger.
struct StageOfRow : Stage<KELPushButton>
{
    StageOfRow() { hand.use(fetch<Input>("input")); }
};

} // namespace

// What a button does that a plain control does not; the rest is tested there, for both.
class tst_KELPushButtonPointer : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void pressBesideTheButton_data() { addRows({{"input", inputs}}); }

    void pressBesideTheButton()
    {
        StageOfRow stage;
        for (const QPoint &pos :
             {QPoint(98, 120), QPoint(202, 120), QPoint(150, 98), QPoint(150, 152)})
            stage.hand.tap(pos);
        QCOMPARE(stage.log.take(), QString());
    }

    void pressedLookLastsUntilTheRelease_data() { addRows({{"input", inputs}}); }

    void pressedLookLastsUntilTheRelease()
    {
        StageOfRow stage;
        QCOMPARE(shownBackground(*stage), restColour);
        stage.hand.press(stage.centre());
        QCOMPARE(shownBackground(*stage), pressedColour);
        endLongPressTime(stage.control);
        QCOMPARE(shownBackground(*stage), pressedColour);
        stage.hand.move(QPoint(10, 10));
        QCOMPARE(shownBackground(*stage), pressedColour);
        stage.hand.release();
        QCOMPARE(shownBackground(*stage), restColour);
    }

    void pressedLookIsOnTheScreen()
    {
        WhiteStage stage;
        QCOMPARE(stage.colour(), onWhite(restColour));
        stage.hand.press(stage.centre());
        QCOMPARE(stage.colour(), onWhite(pressedColour));
        stage.hand.release();
        QCOMPARE(stage.colour(), onWhite(restColour));
        stage->setEnabled(false);
        QCOMPARE(stage.colour(), onWhite(restColour));
    }

    void pressedLookWinsOnACheckedButton()
    {
        WhiteStage stage;
        stage->setIsCheckedTemplate(
            [](KELPushButtonStyle &look) { look.backgroundBrush = QBrush(Qt::green); });
        stage->setCheck(true);
        QCOMPARE(stage.colour(), QColor(Qt::green));
        stage.hand.press(stage.centre());
        QCOMPARE(stage.colour(), onWhite(pressedColour));
        stage.hand.release();
        QCOMPARE(stage.colour(), QColor(Qt::green));
    }

    void tapDoesNotCheck_data() { addRows({{"input", inputs}}); }

    void tapDoesNotCheck()
    {
        StageOfRow stage;
        stage.hand.tap(stage.centre());
        QVERIFY(!stage->isCheck());
    }

    void disabledButtonGetsNothing_data() { addRows({{"input", inputs}}); }

    void disabledButtonGetsNothing()
    {
        StageOfRow stage;
        stage->setEnabled(false);
        stage.hand.press(stage.centre());
        QVERIFY(!stage->isMouseDown());
        stage.hand.release();
        stage.hand.hover(QPoint(10, 10));
        stage.hand.hover(stage.centre());
        stage.hand.hover(QPoint(10, 10));
        QCOMPARE(stage.log.takeWithHover(), QString());
        stage->setEnabled(true);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.count(u"clicked"_s), 1);
    }

    void buttonDisabledWhilePressed_data() { addRows({{"input", inputs}}); }

    void buttonDisabledWhilePressed()
    {
        StageOfRow stage;
        stage.hand.press(stage.centre());
        stage->setEnabled(false);
        QVERIFY(!stage->isMouseDown());
        stage.hand.release();
        QCOMPARE(stage.log.count(u"clicked"_s), 0);
        stage->setEnabled(true);
        QCOMPARE(shownBackground(*stage), restColour);
        stage.hand.tap(stage.centre());
        QCOMPARE(stage.log.count(u"clicked"_s), 1);
    }

    void otherMouseButtonDuringAPress()
    {
        Stage<KELPushButton> stage;
        stage.hand.press(stage.centre());
        stage.hand.press(stage.centre(), Qt::RightButton);
        stage.hand.release(stage.centre(), Qt::RightButton);
        stage.hand.release();
        QCOMPARE(stage.log.count(u"clicked"_s), 1);
        QVERIFY(!stage->isMouseDown());
    }

    void hoverIsOnByDefault()
    {
        Stage<KELPushButton> stage;
        stage.hand.hover(QPoint(10, 10));
        stage.hand.hover(stage.centre());
        stage.hand.hover(stage.centre() + QPoint(5, 5));
        QCOMPARE(stage.log.takeWithHover(), u"enter"_s);
        stage.hand.hover(QPoint(10, 10));
        QCOMPARE(stage.log.takeWithHover(), u"leave"_s);
        QCOMPARE(shownBackground(*stage), restColour);
    }

    void buttonOnTopGetsThePress_data() { addRows({{"input", inputs}}); }

    void buttonOnTopGetsThePress()
    {
        StageOfRow stage;
        stage.other->setboundRect(150, 110, 40, 30);
        stage.hand.tap(stage.otherCentre());
        QCOMPARE(stage.log.take(), u"other.press other.release other.clicked"_s);
    }
};

KEL_TEST_MAIN(tst_KELPushButtonPointer)
#include "tst_kelpushbuttonpointer.moc"
