// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"
#include "keltest.h"

#include <QtGui/QLinearGradient>

#include <limits>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
constexpr ushort leftGlyph = 0xE001; // the left half of the em square
const QString iconFamily = u"KEL Test Icons"_s;
const QSize canvas(190, 140);

enum Layout { PixmapAndStrip, PixmapAlone, GlyphAndStrip, GlyphAlone, CaptionAlone, NothingInside };

const QList<QPair<Layout, const char *>> layouts = {
    {PixmapAndStrip, "pixmap above caption"}, {PixmapAlone, "pixmap alone"},
    {GlyphAndStrip, "glyph above caption"},   {GlyphAlone, "glyph alone"},
    {CaptionAlone, "caption alone"},          {NothingInside, "nothing inside"}};

enum State { AtRest, Pressed, Checked, CheckedAndPressed, Disabled, DisabledCheckedPressed };

const QList<QPair<State, const char *>> states = {
    {AtRest, "at rest"},    {Pressed, "pressed"},
    {Checked, "checked"},   {CheckedAndPressed, "checked and pressed"},
    {Disabled, "disabled"}, {DisabledCheckedPressed, "disabled, checked and pressed"}};

// A picture without symmetry, so that a wrong scale or corner shows.
QPixmap picture()
{
    QPixmap pixmap(24, 18);
    pixmap.fill(QColor(250, 240, 10));
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, 7, 5, Qt::red);
    painter.fillRect(12, 9, 12, 9, QColor(0, 0, 200, 150));
    return pixmap;
}

QPixmap plainPicture(const QColor &colour)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(colour);
    return pixmap;
}

KELPushButtonStyle *styleOf(const KELPushButton &button)
{
    return static_cast<KELPushButtonStyle *>(button.style());
}

void applyLayout(KELPushButton *button, Layout layout)
{
    KELPushButtonStyle *style = styleOf(*button);
    if (layout == PixmapAndStrip || layout == PixmapAlone)
        style->pixmap = picture();
    if (layout == GlyphAndStrip || layout == GlyphAlone)
        style->icon = KELIconFont(leftGlyph);
    if (layout != GlyphAlone && layout != NothingInside)
        style->text = u"Start the pump"_s;
    if (layout == PixmapAlone || layout == NothingInside)
        style->foregroundBrush = QBrush(Qt::NoBrush);
}

void applyState(KELPushButton *button, State state)
{
    button->setIsCheckedTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(20, 200, 60);
        look.borderBrush = QBrush(Qt::red);
        look.xRadius = 12;
        look.yRadius = 6;
    });
    button->style()->isMouseDown = state == Pressed || state == CheckedAndPressed
        || state == DisabledCheckedPressed;
    button->style()->isCheck = state == Checked || state == CheckedAndPressed
        || state == DisabledCheckedPressed;
    button->setEnabled(state != Disabled && state != DisabledCheckedPressed);
}

// What the button of these two functions has to show, worked out here once more.
HandDrawing expectedOf(const KELPushButton &button, State state)
{
    HandDrawing drawing;
    drawing.iconFamily = iconFamily;
    KELPushButtonStyle &look = drawing.look;
    look = *styleOf(button);
    look.boundRect = button.boundingRect();
    if (look.borderBrush.style() == Qt::NoBrush || !(look.borderWidth > 0)) {
        look.borderBrush = QBrush(Qt::NoBrush);
        look.borderWidth = 0;
    }
    if (look.foregroundBrush.style() == Qt::NoBrush)
        look.text.clear();
    if (state == Disabled || state == DisabledCheckedPressed) {
        look.foregroundBrush = QColor(150, 150, 150, 100);
        look.borderBrush = QColor(150, 150, 150, 100);
        return drawing;
    }
    if (state == Checked || state == CheckedAndPressed) {
        look.backgroundBrush = QColor(20, 200, 60);
        look.borderBrush = QBrush(Qt::red);
        look.xRadius = 12;
        look.yRadius = 6;
    }
    if (state == Pressed || state == CheckedAndPressed)
        look.backgroundBrush = QColor(50, 70, 100, 200);
    return drawing;
}

QString differenceFrom(const HandDrawing &expected, KELPushButton *button, qreal scale = 1)
{
    const QImage actual = KelImage::paint(button, canvas, scale);
    const QImage wanted = KelImage::draw(
        canvas, scale, [&expected](QPainter *painter) { expected.draw(painter); });
    return KelImage::difference(actual, wanted);
}

QString differenceFromHandDrawing(KELPushButton *button, State state = AtRest, qreal scale = 1)
{
    return differenceFrom(expectedOf(*button, state), button, scale);
}

// The rectangle around all pixels of one colour.
QRect areaOf(const QImage &image, const QColor &colour)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

void addLayoutsAndStates()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("state");
    for (const auto &layout : layouts) {
        for (const auto &state : states)
            QTest::addRow("%s, %s", layout.second, state.second)
                << int(layout.first) << int(state.first);
    }
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
        QFETCH(int, layout);
        QFETCH(int, state);
        for (const QRectF &rect :
             {QRectF(10, 10, 120, 90), QRectF(5.3, 7.7, 140.4, 100.6), QRectF(20, 30, 60, 30),
              QRectF(30, 10, 9, 110), QRectF(15, 15, 2, 2)}) {
            KELPushButton button;
            button.setboundRect(rect);
            applyLayout(&button, Layout(layout));
            applyState(&button, State(state));
            QCOMPARE(differenceFromHandDrawing(&button, State(state)), QString());
        }
    }

    void isTheHandDrawnPictureScaled_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPictureScaled()
    {
        QFETCH(int, layout);
        QFETCH(int, state);
        KELPushButton button;
        button.setboundRect(10.5, 10, 120, 90);
        applyLayout(&button, Layout(layout));
        applyState(&button, State(state));
        for (const qreal scale : {0.5, 1.5, 2.0})
            QCOMPARE(differenceFromHandDrawing(&button, State(state), scale), QString());
    }

    void isTheHandDrawnPictureWithEveryField_data() { addLayoutsAndStates(); }

    void isTheHandDrawnPictureWithEveryField()
    {
        QFETCH(int, layout);
        QFETCH(int, state);
        KELPushButton button;
        button.setboundRect(8, 9, 150, 110);
        applyLayout(&button, Layout(layout));
        KELPushButtonStyle *style = styleOf(button);
        style->margins = QMarginsF(4, 3.5, 11, 6);
        style->iconMargins = QMarginsF(20.25, 3, 9, 7);
        style->font.setPixelSize(19);
        style->font.setBold(true);
        style->textFlags = Qt::AlignRight | Qt::AlignBottom;
        style->borderWidth = 5.5F;
        style->xRadius = 9;
        style->yRadius = 21;
        style->iconSize = 41;
        style->backgroundBrush = QBrush(QColor(90, 120, 60, 130), Qt::DiagCrossPattern);
        if (style->foregroundBrush.style() != Qt::NoBrush)
            style->foregroundBrush = QColor(130, 0, 90, 200);
        style->text.append(u"\n\nS&econd"_s);
        applyState(&button, State(state));
        QCOMPARE(differenceFromHandDrawing(&button, State(state)), QString());
    }

    void isTheHandDrawnPictureInAParent()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 200, 100);
        for (const auto &layout : layouts) {
            auto *button = new KELPushButton(&parent);
            button->setboundRect(5, 5, 100, 70);
            applyLayout(button, layout.first);
            HandDrawing expected = expectedOf(*button, AtRest);
            expected.look.boundRect = QRectF(15, 25, 100, 70);
            QCOMPARE(differenceFrom(expected, button), QString());
        }
    }

    void stripIsAsHighAsTheText()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        styleOf(button)->pixmap = plainPicture(Qt::magenta);
        styleOf(button)->font.setPixelSize(20);
        const int textHeight = QFontMetrics(button.style()->font).height();
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta),
                 QRect(15, 11, 110, 90 - 2 - textHeight));
    }

    void stripIsKeptFreeWithoutCaption()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        styleOf(button)->pixmap = plainPicture(Qt::magenta);
        const QRect withoutCaption = areaOf(KelImage::paint(&button, canvas), Qt::magenta);
        button.setText(u"Start"_s);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta), withoutCaption);
        QVERIFY(withoutCaption.height() < 88);
        styleOf(button)->foregroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta), QRect(10, 10, 120, 90));
    }

    void stripCountsTheTopMarginTwice()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        styleOf(button)->pixmap = plainPicture(Qt::magenta);
        const int before = areaOf(KelImage::paint(&button, canvas), Qt::magenta).height();
        styleOf(button)->margins = QMarginsF(0, 6, 0, 0);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta).height(), before - 12);
        styleOf(button)->margins = QMarginsF(0, 0, 0, 6);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta).height(), before - 6);
        styleOf(button)->margins = QMarginsF(6, 0, 6, 0);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta).height(), before);
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
        QFETCH(QRectF, rect);
        QFETCH(QRect, pixels);
        KELPushButton button;
        button.setboundRect(rect);
        KELPushButtonStyle *style = styleOf(button);
        style->pixmap = plainPicture(Qt::magenta);
        style->foregroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta), pixels);

        style->foregroundBrush = QBrush(Qt::black);
        style->iconMargins = QMarginsF();
        const int textHeight = QFontMetrics(style->font).height();
        style->boundRect.setHeight(rect.height() + textHeight);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta), pixels);
    }

    void pixmapIsNotSmoothed()
    {
        QPixmap pixmap(2, 1);
        pixmap.fill(Qt::magenta);
        QPainter(&pixmap).fillRect(1, 0, 1, 1, Qt::cyan);
        KELPushButton button;
        button.setboundRect(10, 10, 100, 50);
        styleOf(button)->pixmap = pixmap;
        styleOf(button)->foregroundBrush = QBrush(Qt::NoBrush);
        const QImage image = KelImage::paint(&button, canvas);
        QCOMPARE(areaOf(image, Qt::magenta), QRect(10, 10, 50, 50));
        QCOMPARE(areaOf(image, Qt::cyan), QRect(60, 10, 50, 50));
    }

    void pixmapCoversTheGlyph()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        styleOf(button)->pixmap = plainPicture(Qt::magenta);
        const QImage withoutGlyph = KelImage::paint(&button, canvas);
        styleOf(button)->icon = KELIconFont(leftGlyph);
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), withoutGlyph), QString());
    }

    void pixmapAloneIgnoresMargins()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        KELPushButtonStyle *style = styleOf(button);
        style->pixmap = plainPicture(Qt::magenta);
        style->foregroundBrush = QBrush(Qt::NoBrush);
        style->margins = QMarginsF(9, 9, 9, 9);
        style->iconMargins = QMarginsF(19, 19, 19, 19);
        QCOMPARE(areaOf(KelImage::paint(&button, canvas), Qt::magenta), QRect(10, 10, 120, 90));
    }

    void captionIsElidedAboveAStrip_data()
    {
        QTest::addColumn<int>("layout");
        QTest::addColumn<bool>("trim");

        QTest::newRow("pixmap, trimmed") << int(PixmapAndStrip) << true;
        QTest::newRow("pixmap, not trimmed") << int(PixmapAndStrip) << false;
        QTest::newRow("glyph, trimmed") << int(GlyphAndStrip) << true;
        QTest::newRow("glyph, not trimmed") << int(GlyphAndStrip) << false;
    }

    void captionIsElidedAboveAStrip()
    {
        QFETCH(int, layout);
        QFETCH(bool, trim);
        KELPushButton button;
        button.setboundRect(10, 10, 70.9, 90);
        applyLayout(&button, Layout(layout));
        KELPushButtonStyle *style = styleOf(button);
        style->trimText = trim;
        style->textFlags = Qt::AlignCenter;
        // The margins narrow the strip, but the caption is cut to the width of the button.
        style->margins = QMarginsF(10, 0, 10, 0);
        style->text = u"Start all of the pumps now"_s;
        const QImage withLongText = KelImage::paint(&button, canvas);
        const QString cut = QFontMetrics(style->font)
                                .elidedText(style->text, Qt::ElideRight, 70, Qt::TextShowMnemonic);
        QVERIFY(cut != style->text);
        QVERIFY(cut.endsWith(QChar(0x2026)) || cut.endsWith(QLatin1String("...")));

        HandDrawing expected = expectedOf(button, AtRest);
        expected.look.text = cut;
        QCOMPARE(differenceFrom(expected, &button), QString());
        style->text = cut;
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), withLongText), QString());
    }

    void captionAloneIsElidedOnlyOnRequest()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 90, 30);
        KELPushButtonStyle *style = styleOf(button);
        style->margins = QMarginsF(10, 0, 10, 0);
        style->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
        const QString text = u"Start all of the pumps now"_s;
        style->text = text;
        const QImage trimmed = KelImage::paint(&button, canvas);
        style->trimText = false;
        const QImage whole = KelImage::paint(&button, canvas);
        QVERIFY(trimmed != whole);
        style->text = QFontMetrics(style->font)
                          .elidedText(text, Qt::ElideRight, 70, Qt::TextShowMnemonic);
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
        QFETCH(int, flags);
        QFETCH(QPoint, corner);
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        KELPushButtonStyle *style = styleOf(button);
        style->icon = KELIconFont(leftGlyph);
        style->iconSize = 40;
        style->textFlags = flags;
        style->foregroundBrush = QBrush(Qt::magenta);
        style->margins = QMarginsF(30, 30, 30, 30);
        // The edges of a glyph may be smoothed.
        const QRect area = areaOf(KelImage::paint(&button, canvas), Qt::magenta);
        QVERIFY(area.contains(QRect(corner, QSize(20, 40)).adjusted(1, 1, -1, -1)));
        QVERIFY(QRect(corner, QSize(20, 40)).adjusted(-1, -1, 1, 1).contains(area));
    }

    void glyphIsDrawnWithoutForeground()
    {
        // A pen of no brush paints no glyph, and the caption is gone with the foreground.
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        KELPushButtonStyle *style = styleOf(button);
        style->text = u"Start"_s;
        style->foregroundBrush = QBrush(Qt::NoBrush);
        const QImage withoutGlyph = KelImage::paint(&button, canvas);
        style->icon = KELIconFont(leftGlyph);
        QCOMPARE(differenceFromHandDrawing(&button), QString());
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), withoutGlyph), QString());
    }

    void borderBrushOfALookNeedsAnOutline_data()
    {
        QTest::addColumn<QBrush>("recordBrush");
        QTest::addColumn<float>("recordWidth");

        QTest::newRow("neither brush nor width") << QBrush(Qt::NoBrush) << 0.0F;
        QTest::newRow("width without brush") << QBrush(Qt::NoBrush) << 2.0F;
        QTest::newRow("brush without width") << QBrush(Qt::black) << 0.0F;
        QTest::newRow("negative width") << QBrush(Qt::black) << -2.0F;
    }

    void borderBrushOfALookNeedsAnOutline()
    {
        QFETCH(QBrush, recordBrush);
        QFETCH(float, recordWidth);
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        KELPushButtonStyle *style = styleOf(button);
        style->backgroundBrush = QBrush(Qt::yellow);
        style->borderBrush = recordBrush;
        style->borderWidth = recordWidth;
        const QImage wanted = KelImage::draw(canvas, 1, [](QPainter *painter) {
            painter->fillRect(QRect(10, 10, 120, 90), Qt::yellow);
        });
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), wanted), QString());
        button.setEnabled(false);
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), wanted), QString());
        button.setEnabled(true);
        button.setIsCheckedTemplate(
            [](KELPushButtonStyle &look) { look.borderBrush = QBrush(Qt::red); });
        button.setCheck(true);
        QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), wanted), QString());
    }

    void outlineOfALookWithItsOwnWidth()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        styleOf(button)->backgroundBrush = QBrush(Qt::yellow);
        styleOf(button)->borderBrush = QBrush(Qt::NoBrush);
        button.setIsCheckedTemplate([](KELPushButtonStyle &look) {
            look.borderBrush = QBrush(Qt::red);
            look.borderWidth = 4;
        });
        button.setCheck(true);
        const QImage image = KelImage::paint(&button, canvas);
        QCOMPARE(areaOf(image, Qt::red), QRect(10, 10, 120, 90));
        QCOMPARE(areaOf(image, Qt::yellow), QRect(14, 14, 112, 82));
    }

    void outlineStaysInside()
    {
        KELPushButton button;
        button.setboundRect(10, 10, 120, 90);
        styleOf(button)->backgroundBrush = QBrush(Qt::yellow);
        styleOf(button)->borderBrush = QBrush(Qt::red);
        const QImage image = KelImage::paint(&button, canvas);
        QCOMPARE(areaOf(image, Qt::red), QRect(10, 10, 120, 90));
        QCOMPARE(areaOf(image, Qt::yellow), QRect(12, 12, 116, 86));
    }

    void gradientStartsAtTheCorner()
    {
        QLinearGradient gradient(0, 0, 100, 0);
        gradient.setColorAt(0, Qt::red);
        gradient.setColorAt(0.5, Qt::red);
        gradient.setColorAt(0.5001, Qt::blue);
        gradient.setColorAt(1, Qt::blue);
        KELPushButton button;
        button.setboundRect(40, 10, 100, 60);
        styleOf(button)->backgroundBrush = gradient;
        styleOf(button)->borderBrush = QBrush(Qt::NoBrush);
        const QImage image = KelImage::paint(&button, canvas);
        QCOMPARE(image.pixelColor(42, 40), QColor(Qt::red));
        QCOMPARE(image.pixelColor(87, 40), QColor(Qt::red));
        QCOMPARE(image.pixelColor(93, 40), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(137, 40), QColor(Qt::blue));
        QCOMPARE(differenceFromHandDrawing(&button), QString());
    }

    void oddGeometryDrawsNothing_data()
    {
        QTest::addColumn<QRectF>("rect");

        QTest::newRow("x is not a number") << QRectF(notANumber, 10, 100, 50);
        QTest::newRow("y is not a number") << QRectF(10, notANumber, 100, 50);
        QTest::newRow("width is not a number") << QRectF(10, 10, notANumber, 50);
        QTest::newRow("height is not a number") << QRectF(10, 10, 100, notANumber);
        QTest::newRow("width is infinite") << QRectF(10, 10, infinite, 50);
        QTest::newRow("x is minus infinite") << QRectF(-infinite, 10, 100, 50);
        QTest::newRow("nothing is a number")
            << QRectF(notANumber, notANumber, notANumber, notANumber);
    }

    void oddGeometryDrawsNothing()
    {
        QFETCH(QRectF, rect);
        const QImage blank = KelImage::draw(canvas, 1, [](QPainter *) {});
        for (const auto &layout : layouts) {
            KELPushButton button;
            button.setboundRect(rect);
            applyLayout(&button, layout.first);
            QCOMPARE(KelImage::difference(KelImage::paint(&button, canvas), blank), QString());
        }
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
        QFETCH(QRectF, rect);
        for (const auto &layout : layouts) {
            KELPushButton button;
            button.setboundRect(rect);
            applyLayout(&button, layout.first);
            QCOMPARE(differenceFromHandDrawing(&button), QString());
        }
    }

    void drawsNothingOutside_data() { addLayoutsAndStates(); }

    void drawsNothingOutside()
    {
        QFETCH(int, layout);
        QFETCH(int, state);
        KELPushButton button;
        button.setboundRect(0, 0, 90, 60);
        applyLayout(&button, Layout(layout));
        applyState(&button, State(state));
        styleOf(button)->iconSize = 200;
        styleOf(button)->font.setPixelSize(30);
        QCOMPARE(KelImage::pixelsOutside(&button), QString());
    }

    void paintingLeavesTheRecordAlone()
    {
        for (const auto &layout : layouts) {
            KELPushButton button;
            applyLayout(&button, layout.first);
            const KELPushButtonStyle before = *styleOf(button);
            KelImage::paint(&button, canvas);
            const KELPushButtonStyle &after = *styleOf(button);
            QCOMPARE(after.backgroundBrush, before.backgroundBrush);
            QCOMPARE(after.foregroundBrush, before.foregroundBrush);
            QCOMPARE(after.text, before.text);
            QCOMPARE(after.boundRect, before.boundRect);
            QCOMPARE(after.iconMargins, before.iconMargins);
        }
    }
};

KEL_TEST_MAIN(tst_KELPushButtonPaint)
#include "tst_kelpushbuttonpaint.moc"
