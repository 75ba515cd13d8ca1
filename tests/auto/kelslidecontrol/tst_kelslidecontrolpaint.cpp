// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"
#include "record.h"
#include "sliderparts.h"
#include "stage.h"

#include <cmath>

Q_DECLARE_METATYPE(QMargins)
Q_DECLARE_METATYPE(Setting)

namespace {

const QColor grooveColour(Qt::lightGray);
const QColor fillColour(50, 173, 235);
const QColor disabledFill(110, 110, 110);
const QColor disabledOutline(170, 170, 170);
const QSize canvas(190, 140);
const QRectF usualRect(10.5, 20, 150, 50);

QPainterPath groovePath(const QRectF &rect)
{
    QPainterPath path;
    path.addRoundedRect(rect, 3, 3, Qt::RelativeSize);
    return path;
}

// Unlike the operator of QPainterPath, without any tolerance.
bool isSamePath(const QPainterPath &one, const QPainterPath &other)
{
    if (one.elementCount() != other.elementCount())
        return false;
    for (int i = 0; i < one.elementCount(); ++i) {
        const QPainterPath::Element a = one.elementAt(i);
        const QPainterPath::Element b = other.elementAt(i);
        if (a.type != b.type || !(a.x == b.x) || !(a.y == b.y))
            return false;
    }
    return true;
}

// What a slider has to show, drawn step by step with the numbers given here.
struct SliderDrawing
{
    QRectF bounds;
    QRectF knob;
    QBrush groove;
    QBrush fill;
    QBrush outline;
    bool isInsideBounds = true;

    void draw(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal left = bounds.x() + 3;
        const qreal top = bounds.y() + bounds.height() / 2 - 2;
        if (groove.style() != Qt::NoBrush) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(groove);
            painter->drawRoundedRect(QRectF(left, top, bounds.width() - 6, 4), 3, 3,
                                     Qt::RelativeSize);
        }
        if (isInsideBounds && fill.style() != Qt::NoBrush) {
            painter->setBrush(fill);
            painter->drawRoundedRect(QRectF(left, top, knob.x() + 15 - left, 4), 3, 3,
                                     Qt::RelativeSize);
        }
        if (outline.style() != Qt::NoBrush)
            painter->setPen(HandDrawing::squarePen(outline, 2));
        painter->setBrush(fill);
        painter->drawEllipse(knob);
    }
};

// The drawing of a slider placed by four numbers, from 0 to 100.
SliderDrawing expectedOf(const KELSlideControl &slider)
{
    const KELRoundRectControlStyle &style = *slider.style();
    const QRectF rect = style.boundRect;
    const bool isEnabled = slider.isEnabled();
    return {rect, QRectF(rect.x() + wayOf(slider.value() / 100, rect.width()), topOf(rect), 30, 30),
            style.backgroundBrush, isEnabled ? style.foregroundBrush : QBrush(disabledFill),
            isEnabled ? style.borderBrush : QBrush(disabledOutline)};
}

// With the painter as prepare leaves it.
QString differenceFrom(
    const SliderDrawing &expected, KELSlideControl *slider,
    const KelImage::Drawing &prepare = [](QPainter *) {})
{
    QString difference;
    for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
        const QImage actual = KelImage::draw(canvas, scale, [&](QPainter *painter) {
            prepare(painter);
            slider->paint(painter, nullptr);
        });
        const QImage wanted = KelImage::draw(canvas, scale, [&](QPainter *painter) {
            prepare(painter);
            expected.draw(painter);
        });
        difference += KelImage::difference(actual, wanted);
    }
    return difference;
}

// How many pixels the painting reaches beyond each side of the bounding rectangle, whose corner and
// size have to fall on whole pixels at this scale.
QMargins reachOf(KELSlideControl *slider, qreal scale)
{
    constexpr int marginPx = 120;
    const QRectF bounds = slider->boundingRect();
    const QSize size = bounds.size().toSize() + QSize(2 * marginPx, 2 * marginPx);
    const QRect ink = KelImage::inkOf(KelImage::draw(size, scale, [&](QPainter *painter) {
        painter->translate(QPointF(marginPx, marginPx) - bounds.topLeft());
        slider->paint(painter, nullptr);
    }));
    const QRect inside = QRectF(QPointF(marginPx, marginPx) * scale, bounds.size() * scale)
                             .toRect();
    return {qMax(0, inside.left() - ink.left()), qMax(0, inside.top() - ink.top()),
            qMax(0, ink.right() - inside.right()), qMax(0, ink.bottom() - inside.bottom())};
}

const std::vector<Named> enabledOrNot = {{"enabled", true}, {"disabled", false}};

} // namespace

class tst_KELSlideControlPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHandDrawnPicture_data()
    {
        addRows({{"value",
                  {{"minimum", 0}, {"near the minimum", 3}, {"between", 41}, {"maximum", 100}}},
                 {"enabled", enabledOrNot}});
    }

    void isTheHandDrawnPicture()
    {
        for (const QRectF &rect :
             {QRectF(10, 10, 150, 50), QRectF(5.3, 7.7, 140.4, 33.6), QRectF(20, 30, 60, 30),
              QRectF(50, 10, 30, 110), QRectF(60, 60, 12, 12), QRectF(80, 60, 4, 2),
              QRectF(80, 60, 0, 0), QRectF(150, 90, -90, -50)}) {
            KELSlideControl slider;
            slider.setEnabled(fetch<bool>("enabled"));
            place(&slider, rect);
            slider.setValue(float(fetch<int>("value")));
            QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
        }
    }

    void isTheHandDrawnPictureAfterTheRectForm()
    {
        for (const float value : {0.0F, 41.7F, 100.0F}) {
            KELSlideControl slider;
            slider.setValue(value);
            slider.setboundRect(QRectF(10.5, 10, 120, 50));
            SliderDrawing expected = expectedOf(slider);
            expected.knob.translate(15, 0);
            QCOMPARE(differenceFrom(expected, &slider), QString());
        }
    }

    void isTheHandDrawnPictureWithoutBrushes_data()
    {
        addRows({{"groove", {{"no groove", Qt::NoBrush}, {"groove", Qt::SolidPattern}}},
                 {"fill", {{"no fill", Qt::NoBrush}, {"fill", Qt::SolidPattern}}},
                 {"outline", {{"no outline", Qt::NoBrush}, {"outline", Qt::SolidPattern}}},
                 {"enabled", enabledOrNot}});
    }

    void isTheHandDrawnPictureWithoutBrushes()
    {
        KELSlideControl slider;
        place(&slider, usualRect);
        slider.setValue(60);
        slider.setEnabled(fetch<bool>("enabled"));
        KELRoundRectControlStyle *style = slider.style();
        style->backgroundBrush = QBrush(Qt::darkGreen, fetch<Qt::BrushStyle>("groove"));
        style->foregroundBrush = QBrush(Qt::yellow, fetch<Qt::BrushStyle>("fill"));
        style->borderBrush = QBrush(Qt::blue, fetch<Qt::BrushStyle>("outline"));
        // What a scene hands over, and what another caller may.
        for (const QPen &pen : {QPen(), QPen(Qt::red, 3), QPen(Qt::NoPen)}) {
            const auto prepare = [&pen](QPainter *painter) {
                painter->setPen(pen);
                painter->setBrush(pen == QPen() ? Qt::NoBrush : QBrush(Qt::magenta));
            };
            QCOMPARE(differenceFrom(expectedOf(slider), &slider, prepare), QString());
        }
    }

    void isTheHandDrawnPictureWithPatternsAndGradients()
    {
        const QBrush gradient = HandDrawing::gradient();
        const QBrush pattern(QColor(90, 120, 60, 130), Qt::DiagCrossPattern);
        KELSlideControl slider;
        place(&slider, usualRect);
        slider.setValue(60);
        slider.style()->backgroundBrush = pattern;
        slider.style()->foregroundBrush = gradient;
        slider.style()->borderBrush = pattern;
        QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
        slider.style()->backgroundBrush = gradient;
        slider.style()->foregroundBrush = pattern;
        slider.style()->borderBrush = gradient;
        QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
    }

    void isTheHandDrawnPictureInAParent_data()
    {
        QTest::addColumn<QPointF>("corner");
        QTest::newRow("parent begins at the origin") << QPointF(0, 0);
        QTest::newRow("parent begins to the right and below") << QPointF(20, 35);
        QTest::newRow("parent begins to the left and above") << QPointF(-15, -10.5);
        QTest::newRow("parent begins beyond the knob") << QPointF(80, 0);
    }

    void isTheHandDrawnPictureInAParent()
    {
        const auto corner = fetch<QPointF>("corner");
        PlainItem parent(QRectF(corner, QSizeF(500, 500)));
        auto *slider = new KELSlideControl(&parent);
        slider->setboundRect(30, 30, 90, 40);
        slider->setValue(25);
        // The groove goes along with the parent's rectangle, the knob does not.
        SliderDrawing expected = expectedOf(*slider);
        expected.bounds.translate(corner);
        QCOMPARE(expected.knob, QRectF(45, 35, 30, 30));
        QCOMPARE(differenceFrom(expected, slider), QString());
    }

    void partsHaveTheirNumbers()
    {
        KELSlideControl slider;
        slider.setboundRect(10.5, 20, 150, 51);
        slider.setValue(25);
        const QList<Part> parts = partsOf(&slider);
        QCOMPARE(parts.size(), 3);
        QVERIFY(!parts.at(0).isEllipse);
        QVERIFY(isSamePath(parts.at(0).path, groovePath(QRectF(13.5, 43.5, 144, 4))));
        QVERIFY(!parts.at(1).isEllipse);
        // Up to the centre of the knob.
        QVERIFY(isSamePath(parts.at(1).path, groovePath(QRectF(13.5, 43.5, 42, 4))));
        QVERIFY(parts.at(2).isEllipse);
        QCOMPARE(parts.at(2).ellipse, QRectF(40.5, 30.5, 30, 30));
    }

    void partsHaveTheirPensAndBrushes_data() { addRows({{"enabled", enabledOrNot}}); }

    void partsHaveTheirPensAndBrushes()
    {
        const bool isEnabled = fetch<bool>("enabled");
        const QBrush fill(isEnabled ? fillColour : disabledFill);
        const QBrush outline(isEnabled ? QColor(Qt::white) : disabledOutline);
        KELSlideControl slider;
        slider.setEnabled(isEnabled);
        place(&slider, usualRect);
        slider.setValue(25);
        const QList<Part> parts = partsOf(&slider, QPen(Qt::red, 3));
        QCOMPARE(parts.size(), 3);
        QCOMPARE(parts.at(0).pen, QPen(Qt::NoPen));
        QCOMPARE(parts.at(0).brush, QBrush(grooveColour));
        QCOMPARE(parts.at(1).pen, QPen(Qt::NoPen));
        QCOMPARE(parts.at(1).brush, fill);
        QCOMPARE(parts.at(2).pen, HandDrawing::squarePen(outline, 2));
        QCOMPARE(parts.at(2).brush, fill);
    }

    void filledPartNeedsAValueInsideTheBounds_data()
    {
        QTest::addColumn<float>("minimum");
        QTest::addColumn<float>("maximum");
        QTest::addColumn<bool>("isFilled");
        QTest::newRow("inside") << 0.0F << 100.0F << true;
        QTest::newRow("at the maximum") << 0.0F << 40.0F << true;
        QTest::newRow("at the minimum") << 40.0F << 100.0F << true;
        QTest::newRow("at both") << 40.0F << 40.0F << true;
        QTest::newRow("just above the maximum") << 0.0F << 39.999996F << false;
        QTest::newRow("just below the minimum") << 40.000004F << 100.0F << false;
        QTest::newRow("between reversed bounds") << 100.0F << 0.0F << false;
        QTest::newRow("maximum not a number") << 0.0F << notANumber << false;
        QTest::newRow("minimum not a number") << notANumber << 100.0F << false;
        QTest::newRow("infinite bounds") << -infinite << infinite << true;
    }

    void filledPartNeedsAValueInsideTheBounds()
    {
        QFETCH(bool, isFilled);
        for (const bool enabled : {true, false}) {
            KELSlideControl slider;
            slider.setEnabled(enabled);
            place(&slider, usualRect);
            slider.setValue(40);
            slider.setMinimun(fetch<float>("minimum"));
            slider.setMaximun(fetch<float>("maximum"));
            QCOMPARE(slider.value(), 40.0F);
            SliderDrawing expected = expectedOf(slider);
            expected.isInsideBounds = isFilled;
            QCOMPARE(partsOf(&slider).size(), isFilled ? 3 : 2);
            QCOMPARE(differenceFrom(expected, &slider), QString());
        }
    }

    void disabledByItsParent()
    {
        PlainItem parent(QRectF(0, 0, 500, 500));
        auto *slider = new KELSlideControl(&parent);
        slider->setboundRect(10, 20, 150, 50);
        slider->setValue(40);
        QCOMPARE(partsOf(slider).last().brush, QBrush(fillColour));
        parent.setEnabled(false);
        QCOMPARE(partsOf(slider).last().brush, QBrush(disabledFill));
        QCOMPARE(slider->style()->foregroundBrush, QBrush(fillColour));
        parent.setEnabled(true);
        QCOMPARE(partsOf(slider).last().brush, QBrush(fillColour));
    }

    void antialiasingIsTheOnlyHintTurnedOn()
    {
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        for (const bool smooth : {false, true}) {
            RecordingDevice device;
            QPainter painter(&device);
            painter.setRenderHints(painter.renderHints(), false);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
            const QPainter::RenderHints before = painter.renderHints();
            slider.paint(&painter, nullptr);
            painter.end();
            const QList<Part> parts = device.parts();
            QCOMPARE(parts.size(), 3);
            for (const Part &part : parts)
                QCOMPARE(part.hints, before | QPainter::Antialiasing);
        }
    }

    void restOfTheRecordIsNotDrawn()
    {
        KELSlideControl slider;
        place(&slider, usualRect);
        slider.setValue(40);
        const SliderDrawing expected = expectedOf(slider);
        Record::fill(slider.style());
        slider.initStyle();
        slider.style()->boundRect = usualRect;
        QCOMPARE(differenceFrom(expected, &slider), QString());
        slider.style()->borderWidth = 0;
        QCOMPARE(differenceFrom(expected, &slider), QString());
    }

    void placeThatIsNotANumberShowsTheGrooveAlone_data()
    {
        QTest::addColumn<Setting>("setting");
        QTest::newRow("equal bounds") << Setting{50, 50, 50};
        QTest::newRow("value not a number") << Setting{0, 100, notANumber};
        QTest::newRow("maximum not a number") << Setting{0, notANumber, 50};
        QTest::newRow("minimum not a number") << Setting{notANumber, 100, 50};
        QTest::newRow("no lower limit") << Setting{-infinite, 100, 50};
        QTest::newRow("infinite value") << Setting{0, infinite, infinite};
    }

    void placeThatIsNotANumberShowsTheGrooveAlone()
    {
        const QImage grooveAlone = KelImage::draw(canvas, 1, [](QPainter *painter) {
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(Qt::lightGray);
            painter->drawRoundedRect(QRectF(13, 43, 144, 4), 3, 3, Qt::RelativeSize);
        });
        KELSlideControl slider;
        slider.setboundRect(10, 20, 150, 50);
        apply(&slider, fetch<Setting>("setting"));
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), grooveAlone), QString());
        slider.setboundRect(QRectF(10, 20, 150, 50));
        QCOMPARE(KelImage::difference(KelImage::paint(&slider, canvas), grooveAlone), QString());
        // It comes back with numbers.
        apply(&slider, {0, 100, 50});
        QCOMPARE(differenceFrom(expectedOf(slider), &slider), QString());
    }

    void reachBeyondTheRectangle_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<float>("value");
        QTest::addColumn<bool>("rectForm");
        QTest::addColumn<QMargins>("reach");
        const QSizeF high(120, 40);
        QTest::newRow("none away from the ends") << QSizeF(120, 32) << 50.0F << false << QMargins();
        QTest::newRow("none away from the ends, rect form")
            << QSizeF(120, 32) << 50.0F << true << QMargins();
        QTest::newRow("outline at the left end") << high << 0.0F << false << QMargins(1, 0, 0, 0);
        QTest::newRow("outline at the right end")
            << high << 100.0F << false << QMargins(0, 0, 1, 0);
        QTest::newRow("outline of a knob as high as the control")
            << QSizeF(120, 30) << 50.0F << false << QMargins(0, 1, 0, 1);
        QTest::newRow("knob in a low control")
            << QSizeF(120, 20) << 50.0F << false << QMargins(0, 6, 0, 6);
        QTest::newRow("none at the left end, rect form") << high << 0.0F << true << QMargins();
        QTest::newRow("knob at the right end, rect form")
            << high << 100.0F << true << QMargins(0, 0, 16, 0);
    }

    void reachBeyondTheRectangle()
    {
        const QRectF rect(QPointF(100, 100), fetch<QSizeF>("size"));
        const auto reach = fetch<QMargins>("reach");
        QFETCH(bool, rectForm);
        for (const bool enabled : {true, false}) {
            KELSlideControl slider;
            slider.setEnabled(enabled);
            slider.setValue(fetch<float>("value"));
            if (rectForm)
                slider.setboundRect(rect);
            else
                place(&slider, rect);
            for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
                const auto scaled = [scale](int px) { return int(std::ceil(px * scale)); };
                QCOMPARE(reachOf(&slider, scale),
                         QMargins(scaled(reach.left()), scaled(reach.top()), scaled(reach.right()),
                                  scaled(reach.bottom())));
            }
        }
    }

    void withoutOutlineNothingReachesBeyondTheEnds()
    {
        KELSlideControl slider;
        slider.setboundRect(100, 100, 120, 40);
        slider.style()->borderBrush = QBrush(Qt::NoBrush);
        for (const float value : {0.0F, 100.0F}) {
            slider.setValue(value);
            QCOMPARE(reachOf(&slider, 1), QMargins());
        }
    }

    // Where the constructor leaves the knob, above and to the left of the control.
    void knobOfANewSliderReachesItsOrigin()
    {
        KELSlideControl slider;
        QCOMPARE(reachOf(&slider, 1), QMargins(101, 101, 0, 0));
    }
};

KEL_TEST_MAIN(tst_KELSlideControlPaint)
#include "tst_kelslidecontrolpaint.moc"
