// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltest.h"

#include "../../../src/kelcheckbox_p.h"

#include <kelcheckbox.h>

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <limits>

namespace {

const QSize canvas(270, 110);
constexpr qreal scales[] = {0.5, 1, 1.5, 2};

// Lends a private member: an explicit instantiation may name it.
template <auto Member>
struct Lend
{
    friend KELCheckBoxPrivate *recordOf(const KELCheckBox &box) { return box.*Member; }
};
template struct Lend<&KELCheckBox::d>;
KELCheckBoxPrivate *recordOf(const KELCheckBox &box);

// A check box of which the second drawing can be chosen.
class OpenCheckBox : public KELCheckBox
{
public:
    using KELCheckBox::KELCheckBox;
    void setLayoutMode(int mode) { recordOf(*this)->layoutMode = mode; }
};

KELCheckBoxStyle *styleOf(const KELCheckBox &box)
{
    return static_cast<KELCheckBoxStyle *>(box.style());
}

// A check box drawn by hand, step by step. It shares no code with the
// library, so that a mistake there shows up as a difference.
struct HandDrawing
{
    QRectF rect;
    QBrush track = QColor(200, 200, 200);
    QBrush knob = QColor(0, 123, 185);
    QBrush outline = QColor(255, 255, 255);
    double outlineWidth = 2;
    double xRadius = 15;
    double yRadius = 15;
    bool on = false;

    void drawSwitch(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        const double width = rect.width() > 80 ? 80 : rect.width();
        const double left = rect.x() + (rect.width() - width) / 2;
        const double top = rect.y() + rect.height() / 2 - 15;
        if (track.style() != Qt::NoBrush)
            painter->setBrush(track);
        if (outline.style() != Qt::NoBrush && outlineWidth > 0)
            painter->setPen(
                QPen(outline, outlineWidth, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->drawRoundedRect(QRectF(left, top, width, 30), xRadius, yRadius, Qt::AbsoluteSize);
        const double margin = hasOutline() ? 1.5 * outlineWidth : 0;
        drawKnob(painter, QRectF(on ? left + width - 27 : left + margin, top + margin, 24, 24));
    }

    void drawBar(QPainter *painter) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        const double half = hasOutline() ? outlineWidth / 2 : 0;
        if (track.style() != Qt::NoBrush) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(track);
            painter->drawRoundedRect(QRectF(rect.x() + 2, rect.y() + rect.height() / 2 - 3 * half,
                                            rect.width() - 4, 6 * half),
                                     3 * half, 3 * half, Qt::AbsoluteSize);
        }
        const double size = rect.height() - 2 * half;
        drawKnob(painter,
                 QRectF(on ? rect.x() + rect.width() - rect.height() + half : rect.x() + half,
                        rect.y() + half, size, size));
    }

private:
    bool hasOutline() const { return outline.style() != Qt::NoBrush && outlineWidth > 0; }

    void drawKnob(QPainter *painter, const QRectF &place) const
    {
        if (knob.style() == Qt::NoBrush)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(knob);
        painter->drawRoundedRect(place, xRadius, yRadius, Qt::AbsoluteSize);
    }
};

struct State
{
    const char *name;
    bool on;
    bool enabled;
    QColor track;
    QColor knob;
    QColor outline;
};

// The default colours in each state.
const State states[] = {
    {"off", false, true, QColor(200, 200, 200), QColor(0, 123, 185), QColor(255, 255, 255)},
    {"on", true, true, QColor(70, 193, 255, 185), QColor(0, 123, 185), QColor(255, 255, 255)},
    {"off and disabled", false, false, QColor(200, 200, 200, 85), QColor(130, 130, 130, 150),
     QColor(255, 255, 255, 125)},
    {"on and disabled", true, false, QColor(200, 200, 200, 80), QColor(130, 130, 130, 150),
     QColor(255, 255, 255, 125)},
};

using Painting = std::function<void(QPainter *)>;

// The pen and the brush that the painter has before the box is painted.
struct PainterState
{
    QPen pen = QPen();
    QBrush brush = QBrush();
};

QString differenceFrom(const HandDrawing &expected, KELCheckBox *box, bool thinBar, qreal scale = 1,
                       const PainterState &before = PainterState())
{
    const auto prepared = [&before](const Painting &draw) {
        return [&before, draw](QPainter *painter) {
            painter->setPen(before.pen);
            painter->setBrush(before.brush);
            draw(painter);
        };
    };
    const QImage actual = KelImage::draw(canvas, scale, prepared([box](QPainter *painter) {
                                             QStyleOptionGraphicsItem option;
                                             box->paint(painter, &option, nullptr);
                                         }));
    const QImage wanted = KelImage::draw(canvas, scale, prepared([&](QPainter *painter) {
                                             if (thinBar)
                                                 expected.drawBar(painter);
                                             else
                                                 expected.drawSwitch(painter);
                                         }));
    return KelImage::difference(actual, wanted);
}

// The hand drawing of a box as it is after construction, brought into a state.
HandDrawing defaultDrawing(const QRectF &rect, const State &state)
{
    HandDrawing drawing;
    drawing.rect = rect;
    drawing.on = state.on;
    drawing.track = state.track;
    drawing.knob = state.knob;
    drawing.outline = state.outline;
    return drawing;
}

void bringInto(KELCheckBox *box, const State &state)
{
    box->setCheck(state.on);
    box->setEnabled(state.enabled);
}

void addLayouts()
{
    QTest::addColumn<bool>("thinBar");

    QTest::newRow("switch") << false;
    QTest::newRow("thin bar") << true;
}

void addLayoutsAndSizes()
{
    QTest::addColumn<bool>("thinBar");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    for (const bool thinBar : {false, true}) {
        for (const int width : {20, 79, 80, 81, 200}) {
            for (const int height : {20, 30, 60})
                QTest::addRow("%s, %d x %d", thinBar ? "thin bar" : "switch", width, height)
                    << thinBar << width << height;
        }
    }
}

} // namespace

class tst_KELCheckBoxPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHandDrawnPicture_data() { addLayoutsAndSizes(); }

    void isTheHandDrawnPicture()
    {
        QFETCH(bool, thinBar);
        QFETCH(int, width);
        QFETCH(int, height);
        const QRectF rect(40, 25, width, height);
        OpenCheckBox box;
        box.setLayoutMode(thinBar ? 1 : 0);
        box.setboundRect(rect);
        for (const State &state : states) {
            bringInto(&box, state);
            for (const qreal scale : scales) {
                QVERIFY2(
                    differenceFrom(defaultDrawing(rect, state), &box, thinBar, scale).isEmpty(),
                    qPrintable(
                        u"%1, scale %2"_s.arg(QLatin1String(state.name), QString::number(scale))));
            }
        }
    }

    void isTheHandDrawnPictureAtFractions_data() { addLayouts(); }

    void isTheHandDrawnPictureAtFractions()
    {
        QFETCH(bool, thinBar);
        for (const QRectF &rect : {QRectF(30.3, 24.6, 80.5, 41.3), QRectF(41.5, 30.25, 79.9, 29.9),
                                   QRectF(20.7, 20.1, 133.3, 33.25)}) {
            OpenCheckBox box;
            box.setLayoutMode(thinBar ? 1 : 0);
            box.setboundRect(rect);
            for (const State &state : states) {
                bringInto(&box, state);
                for (const qreal scale : scales)
                    QCOMPARE(differenceFrom(defaultDrawing(rect, state), &box, thinBar, scale),
                             QString());
            }
        }
    }

    void isTheHandDrawnPictureWithEveryField_data() { addLayouts(); }

    void isTheHandDrawnPictureWithEveryField()
    {
        QFETCH(bool, thinBar);
        const State ownStates[] = {{"off", false, true, QColor(90, 125, 196, 240),
                                    QColor(11, 122, 183, 201), QColor(4, 5, 6, 207)},
                                   {"on", true, true, QColor(81, 192, 253, 131),
                                    QColor(11, 122, 183, 201), QColor(4, 5, 6, 207)},
                                   {"off and disabled", false, false, QColor(90, 125, 196, 70),
                                    QColor(20, 55, 126, 150), QColor(4, 5, 6, 77)},
                                   {"on and disabled", true, false, QColor(90, 125, 196, 80),
                                    QColor(20, 55, 126, 150), QColor(4, 5, 6, 77)}};
        const QRectF rect(40, 25, 130, 44);
        for (const float width : {0.75F, 3.5F, 8.0F}) {
            for (const State &state : ownStates) {
                OpenCheckBox box;
                box.setLayoutMode(thinBar ? 1 : 0);
                box.setboundRect(rect);
                styleOf(box)->backgroundBrush = QColor(90, 125, 196, 240);
                styleOf(box)->indicatorBrush = QColor(11, 122, 183, 201);
                styleOf(box)->borderBrush = QColor(4, 5, 6, 207);
                styleOf(box)->borderWidth = width;
                styleOf(box)->xRadius = 4;
                styleOf(box)->yRadius = 9;
                styleOf(box)->margins = QMarginsF(5, 6, 7, 8);
                bringInto(&box, state);
                HandDrawing expected = defaultDrawing(rect, state);
                expected.outlineWidth = double(width);
                expected.xRadius = 4;
                expected.yRadius = 9;
                QCOMPARE(differenceFrom(expected, &box, thinBar), QString());
            }
        }
    }

    void isTheHandDrawnPictureWithoutRadii_data() { addLayouts(); }

    // Only square corners show how the sides of the outline meet.
    void isTheHandDrawnPictureWithoutRadii()
    {
        QFETCH(bool, thinBar);
        const QRectF rect(40, 30, 100, 40);
        for (const State &state : states) {
            OpenCheckBox box;
            box.setLayoutMode(thinBar ? 1 : 0);
            box.setboundRect(rect);
            styleOf(box)->borderWidth = 9;
            styleOf(box)->xRadius = 0;
            styleOf(box)->yRadius = 0;
            bringInto(&box, state);
            HandDrawing expected = defaultDrawing(rect, state);
            expected.outlineWidth = 9;
            expected.xRadius = 0;
            expected.yRadius = 0;
            for (const qreal scale : scales)
                QCOMPARE(differenceFrom(expected, &box, thinBar, scale), QString());
        }
    }

    void isTheHandDrawnPictureInAParent_data() { addLayouts(); }

    void isTheHandDrawnPictureInAParent()
    {
        QFETCH(bool, thinBar);
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *box = new OpenCheckBox(&parent);
        box->setLayoutMode(thinBar ? 1 : 0);
        box->setboundRect(25, 5, 100, 40);
        for (const State &state : states) {
            bringInto(box, state);
            QCOMPARE(differenceFrom(defaultDrawing(QRectF(35, 25, 100, 40), state), box, thinBar),
                     QString());
        }
    }

    void switchIsTheDefaultDrawing()
    {
        KELCheckBox box;
        box.setboundRect(40, 25, 100, 40);
        QCOMPARE(differenceFrom(defaultDrawing(QRectF(40, 25, 100, 40), states[0]), &box, false),
                 QString());
    }

    void everyOtherModeIsTheBar_data()
    {
        QTest::addColumn<int>("mode");

        QTest::newRow("1") << 1;
        QTest::newRow("2") << 2;
        QTest::newRow("-1") << -1;
        QTest::newRow("largest") << std::numeric_limits<int>::max();
        QTest::newRow("smallest") << std::numeric_limits<int>::min();
    }

    void everyOtherModeIsTheBar()
    {
        QFETCH(int, mode);
        OpenCheckBox box;
        box.setboundRect(40, 25, 100, 40);
        const HandDrawing expected = defaultDrawing(QRectF(40, 25, 100, 40), states[0]);
        box.setLayoutMode(mode);
        QCOMPARE(differenceFrom(expected, &box, true), QString());
        box.setLayoutMode(0);
        QCOMPARE(differenceFrom(expected, &box, false), QString());
    }

    void marginsFollowTheOutlineOnOneSideOnly_data()
    {
        QTest::addColumn<float>("width");
        QTest::addColumn<bool>("on");
        QTest::addColumn<QRect>("knob");

        // A track of 80 x 30 at (40, 30).
        QTest::newRow("2 px, off") << 2.0F << false << QRect(43, 33, 24, 24);
        QTest::newRow("2 px, on") << 2.0F << true << QRect(93, 33, 24, 24);
        QTest::newRow("4 px, off") << 4.0F << false << QRect(46, 36, 24, 24);
        QTest::newRow("4 px, on") << 4.0F << true << QRect(93, 36, 24, 24);
        QTest::newRow("none, off") << 0.0F << false << QRect(40, 30, 24, 24);
        QTest::newRow("none, on") << 0.0F << true << QRect(93, 30, 24, 24);
    }

    void marginsFollowTheOutlineOnOneSideOnly()
    {
        QFETCH(float, width);
        QFETCH(bool, on);
        QFETCH(QRect, knob);
        KELCheckBox box;
        box.setboundRect(40, 30, 80, 30);
        styleOf(box)->indicatorBrush = QColor(180, 0, 180);
        styleOf(box)->borderWidth = width;
        styleOf(box)->xRadius = 0;
        styleOf(box)->yRadius = 0;
        box.setCheck(on);
        const QImage image = KelImage::paint(&box, canvas);
        QRect area;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == QColor(180, 0, 180))
                    area |= QRect(x, y, 1, 1);
            }
        }
        QCOMPARE(area, knob);
    }

    void withoutOutlineTheKnobIsFlush_data()
    {
        QTest::addColumn<bool>("thinBar");
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");

        for (const bool thinBar : {false, true}) {
            const char *layout = thinBar ? "thin bar" : "switch";
            QTest::addRow("%s, width zero", layout) << thinBar << QBrush(Qt::red) << 0.0F;
            QTest::addRow("%s, width negative", layout) << thinBar << QBrush(Qt::red) << -3.0F;
            QTest::addRow("%s, no brush", layout)
                << thinBar << QBrush(Qt::red, Qt::NoBrush) << 2.0F;
        }
    }

    void withoutOutlineTheKnobIsFlush()
    {
        QFETCH(bool, thinBar);
        QFETCH(QBrush, brush);
        QFETCH(float, width);
        const QRectF rect(40, 30, 100, 40);
        for (const State &state : states) {
            OpenCheckBox box;
            box.setLayoutMode(thinBar ? 1 : 0);
            box.setboundRect(rect);
            styleOf(box)->borderBrush = brush;
            styleOf(box)->borderWidth = width;
            bringInto(&box, state);
            HandDrawing expected = defaultDrawing(rect, state);
            expected.outline = QBrush(Qt::NoBrush);
            expected.outlineWidth = 0;
            for (const qreal scale : scales)
                QCOMPARE(differenceFrom(expected, &box, thinBar, scale), QString());
        }
    }

    void trackIsAtMostEightyWide_data()
    {
        QTest::addColumn<qreal>("width");
        QTest::addColumn<QRect>("track");

        QTest::newRow("20") << 20.0 << QRect(40, 30, 20, 30);
        QTest::newRow("79") << 79.0 << QRect(40, 30, 79, 30);
        QTest::newRow("80") << 80.0 << QRect(40, 30, 80, 30);
        QTest::newRow("82") << 82.0 << QRect(41, 30, 80, 30);
        QTest::newRow("200") << 200.0 << QRect(100, 30, 80, 30);
    }

    void trackIsAtMostEightyWide()
    {
        QFETCH(qreal, width);
        QFETCH(QRect, track);
        KELCheckBox box;
        box.setboundRect(40, 20, width, 50);
        styleOf(box)->borderBrush = QBrush(Qt::NoBrush);
        styleOf(box)->indicatorBrush = QBrush(Qt::NoBrush);
        styleOf(box)->xRadius = 0;
        styleOf(box)->yRadius = 0;
        const QImage actual = KelImage::draw(canvas, 1, [&box](QPainter *painter) {
            painter->setPen(Qt::NoPen);
            box.paint(painter, nullptr);
        });
        const QImage wanted = KelImage::draw(
            canvas, 1, [&](QPainter *painter) { painter->fillRect(track, QColor(200, 200, 200)); });
        QCOMPARE(KelImage::difference(actual, wanted), QString());
    }

    void trackIsThirtyHighInALowControl()
    {
        KELCheckBox box;
        box.setboundRect(40, 40, 80, 10);
        styleOf(box)->borderBrush = QBrush(Qt::NoBrush);
        styleOf(box)->indicatorBrush = QBrush(Qt::NoBrush);
        styleOf(box)->xRadius = 0;
        styleOf(box)->yRadius = 0;
        const QImage actual = KelImage::draw(canvas, 1, [&box](QPainter *painter) {
            painter->setPen(Qt::NoPen);
            box.paint(painter, nullptr);
        });
        const QImage wanted = KelImage::draw(canvas, 1, [](QPainter *painter) {
            painter->fillRect(40, 30, 80, 30, QColor(200, 200, 200));
        });
        QCOMPARE(KelImage::difference(actual, wanted), QString());
    }

    void barWithoutOutlineHasNoHeight()
    {
        OpenCheckBox box;
        box.setLayoutMode(1);
        box.setboundRect(40, 30, 100, 40);
        styleOf(box)->borderWidth = 0;
        styleOf(box)->indicatorBrush = QBrush(Qt::NoBrush);
        const QImage blank = KelImage::draw(canvas, 1, [](QPainter *) {});
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), blank), QString());
    }

    void withoutTrackKeepsThePaintersBrush_data()
    {
        QTest::addColumn<QBrush>("brush");

        QTest::newRow("none") << QBrush(Qt::NoBrush);
        QTest::newRow("solid") << QBrush(QColor(250, 120, 0, 200));
        QTest::newRow("hatched") << QBrush(QColor(250, 120, 0), Qt::DiagCrossPattern);
    }

    void withoutTrackKeepsThePaintersBrush()
    {
        QFETCH(QBrush, brush);
        const QRectF rect(40, 30, 100, 40);
        for (const bool on : {false, true}) {
            KELCheckBox box;
            box.setboundRect(rect);
            styleOf(box)->backgroundBrush = QBrush(Qt::red, Qt::NoBrush);
            box.setCheck(on);
            HandDrawing expected;
            expected.rect = rect;
            expected.on = on;
            expected.track = QBrush(Qt::NoBrush);
            QCOMPARE(differenceFrom(expected, &box, false, 1, {QPen(Qt::blue), brush}), QString());
        }
    }

    void withoutOutlineKeepsThePaintersPen_data()
    {
        QTest::addColumn<QPen>("pen");

        QTest::newRow("none") << QPen(Qt::NoPen);
        QTest::newRow("as a new painter has it") << QPen();
        QTest::newRow("wide") << QPen(QColor(250, 120, 0, 200), 5, Qt::DashLine);
    }

    void withoutOutlineKeepsThePaintersPen()
    {
        QFETCH(QPen, pen);
        const QRectF rect(40, 30, 100, 40);
        for (const State &state : states) {
            KELCheckBox box;
            box.setboundRect(rect);
            styleOf(box)->borderWidth = 0;
            bringInto(&box, state);
            HandDrawing expected = defaultDrawing(rect, state);
            expected.outlineWidth = 0;
            QCOMPARE(differenceFrom(expected, &box, false, 1, {pen, QBrush(Qt::yellow)}),
                     QString());
        }
    }

    void withoutOutlineAPaintedSceneHasAThinLine()
    {
        QGraphicsScene scene;
        auto *box = new KELCheckBox;
        box->setCacheMode(QGraphicsItem::NoCache);
        box->setboundRect(40, 30, 100, 40);
        styleOf(*box)->borderBrush = QBrush(Qt::NoBrush);
        scene.addItem(box);
        const QRectF area(QPointF(), canvas);
        const QImage actual = KelImage::draw(
            canvas, 1, [&](QPainter *painter) { scene.render(painter, area, area); });
        HandDrawing expected;
        expected.rect = QRectF(40, 30, 100, 40);
        expected.outline = QBrush(Qt::NoBrush);
        const QImage wanted = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setPen(QPen(Qt::black, 1));
            expected.drawSwitch(painter);
        });
        QCOMPARE(KelImage::difference(actual, wanted), QString());
    }

    void withoutTrackTheBarIsLeftOut()
    {
        const QRectF rect(40, 30, 100, 40);
        OpenCheckBox box;
        box.setLayoutMode(1);
        box.setboundRect(rect);
        styleOf(box)->backgroundBrush = QBrush(Qt::NoBrush);
        HandDrawing expected;
        expected.rect = rect;
        expected.track = QBrush(Qt::NoBrush);
        QCOMPARE(differenceFrom(expected, &box, true, 1, {QPen(Qt::red), QBrush(Qt::red)}),
                 QString());
    }

    void withoutKnob_data() { addLayouts(); }

    void withoutKnob()
    {
        QFETCH(bool, thinBar);
        const QRectF rect(40, 30, 100, 40);
        for (const bool on : {false, true}) {
            OpenCheckBox box;
            box.setLayoutMode(thinBar ? 1 : 0);
            box.setboundRect(rect);
            styleOf(box)->indicatorBrush = QBrush(Qt::red, Qt::NoBrush);
            box.setCheck(on);
            HandDrawing expected;
            expected.rect = rect;
            expected.on = on;
            expected.knob = QBrush(Qt::NoBrush);
            // A knob that was left out counts as black.
            if (on)
                expected.track = QColor(70, 70, 70, 185);
            QCOMPARE(differenceFrom(expected, &box, thinBar), QString());
        }
    }

    void barHasNoOutline()
    {
        OpenCheckBox box;
        box.setLayoutMode(1);
        box.setboundRect(40, 30, 100, 40);
        const QImage white = KelImage::paint(&box, canvas);
        styleOf(box)->borderBrush = QBrush(Qt::red);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), white), QString());
    }

    void barIgnoresThePainter()
    {
        const QRectF rect(40, 30, 100, 40);
        for (const State &state : states) {
            OpenCheckBox box;
            box.setLayoutMode(1);
            box.setboundRect(rect);
            bringInto(&box, state);
            QCOMPARE(differenceFrom(defaultDrawing(rect, state), &box, true, 1,
                                    {QPen(Qt::red, 7), QBrush(Qt::red)}),
                     QString());
        }
    }

    void gradientTrack()
    {
        QLinearGradient colours(50, 0, 130, 0);
        colours.setColorAt(0, Qt::red);
        colours.setColorAt(1, Qt::green);
        const QRectF rect(40, 30, 100, 40);
        for (const bool thinBar : {false, true}) {
            OpenCheckBox box;
            box.setLayoutMode(thinBar ? 1 : 0);
            box.setboundRect(rect);
            styleOf(box)->backgroundBrush = colours;
            styleOf(box)->indicatorBrush = colours;
            HandDrawing expected;
            expected.rect = rect;
            expected.track = colours;
            expected.knob = colours;
            QCOMPARE(differenceFrom(expected, &box, thinBar), QString());
        }
    }

    void invalidColourIsBlack()
    {
        const QRectF rect(40, 30, 100, 40);
        KELCheckBox box;
        box.setboundRect(rect);
        styleOf(box)->backgroundBrush = QColor(69, 200, 200);
        box.setEnabled(false);
        HandDrawing expected = defaultDrawing(rect, states[2]);
        expected.track = QColor(69, 200, 200, 85);
        expected.knob = QBrush(Qt::black);
        QCOMPARE(differenceFrom(expected, &box, false), QString());
        QCOMPARE(takeWarnings(), QStringList(u"QColor::setRgb: RGB parameters out of range"_s));
    }

    void captionAndPicturesAreNotDrawn_data() { addLayouts(); }

    void captionAndPicturesAreNotDrawn()
    {
        QFETCH(bool, thinBar);
        const QRectF rect(40, 30, 100, 40);
        OpenCheckBox box;
        box.setLayoutMode(thinBar ? 1 : 0);
        box.setboundRect(rect);
        styleOf(box)->text = u"Pump"_s;
        styleOf(box)->icon = KELIconFont('M');
        styleOf(box)->pixmap = QPixmap(40, 30);
        styleOf(box)->pixmap.fill(Qt::magenta);
        QCOMPARE(differenceFrom(defaultDrawing(rect, states[0]), &box, thinBar), QString());
    }

    void pressIsNotDrawn_data() { addLayouts(); }

    void pressIsNotDrawn()
    {
        QFETCH(bool, thinBar);
        const QRectF rect(40, 30, 100, 40);
        OpenCheckBox box;
        box.setLayoutMode(thinBar ? 1 : 0);
        box.setboundRect(rect);
        styleOf(box)->isMouseDown = true;
        for (const State &state : states) {
            bringInto(&box, state);
            QCOMPARE(differenceFrom(defaultDrawing(rect, state), &box, thinBar), QString());
        }
    }

    void knobMovesAtOnce()
    {
        KelTestView view;
        auto *box = new KELCheckBox;
        box->setboundRect(100, 100, 80, 30);
        view.ownScene.addItem(box);
        QVERIFY(view.showAndWait());
        const QColor knob(0, 123, 185);
        const auto colourAt = [&view](int x) { return view.grab().toImage().pixelColor(x, 115); };
        QCOMPARE(colourAt(115), knob);
        QVERIFY(colourAt(165) != knob);
        box->setCheck(true);
        QVERIFY(colourAt(115) != knob);
        QCOMPARE(colourAt(165), knob);
    }

    void oddGeometryDrawsNothing_data()
    {
        QTest::addColumn<QRectF>("rect");

        const qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
        const qreal infinite = std::numeric_limits<qreal>::infinity();
        QTest::newRow("x not a number") << QRectF(notANumber, 20, 80, 30);
        QTest::newRow("y not a number") << QRectF(40, notANumber, 80, 30);
        QTest::newRow("width not a number") << QRectF(40, 20, notANumber, 30);
        QTest::newRow("height not a number") << QRectF(40, 20, 80, notANumber);
        QTest::newRow("x infinite") << QRectF(infinite, 20, 80, 30);
        QTest::newRow("width infinite") << QRectF(40, 20, infinite, 30);
        QTest::newRow("height infinite") << QRectF(40, 20, 80, infinite);
    }

    void oddGeometryDrawsNothing()
    {
        QFETCH(QRectF, rect);
        OpenCheckBox box;
        box.setboundRect(rect);
        const QImage blank = KelImage::draw(canvas, 1, [](QPainter *) {});
        for (const bool on : {false, true}) {
            box.setCheck(on);
            for (const int mode : {0, 1}) {
                box.setLayoutMode(mode);
                QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), blank), QString());
            }
        }
    }

    void paintingLeavesTheRecordAlone()
    {
        KELCheckBox box;
        box.setboundRect(40, 30, 100, 40);
        box.setCheck(true);
        box.setEnabled(false);
        const QImage first = KelImage::paint(&box, canvas);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), first), QString());
        QCOMPARE(styleOf(box)->backgroundBrush, QBrush(QColor(200, 200, 200)));
        QCOMPARE(styleOf(box)->indicatorBrush, QBrush(QColor(0, 123, 185)));
        QCOMPARE(styleOf(box)->borderBrush, QBrush(Qt::white));
        QCOMPARE(styleOf(box)->borderWidth, 2.0F);
    }

    void unusableTrackOfTheSecondDrawing()
    {
        OpenCheckBox box;
        box.setboundRect(20, 20, 80, 32);
        box.setLayoutMode(1);
        QRadialGradient gradient(std::numeric_limits<qreal>::quiet_NaN(), 20, 40);
        gradient.setColorAt(0, Qt::red);
        styleOf(box)->backgroundBrush = gradient;
        const QImage painted = KelImage::paint(&box, canvas);
        styleOf(box)->backgroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(KelImage::difference(painted, KelImage::paint(&box, canvas)), QString());
    }
};

KEL_TEST_MAIN(tst_KELCheckBoxPaint)
#include "tst_kelcheckboxpaint.moc"
