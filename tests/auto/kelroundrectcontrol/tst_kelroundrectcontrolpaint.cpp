// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "keltest.h"
#include "looks.h"

#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <limits>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
const QRectF usualRect(12, 9, 90, 40);
const QSize canvas(140, 80);

const std::vector<Named> percents = {
    {"scaled by 0.5", 50}, {"not scaled", 100}, {"scaled by 1.25", 125}, {"scaled by 3", 300}};

qreal scaleOfRow()
{
    return fetch<int>("percent") / 100.0;
}

// A control whose caption font does not depend on the machine's default size.
void furnish(KELRoundRectControl *control, const QRectF &rect, const Look &look)
{
    control->setboundRect(rect);
    control->style()->font.setPixelSize(14);
    look(*control->style());
}

// Empty when the control is painted as drawn by hand.
QString differenceToHand(KELRoundRectControl *control, const QSize &size = canvas, qreal scale = 1)
{
    const auto byHand = [control](QPainter *painter) {
        HandDrawing::drawControl(painter, *control->style(), control->boundingRect());
    };
    return KelImage::differenceFrom(byHand, control, size, scale);
}

QString differenceToBlank(KELRoundRectControl *control)
{
    return KelImage::differenceFrom([](QPainter *) {}, control, QSize(60, 60));
}

// Paints a control and claims a margin around it.
class EnlargedItem : public QGraphicsItem
{
public:
    EnlargedItem(KELRoundRectControl *control, qreal margin) : m_control(control), m_margin(margin)
    { }
    QRectF boundingRect() const override
    {
        return m_control->boundingRect().adjusted(-m_margin, -m_margin, m_margin, m_margin);
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        m_control->paint(painter, option, widget);
    }

private:
    KELRoundRectControl *m_control;
    qreal m_margin;
};

struct Case
{
    const char *name;
    QRectF rect;
};

const Case sizeCases[] = {
    {"at the origin", QRectF(0, 0, 50, 50)},
    {"at a fraction", QRectF(10.3, 7.6, 60.5, 33.25)},
    {"large", QRectF(5, 5, 190, 110)},
    {"one pixel", QRectF(20, 20, 1, 1)},
    {"thinner than the outline", QRectF(20, 20, 90, 1.5)},
    {"empty", QRectF(20, 20, 0, 0)},
    {"line", QRectF(20, 20, 80, 0)},
    {"negative size", QRectF(100, 60, -60, -30)},
    {"partly outside of the picture", QRectF(-30, -20, 90, 60)},
    {"far larger than the picture", QRectF(-5000, -5000, 10000, 10000)},
};

struct StrangeCase
{
    const char *name;
    Look look;
    Look sameAs;
};

const std::vector<StrangeCase> &strangeCases()
{
    using Style = KELRoundRectControlStyle;
    const Look square = [](Style &) {};
    const Look noOutline = [](Style &s) { s.borderBrush = Qt::NoBrush; };
    const Look shapeAlone = [](Style &s) {
        s.pixmap = QPixmap();
        s.icon = KELIconFont();
        s.text.clear();
    };
    const auto radii = [](qreal x, qreal y) {
        return [=](Style &s) {
            s.xRadius = x;
            s.yRadius = y;
        };
    };
    static const std::vector<StrangeCase> all = {
        {"radius x not a number", radii(notANumber, 8), square},
        {"radius y not a number", radii(8, notANumber), square},
        {"outline width not a number", [](Style &s) { s.borderWidth = float(notANumber); },
         noOutline},
        {"margin not a number", [](Style &s) { s.margins.setLeft(notANumber); }, shapeAlone},
        {"infinite margin", [](Style &s) { s.margins.setRight(infinite); }, shapeAlone},
        {"infinite negative margin", [](Style &s) { s.margins.setTop(-infinite); }, shapeAlone},
    };
    return all;
}

} // namespace

class tst_KELRoundRectControlPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void looksAsDrawnByHand_data() { addRows({{"look", namesOf(looks())}, {"percent", percents}}); }

    void looksAsDrawnByHand()
    {
        KELRoundRectControl control;
        furnish(&control, usualRect, lookOfRow());
        QCOMPARE(differenceToHand(&control, canvas, scaleOfRow()), QString());
    }

    void sizes_data() { addRows({{"size", namesOf(sizeCases)}, {"look", namesOf(looks())}}); }

    void sizes()
    {
        KELRoundRectControl control;
        furnish(&control, sizeCases[fetch<size_t>("size")].rect, lookOfRow());
        QCOMPARE(differenceToHand(&control, QSize(200, 120)), QString());
    }

    void statesDoNotShow_data()
    {
        addRows({{"pressed", {{"released", false}, {"pressed", true}}},
                 {"checked", {{"unchecked", false}, {"checked", true}}},
                 {"enabled", {{"enabled", true}, {"disabled", false}}},
                 {"selected", {{"not selected", false}, {"selected", true}}}});
    }

    void statesDoNotShow()
    {
        QMenu menu;
        KELRoundRectControl control;
        furnish(&control, usualRect, looks().back().apply);
        control.setFlag(QGraphicsItem::ItemIsSelectable);
        control.style()->contextMenu = &menu;
        control.style()->isMouseDown = fetch<bool>("pressed");
        control.style()->isCheck = fetch<bool>("checked");
        control.setEnabled(fetch<bool>("enabled"));
        control.setSelected(fetch<bool>("selected"));
        const QString difference = differenceToHand(&control);
        control.style()->contextMenu = nullptr;
        QCOMPARE(difference, QString());
    }

    void childIsDrawnAtItsBoundingRect()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 150, 90);
        KELRoundRectControl child(&parent);
        furnish(&child, QRectF(5, 5, 50, 30), looks().back().apply);
        const auto byHand = [&](QPainter *painter) {
            HandDrawing::drawControl(painter, *child.style(), QRectF(15, 25, 50, 30));
        };
        QCOMPARE(KelImage::differenceFrom(byHand, &child, QSize(160, 110)), QString());
    }

    void oldPenAndBrushDoNotShow_data() { addRows({{"look", namesOf(looks())}}); }

    void oldPenAndBrushDoNotShow()
    {
        KELRoundRectControl control;
        furnish(&control, usualRect, lookOfRow());
        const auto byControl = [&](QPainter *painter) {
            painter->setPen(QPen(Qt::red, 9));
            painter->setBrush(Qt::green);
            QFont font;
            font.setPixelSize(40);
            painter->setFont(font);
            control.paint(painter, nullptr, nullptr);
        };
        QCOMPARE(KelImage::differenceFrom(byControl, &control, canvas), QString());
    }

    void renderHintsAreAdded()
    {
        KELRoundRectControl control;
        QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.setRenderHints(painter.renderHints(), false);
        painter.setRenderHint(QPainter::LosslessImageRendering);
        control.paint(&painter, nullptr, nullptr);
        QCOMPARE(painter.renderHints(),
                 QPainter::RenderHints(7) | QPainter::LosslessImageRendering);
    }

    void glyphKeepsTheFamilyItWasBuiltWith()
    {
        KELRoundRectControl control;
        control.setboundRect(0, 0, 60, 60);
        KELIconFont::g_fontFamily = u"DejaVu Serif"_s;
        control.style()->icon = KELIconFont('W');
        control.style()->iconSize = 40;
        const auto byHand = [&](QPainter *painter) {
            HandDrawing::drawControl(painter, *control.style(), QRectF(0, 0, 60, 60));
        };
        const QImage expected = KelImage::draw(QSize(60, 60), 1, byHand);
        KELIconFont::g_fontFamily = u"DejaVu Sans Mono"_s;
        const QImage painted = KelImage::paint(&control, QSize(60, 60));
        KELIconFont::g_fontFamily.clear();
        QCOMPARE(KelImage::difference(painted, expected), QString());
    }

    void outlineStaysInside()
    {
        KELRoundRectControl control;
        control.setboundRect(10, 10, 40, 20);
        control.style()->backgroundBrush = QColor(Qt::yellow);
        control.style()->borderBrush = QColor(Qt::red);
        control.style()->borderWidth = 2;
        const QImage image = KelImage::paint(&control, QSize(60, 40));
        QCOMPARE(KelImage::inkOf(image), QRect(10, 10, 40, 20));
        QCOMPARE(KelImage::areaOf(image, Qt::red), QRect(10, 10, 40, 20));
        QCOMPARE(KelImage::areaOf(image, Qt::yellow), QRect(12, 12, 36, 16));
    }

    void pixmapIsRoundedSideBySide_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QRect>("expected");

        QTest::newRow("whole") << QRectF(10, 10, 20, 20) << QRect(10, 10, 20, 20);
        QTest::newRow("half place") << QRectF(10.5, 10.5, 20, 20) << QRect(11, 11, 20, 20);
        QTest::newRow("half size") << QRectF(10, 10, 20.5, 20.5) << QRect(10, 10, 21, 21);
        // QRectF::toRect() would give 20 x 20.
        QTest::newRow("half place and size")
            << QRectF(10.5, 10.5, 20.5, 20.5) << QRect(11, 11, 21, 21);
        // QRectF::toRect() would give 21 x 21.
        QTest::newRow("fractions that add up")
            << QRectF(10.4, 10.4, 20.4, 20.4) << QRect(10, 10, 20, 20);
        QTest::newRow("negative half place")
            << QRectF(-0.5, -1.5, 20.5, 20.5) << QRect(0, -1, 21, 21);
        QTest::newRow("just below the half")
            << QRectF(10.49, 10.49, 20.49, 20.49) << QRect(10, 10, 20, 20);
        QTest::newRow("half pixel large") << QRectF(10, 10, 0.5, 0.5) << QRect(10, 10, 1, 1);
        QTest::newRow("nothing left") << QRectF(10, 10, 0.4, 0.4) << QRect();
    }

    void pixmapIsRoundedSideBySide()
    {
        const auto expected = fetch<QRect>("expected");
        const auto byHand = [&](QPainter *painter) {
            HandDrawing::setHints(painter);
            if (!expected.isNull())
                painter->drawPixmap(expected, HandDrawing::picture());
        };
        // The same with margins around it.
        for (const QMarginsF &margins : {QMarginsF(), QMarginsF(0.5, 1.5, 2, 3)}) {
            KELRoundRectControl control;
            control.setboundRect(fetch<QRectF>("rect") + margins);
            control.style()->backgroundBrush = control.style()->borderBrush = Qt::NoBrush;
            control.style()->margins = margins;
            control.style()->pixmap = HandDrawing::picture();
            QCOMPARE(KelImage::differenceFrom(byHand, &control, QSize(60, 60)), QString());
        }
    }

    void negativePixmapSizeMeansItsOwnSize()
    {
        KELRoundRectControl control;
        control.setboundRect(10, 10, 20, 20);
        control.style()->backgroundBrush = control.style()->borderBrush = Qt::NoBrush;
        control.style()->margins = QMarginsF(15, 15, 10, 10);
        control.style()->pixmap = HandDrawing::picture();
        const auto byHand = [](QPainter *painter) {
            painter->drawPixmap(25, 25, HandDrawing::picture());
        };
        QCOMPARE(KelImage::differenceFrom(byHand, &control, QSize(60, 60)), QString());
    }

    void oddGeometryDrawsNothing_data() { ControlTest::addOddRectangles(); }

    void oddGeometryDrawsNothing()
    {
        for (const NamedLook &look : looks()) {
            KELRoundRectControl control;
            furnish(&control, fetch<QRectF>("rect"), look.apply);
            const QString difference = differenceToBlank(&control);
            QVERIFY2(difference.isEmpty(), qPrintable(QLatin1String(look.name) + difference));
        }
    }

    void strangeNumbers_data() { addRows({{"number", namesOf(strangeCases())}}); }

    void strangeNumbers()
    {
        const StrangeCase &row = strangeCases().at(fetch<size_t>("number"));
        KELRoundRectControl control;
        furnish(&control, usualRect, looks().front().apply);
        control.style()->text = u"Caption"_s;
        control.style()->pixmap = HandDrawing::picture();
        control.style()->icon = KELIconFont('W');
        KELRoundRectControlStyle other = *control.style();
        row.sameAs(other);
        row.look(*control.style());
        const auto byHand = [&](QPainter *painter) {
            HandDrawing::drawControl(painter, other, usualRect);
        };
        QCOMPARE(KelImage::differenceFrom(byHand, &control, canvas), QString());
    }

    void picturesBeyondEveryScreen_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::newRow("right and below") << QRectF(1e300, 1e300, 1e300, 1e300);
        QTest::newRow("left and above") << QRectF(-1e300, -1e300, -1e300, -1e300);
        QTest::newRow("at the end of int") << QRectF(2147483647.0, 2147483647.0, 1.5, 1.5);
    }

    // The corners are sums of two numbers that were brought into the range of int.
    void picturesBeyondEveryScreen()
    {
        KELRoundRectControl control;
        control.setboundRect(fetch<QRectF>("rect"));
        control.style()->backgroundBrush = control.style()->borderBrush = Qt::NoBrush;
        control.style()->pixmap = HandDrawing::picture();
        QCOMPARE(differenceToBlank(&control), QString());
    }

    void nothingIsPaintedOutside_data() { looksAsDrawnByHand_data(); }

    void nothingIsPaintedOutside()
    {
        // These move the picture out of the rectangle on purpose.
        const QByteArray name = QTest::currentDataTag();
        if (name.startsWith("negative margins") || name.startsWith("margins "))
            return;
        for (const QSizeF &size : {QSizeF(90, 40), QSizeF(20, 16)}) {
            KELRoundRectControl control;
            furnish(&control, QRectF(QPointF(12, 9), size), lookOfRow());
            const KELRoundRectControlStyle &style = *control.style();
            // Qt smooths a line thinner than a pixel over the pixels beside it, and reckons with
            // that wherever it repaints an item.
            const bool isHairline = style.borderBrush.style() != Qt::NoBrush
                && style.borderWidth > 0 && qreal(style.borderWidth) * scaleOfRow() <= 1;
            EnlargedItem item(&control, isHairline ? 1 / scaleOfRow() : 0);
            QCOMPARE(KelImage::pixelsOutside(&item, scaleOfRow()), QString());
        }
    }
};

KEL_TEST_MAIN(tst_KELRoundRectControlPaint)

#include "tst_kelroundrectcontrolpaint.moc"
