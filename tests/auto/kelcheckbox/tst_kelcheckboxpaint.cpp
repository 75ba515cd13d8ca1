// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "checkboxstates.h"
#include "handdrawing.h"
#include "kelcheckbox_p.h"
#include "stage.h"

#include <limits>

namespace {

const QSize canvas(270, 110);
const QRectF usualRect(40, 30, 100, 40);

// Lends a private member: an explicit instantiation may name it.
template <auto Member>
struct Lend
{
    friend KELCheckBoxPrivate *recordOf(const KELCheckBox &box) { return box.*Member; }
};
template struct Lend<&KELCheckBox::d>;
KELCheckBoxPrivate *recordOf(const KELCheckBox &box);

// The two drawings: the second one has no setter.
enum class Layout { Switch, ThinBar };

const std::vector<Named> layouts = {{"switch", int(Layout::Switch)},
                                    {"thin bar", int(Layout::ThinBar)}};

class PaintedBox : public KELCheckBox
{
public:
    explicit PaintedBox(Layout layout = Layout::Switch, const QRectF &rect = usualRect,
                        QGraphicsObject *parent = nullptr) :
        KELCheckBox(parent)
    {
        setLayoutMode(int(layout));
        setboundRect(rect);
    }
    void setLayoutMode(int mode) { recordOf(*this)->layoutMode = mode; }
    KELCheckBoxStyle *operator->() const { return styleOf(*this); }
};

// A check box drawn step by step.
struct BoxDrawing
{
    explicit BoxDrawing(const BoxState &state, const QRectF &rectIn = usualRect) :
        rect(rectIn), track(state.track), knob(state.knob), outline(state.outline), on(state.on)
    { }

    void draw(QPainter *painter, Layout layout) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        if (layout == Layout::Switch)
            drawSwitch(painter);
        else
            drawBar(painter);
    }

    QRectF rect;
    QBrush track;
    QBrush knob;
    QBrush outline;
    double outlineWidth = 2;
    double xRadius = 15;
    double yRadius = 15;
    bool on;

private:
    bool hasOutline() const { return outline.style() != Qt::NoBrush && outlineWidth > 0; }

    void drawSwitch(QPainter *painter) const
    {
        const double width = rect.width() > 80 ? 80 : rect.width();
        const double left = rect.x() + (rect.width() - width) / 2;
        const double top = rect.y() + rect.height() / 2 - 15;
        if (track.style() != Qt::NoBrush)
            painter->setBrush(track);
        if (hasOutline())
            painter->setPen(HandDrawing::squarePen(outline, outlineWidth));
        painter->drawRoundedRect(QRectF(left, top, width, 30), xRadius, yRadius, Qt::AbsoluteSize);
        const double margin = hasOutline() ? 1.5 * outlineWidth : 0;
        drawKnob(painter, QRectF(on ? left + width - 27 : left + margin, top + margin, 24, 24));
    }

    void drawBar(QPainter *painter) const
    {
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

    void drawKnob(QPainter *painter, const QRectF &place) const
    {
        if (knob.style() == Qt::NoBrush)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(knob);
        painter->drawRoundedRect(place, xRadius, yRadius, Qt::AbsoluteSize);
    }
};

// With the pen and the brush that the painter has before the box is painted.
QString differenceFrom(const BoxDrawing &expected, KELCheckBox *box, Layout layout = Layout::Switch,
                       const QPen &pen = QPen(), const QBrush &brush = QBrush())
{
    QString difference;
    for (const qreal scale : {0.5, 1.0, 1.5, 2.0}) {
        const auto drawn = [&](const KelImage::Drawing &draw) {
            return KelImage::draw(canvas, scale, [&](QPainter *painter) {
                painter->setPen(pen);
                painter->setBrush(brush);
                draw(painter);
            });
        };
        difference += KelImage::difference(
            drawn([box](QPainter *painter) { box->paint(painter, nullptr); }),
            drawn([&](QPainter *painter) { expected.draw(painter, layout); }));
    }
    return difference;
}

Layout layoutOfRow()
{
    return fetch<Layout>("layout");
}

const BoxState &stateOfRow()
{
    return defaultStates[fetch<size_t>("state")];
}

void addLayoutsAndStates()
{
    addRows({{"layout", layouts}, {"state", namesOf(defaultStates)}});
}

} // namespace

class tst_KELCheckBoxPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHandDrawnPicture_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPicture()
    {
        for (const QRectF &rect :
             {QRectF(40, 25, 20, 10), QRectF(40, 25, 79, 30), QRectF(40, 25, 80, 30),
              QRectF(40, 25, 81, 60), QRectF(40, 25, 200, 20), QRectF(40, 25, 200, 60),
              QRectF(30.3, 24.6, 80.5, 41.3), QRectF(41.5, 30.25, 79.9, 29.9),
              QRectF(20.7, 20.1, 133.3, 33.25)}) {
            PaintedBox box(layoutOfRow(), rect);
            bringInto(&box, stateOfRow());
            QCOMPARE(differenceFrom(BoxDrawing(stateOfRow(), rect), &box, layoutOfRow()),
                     QString());
        }
    }

    void isTheHandDrawnPictureWithEveryField_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPictureWithEveryField()
    {
        const BoxState &state = ownStates[fetch<size_t>("state")];
        for (const float width : {0.75F, 3.5F, 8.0F}) {
            PaintedBox box(layoutOfRow());
            useOwnColours(box);
            box->borderWidth = width;
            box->xRadius = 4;
            box->yRadius = 9;
            box->margins = QMarginsF(5, 6, 7, 8);
            bringInto(&box, state);
            BoxDrawing expected(state);
            expected.outlineWidth = double(width);
            expected.xRadius = 4;
            expected.yRadius = 9;
            QCOMPARE(differenceFrom(expected, &box, layoutOfRow()), QString());
        }
    }

    void isTheHandDrawnPictureWithoutRadii_data() { addLayoutsAndStates(); }

    // Only square corners show how the sides of the outline meet.
    void isTheHandDrawnPictureWithoutRadii()
    {
        PaintedBox box(layoutOfRow());
        box->borderWidth = 9;
        box->xRadius = 0;
        box->yRadius = 0;
        bringInto(&box, stateOfRow());
        BoxDrawing expected(stateOfRow());
        expected.outlineWidth = 9;
        expected.xRadius = 0;
        expected.yRadius = 0;
        QCOMPARE(differenceFrom(expected, &box, layoutOfRow()), QString());
    }

    void isTheHandDrawnPictureInAParent_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPictureInAParent()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        auto *box = new PaintedBox(layoutOfRow(), QRectF(25, 5, 100, 40), &parent);
        bringInto(box, stateOfRow());
        QCOMPARE(
            differenceFrom(BoxDrawing(stateOfRow(), QRectF(35, 25, 100, 40)), box, layoutOfRow()),
            QString());
    }

    void switchIsTheDefaultDrawing()
    {
        KELCheckBox box;
        box.setboundRect(usualRect);
        QCOMPARE(differenceFrom(BoxDrawing(defaultStates[0]), &box), QString());
    }

    void everyOtherModeIsTheBar_data()
    {
        addRows({{"mode",
                  {{"1", 1},
                   {"2", 2},
                   {"-1", -1},
                   {"largest", std::numeric_limits<int>::max()},
                   {"smallest", std::numeric_limits<int>::min()}}}});
    }

    void everyOtherModeIsTheBar()
    {
        PaintedBox box;
        const BoxDrawing expected(defaultStates[0]);
        box.setLayoutMode(fetch<int>("mode"));
        QCOMPARE(differenceFrom(expected, &box, Layout::ThinBar), QString());
        box.setLayoutMode(0);
        QCOMPARE(differenceFrom(expected, &box), QString());
    }

    void marginsFollowTheOutlineOnOneSideOnly_data()
    {
        QTest::addColumn<float>("width");
        QTest::addColumn<bool>("on");
        QTest::addColumn<QPoint>("knob");
        // A track of 80 x 30 at (40, 30).
        QTest::newRow("2 px, off") << 2.0F << false << QPoint(43, 33);
        QTest::newRow("2 px, on") << 2.0F << true << QPoint(93, 33);
        QTest::newRow("4 px, off") << 4.0F << false << QPoint(46, 36);
        QTest::newRow("4 px, on") << 4.0F << true << QPoint(93, 36);
        QTest::newRow("none, off") << 0.0F << false << QPoint(40, 30);
        QTest::newRow("none, on") << 0.0F << true << QPoint(93, 30);
    }

    void marginsFollowTheOutlineOnOneSideOnly()
    {
        QFETCH(bool, on);
        PaintedBox box(Layout::Switch, QRectF(40, 30, 80, 30));
        box->indicatorBrush = QColor(180, 0, 180);
        box->borderWidth = fetch<float>("width");
        box->xRadius = 0;
        box->yRadius = 0;
        box.setCheck(on);
        QCOMPARE(KelImage::areaOf(KelImage::paint(&box, canvas), QColor(180, 0, 180)),
                 QRect(fetch<QPoint>("knob"), QSize(24, 24)));
    }

    void withoutOutlineTheKnobIsFlush_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");
        QTest::newRow("width zero") << QBrush(Qt::red) << 0.0F;
        QTest::newRow("width negative") << QBrush(Qt::red) << -3.0F;
        QTest::newRow("no brush") << QBrush(Qt::red, Qt::NoBrush) << 2.0F;
    }

    // The track keeps the painter's own pen then.
    void withoutOutlineTheKnobIsFlush()
    {
        const QPen wide(QColor(250, 120, 0, 200), 5, Qt::DashLine);
        for (const Layout layout : {Layout::Switch, Layout::ThinBar}) {
            for (const BoxState &state : defaultStates) {
                PaintedBox box(layout);
                box->borderBrush = fetch<QBrush>("brush");
                box->borderWidth = fetch<float>("width");
                bringInto(&box, state);
                BoxDrawing expected(state);
                expected.outlineWidth = 0;
                for (const QPen &pen : {QPen(), QPen(Qt::NoPen), wide}) {
                    QCOMPARE(differenceFrom(expected, &box, layout, pen, QBrush(Qt::yellow)),
                             QString());
                }
            }
        }
    }

    void barWithoutOutlineHasNoHeight()
    {
        PaintedBox box(Layout::ThinBar);
        box->borderWidth = 0;
        box->indicatorBrush = QBrush(Qt::NoBrush);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), KelImage::blank(canvas)),
                 QString());
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
        for (const BoxState &state : {defaultStates[0], defaultStates[1]}) {
            PaintedBox box;
            box->backgroundBrush = QBrush(Qt::red, Qt::NoBrush);
            bringInto(&box, state);
            BoxDrawing expected(state);
            expected.track = QBrush(Qt::NoBrush);
            QCOMPARE(differenceFrom(expected, &box, Layout::Switch, QPen(Qt::blue),
                                    fetch<QBrush>("brush")),
                     QString());
        }
    }

    void withoutOutlineAPaintedSceneHasAThinLine()
    {
        QGraphicsScene scene;
        auto *box = new PaintedBox;
        box->setCacheMode(QGraphicsItem::NoCache);
        styleOf(*box)->borderBrush = QBrush(Qt::NoBrush);
        scene.addItem(box);
        const QRectF area(QPointF(), canvas);
        const QImage actual = KelImage::draw(
            canvas, 1, [&](QPainter *painter) { scene.render(painter, area, area); });
        BoxDrawing expected(defaultStates[0]);
        expected.outlineWidth = 0;
        const QImage wanted = KelImage::draw(canvas, 1, [&](QPainter *painter) {
            painter->setPen(QPen(Qt::black, 1));
            expected.draw(painter, Layout::Switch);
        });
        QCOMPARE(KelImage::difference(actual, wanted), QString());
    }

    void withoutTrackTheBarIsLeftOut()
    {
        PaintedBox box(Layout::ThinBar);
        box->backgroundBrush = QBrush(Qt::NoBrush);
        BoxDrawing expected(defaultStates[0]);
        expected.track = QBrush(Qt::NoBrush);
        QCOMPARE(differenceFrom(expected, &box, Layout::ThinBar, QPen(Qt::red), QBrush(Qt::red)),
                 QString());
    }

    void withoutKnob_data() { addRows({{"layout", layouts}}); }

    void withoutKnob()
    {
        for (const BoxState &state : {defaultStates[0], defaultStates[1]}) {
            PaintedBox box(layoutOfRow());
            box->indicatorBrush = QBrush(Qt::red, Qt::NoBrush);
            bringInto(&box, state);
            BoxDrawing expected(state);
            expected.knob = QBrush(Qt::NoBrush);
            // A knob that was left out counts as black.
            if (state.on)
                expected.track = QColor(70, 70, 70, 185);
            QCOMPARE(differenceFrom(expected, &box, layoutOfRow()), QString());
        }
    }

    void barHasNoOutline()
    {
        PaintedBox box(Layout::ThinBar);
        const QImage white = KelImage::paint(&box, canvas);
        box->borderBrush = QBrush(Qt::red);
        QCOMPARE(KelImage::difference(KelImage::paint(&box, canvas), white), QString());
    }

    void barIgnoresThePainter()
    {
        for (const BoxState &state : defaultStates) {
            PaintedBox box(Layout::ThinBar);
            bringInto(&box, state);
            QCOMPARE(differenceFrom(BoxDrawing(state), &box, Layout::ThinBar, QPen(Qt::red, 7),
                                    QBrush(Qt::red)),
                     QString());
        }
    }

    void gradients_data() { addRows({{"layout", layouts}}); }

    void gradients()
    {
        PaintedBox box(layoutOfRow());
        BoxDrawing expected(defaultStates[0]);
        box->backgroundBrush = expected.track = HandDrawing::gradient();
        box->indicatorBrush = expected.knob = HandDrawing::gradient();
        QCOMPARE(differenceFrom(expected, &box, layoutOfRow()), QString());
    }

    void invalidColourIsBlack()
    {
        PaintedBox box;
        box->backgroundBrush = QColor(69, 200, 200);
        box.setEnabled(false);
        BoxDrawing expected(defaultStates[2]);
        expected.track = QColor(69, 200, 200, 85);
        expected.knob = QBrush(Qt::black);
        QCOMPARE(differenceFrom(expected, &box), QString());
        const QStringList warnings = takeWarnings();
        QCOMPARE(warnings.size(), 4); // one for each picture
        QCOMPARE(warnings.first(), u"QColor::setRgb: RGB parameters out of range"_s);
    }

    void captionPicturesAndPressAreNotDrawn_data() { addLayoutsAndStates(); }

    void captionPicturesAndPressAreNotDrawn()
    {
        PaintedBox box(layoutOfRow());
        box->text = u"Pump"_s;
        box->icon = KELIconFont('M');
        box->pixmap = HandDrawing::picture();
        box->isMouseDown = true;
        bringInto(&box, stateOfRow());
        QCOMPARE(differenceFrom(BoxDrawing(stateOfRow()), &box, layoutOfRow()), QString());
    }

    void knobMovesAtOnce()
    {
        Stage<KELCheckBox> stage(QRectF(100, 100, 80, 30));
        stage.view.showOnce();
        const QColor knob = defaultStates[0].knob;
        const auto colourAt = [&](int x) { return stage.view.grab().toImage().pixelColor(x, 115); };
        QCOMPARE(colourAt(115), knob);
        QVERIFY(colourAt(165) != knob);
        stage->setCheck(true);
        QVERIFY(colourAt(115) != knob);
        QCOMPARE(colourAt(165), knob);
    }

    void unusableTrackOfTheSecondDrawing()
    {
        PaintedBox box(Layout::ThinBar);
        QRadialGradient gradient(std::numeric_limits<qreal>::quiet_NaN(), 20, 40);
        gradient.setColorAt(0, Qt::red);
        box->backgroundBrush = gradient;
        const QImage painted = KelImage::paint(&box, canvas);
        box->backgroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(KelImage::difference(painted, KelImage::paint(&box, canvas)), QString());
    }
};

KEL_TEST_MAIN(tst_KELCheckBoxPaint)
#include "tst_kelcheckboxpaint.moc"
