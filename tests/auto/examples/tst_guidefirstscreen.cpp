// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "firstsamples.h"
#include "keltest.h"
#include "rows.h"

#include <KELDataBind>
#include <KELDialogBase>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELSlideControl>

class Machine : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int brightness MEMBER m_brightness NOTIFY changed)

Q_SIGNALS:
    void changed();

private:
    int m_brightness = 40;
};

// What docs/guide/firstscreen.md says, and its code.
class tst_GuideFirstScreen : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void aBindingBeginsWithItsDestination()
    {
        Machine machine;
        KELProcessBar bar;
        KELDataBind::bind(&machine, "brightness", &bar, "value", KELDataBind::OneWay);
        QCOMPARE(machine.property("brightness").toInt(), 0);
    }

    void valuesAreShownAndChanged()
    {
        Machine machine;
        KELProcessBar bar;
        KELRange range;
        showBrightness(&machine, &bar, &range);
        QCOMPARE(machine.property("brightness").toInt(), 40);
        QCOMPARE(bar.value(), 40);
        QCOMPARE(range.value(), 40.0);
        range.setValue(55);
        QCOMPARE(machine.property("brightness").toInt(), 55);
        QCOMPARE(bar.value(), 55);
    }

    void theKnobIsWhereItBelongs()
    {
        KelTestView view;
        auto *slider = new KELSlideControl;
        placeSlider(slider);
        QCOMPARE(slider->value(), 45.0F);
        view.scene()->addItem(slider);
        // A press on the knob, which is at 0 + 0.25 * 270, moves nothing.
        QSignalSpy changes(slider, &KELSlideControl::valueChanged);
        view.showAndWait();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                          view.mapFromScene(QPointF(67.5 + 15, 24)));
        QCOMPARE(changes.count(), 0);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                          view.mapFromScene(QPointF(200, 24)));
        QCOMPARE(changes.count(), 1);
    }

    void theDialogIsAWindowInTheMiddle()
    {
        QWidget window;
        window.setGeometry(50, 60, 600, 400);
        window.show();
        QPixmap body(400, 250);
        body.fill(Qt::white);
        const QScopedPointer<KELDialogBase> dialog(newDialog(&window, body));
        QVERIFY(dialog->isWindow());
        QCOMPARE(dialog->geometry().center(), window.geometry().center());
    }

    void gradientsAreInItemPixels_data()
    {
        addRows({{"mode",
                  {{"logical", QGradient::LogicalMode},
                   {"object", QGradient::ObjectMode},
                   {"object bounding", QGradient::ObjectBoundingMode}}}});
    }

    void gradientsAreInItemPixels()
    {
        const auto mode = QGradient::CoordinateMode(fetch<int>("mode"));
        KelTestView view;
        auto *button = new KELPushButton;
        button->setboundRect(0, 0, 200, 60);
        fillWithGradient(button);
        QLinearGradient gradient = *static_cast<const QLinearGradient *>(
            button->style()->backgroundBrush.gradient());
        gradient.setCoordinateMode(mode);
        button->style()->backgroundBrush = gradient;
        view.scene()->addItem(button);
        view.showAndWait();
        const QImage shown = view.viewport()->grab().toImage();
        const QPoint left = view.mapFromScene(QPointF(20, 30));
        const int middle = qRed(shown.pixel(left));
        const int above = qRed(shown.pixel(left - QPoint(0, 20)));
        // The other modes stretch it to 60 times the height: what is seen is nearly of one colour.
        QCOMPARE(above - middle > 20, mode == QGradient::LogicalMode);
        QCOMPARE(above - middle < 3, mode != QGradient::LogicalMode);
    }

    void glyphAndCaptionHaveMargins()
    {
        KELPushButton button;
        pairGlyphAndCaption(&button);
        QCOMPARE(button.rect().size(), QSizeF(80, 64));
    }
};

KEL_TEST_MAIN(tst_GuideFirstScreen)
#include "tst_guidefirstscreen.moc"
