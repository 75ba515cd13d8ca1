// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "handdrawing.h"
#include "record.h"
#include "tablestage.h"

#include <cmath>
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

const std::vector<Named> tabLayouts = {{"glyph", GlyphOnly},
                                       {"glyph and caption", GlyphAndCaption},
                                       {"caption", CaptionOnly},
                                       {"nothing", NothingInside},
                                       {"no foreground", NoForeground}};

// A navigation table drawn by hand, step by step.
class TableDrawing
{
public:
    KELNavigationTableStyle table = KELNavigationTableStyle();
    QRectF rect; // where the table is
    QSizeF sizeOfTabs; // the size of the table when its tabs were laid
    QList<KELNavigationTableItemStyle> pages;
    int selected = 0;

    void draw(QPainter *painter) const
    {
        const double titleHeight = table.showTitle ? double(table.titleHeight) : 0;
        const double tabHeight = pages.size() > 1 ? double(table.tabHeight) : 0;
        const QRectF title(rect.x(), rect.y(), rect.width(), titleHeight);
        const QRectF content(rect.x(), rect.y() + titleHeight, rect.width(),
                             rect.height() - titleHeight - tabHeight);
        painter->setBrushOrigin(rect.topLeft());
        if (table.showTitle)
            fill(painter, title, table.titleBackgroundBrush);
        fill(painter, content, table.backgroundBrush);
        painter->setBrush(Qt::NoBrush);
        if (table.showTitle && table.titleForegroundBrush.style() != Qt::NoBrush)
            drawTitle(painter, title);
        if (!table.pixmap.isNull()) {
            painter->drawPixmap(int(std::lround(content.x())), int(std::lround(content.y())),
                                int(std::lround(content.width())),
                                int(std::lround(content.height())), table.pixmap);
        }
        const float width = float(sizeOfTabs.width()) / float(pages.size());
        for (int i = 0; pages.size() > 1 && i < pages.size(); ++i) {
            drawTab(painter, pages.at(i), i == selected,
                    QRectF(double(float(i) * width), sizeOfTabs.height() - tabHeight, double(width),
                           tabHeight));
        }
    }

private:
    static void fill(QPainter *painter, const QRectF &area, const QBrush &brush)
    {
        if (brush.style() == Qt::NoBrush)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(brush);
        painter->drawRoundedRect(area, 0, 0);
    }

    void drawTitle(QPainter *painter, const QRectF &title) const
    {
        KELRoundRectControlStyle look = table;
        look.foregroundBrush = table.titleForegroundBrush;
        HandDrawing::drawCaption(
            painter, look, title.adjusted(-30, 0, 30, 0),
            table.trimText ? HandDrawing::elided(table.title, title.width() - 60, table.font)
                           : table.title);
    }

    void drawTab(QPainter *painter, const KELNavigationTableItemStyle &page, bool isSelected,
                 const QRectF &tab) const
    {
        painter->setBrushOrigin(tab.topLeft());
        fill(painter, tab, isSelected ? page.buttonBackground : page.backgroundBrush);
        if (page.buttonForeground.style() == Qt::NoBrush)
            return;
        KELRoundRectControlStyle look = table;
        look.foregroundBrush = page.buttonForeground;
        look.icon = page.icon;
        look.iconSize = page.iconSize;
        QRectF captionArea = tab;
        if (!page.icon.isNull()) {
            double strip = QFontMetrics(page.font).height();
            if (!page.text.isEmpty())
                strip += page.margins.top() + page.margins.bottom();
            HandDrawing::drawGlyph(painter, look, tab.adjusted(0, 0, 0, -strip), iconFamily);
            captionArea.setTop(tab.bottom() - strip);
        }
        HandDrawing::drawCaption(painter, look,
                                 HandDrawing::withoutMargins(captionArea, page.margins),
                                 HandDrawing::elided(page.text, tab.width(), table.font));
    }
};

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

    KELNavigationTableStyle *style() { return styleOf(&table); }
    KELNavigationTableItemStyle *page(int index) { return styleOf(pages.at(index)); }

    void addPage(TabLayout layout)
    {
        auto *item = new KELNavigationTableItem;
        pages.append(item);
        KELNavigationTableItemStyle *const look = styleOf(item);
        if (layout == GlyphOnly || layout == GlyphAndCaption || layout == NoForeground)
            look->icon = KELIconFont(leftGlyph);
        if (layout == CaptionOnly || layout == GlyphAndCaption || layout == NoForeground)
            look->text = u"Settings of the pump %1"_s.arg(pages.size());
        if (layout == NoForeground)
            item->setButtonForeground(QBrush(Qt::NoBrush));
        table.addItem(item);
    }
    void addOneOfEachLayout()
    {
        for (const Named &layout : tabLayouts)
            addPage(TabLayout(layout.value));
    }
    void setFills(const QBrush &selected, const QBrush &others)
    {
        for (KELNavigationTableItem *page : qAsConst(pages)) {
            page->setButtonBackground(selected);
            page->style()->backgroundBrush = others;
        }
    }
    void setTitle(const QString &text, const QBrush &background, const QBrush &foreground)
    {
        style()->title = text;
        style()->titleBackgroundBrush = background;
        style()->titleForegroundBrush = foreground;
        style()->font.setPixelSize(15);
    }

    TableDrawing byHand()
    {
        TableDrawing drawing;
        drawing.table = *style();
        drawing.rect = style()->boundRect;
        drawing.sizeOfTabs = drawing.rect.size();
        for (int i = 0; i < pages.size(); ++i)
            drawing.pages.append(*page(i));
        drawing.selected = table.selectIndex();
        return drawing;
    }

    QImage painted(qreal scale = 1) { return KelImage::paint(&table, canvas, scale); }

    QString differenceFrom(const TableDrawing &drawing, qreal scale = 1)
    {
        return KelImage::differenceFrom([&drawing](QPainter *painter) { drawing.draw(painter); },
                                        &table, canvas, scale);
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

    KELNavigationTable table;
    QList<KELNavigationTableItem *> pages;
};

QPixmap plainPicture()
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::magenta);
    return pixmap;
}

// All colours off, for tests that look for one.
void makeBare(Picture *picture)
{
    picture->style()->backgroundBrush = QBrush(Qt::NoBrush);
    picture->setTitle(picture->style()->title, Qt::NoBrush, Qt::NoBrush);
    picture->setFills(Qt::NoBrush, Qt::NoBrush);
}

void setEveryField(Picture *picture)
{
    picture->addOneOfEachLayout();
    picture->style()->font.setPixelSize(17);
    picture->style()->font.setBold(true);
    picture->style()->textFlags = Qt::AlignRight | Qt::AlignTop;
    for (int i = 0; i < picture->pages.size(); ++i) {
        KELNavigationTableItemStyle *const page = picture->page(i);
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
}

void setGradients(Picture *picture)
{
    const QBrush gradient = HandDrawing::gradient();
    picture->addOneOfEachLayout();
    picture->style()->backgroundBrush = gradient;
    picture->setTitle(u"Pump"_s, gradient, gradient);
    picture->setFills(gradient, gradient);
    for (KELNavigationTableItem *page : qAsConst(picture->pages))
        page->setButtonForeground(gradient);
}

// With fills of their own.
void addManyPages(Picture *picture)
{
    for (int i = 0; i < 7; ++i) {
        picture->addPage(GlyphAndCaption);
        picture->page(i)->backgroundBrush = QColor::fromHsv(i * 45, 200, 200, 160);
    }
}

using Change = std::function<void(Picture *)>;

Change twoPages(TabLayout layout)
{
    return [layout](Picture *picture) {
        picture->addPage(layout);
        picture->addPage(layout);
    };
}

Change fills(const QBrush &selected, const QBrush &others)
{
    return [=](Picture *picture) {
        picture->addOneOfEachLayout();
        picture->setFills(selected, others);
    };
}

Change title(const QString &text, const QBrush &background, const QBrush &foreground,
             int flags = Qt::AlignCenter | Qt::TextWordWrap)
{
    return [=](Picture *picture) {
        picture->setTitle(text, background, foreground);
        picture->style()->textFlags = flags;
    };
}

Change pixmapOn(const QBrush &background)
{
    return [=](Picture *picture) {
        picture->style()->pixmap = HandDrawing::picture();
        picture->style()->backgroundBrush = background;
    };
}

const QString longTitle = u"Every pump that is in this house, and in the next ones"_s;

struct TableLook
{
    const char *name;
    Change apply;
};

const TableLook tableLooks[] = {
    {"no page", [](Picture *) {}},
    {"one page", [](Picture *picture) { picture->addPage(GlyphAndCaption); }},
    {"two pages with a glyph", twoPages(GlyphOnly)},
    {"two pages with glyph and caption", twoPages(GlyphAndCaption)},
    {"two pages with a caption", twoPages(CaptionOnly)},
    {"two empty pages", twoPages(NothingInside)},
    {"two pages without foreground", twoPages(NoForeground)},
    {"seven pages", addManyPages},
    {"every field", setEveryField},
    {"gradients", setGradients},
    {"both fills", fills(QBrush(Qt::red, Qt::Dense4Pattern), QBrush(Qt::blue, Qt::BDiagPattern))},
    {"fill of the selected tab", fills(Qt::red, Qt::NoBrush)},
    {"fill of the other tabs", fills(Qt::NoBrush, Qt::blue)},
    {"no fills", fills(Qt::NoBrush, Qt::NoBrush)},
    {"pixmap", pixmapOn(Qt::darkGreen)},
    {"pixmap alone", pixmapOn(Qt::NoBrush)},
    {"title too long", title(longTitle, Qt::black, Qt::white)},
    {"title of lines", title(u"Pump\n\n"_s + longTitle, Qt::black, Qt::white)},
    {"no title", title(QString(), Qt::black, Qt::white)},
    {"title without background", title(u"Pump"_s, Qt::NoBrush, Qt::white)},
    {"title without foreground", title(u"Pump"_s, Qt::black, Qt::NoBrush)},
    {"title without either", title(u"Pump"_s, Qt::NoBrush, Qt::NoBrush)},
    {"title at the left", title(longTitle, Qt::black, Qt::white, Qt::AlignLeft | Qt::AlignTop)},
    {"title at the right",
     title(u"Pump"_s, Qt::black, Qt::white, Qt::AlignRight | Qt::AlignBottom)},
};

struct Placing
{
    const char *name;
    QRectF rect;
    float titleHeight = 35;
    float tabHeight = 80;
};

const Placing placings[] = {
    {"usual", usual},
    {"small", {0, 0, 150, 140}},
    {"fractions", {0, 0, 333.3, 222.2}, 30.3F, 61.7F},
    {"halves", {10.5, 20.5, 300.5, 200.5}},
    {"heights of nothing", usual, 0, 0},
    {"heights more than there is", {0, 0, 200, 100}, 70, 90},
    {"negative heights", {0, 0, 200, 100}, -10, -20},
    {"lower than its title", {0, 0, 200, 30}},
    {"off the origin", {15, 25, 300, 200}},
    {"off the origin by fractions", {7.3, 9.6, 300.4, 200.6}},
    {"partly out of sight", {-40, -30, 300, 300}},
    {"negative corner", {-10.4, -20.6, 300, 250}},
    {"negative halves", {-10.5, -20.5, 300, 250}},
    {"negative width", {220, 10, -180, 250}},
    {"negative height", {10, 250, 180, -150}},
    {"both negative", {220, 250, -180, -150}},
    {"empty", {20, 20, 0, 0}},
};

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

    void looksAsDrawnByHand_data()
    {
        addRows({{"look", namesOf(tableLooks)},
                 {"showTitle", {{"title hidden", false}, {"title shown", true}}},
                 {"trimText", {{"whole", false}, {"trimmed", true}}}});
    }

    void looksAsDrawnByHand()
    {
        Picture picture(QRectF(7.3, 9.6, 400.5, 290.25));
        picture.style()->showTitle = fetch<bool>("showTitle");
        picture.style()->trimText = fetch<bool>("trimText");
        tableLooks[fetch<int>("look")].apply(&picture);
        QCOMPARE(picture.difference(), QString());
    }

    void isPlacedAsDrawnByHand_data()
    {
        addRows({{"placing", namesOf(placings)},
                 {"showTitle", {{"title hidden", false}, {"title shown", true}}}});
    }

    void isPlacedAsDrawnByHand()
    {
        const Placing &placing = placings[fetch<int>("placing")];
        Picture picture(placing.rect);
        picture.style()->showTitle = fetch<bool>("showTitle");
        picture.style()->titleHeight = placing.titleHeight;
        picture.style()->tabHeight = placing.tabHeight;
        picture.style()->pixmap = HandDrawing::picture();
        picture.addPage(GlyphAndCaption);
        QCOMPARE(picture.difference(), QString());
        picture.addPage(CaptionOnly);
        picture.addPage(GlyphOnly);
        QCOMPARE(picture.difference(), QString());
    }

    void tableWithoutBackgroundPaintsNothing()
    {
        Picture picture;
        QVERIFY(picture.painted() != KelImage::blank(canvas));
        picture.style()->backgroundBrush = QBrush(Qt::NoBrush);
        QCOMPARE(KelImage::difference(picture.painted(), KelImage::blank(canvas)), QString());
    }

    void inAParent()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 460, 330);
        Picture picture(QRectF(5, 6, 300, 200), 2, GlyphAndCaption);
        picture.table.setParentItem(&parent);
        TableDrawing expected = picture.byHand();
        expected.rect = QRectF(15, 26, 300, 200);
        QCOMPARE(picture.differenceFrom(expected), QString());
        picture.table.setParentItem(nullptr);
    }

    void threeTabsOnTheCanvas()
    {
        Picture picture(usual, 3);
        makeBare(&picture);
        picture.page(1)->backgroundBrush = QBrush(Qt::green);
        picture.pages.at(2)->setButtonBackground(Qt::red);
        // 146.666 and 293.333, of which a fill covers the pixels whose centre is inside.
        QCOMPARE(KelImage::areaOf(picture.painted(), Qt::green), QRect(147, 230, 146, 80));
        QCOMPARE(KelImage::areaOf(picture.painted(), Qt::red), QRect());
        picture.table.setSelectIndex(2);
        QCOMPARE(KelImage::areaOf(picture.painted(), Qt::red), QRect(293, 230, 147, 80));
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
        QVERIFY(KelImage::paintsOutside(&picture.table));
        const QRect area = KelImage::areaOf(picture.painted(), Qt::magenta);
        QVERIFY(area.left() >= 70 && area.left() < 90);
        QVERIFY(area.right() < 250 && area.right() > 230);
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

    void oddGeometryPaintsNothing_data() { ControlTest::addOddRectangles(); }

    void oddGeometryPaintsNothing()
    {
        const auto rect = fetch<QRectF>("rect");
        for (const bool showTitle : {false, true}) {
            Picture image(rect);
            image.style()->showTitle = showTitle;
            image.style()->pixmap = HandDrawing::picture();
            // The tabs go by the size alone.
            if (!qIsFinite(rect.width()) || !qIsFinite(rect.height()))
                image.addOneOfEachLayout();
            QCOMPARE(KelImage::difference(image.painted(), KelImage::blank(canvas)), QString());
        }
    }

    void oddRectangleLaterDrawsNothing()
    {
        Picture image(usual, 2, GlyphAndCaption);
        image.style()->pixmap = HandDrawing::picture();
        QVERIFY(image.painted() != KelImage::blank(canvas));
        image.table.setboundRect(0, notANumber, 440, 310);
        QCOMPARE(KelImage::difference(image.painted(), KelImage::blank(canvas)), QString());
        image.table.setboundRect(0, 0, notANumber, notANumber);
        QCOMPARE(KelImage::difference(image.painted(), KelImage::blank(canvas)), QString());
    }

    void pictureInOddContentIsNotDrawn_data()
    {
        addRows({{"isHigh", {{"infinitely high", true}, {"infinitely low", false}}}});
    }

    void pictureInOddContentIsNotDrawn()
    {
        Picture image(usual, 2);
        image.style()->pixmap = plainPicture();
        QVERIFY(!KelImage::areaOf(image.painted(), Qt::magenta).isEmpty());
        image.style()->tabHeight = float(fetch<bool>("isHigh") ? -infinite : infinite);
        QVERIFY(KelImage::areaOf(image.painted(), Qt::magenta).isEmpty());
    }

    void paintsNothingOutside_data() { addRows({{"layout", tabLayouts}}); }

    void paintsNothingOutside()
    {
        Picture image(QRectF(0, 0, 300, 200), 3, fetch<TabLayout>("layout"));
        image.style()->showTitle = true;
        image.style()->font.setPixelSize(50);
        for (int i = 0; i < 3; ++i) {
            image.page(i)->iconSize = 200;
            image.page(i)->margins = QMarginsF();
        }
        for (const qreal scale : scales)
            QCOMPARE(KelImage::pixelsOutside(&image.table, scale), QString());
    }

    void pagePaintsNothing()
    {
        KELNavigationTableItem page;
        page.setboundRect(10, 10, 200, 100);
        page.style()->backgroundBrush = QBrush(Qt::red);
        page.style()->borderWidth = 5;
        page.style()->text = u"caption"_s;
        page.style()->pixmap = HandDrawing::picture();
        QCOMPARE(KelImage::difference(KelImage::paint(&page, canvas), KelImage::blank(canvas)),
                 QString());
    }

    void paintingLeavesTheRecordsAlone()
    {
        Picture image(usual, 2, GlyphAndCaption);
        const TableDrawing before = image.byHand();
        image.painted();
        QCOMPARE(Record::difference(*image.style(), before.table), QString());
        QCOMPARE(Record::difference(*image.page(0), before.pages.at(0)), QString());
        QCOMPARE(image.style()->titleHeight, before.table.titleHeight);
        QCOMPARE(image.style()->tabHeight, before.table.tabHeight);
        QCOMPARE(image.style()->title, before.table.title);
        QCOMPARE(image.table.selectIndex(), 0);
    }

    void shownTableIsRepainted()
    {
        TableStage stage(2);
        for (KELNavigationTableItem *page : qAsConst(stage.pages))
            page->setButtonBackground(Qt::magenta);
        stage.settle();
        const auto selectedTab = [&] {
            return KelImage::areaOf(stage.view.grab().toImage(), Qt::magenta).translated(-20, -30);
        };
        QCOMPARE(selectedTab(), QRect(0, 230, 220, 80));
        stage.hand.tap(stage.tab(1));
        QCOMPARE(selectedTab(), QRect(220, 230, 220, 80));
        stage->setSelectIndex(0);
        QCOMPARE(selectedTab(), QRect(0, 230, 220, 80));
        // A third page: all tabs are redrawn.
        stage.addPages(1);
        QCOMPARE(selectedTab(), QRect(0, 230, 147, 80));
    }

    void captionOfAShownTabWaitsForTheTable()
    {
        TableStage stage(2);
        stage.pages.at(0)->setText(u"One"_s);
        stage.settle();
        const QImage before = stage.view.grab().toImage();
        stage.pages.at(0)->setText(u"Another"_s);
        QCoreApplication::processEvents();
        QVERIFY(stage.view.grab().toImage() == before);
        stage->update();
        QVERIFY(stage.view.grab().toImage() != before);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTablePaint)
#include "tst_kelnavigationtablepaint.moc"
