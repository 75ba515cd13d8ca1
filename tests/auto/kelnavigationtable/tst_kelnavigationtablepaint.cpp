// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"
#include "keltest.h"

#include <QtGui/QLinearGradient>

#include <limits>

namespace {

constexpr qreal notANumber = std::numeric_limits<qreal>::quiet_NaN();
constexpr qreal infinite = std::numeric_limits<qreal>::infinity();
constexpr ushort fullGlyph = 0xE000; // the whole em square
constexpr ushort leftGlyph = 0xE001; // its left half
constexpr qreal scales[] = {0.5, 1, 1.5, 2};
const QString iconFamily = u"KEL Test Icons"_s;
const QSize canvas(480, 350);
const QRectF usual(0, 0, 440, 310);

enum TabLayout { GlyphOnly, GlyphAndCaption, CaptionOnly, NothingInside, NoForeground };

const QList<QPair<TabLayout, const char *>> tabLayouts = {{GlyphOnly, "glyph"},
                                                          {GlyphAndCaption, "glyph and caption"},
                                                          {CaptionOnly, "caption"},
                                                          {NothingInside, "nothing"},
                                                          {NoForeground, "no foreground"}};

// A table with its pages, which tests change before they are painted.
class Picture
{
public:
    explicit Picture(const QRectF &rect = usual, int count = 0, TabLayout layout = NothingInside)
    {
        table.setboundRect(rect);
        for (int i = 0; i < count; ++i)
            addPage(layout);
    }

    KELNavigationTableStyle *style()
    {
        return static_cast<KELNavigationTableStyle *>(table.style());
    }

    KELNavigationTableItemStyle *page(int index)
    {
        return static_cast<KELNavigationTableItemStyle *>(pages.at(index)->style());
    }

    void addPage(TabLayout layout)
    {
        auto *item = new KELNavigationTableItem(nullptr);
        pages.append(item);
        KELNavigationTableItemStyle *look = page(pages.size() - 1);
        if (layout == GlyphOnly || layout == GlyphAndCaption || layout == NoForeground)
            look->icon = KELIconFont(leftGlyph);
        if (layout == CaptionOnly || layout == GlyphAndCaption || layout == NoForeground)
            look->text = u"Settings of the pump %1"_s.arg(pages.size());
        if (layout == NoForeground)
            item->setButtonForeground(QBrush(Qt::NoBrush));
        table.addItem(item);
    }

    HandDrawing byHand()
    {
        HandDrawing drawing;
        drawing.table = *style();
        drawing.rect = style()->boundRect;
        drawing.sizeOfTabs = drawing.rect.size();
        for (int i = 0; i < pages.size(); ++i)
            drawing.pages.append(*page(i));
        drawing.selected = table.selectIndex();
        drawing.iconFamily = iconFamily;
        return drawing;
    }

    QImage painted(qreal scale = 1) { return KelImage::paint(&table, canvas, scale); }

    QString differenceFrom(const HandDrawing &drawing, qreal scale = 1)
    {
        const QImage wanted = KelImage::draw(
            canvas, scale, [&drawing](QPainter *painter) { drawing.draw(painter); });
        return KelImage::difference(painted(scale), wanted);
    }

    // Empty when the table looks as drawn by hand, at every scale and with every page selected.
    QString difference()
    {
        for (int i = 0; i < qMax(1, pages.size()); ++i) {
            table.setSelectIndex(i);
            for (const qreal scale : scales) {
                const QString found = differenceFrom(byHand(), scale);
                if (!found.isEmpty())
                    return u"page %1, scale %2: "_s.arg(i).arg(scale) + found;
            }
        }
        return QString();
    }

    KELNavigationTable table{nullptr};
    QList<KELNavigationTableItem *> pages;
};

QImage blank(qreal scale = 1)
{
    return KelImage::draw(canvas, scale, [](QPainter *) {});
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

QPixmap picture()
{
    QPixmap pixmap(24, 18);
    pixmap.fill(QColor(250, 240, 10));
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, 7, 5, Qt::red);
    painter.fillRect(12, 9, 12, 9, QColor(0, 0, 200, 150));
    return pixmap;
}

QPixmap plainPicture()
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::magenta);
    return pixmap;
}

QBrush gradient()
{
    QLinearGradient colours(0, 0, 100, 40);
    colours.setColorAt(0, Qt::red);
    colours.setColorAt(0.5, Qt::yellow);
    colours.setColorAt(1, Qt::blue);
    return colours;
}

void addTabLayouts()
{
    QTest::addColumn<int>("layout");
    for (const auto &layout : tabLayouts)
        QTest::newRow(layout.second) << int(layout.first);
}

// All colours off, for tests that look for one.
void makeBare(Picture *picture)
{
    picture->style()->backgroundBrush = QBrush(Qt::NoBrush);
    picture->style()->titleBackgroundBrush = QBrush(Qt::NoBrush);
    picture->style()->titleForegroundBrush = QBrush(Qt::NoBrush);
    for (KELNavigationTableItem *page : qAsConst(picture->pages))
        page->setButtonBackground(QBrush(Qt::NoBrush));
}

} // namespace

class tst_KELNavigationTablePaint : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        KELIconFont::installFont(besideProgram(u"icons.ttf"_s));
        QCOMPARE(KELIconFont::fontFamily(), iconFamily);
    }

    void emptyTable()
    {
        Picture picture;
        QCOMPARE(picture.difference(), QString());
        QVERIFY(picture.painted() != blank());
        picture.style()->backgroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(KelImage::difference(picture.painted(), blank()), QString());
    }

    void pageCounts_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : {1, 2, 3, 7})
            QTest::addRow("%d", count) << count;
    }

    void pageCounts()
    {
        QFETCH(int, count);
        Picture picture(usual, count, GlyphAndCaption);
        for (int i = 0; i < count; ++i)
            picture.page(i)->backgroundBrush = QColor::fromHsv(i * 45, 200, 200, 160);
        QCOMPARE(picture.difference(), QString());
    }

    void tabLayout_data() { addTabLayouts(); }

    void tabLayout()
    {
        QFETCH(int, layout);
        Picture picture(usual, 2, TabLayout(layout));
        QCOMPARE(picture.difference(), QString());
        picture.style()->showTitle = true;
        QCOMPARE(picture.difference(), QString());
    }

    void tabLayoutWithEveryField_data() { addTabLayouts(); }

    void tabLayoutWithEveryField()
    {
        QFETCH(int, layout);
        Picture picture(QRectF(0, 0, 400.5, 290.25), 3, TabLayout(layout));
        picture.style()->font.setPixelSize(17);
        picture.style()->font.setBold(true);
        picture.style()->textFlags = Qt::AlignRight | Qt::AlignTop;
        for (int i = 0; i < 3; ++i) {
            KELNavigationTableItemStyle *page = picture.page(i);
            page->margins = QMarginsF(4, 2.5, 11, 6 + i);
            page->iconSize = 20 + 5 * i;
            page->font.setPixelSize(11 + 4 * i);
            page->textFlags = Qt::AlignLeft;
            page->foregroundBrush = QBrush(Qt::red);
            page->backgroundBrush = QBrush(QColor(90, 120, 60, 130), Qt::DiagCrossPattern);
            if (page->buttonForeground.style() != Qt::NoBrush)
                page->buttonForeground = QColor(130, 0, 90, 200);
            page->trimText = false;
            if (!page->text.isEmpty())
                page->text.append(u"\n\nS&econd"_s);
        }
        QCOMPARE(picture.difference(), QString());
    }

    void mixedTabs()
    {
        Picture picture;
        for (const auto &layout : tabLayouts)
            picture.addPage(layout.first);
        QCOMPARE(picture.difference(), QString());
    }

    void tabFills_data()
    {
        QTest::addColumn<QBrush>("selectedFill");
        QTest::addColumn<QBrush>("otherFill");

        const QBrush none(Qt::NoBrush);
        QTest::newRow("both") << QBrush(Qt::red) << QBrush(Qt::blue);
        QTest::newRow("only of the selected tab") << QBrush(Qt::red) << none;
        QTest::newRow("only of the others") << none << QBrush(Qt::blue);
        QTest::newRow("neither") << none << none;
        QTest::newRow("patterns") << QBrush(Qt::red, Qt::Dense4Pattern)
                                  << QBrush(Qt::blue, Qt::BDiagPattern);
    }

    void tabFills()
    {
        QFETCH(QBrush, selectedFill);
        QFETCH(QBrush, otherFill);
        for (const auto &layout : tabLayouts) {
            Picture picture(usual, 3, layout.first);
            for (int i = 0; i < 3; ++i) {
                picture.pages.at(i)->setButtonBackground(selectedFill);
                picture.page(i)->backgroundBrush = otherFill;
            }
            QCOMPARE(picture.difference(), QString());
        }
    }

    void geometry_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<float>("titleHeight");
        QTest::addColumn<float>("tabHeight");

        QTest::newRow("usual") << usual << 35.0F << 80.0F;
        QTest::newRow("small") << QRectF(0, 0, 150, 140) << 35.0F << 80.0F;
        QTest::newRow("fractions") << QRectF(0, 0, 333.3, 222.2) << 30.3F << 61.7F;
        QTest::newRow("heights of nothing") << usual << 0.0F << 0.0F;
        QTest::newRow("heights more than there is") << QRectF(0, 0, 200, 100) << 70.0F << 90.0F;
        QTest::newRow("negative heights") << QRectF(0, 0, 200, 100) << -10.0F << -20.0F;
        QTest::newRow("off the origin") << QRectF(15, 25, 300, 200) << 35.0F << 80.0F;
        QTest::newRow("off the origin by fractions")
            << QRectF(7.3, 9.6, 300, 200) << 35.0F << 80.0F;
        QTest::newRow("partly out of sight") << QRectF(-40, -30, 300, 300) << 35.0F << 80.0F;
    }

    void geometry()
    {
        QFETCH(QRectF, rect);
        QFETCH(float, titleHeight);
        QFETCH(float, tabHeight);
        for (const bool showTitle : {false, true}) {
            Picture picture(rect);
            picture.style()->showTitle = showTitle;
            picture.style()->titleHeight = titleHeight;
            picture.style()->tabHeight = tabHeight;
            picture.addPage(GlyphAndCaption);
            QCOMPARE(picture.difference(), QString());
            picture.addPage(CaptionOnly);
            picture.addPage(GlyphOnly);
            QCOMPARE(picture.difference(), QString());
        }
    }

    void title_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QBrush>("background");
        QTest::addColumn<QBrush>("foreground");
        QTest::addColumn<int>("flags");

        const QString brief = u"Pump"_s;
        const QString longer = u"Every pump that is in this house, and in the next ones"_s;
        const QBrush none(Qt::NoBrush);
        QTest::newRow("usual") << brief << QBrush(QColor(40, 40, 40, 160)) << QBrush(Qt::white)
                               << 0x1084;
        QTest::newRow("too long") << longer << QBrush(Qt::black) << QBrush(Qt::white) << 0x1084;
        QTest::newRow("lines") << brief + u"\n\n"_s + longer << QBrush(Qt::black)
                               << QBrush(Qt::white) << 0x1084;
        QTest::newRow("empty") << QString() << QBrush(Qt::black) << QBrush(Qt::white) << 0x1084;
        QTest::newRow("no background") << brief << none << QBrush(Qt::white) << 0x1084;
        QTest::newRow("no foreground") << brief << QBrush(Qt::black) << none << 0x1084;
        QTest::newRow("neither") << brief << none << none << 0x1084;
        QTest::newRow("left") << longer << QBrush(Qt::black) << QBrush(Qt::white)
                              << int(Qt::AlignLeft | Qt::AlignTop);
        QTest::newRow("right") << brief << QBrush(Qt::black) << gradient()
                               << int(Qt::AlignRight | Qt::AlignBottom);
    }

    void title()
    {
        QFETCH(QString, text);
        QFETCH(QBrush, background);
        QFETCH(QBrush, foreground);
        QFETCH(int, flags);
        for (const bool trimText : {true, false}) {
            for (const bool showTitle : {true, false}) {
                Picture picture(QRectF(35, 10, 300, 200));
                KELNavigationTableStyle *style = picture.style();
                style->showTitle = showTitle;
                style->trimText = trimText;
                style->title = text;
                style->titleBackgroundBrush = background;
                style->titleForegroundBrush = foreground;
                style->textFlags = flags;
                style->font.setPixelSize(15);
                QCOMPARE(picture.difference(), QString());
            }
        }
    }

    void pixmap_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::newRow("whole") << usual;
        QTest::newRow("fractions") << QRectF(0, 0, 300.4, 222.6);
        QTest::newRow("halves") << QRectF(10.5, 20.5, 300.5, 200.5);
        QTest::newRow("negative corner") << QRectF(-10.4, -20.6, 300, 250);
        QTest::newRow("negative halves") << QRectF(-10.5, -20.5, 300, 250);
    }

    void pixmap()
    {
        QFETCH(QRectF, rect);
        for (const bool showTitle : {false, true}) {
            for (const bool background : {false, true}) {
                Picture image(rect);
                image.style()->pixmap = picture();
                image.style()->showTitle = showTitle;
                if (!background)
                    image.style()->backgroundBrush = QBrush(Qt::NoBrush);
                QCOMPARE(image.difference(), QString());
                image.addPage(CaptionOnly);
                image.addPage(GlyphOnly);
                QCOMPARE(image.difference(), QString());
            }
        }
    }

    void gradientsBeginAtTheirRectangles()
    {
        Picture picture(QRectF(13, 17, 400, 300), 3, GlyphAndCaption);
        picture.style()->showTitle = true;
        picture.style()->titleBackgroundBrush = gradient();
        picture.style()->titleForegroundBrush = gradient();
        picture.style()->backgroundBrush = gradient();
        for (int i = 0; i < 3; ++i) {
            picture.page(i)->backgroundBrush = gradient();
            picture.pages.at(i)->setButtonBackground(gradient());
            picture.pages.at(i)->setButtonForeground(gradient());
        }
        QCOMPARE(picture.difference(), QString());
        // A pixel beside the glyph of the tabs: the same place in each.
        const QImage image = picture.painted();
        const QColor first = image.pixelColor(10, 230);
        QVERIFY(qAbs(image.pixelColor(143, 230).red() - first.red()) < 10);
        QVERIFY(qAbs(image.pixelColor(277, 230).red() - first.red()) < 10);
    }

    void inAParent()
    {
        KELRoundRectControl parent(nullptr);
        parent.setboundRect(10, 20, 460, 330);
        Picture picture(QRectF(5, 6, 300, 200), 2, GlyphAndCaption);
        picture.table.setParentItem(&parent);
        HandDrawing expected = picture.byHand();
        expected.rect = QRectF(15, 26, 300, 200);
        QCOMPARE(picture.differenceFrom(expected), QString());
        picture.table.setParentItem(nullptr);
    }

    void onePageHasNoTab()
    {
        Picture without;
        Picture with(usual, 1, GlyphAndCaption);
        with.page(0)->backgroundBrush = QBrush(Qt::red);
        QCOMPARE(KelImage::difference(with.painted(), without.painted()), QString());
        QCOMPARE(with.table.selectItem(), with.pages.first());
        QVERIFY(with.pages.first()->isVisible());
    }

    void threeTabsOnTheCanvas()
    {
        Picture picture(usual, 3);
        makeBare(&picture);
        picture.page(1)->backgroundBrush = QBrush(Qt::green);
        picture.pages.at(2)->setButtonBackground(Qt::red);
        // 146.666 and 293.333, of which a fill covers the pixels whose centre is inside.
        QCOMPARE(areaOf(picture.painted(), Qt::green), QRect(147, 230, 146, 80));
        QCOMPARE(areaOf(picture.painted(), Qt::red), QRect());
        picture.table.setSelectIndex(2);
        QCOMPARE(areaOf(picture.painted(), Qt::red), QRect(293, 230, 147, 80));
    }

    void glyphIsCentredAboveTheCaption()
    {
        Picture picture(usual, 2, GlyphAndCaption);
        makeBare(&picture);
        for (int i = 0; i < 2; ++i) {
            picture.page(i)->icon = KELIconFont(fullGlyph);
            picture.page(i)->iconSize = 20;
            picture.page(i)->text = u" "_s;
            picture.page(i)->margins = QMarginsF(0, 5, 0, 9);
        }
        picture.page(0)->buttonForeground = QBrush(Qt::magenta);
        const double strip = QFontMetrics(picture.page(0)->font).height() + 5 + 9;
        const QRectF wanted(100, 230 + (80 - strip) / 2 - 10, 20, 20);
        // The edges of a glyph may be smoothed.
        const QRectF area(areaOf(picture.painted(), Qt::magenta));
        QVERIFY(area.contains(wanted.adjusted(2, 2, -2, -2)));
        QVERIFY(wanted.adjusted(-1, -1, 1, 1).contains(area));
    }

    void glyphAloneKeepsOneLineFree()
    {
        Picture picture(usual, 2, GlyphOnly);
        makeBare(&picture);
        picture.style()->textFlags = Qt::AlignLeft | Qt::AlignBottom;
        picture.page(0)->icon = KELIconFont(fullGlyph);
        picture.page(0)->iconSize = 20;
        picture.page(0)->margins = QMarginsF(50, 5, 50, 9);
        picture.page(0)->buttonForeground = QBrush(Qt::magenta);
        const int line = QFontMetrics(picture.page(0)->font).height();
        const QRect area = areaOf(picture.painted(), Qt::magenta);
        QVERIFY(qAbs(area.bottom() + 1 - (310 - line)) <= 1);
        QVERIFY(area.left() <= 1);
    }

    void lineHeightIsThatOfThePage()
    {
        Picture picture(usual, 2, GlyphOnly);
        const QImage usualFont = picture.painted();
        picture.style()->font.setPixelSize(29);
        QCOMPARE(KelImage::difference(picture.painted(), usualFont), QString());
        picture.page(0)->font.setPixelSize(29);
        QVERIFY(picture.painted() != usualFont);
        QCOMPARE(picture.difference(), QString());
    }

    void captionHasTheFontOfTheTable()
    {
        Picture picture(usual, 2, CaptionOnly);
        const QImage usualFont = picture.painted();
        picture.page(0)->font.setPixelSize(29);
        QCOMPARE(KelImage::difference(picture.painted(), usualFont), QString());
        picture.style()->font.setPixelSize(29);
        QVERIFY(picture.painted() != usualFont);
    }

    void captionIsCutToTheWholeTab()
    {
        for (const TabLayout layout : {CaptionOnly, GlyphAndCaption}) {
            Picture picture(QRectF(0, 0, 200, 200), 2, layout);
            picture.style()->textFlags = Qt::AlignCenter;
            picture.page(0)->margins = QMarginsF(20, 3, 20, 3);
            picture.page(0)->text = u"Settings of all the pumps"_s;
            const QImage withLongText = picture.painted();
            const QString cut = HandDrawing::elided(picture.page(0)->text, 100,
                                                    picture.style()->font);
            QVERIFY(cut.endsWith(QChar(0x2026)) || cut.endsWith(QLatin1String("...")));
            picture.page(0)->text = cut;
            QCOMPARE(KelImage::difference(picture.painted(), withLongText), QString());
            picture.page(0)->text = HandDrawing::elided(cut, 60, picture.style()->font);
            QVERIFY(picture.painted() != withLongText);
        }
    }

    void captionIsCutAlsoWhenTrimmingIsOff()
    {
        Picture picture(QRectF(0, 0, 200, 200), 2, CaptionOnly);
        const QImage trimmed = picture.painted();
        picture.style()->trimText = false;
        picture.page(0)->trimText = false;
        picture.page(1)->trimText = false;
        QCOMPARE(KelImage::difference(picture.painted(), trimmed), QString());
    }

    void flagsOfTheTablePlaceTheTabs()
    {
        Picture picture(usual, 2, GlyphAndCaption);
        const QImage centred = picture.painted();
        picture.page(0)->textFlags = Qt::AlignLeft | Qt::AlignTop;
        QCOMPARE(KelImage::difference(picture.painted(), centred), QString());
        picture.style()->textFlags = Qt::AlignLeft | Qt::AlignTop;
        QVERIFY(picture.painted() != centred);
        QCOMPARE(picture.difference(), QString());
    }

    void titleIsCutThirtyPxFromBothEnds()
    {
        Picture picture(QRectF(0, 0, 240, 150));
        picture.style()->showTitle = true;
        picture.style()->textFlags = Qt::AlignCenter;
        const QString text = u"Every pump that is in this house, and others"_s;
        picture.style()->title = text;
        const QImage withLongText = picture.painted();
        picture.style()->title = HandDrawing::elided(text, 180, picture.style()->font);
        QVERIFY(picture.style()->title != text);
        QCOMPARE(KelImage::difference(picture.painted(), withLongText), QString());
    }

    void wholeTitleMayLeaveTheTable()
    {
        Picture picture(QRectF(100, 20, 120, 150));
        makeBare(&picture);
        picture.style()->showTitle = true;
        picture.style()->titleForegroundBrush = QBrush(Qt::magenta);
        picture.style()->textFlags = Qt::AlignCenter;
        picture.style()->title = QString(40, QLatin1Char('M'));
        QCOMPARE(KelImage::pixelsOutside(&picture.table), QString());
        picture.style()->trimText = false;
        QVERIFY(!KelImage::pixelsOutside(&picture.table).isEmpty());
        const QRect area = areaOf(picture.painted(), Qt::magenta);
        QVERIFY(area.left() >= 70 && area.left() < 90);
        QVERIFY(area.right() < 250 && area.right() > 230);
    }

    void hiddenTitleIsNotDrawn()
    {
        Picture picture(usual, 2);
        picture.style()->titleBackgroundBrush = QBrush(Qt::magenta);
        picture.style()->titleForegroundBrush = QBrush(Qt::magenta);
        QCOMPARE(areaOf(picture.painted(), Qt::magenta), QRect());
        picture.style()->showTitle = true;
        QCOMPARE(areaOf(picture.painted(), Qt::magenta), QRect(0, 0, 440, 35));
    }

    void outlineTextAndIconAreNotDrawn()
    {
        Picture picture(usual, 2, CaptionOnly);
        const QImage before = picture.painted();
        picture.style()->borderWidth = 20;
        picture.style()->borderBrush = QBrush(Qt::red);
        picture.style()->xRadius = picture.style()->yRadius = 30;
        picture.style()->text = u"caption"_s;
        picture.style()->icon = KELIconFont(fullGlyph);
        picture.style()->foregroundBrush = QBrush(Qt::red);
        picture.style()->margins = QMarginsF(9, 9, 9, 9);
        picture.page(0)->borderWidth = 20;
        picture.page(0)->borderBrush = QBrush(Qt::red);
        picture.page(0)->pixmap = plainPicture();
        QCOMPARE(KelImage::difference(picture.painted(), before), QString());
    }

    void pixmapIsRoundedEachForItself_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QRect>("pixels");

        QTest::newRow("whole") << QRectF(10, 10, 140, 130) << QRect(10, 10, 140, 130);
        // As edges, right and bottom would be one pixel more.
        QTest::newRow("down") << QRectF(10.4, 10.4, 140.4, 130.4) << QRect(10, 10, 140, 130);
        QTest::newRow("up") << QRectF(10.6, 10.6, 140.6, 130.6) << QRect(11, 11, 141, 131);
        QTest::newRow("halves") << QRectF(10.5, 10.5, 140.5, 130.5) << QRect(11, 11, 141, 131);
    }

    void pixmapIsRoundedEachForItself()
    {
        QFETCH(QRectF, rect);
        QFETCH(QRect, pixels);
        Picture picture(rect);
        makeBare(&picture);
        picture.style()->pixmap = plainPicture();
        QCOMPARE(areaOf(picture.painted(), Qt::magenta), pixels);
        // Title and tabs are left free.
        picture.style()->showTitle = true;
        picture.style()->titleHeight = 20;
        picture.style()->tabHeight = 40;
        QCOMPARE(areaOf(picture.painted(), Qt::magenta), pixels.adjusted(0, 20, 0, 0));
        picture.addPage(NothingInside);
        QCOMPARE(areaOf(picture.painted(), Qt::magenta), pixels.adjusted(0, 20, 0, 0));
        picture.addPage(NothingInside);
        makeBare(&picture);
        QCOMPARE(areaOf(picture.painted(), Qt::magenta), pixels.adjusted(0, 20, 0, -40));
    }

    void pixmapCoversTheTitleOnlyWhereItIs()
    {
        // A height that is less than nothing turns the picture over the title, drawn later.
        Picture picture(QRectF(0, 0, 200, 30));
        picture.style()->showTitle = true;
        picture.style()->pixmap = plainPicture();
        QCOMPARE(picture.difference(), QString());
    }

    void oddGeometryPaintsNothing_data()
    {
        QTest::addColumn<QRectF>("rect");

        QTest::newRow("x is not a number") << QRectF(notANumber, 10, 200, 150);
        QTest::newRow("y is not a number") << QRectF(10, notANumber, 200, 150);
        QTest::newRow("width is not a number") << QRectF(10, 10, notANumber, 150);
        QTest::newRow("height is not a number") << QRectF(10, 10, 200, notANumber);
        QTest::newRow("width is infinite") << QRectF(10, 10, infinite, 150);
        QTest::newRow("height is infinite") << QRectF(10, 10, 200, infinite);
        QTest::newRow("x is minus infinite") << QRectF(-infinite, 10, 200, 150);
        QTest::newRow("nothing is a number")
            << QRectF(notANumber, notANumber, notANumber, notANumber);
    }

    void oddGeometryPaintsNothing()
    {
        QFETCH(QRectF, rect);
        for (const bool showTitle : {false, true}) {
            Picture image(rect);
            image.style()->showTitle = showTitle;
            image.style()->titleHeight = 35;
            image.style()->pixmap = picture();
            const bool sizeIsOdd = !qIsFinite(rect.width()) || !qIsFinite(rect.height());
            // The tabs go by the size alone.
            if (sizeIsOdd) {
                image.addPage(GlyphAndCaption);
                image.addPage(CaptionOnly);
            }
            QCOMPARE(KelImage::difference(image.painted(), blank()), QString());
        }
    }

    void oddRectangleLaterDrawsNothing()
    {
        Picture image(usual, 2, GlyphAndCaption);
        image.style()->pixmap = picture();
        QVERIFY(image.painted() != blank());
        image.table.setboundRect(0, notANumber, 440, 310);
        QCOMPARE(KelImage::difference(image.painted(), blank()), QString());
        image.table.setboundRect(0, 0, notANumber, notANumber);
        QCOMPARE(KelImage::difference(image.painted(), blank()), QString());
    }

    void negativeGeometry_data()
    {
        QTest::addColumn<QRectF>("rect");

        QTest::newRow("width") << QRectF(220, 10, -180, 250);
        QTest::newRow("height") << QRectF(10, 250, 180, -150);
        QTest::newRow("both") << QRectF(220, 250, -180, -150);
        QTest::newRow("empty") << QRectF(20, 20, 0, 0);
    }

    void negativeGeometry()
    {
        QFETCH(QRectF, rect);
        Picture image(rect, 2, CaptionOnly);
        image.style()->showTitle = true;
        QCOMPARE(image.difference(), QString());
    }

    void paintsNothingOutside_data() { addTabLayouts(); }

    void paintsNothingOutside()
    {
        QFETCH(int, layout);
        Picture image(QRectF(0, 0, 300, 200), 3, TabLayout(layout));
        image.style()->showTitle = true;
        image.style()->font.setPixelSize(50);
        for (int i = 0; i < 3; ++i) {
            image.page(i)->iconSize = 200;
            image.page(i)->margins = QMarginsF();
        }
        for (const qreal scale : scales)
            QCOMPARE(KelImage::pixelsOutside(&image.table, scale), QString());
    }

    void tabsLieOutsideWhenTheRectangleIsOffTheOrigin()
    {
        Picture image(QRectF(60, 40, 300, 200), 2);
        makeBare(&image);
        image.pages.at(0)->setButtonBackground(Qt::magenta);
        QVERIFY(!KelImage::pixelsOutside(&image.table).isEmpty());
        QCOMPARE(areaOf(image.painted(), Qt::magenta), QRect(0, 120, 150, 80));
    }

    void pagePaintsNothing()
    {
        KELNavigationTableItem page(nullptr);
        page.setboundRect(10, 10, 200, 100);
        page.style()->backgroundBrush = QBrush(Qt::red);
        page.style()->borderWidth = 5;
        page.style()->text = u"caption"_s;
        page.style()->pixmap = picture();
        QCOMPARE(KelImage::difference(KelImage::paint(&page, canvas), blank()), QString());
    }

    void paintingLeavesTheRecordsAlone()
    {
        Picture image(usual, 2, GlyphAndCaption);
        const HandDrawing before = image.byHand();
        image.painted();
        const KELNavigationTableStyle *table = image.style();
        QCOMPARE(table->titleHeight, 35.0F);
        QCOMPARE(table->tabHeight, 80.0F);
        QCOMPARE(table->boundRect, usual);
        QCOMPARE(table->title, before.table.title);
        QCOMPARE(table->titleForegroundBrush, before.table.titleForegroundBrush);
        QCOMPARE(image.page(0)->text, before.pages.at(0).text);
        QCOMPARE(image.page(0)->backgroundBrush, before.pages.at(0).backgroundBrush);
        QCOMPARE(image.table.selectIndex(), 0);
    }

    void shownTableIsRepainted()
    {
        KelTestView view(QSize(480, 350));
        auto *table = new KELNavigationTable(nullptr);
        for (int i = 0; i < 2; ++i) {
            auto *page = new KELNavigationTableItem(nullptr);
            page->setButtonBackground(Qt::magenta);
            table->addItem(page);
        }
        view.ownScene.addItem(table);
        QVERIFY(view.showAndWait());
        QCOMPARE(areaOf(view.grab().toImage(), Qt::magenta), QRect(0, 230, 220, 80));
        view.click(QPoint(300, 270));
        QCOMPARE(areaOf(view.grab().toImage(), Qt::magenta), QRect(220, 230, 220, 80));
        table->setSelectIndex(0);
        QCOMPARE(areaOf(view.grab().toImage(), Qt::magenta), QRect(0, 230, 220, 80));
        // A third page: all tabs are redrawn.
        table->addItem(new KELNavigationTableItem(nullptr));
        QCOMPARE(areaOf(view.grab().toImage(), Qt::magenta), QRect(0, 230, 147, 80));
    }

    void captionOfAShownTabWaitsForTheTable()
    {
        KelTestView view(QSize(480, 350));
        auto *table = new KELNavigationTable(nullptr);
        auto *page = new KELNavigationTableItem(nullptr);
        page->setText(u"One"_s);
        table->addItem(page);
        table->addItem(new KELNavigationTableItem(nullptr));
        view.ownScene.addItem(table);
        QVERIFY(view.showAndWait());
        const QImage before = view.grab().toImage();
        page->setText(u"Another"_s);
        QCoreApplication::processEvents();
        QVERIFY(view.grab().toImage() == before);
        table->update();
        QVERIFY(view.grab().toImage() != before);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTablePaint)
#include "tst_kelnavigationtablepaint.moc"
