// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "stage.h"

#include <kelrange.h>

#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <cmath>

namespace {

enum State { Plain, Disabled, Pressed, Focused };
const std::vector<Named> states{
    {"plain", Plain}, {"disabled", Disabled}, {"pressed", Pressed}, {"focused", Focused}};
const std::vector<Named> orientations{{"horizontal", Qt::Horizontal}, {"vertical", Qt::Vertical}};
const std::vector<Named> directions{{"left to right", Qt::LeftToRight},
                                    {"right to left", Qt::RightToLeft}};
const std::vector<Named> scales{{"1", 1}, {"2", 2}};

const QColor accent(0x0b, 0x62, 0xd6);
const QColor track(0xdd, 0xe3, 0xeb);
const QColor knobColour(0x56, 0x61, 0x6f);
const QColor disabled(0x72, 0x78, 0x83);

// A range in a view, in one of the states.
class PaintStage
{
public:
    PaintStage(const QSizeF &size, Qt::Orientation orientation = Qt::Horizontal)
    {
        range = new KELRange;
        range->setOrientation(orientation);
        range->setMinimumSize(0, 0);
        range->setGeometry(QRectF(QPointF(20, 20), size));
        view.ownScene.addItem(range);
    }

    void enter(State state)
    {
        hand.hover(QPoint(1, 1));
        if (state == Disabled)
            range->setEnabled(false);
        else if (state == Focused)
            range->setFocus(Qt::TabFocusReason);
        else if (state == Pressed)
            press();
    }

    // Also of one too small to be hit. The value stays.
    void press()
    {
        QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
        event.setButton(Qt::LeftButton);
        const double value = range->value();
        view.ownScene.sendEvent(range, &event);
        range->setValue(value);
    }

    KelTestView view{QSize(400, 300)};
    KELRange *range;
    Hand hand{&view};
};

// Remembers what it was asked to paint.
class ExposedRange : public KELRange
{
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        exposed = option->exposedRect;
        KELRange::paint(painter, option, widget);
    }

    QRectF exposed;
};

// Draws a horizontal range whose minimum is at the left; the painter is turned for the others.
class Sketch
{
public:
    Sketch(const KELRange &drawn, State drawnState) : range(drawn), state(drawnState) { }

    qreal length() const
    {
        return range.orientation() == Qt::Horizontal ? range.size().width() : range.size().height();
    }
    qreal breadth() const
    {
        return range.orientation() == Qt::Horizontal ? range.size().height() : range.size().width();
    }
    QRectF rect(qreal x, qreal y, qreal width, qreal height) const
    {
        const bool isMirrored = range.layoutDirection() == Qt::RightToLeft;
        if (range.orientation() == Qt::Horizontal)
            return QRectF(isMirrored ? length() - x - width : x, y, width, height);
        return QRectF(isMirrored ? breadth() - y - height : y, length() - x - width, height, width);
    }

    void draw(QPainter *painter) const
    {
        const QColor mark = state == Disabled ? disabled : accent;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        for (const qreal x : ticks)
            painter->fillRect(rect(x - 1, middle + 8, 2, 6), state == Disabled ? disabled : muted);
        painter->setBrush(track);
        painter->drawRoundedRect(rect(knob, middle - 4, length() - 4 - knob, 8), 4, 4);
        painter->setBrush(mark);
        painter->drawRoundedRect(rect(4, middle - 4, knob - 4, 8), 4, 4);
        if (state == Plain || state == Focused)
            painter->setBrush(knobColour);
        painter->drawEllipse(rect(knob - 14, middle - 14, 28, 28));
        if (state == Focused) {
            painter->setPen(QPen(accent, 2));
            painter->setBrush(Qt::NoBrush);
            painter->drawEllipse(rect(knob - 17, middle - 17, 34, 34));
        }
    }

    const KELRange &range;
    const State state;
    const QColor muted{0x56, 0x61, 0x6f};
    qreal middle = 0;
    qreal knob = 0;
    QVector<qreal> ticks;
};

} // namespace

class tst_KELRangePaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isPaintedAsDocumented_data()
    {
        addRows({{"state", states},
                 {"orientation", orientations},
                 {"direction", directions},
                 {"scale", scales}});
    }

    void isPaintedAsDocumented()
    {
        const auto orientation = fetch<Qt::Orientation>("orientation");
        const QSizeF size = orientation == Qt::Horizontal ? QSizeF(236, 61) : QSizeF(61, 236);
        PaintStage stage(size, orientation);
        stage.range->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        stage.range->setValue(30);
        stage.range->setTickInterval(25);
        stage.enter(fetch<State>("state"));
        Sketch sketch(*stage.range, fetch<State>("state"));
        sketch.middle = 31;
        sketch.knob = 18 + 60;
        sketch.ticks = {18, 68, 118, 168, 218};
        const QString difference = KelImage::differenceFrom(
            [&](QPainter *painter) { sketch.draw(painter); }, stage.range, size.toSize(),
            fetch<int>("scale"));
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    void theBubbleIsAboveOrBeforeTheKnob_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<int>("direction");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("scale");
        for (const Named &orientation : orientations) {
            for (const Named &direction : directions) {
                for (const double value : {0.0, 50.0, 100.0}) {
                    for (const int scale : {1, 2}) {
                        QTest::addRow("%s %s %g %d", orientation.name, direction.name, value, scale)
                            << orientation.value << direction.value << value << scale;
                    }
                }
            }
        }
    }

    void theBubbleIsAboveOrBeforeTheKnob()
    {
        const auto orientation = fetch<Qt::Orientation>("orientation");
        const bool isHorizontal = orientation == Qt::Horizontal;
        const QSizeF size = isHorizontal ? QSizeF(236, 80) : QSizeF(80, 236);
        PaintStage stage(size, orientation);
        KELRange *const range = stage.range;
        range->setLayoutDirection(fetch<Qt::LayoutDirection>("direction"));
        range->setBubbleShown(true);
        range->setSuffix(u" %"_s);
        range->setValue(fetch<double>("value"));
        stage.enter(Pressed);

        const QFontMetricsF metrics(range->partStyle()->font);
        const auto widthOf = [&](double value) {
            return std::ceil(metrics.horizontalAdvance(range->textOf(value))) + 16;
        };
        const qreal width = widthOf(range->value());
        const qreal height = std::ceil(metrics.height()) + 8;
        const qreal room = isHorizontal ? height : qMax(widthOf(0), widthOf(100));
        Sketch sketch(*range, Pressed);
        sketch.middle = qMin(qMax(40.0, room + 4 + 14), 80.0 - 18);
        sketch.knob = 18 + 2 * range->value();
        const qreal along = isHorizontal ? width : height;
        const qreal across = isHorizontal ? height : width;
        const qreal from = qBound(0.0, sketch.knob - along / 2, 236 - along);
        const qreal far = sketch.middle - 18;
        const qreal near = qMax(0.0, far - across);
        const auto draw = [&](QPainter *painter) {
            sketch.draw(painter);
            const QRectF bubble = sketch.rect(from, near, along, far - near);
            painter->setPen(Qt::NoPen);
            painter->setBrush(accent);
            painter->drawRoundedRect(bubble, 6, 6);
            painter->setFont(range->partStyle()->font);
            painter->setPen(Qt::white);
            painter->setLayoutDirection(range->layoutDirection());
            painter->drawText(bubble, Qt::AlignCenter | Qt::TextSingleLine,
                              range->textOf(range->value()));
        };
        const int scale = fetch<int>("scale");
        const QString difference = KelImage::differenceFrom(draw, range, size.toSize(), scale);
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }

    void nothingIsPaintedOutside_data()
    {
        QTest::addColumn<QSizeF>("size");
        for (const QSizeF &size : {QSizeF(90, 60), QSizeF(60, 20), QSizeF(20, 60), QSizeF(35, 35),
                                   QSizeF(8, 8), QSizeF(0, 0), QSizeF(60, 37.5)})
            QTest::addRow("%g x %g", size.width(), size.height()) << size;
    }

    void nothingIsPaintedOutside()
    {
        for (const Named &orientation : orientations) {
            PaintStage stage(fetch<QSizeF>("size"), Qt::Orientation(orientation.value));
            stage.range->setValue(100);
            stage.range->setTickInterval(10);
            stage.range->setBubbleShown(true);
            stage.enter(Focused);
            stage.press();
            QCOMPARE(KelImage::pixelsOutside(stage.range), QString());
        }
    }

    void tooManyTicksAreNotDrawn()
    {
        PaintStage stage(QSizeF(236, 60));
        const auto painted = [&](double interval) {
            stage.range->setTickInterval(interval);
            return KelImage::paint(stage.range, QSize(236, 60));
        };
        const QImage without = painted(0);
        QVERIFY(painted(2) != without);
        QCOMPARE(painted(1.9), without);
        QCOMPARE(painted(1e-300), without);
        stage.range->setRange(5, 5);
        const QImage ofOneValue = painted(0);
        QCOMPARE(painted(1), ofOneValue);
    }

    void theLastTickIsDrawnDespiteRounding()
    {
        PaintStage stage(QSizeF(236, 60));
        stage.range->setRange(0, 0.3);
        stage.range->setTickInterval(0.1);
        const QImage image = KelImage::paint(stage.range, QSize(236, 60));
        QCOMPARE(image.pixelColor(217, 41), QColor(0x56, 0x61, 0x6f));
    }

    void aFingerLeavesNoRing()
    {
        PaintStage stage(QSizeF(236, 60));
        stage.hand.tap(QPoint(38, 50));
        const QImage tapped = KelImage::paint(stage.range, QSize(236, 60));
        stage.range->clearFocus();
        QCOMPARE(KelImage::paint(stage.range, QSize(236, 60)), tapped);
    }

    void onlyWhatChangesIsRepainted()
    {
        KelTestView view;
        auto *range = new ExposedRange;
        range->setFlag(QGraphicsItem::ItemUsesExtendedStyleOption);
        range->setGeometry(20, 20, 236, 60);
        range->setValue(40);
        view.ownScene.addItem(range);
        QVERIFY(view.showAndWait());
        letEventsRun();
        QCOMPARE(range->exposed, QRectF(0, 0, 236, 60));
        range->setValue(50);
        letEventsRun();
        const QRectF changed(80, 12, 56, 36);
        QVERIFY(range->exposed.contains(changed));
        QVERIFY(changed.adjusted(-3, -3, 3, 3).contains(range->exposed));
    }
};

KEL_TEST_MAIN(tst_KELRangePaint)
#include "tst_kelrangepaint.moc"
