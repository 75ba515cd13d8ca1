// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"
#include "keltest.h"
#include "rows.h"

#include <kelpushbutton.h>

namespace {

constexpr ushort leftGlyph = 0xE001; // the left half of the em square
const QString iconFamily = u"KEL Test Icons"_s;
const QSize canvas(190, 140);
const QRectF usualRect(10, 10, 120, 90);

enum class Layout {
    PixmapAndStrip,
    PixmapAlone,
    GlyphAndStrip,
    GlyphAlone,
    CaptionAlone,
    NothingInside
};

const std::vector<Named> layouts = {{"pixmap above caption", int(Layout::PixmapAndStrip)},
                                    {"pixmap alone", int(Layout::PixmapAlone)},
                                    {"glyph above caption", int(Layout::GlyphAndStrip)},
                                    {"glyph alone", int(Layout::GlyphAlone)},
                                    {"caption alone", int(Layout::CaptionAlone)},
                                    {"nothing inside", int(Layout::NothingInside)}};

enum State { AtRest = 0, Pressed = 1, Checked = 2, Disabled = 4 };

const std::vector<Named> states = {
    {"at rest", AtRest},    {"pressed", Pressed},
    {"checked", Checked},   {"checked and pressed", Checked | Pressed},
    {"disabled", Disabled}, {"disabled, checked and pressed", Disabled | Checked | Pressed}};

struct Button : KELPushButton
{
    explicit Button(const QRectF &rect = usualRect) :
        record(*static_cast<KELPushButtonStyle *>(style()))
    {
        setboundRect(rect);
    }
    KELPushButtonStyle &record;
};

void applyLayout(Button &button, Layout layout)
{
    if (layout == Layout::PixmapAndStrip || layout == Layout::PixmapAlone)
        button.record.pixmap = HandDrawing::picture();
    if (layout == Layout::GlyphAndStrip || layout == Layout::GlyphAlone)
        button.record.icon = KELIconFont(leftGlyph);
    if (layout != Layout::GlyphAlone && layout != Layout::NothingInside)
        button.record.text = u"Start the pump"_s;
    if (layout == Layout::PixmapAlone || layout == Layout::NothingInside)
        button.record.foregroundBrush = QBrush(Qt::NoBrush);
}

void lookChecked(KELPushButtonStyle &look)
{
    look.backgroundBrush = QColor(20, 200, 60);
    look.borderBrush = QBrush(Qt::red);
    look.xRadius = 12;
    look.yRadius = 6;
}

void applyState(Button &button, int state)
{
    button.setIsCheckedTemplate(lookChecked);
    button.record.isMouseDown = (state & Pressed) != 0;
    button.record.isCheck = (state & Checked) != 0;
    button.setEnabled((state & Disabled) == 0);
}

// What the button of these two functions has to show, worked out here once more.
KELPushButtonStyle expectedLook(const Button &button, int state)
{
    KELPushButtonStyle look = button.record;
    look.boundRect = button.boundingRect();
    if (look.foregroundBrush.style() == Qt::NoBrush)
        look.text.clear();
    if ((state & Disabled) != 0) {
        look.foregroundBrush = look.borderBrush = QColor(150, 150, 150, 100);
        return look;
    }
    if ((state & Checked) != 0)
        lookChecked(look);
    if ((state & Pressed) != 0)
        look.backgroundBrush = QColor(50, 70, 100, 200);
    return look;
}

// The strip of the caption counts the top margin twice.
qreal stripHeight(const KELPushButtonStyle &look)
{
    return QFontMetrics(look.font).height() + 2 * look.margins.top() + look.margins.bottom();
}

void drawStripCaption(QPainter *painter, const KELPushButtonStyle &look)
{
    QRectF strip = look.boundRect;
    strip.setTop(strip.bottom() - stripHeight(look));
    HandDrawing::drawCaption(painter, look, HandDrawing::withoutMargins(strip, look.margins),
                             HandDrawing::elided(look.text, look.boundRect.width(), look.font));
}

void drawByHand(QPainter *painter, const KELPushButtonStyle &look)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->setBrushOrigin(look.boundRect.topLeft());
    HandDrawing::drawShape(painter, look, look.boundRect);

    const bool hasCaption = look.foregroundBrush.style() != Qt::NoBrush;
    const QRectF inside = HandDrawing::withoutMargins(look.boundRect, look.iconMargins);
    const QRectF above = inside.adjusted(0, 0, 0, -stripHeight(look));
    if (!look.pixmap.isNull()) {
        HandDrawing::drawPixmap(painter, hasCaption ? above : look.boundRect, look.pixmap);
        if (hasCaption)
            drawStripCaption(painter, look);
    } else if (!look.icon.isNull()) {
        HandDrawing::drawGlyph(painter, look, look.text.isEmpty() ? inside : above, iconFamily);
        if (!look.text.isEmpty())
            drawStripCaption(painter, look);
    } else if (hasCaption) {
        const QRectF content = HandDrawing::withoutMargins(look.boundRect, look.margins);
        HandDrawing::drawCaption(
            painter, look, content,
            look.trimText ? HandDrawing::elided(look.text, content.width(), look.font) : look.text);
    }
}

QString differenceFrom(const KELPushButtonStyle &look, Button &button, qreal scale = 1)
{
    return KelImage::differenceFrom([&](QPainter *painter) { drawByHand(painter, look); }, &button,
                                    canvas, scale);
}

QString differenceFromHandDrawing(Button &button, int state = AtRest, qreal scale = 1)
{
    return differenceFrom(expectedLook(button, state), button, scale);
}

QRect areaOf(Button &button, const QColor &colour)
{
    return KelImage::areaOf(KelImage::paint(&button, canvas), colour);
}

QPixmap magentaPicture()
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::magenta);
    return pixmap;
}

void addLayoutsAndStates()
{
    addRows({{"layout", layouts}, {"state", states}});
}

} // namespace

class tst_KELPushButtonPaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        KELIconFont::installFont(besideProgram(u"icons.ttf"_s));
        QCOMPARE(KELIconFont::fontFamily(), iconFamily);
    }

    void isTheHandDrawnPicture_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPicture()
    {
        for (const QRectF &rect :
             {usualRect, QRectF(5.3, 7.7, 140.4, 100.6), QRectF(20, 30, 60, 30),
              QRectF(30, 10, 9, 110), QRectF(15, 15, 2, 2)}) {
            Button button(rect);
            applyLayout(button, fetch<Layout>("layout"));
            applyState(button, fetch<int>("state"));
            QCOMPARE(differenceFromHandDrawing(button, fetch<int>("state")), QString());
        }
    }

    void isTheHandDrawnPictureScaled_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPictureScaled()
    {
        Button button(QRectF(10.5, 10, 120, 90));
        applyLayout(button, fetch<Layout>("layout"));
        applyState(button, fetch<int>("state"));
        for (const qreal scale : {0.5, 1.5, 2.0})
            QCOMPARE(differenceFromHandDrawing(button, fetch<int>("state"), scale), QString());
    }

    void isTheHandDrawnPictureWithEveryField_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPictureWithEveryField()
    {
        Button button(QRectF(8, 9, 150, 110));
        applyLayout(button, fetch<Layout>("layout"));
        button.record.margins = QMarginsF(4, 3.5, 11, 6);
        button.record.iconMargins = QMarginsF(20.25, 3, 9, 7);
        button.record.font.setPixelSize(19);
        button.record.font.setBold(true);
        button.record.textFlags = Qt::AlignRight | Qt::AlignBottom;
        button.record.borderWidth = 5.5F;
        button.record.xRadius = 9;
        button.record.yRadius = 21;
        button.record.iconSize = 41;
        button.record.backgroundBrush = QBrush(QColor(90, 120, 60, 130), Qt::DiagCrossPattern);
        if (button.record.foregroundBrush.style() != Qt::NoBrush)
            button.record.foregroundBrush = QColor(130, 0, 90, 200);
        button.record.text.append(u"\n\nS&econd"_s);
        applyState(button, fetch<int>("state"));
        QCOMPARE(differenceFromHandDrawing(button, fetch<int>("state")), QString());
    }

    void isTheHandDrawnPictureInAParent_data() { addRows({{"layout", layouts}}); }

    void isTheHandDrawnPictureInAParent()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        Button button(QRectF(5, 5, 100, 70));
        button.setParentItem(&parent);
        applyLayout(button, fetch<Layout>("layout"));
        KELPushButtonStyle expected = expectedLook(button, AtRest);
        expected.boundRect = QRectF(15, 25, 100, 70);
        QCOMPARE(differenceFrom(expected, button), QString());
        button.setParentItem(nullptr);
    }

    void stripIsAsHighAsTheText()
    {
        Button button;
        button.record.pixmap = magentaPicture();
        button.record.font.setPixelSize(20);
        QCOMPARE(areaOf(button, Qt::magenta),
                 QRect(15, 11, 110, 90 - 2 - QFontMetrics(button.record.font).height()));
    }

    void stripIsKeptFreeWithoutCaption()
    {
        Button button;
        button.record.pixmap = magentaPicture();
        const QRect withoutCaption = areaOf(button, Qt::magenta);
        button.setText(u"Start"_s);
        QCOMPARE(areaOf(button, Qt::magenta), withoutCaption);
        QVERIFY(withoutCaption.height() < 88);
        button.record.foregroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(areaOf(button, Qt::magenta), usualRect.toRect());
    }

    void stripCountsTheTopMarginTwice()
    {
        Button button;
        button.record.pixmap = magentaPicture();
        const int before = areaOf(button, Qt::magenta).height();
        button.record.margins = QMarginsF(0, 6, 0, 0);
        QCOMPARE(areaOf(button, Qt::magenta).height(), before - 12);
        button.record.margins = QMarginsF(0, 0, 0, 6);
        QCOMPARE(areaOf(button, Qt::magenta).height(), before - 6);
        button.record.margins = QMarginsF(6, 0, 6, 0);
        QCOMPARE(areaOf(button, Qt::magenta).height(), before);
    }

    void pixmapEdgesAreRoundedEachForItself_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QRect>("pixels");

        QTest::newRow("whole") << QRectF(10, 10, 40, 30) << QRect(10, 10, 40, 30);
        // As edges, right and bottom would be 50.8 and 41: one pixel more.
        QTest::newRow("down") << QRectF(10.4, 10.4, 40.4, 30.4) << QRect(10, 10, 40, 30);
        // As edges, right and bottom would be 51.2: one pixel less.
        QTest::newRow("up") << QRectF(10.6, 10.6, 40.6, 30.6) << QRect(11, 11, 41, 31);
        QTest::newRow("halves") << QRectF(10.5, 10.5, 40.5, 30.5) << QRect(11, 11, 41, 31);
    }

    void pixmapEdgesAreRoundedEachForItself()
    {
        Button button(fetch<QRectF>("rect"));
        button.record.pixmap = magentaPicture();
        button.record.foregroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(areaOf(button, Qt::magenta), fetch<QRect>("pixels"));

        button.record.foregroundBrush = QBrush(Qt::black);
        button.record.iconMargins = QMarginsF();
        button.record.boundRect.adjust(0, 0, 0, QFontMetrics(button.record.font).height());
        QCOMPARE(areaOf(button, Qt::magenta), fetch<QRect>("pixels"));
    }

    void pixmapIsNotSmoothed()
    {
        Button button(QRectF(10, 10, 100, 50));
        button.record.pixmap = QPixmap(2, 1);
        button.record.pixmap.fill(Qt::magenta);
        QPainter(&button.record.pixmap).fillRect(1, 0, 1, 1, Qt::cyan);
        button.record.foregroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(areaOf(button, Qt::magenta), QRect(10, 10, 50, 50));
        QCOMPARE(areaOf(button, Qt::cyan), QRect(60, 10, 50, 50));
    }

    void pixmapCoversTheGlyph()
    {
        Button button;
        button.record.pixmap = magentaPicture();
        const QImage withoutGlyph = KelImage::paint(&button, canvas);
        button.record.icon = KELIconFont(leftGlyph);
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), withoutGlyph), QString());
    }

    void pixmapAloneIgnoresMargins()
    {
        Button button;
        button.record.pixmap = magentaPicture();
        button.record.foregroundBrush = QBrush(Qt::NoBrush);
        button.record.margins = QMarginsF(9, 9, 9, 9);
        button.record.iconMargins = QMarginsF(19, 19, 19, 19);
        QCOMPARE(areaOf(button, Qt::magenta), usualRect.toRect());
    }

    void captionIsElidedAboveAStrip_data()
    {
        addRows({{"layout",
                  {{"pixmap", int(Layout::PixmapAndStrip)}, {"glyph", int(Layout::GlyphAndStrip)}}},
                 {"trim", {{"trimmed", true}, {"not trimmed", false}}}});
    }

    void captionIsElidedAboveAStrip()
    {
        Button button(QRectF(10, 10, 70.9, 90));
        applyLayout(button, fetch<Layout>("layout"));
        button.record.trimText = fetch<bool>("trim");
        button.record.textFlags = Qt::AlignCenter;
        // The margins narrow the strip, but the caption is cut to the width of the button.
        button.record.margins = QMarginsF(10, 0, 10, 0);
        button.record.text = u"Start all of the pumps now"_s;
        const QImage withLongText = KelImage::paint(&button, canvas);
        const QString cut = HandDrawing::elided(button.record.text, 70, button.record.font);
        QVERIFY(cut != button.record.text);

        KELPushButtonStyle expected = expectedLook(button, AtRest);
        expected.text = cut;
        QCOMPARE(differenceFrom(expected, button), QString());
        button.record.text = cut;
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), withLongText), QString());
    }

    void captionAloneIsElidedOnlyOnRequest()
    {
        Button button(QRectF(10, 10, 90, 30));
        button.record.margins = QMarginsF(10, 0, 10, 0);
        button.record.textFlags = Qt::AlignLeft | Qt::AlignVCenter;
        button.record.text = u"Start all of the pumps now"_s;
        const QImage trimmed = KelImage::paint(&button, canvas);
        button.record.trimText = false;
        QVERIFY(KelImage::paint(&button, canvas) != trimmed);
        button.record.text = HandDrawing::elided(button.record.text, 70, button.record.font);
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), trimmed), QString());
    }

    void glyphAloneIsPlacedByTheFlagsOfTheRecord_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<QPoint>("corner");

        // 40 px glyphs in the 110 x 88 px inside the icon margins.
        QTest::newRow("as by default") << 0x1084 << QPoint(15 + 35, 11 + 24);
        QTest::newRow("left and top") << int(Qt::AlignLeft | Qt::AlignTop) << QPoint(15, 11);
        QTest::newRow("right and bottom")
            << int(Qt::AlignRight | Qt::AlignBottom) << QPoint(15 + 70, 11 + 48);
    }

    void glyphAloneIsPlacedByTheFlagsOfTheRecord()
    {
        Button button;
        button.record.icon = KELIconFont(leftGlyph);
        button.record.iconSize = 40;
        button.record.textFlags = fetch<int>("flags");
        button.record.foregroundBrush = QBrush(Qt::magenta);
        button.record.margins = QMarginsF(30, 30, 30, 30);
        // The edges of a glyph may be smoothed.
        const QRect area = areaOf(button, Qt::magenta);
        const QRect glyph(fetch<QPoint>("corner"), QSize(20, 40));
        QVERIFY(area.contains(glyph.adjusted(1, 1, -1, -1)));
        QVERIFY(glyph.adjusted(-1, -1, 1, 1).contains(area));
    }

    // A pen of no brush paints no glyph, and the caption is gone with the foreground.
    void glyphWithoutForegroundDrawsNothing()
    {
        Button button;
        button.record.text = u"Start"_s;
        button.record.foregroundBrush = QBrush(Qt::NoBrush);
        const QImage withoutGlyph = KelImage::paint(&button, canvas);
        button.record.icon = KELIconFont(leftGlyph);
        QCOMPARE(differenceFromHandDrawing(button), QString());
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), withoutGlyph), QString());
    }

    void borderBrushOfALookNeedsAnOutline_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");

        QTest::newRow("neither brush nor width") << QBrush(Qt::NoBrush) << 0.0F;
        QTest::newRow("width without brush") << QBrush(Qt::NoBrush) << 2.0F;
        QTest::newRow("brush without width") << QBrush(Qt::black) << 0.0F;
        QTest::newRow("negative width") << QBrush(Qt::black) << -2.0F;
    }

    void borderBrushOfALookNeedsAnOutline()
    {
        Button button;
        button.record.backgroundBrush = QBrush(Qt::yellow);
        button.record.borderBrush = fetch<QBrush>("brush");
        button.record.borderWidth = fetch<float>("width");
        const auto byHand = [](QPainter *painter) { painter->fillRect(usualRect, Qt::yellow); };
        QCOMPARE(KelImage::differenceFrom(byHand, &button, canvas), QString());
        button.setEnabled(false);
        QCOMPARE(KelImage::differenceFrom(byHand, &button, canvas), QString());
        button.setEnabled(true);
        button.setIsCheckedTemplate(
            [](KELPushButtonStyle &look) { look.borderBrush = QBrush(Qt::red); });
        button.setCheck(true);
        QCOMPARE(KelImage::differenceFrom(byHand, &button, canvas), QString());
    }

    void outlineOfALookWithItsOwnWidth()
    {
        Button button;
        button.record.backgroundBrush = QBrush(Qt::yellow);
        button.record.borderBrush = QBrush(Qt::NoBrush);
        button.setIsCheckedTemplate([](KELPushButtonStyle &look) {
            look.borderBrush = QBrush(Qt::red);
            look.borderWidth = 4;
        });
        button.setCheck(true);
        QCOMPARE(areaOf(button, Qt::red), usualRect.toRect());
        QCOMPARE(areaOf(button, Qt::yellow), QRect(14, 14, 112, 82));
    }

    void outlineStaysInside()
    {
        Button button;
        button.record.backgroundBrush = QBrush(Qt::yellow);
        button.record.borderBrush = QBrush(Qt::red);
        QCOMPARE(areaOf(button, Qt::red), usualRect.toRect());
        QCOMPARE(areaOf(button, Qt::yellow), QRect(12, 12, 116, 86));
    }

    void gradientStartsAtTheCorner()
    {
        QLinearGradient gradient(0, 0, 100, 0);
        gradient.setStops({{0, Qt::red}, {0.5, Qt::red}, {0.5001, Qt::blue}, {1, Qt::blue}});
        Button button(QRectF(40, 10, 100, 60));
        button.record.backgroundBrush = gradient;
        button.record.borderBrush = QBrush(Qt::NoBrush);
        // Where they meet there is a colour between.
        QVERIFY(qAbs(areaOf(button, Qt::red).right() - 89) <= 2);
        QVERIFY(qAbs(areaOf(button, Qt::blue).left() - 91) <= 2);
        QCOMPARE(differenceFromHandDrawing(button), QString());
    }

    void negativeGeometry_data()
    {
        QTest::addColumn<QRectF>("rect");

        QTest::newRow("width") << QRectF(120, 10, -80, 50);
        QTest::newRow("height") << QRectF(10, 100, 80, -50);
        QTest::newRow("both") << QRectF(120, 100, -80, -50);
        QTest::newRow("empty") << QRectF(20, 20, 0, 0);
        QTest::newRow("corner outside") << QRectF(-30.5, -20.5, 80, 60);
    }

    void negativeGeometry()
    {
        for (const Named &layout : layouts) {
            Button button(fetch<QRectF>("rect"));
            applyLayout(button, Layout(layout.value));
            QCOMPARE(differenceFromHandDrawing(button), QString());
        }
    }

    void drawsNothingOutside_data() { addLayoutsAndStates(); }

    void drawsNothingOutside()
    {
        Button button(QRectF(0, 0, 90, 60));
        applyLayout(button, fetch<Layout>("layout"));
        applyState(button, fetch<int>("state"));
        button.record.iconSize = 200;
        button.record.font.setPixelSize(30);
        QCOMPARE(KelImage::pixelsOutside(&button), QString());
    }
};

KEL_TEST_MAIN(tst_KELPushButtonPaint)
#include "tst_kelpushbuttonpaint.moc"
