// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "controltest.h"
#include "record.h"
#include "tablestage.h"

#include <cmath>
#include <limits>

namespace {

const QString defaultTitle = u"KELRoundRectControlStyle"_s;
const QRectF usual(0, 0, 440, 310);

struct Content
{
    const char *name;
    QRectF table;
    QRectF page;
    bool showTitle = false;
    float border = 0;
    float titleHeight = 35;
    float tabHeight = 80;
};

const Content contents[] = {
    {"defaults", usual, {0, 0, 440, 230}},
    {"border", usual, {2, 2, 438, 228}, false, 2},
    {"title", usual, {0, 35, 440, 195}, true},
    {"title and border", usual, {1.5, 42, 438.5, 207.75}, true, 1.5F, 40.5F, 60.25F},
    {"no height of the tabs", usual, usual, false, 0, 35, 0},
    {"negative border", usual, {-3, -3, 443, 233}, false, -3},
    {"table lower than its tabs", {0, 0, 50, 30}, {0, 35, 50, -85}, true},
    {"table off the origin", {50, 40, 300, 200}, {1, 36, 299, 84}, true, 1},
};

// The tabs worked out here once more, in single precision.
QList<QRectF> tabsOf(const QSizeF &size, float tabHeight, int count)
{
    QList<QRectF> tabs;
    const float width = float(size.width()) / float(count);
    for (int i = 0; i < count; ++i) {
        tabs.append(QRectF(double(float(i) * width), size.height() - double(tabHeight),
                           double(width), double(tabHeight)));
    }
    return tabs;
}

int firstWith(const QList<QRectF> &tabs, const QPointF &pos)
{
    for (int i = 0; i < tabs.size(); ++i) {
        const QRectF &tab = tabs.at(i);
        if (pos.x() >= tab.x() && pos.x() <= tab.x() + tab.width() && pos.y() >= tab.y()
            && pos.y() <= tab.y() + tab.height())
            return i;
    }
    return -1;
}

KELNavigationTableStyle optionOf(const KELNavigationTable &table,
                                 KELNavigationTableStyle option = KELNavigationTableStyle())
{
    table.initStyleOption(&option, nullptr);
    return option;
}

// What initStyle() sets of a table's record; the rest is returned.
KELRoundRectControlStyle withDefaultsOfATable(KELRoundRectControlStyle record)
{
    record.backgroundBrush = QColor(20, 15, 55, 200);
    record.borderWidth = 2;
    record.boundRect = usual;
    record.xRadius = record.yRadius = 0;
    record.isMouseDown = record.isCheck = false;
    return record;
}

KELRoundRectControlStyle withDefaultsOfAPage(KELRoundRectControlStyle record)
{
    record.backgroundBrush = QBrush(Qt::NoBrush);
    record.borderWidth = 0;
    record.margins = QMarginsF(3, 3, 3, 3);
    record.isMouseDown = record.isCheck = false;
    return record;
}

void hasDefaultsOfItsOwn(const KELNavigationTableStyle &style)
{
    QCOMPARE(style.title, defaultTitle);
    QCOMPARE(style.titleBackgroundBrush, QBrush(QColor(40, 40, 40, 160)));
    QCOMPARE(style.titleForegroundBrush, QBrush(QColor(Qt::white)));
    QCOMPARE(style.titleHeight, 35.0F);
    QCOMPARE(style.tabHeight, 80.0F);
    QVERIFY(!style.showTitle);
}

void hasDefaultsOfItsOwn(const KELNavigationTableItemStyle &style)
{
    QCOMPARE(style.buttonBackground, QBrush(QColor(0, 0, 0, 210)));
    QCOMPARE(style.buttonForeground, QBrush(QColor(Qt::white)));
}

} // namespace

class tst_KELNavigationTable : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void emptyRecords()
    {
        const KELNavigationTableStyle table = KELNavigationTableStyle();
        QVERIFY(table.title.isNull());
        QCOMPARE(table.titleBackgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(table.titleForegroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(table.titleHeight, 0.0F);
        QCOMPARE(table.tabHeight, 0.0F);
        QVERIFY(!table.showTitle);
        const KELNavigationTableItemStyle page = KELNavigationTableItemStyle();
        QCOMPARE(page.buttonBackground, QBrush(Qt::NoBrush));
        QCOMPARE(page.buttonForeground, QBrush(Qt::NoBrush));
    }

    void newTable()
    {
        const KELNavigationTable table;
        QVERIFY(!table.selectItem());
        QCOMPARE(table.selectIndex(), -1);
        QVERIFY(table.childItems().isEmpty());
        QVERIFY(!table.filtersChildEvents());
        QCOMPARE(Record::difference(*table.style(), withDefaultsOfATable(Record::defaults())),
                 QString());
        hasDefaultsOfItsOwn(*styleOf(&table));
    }

    void newPage()
    {
        const KELNavigationTableItem page;
        QVERIFY(page.isVisible());
        QCOMPARE(Record::difference(*page.style(), withDefaultsOfAPage(Record::defaults())),
                 QString());
        hasDefaultsOfItsOwn(*styleOf(&page));
    }

    void tableIsSetUpForTaps() { ControlTest::takesPointerInput<KELNavigationTable>(); }

    void pageIsAPlainControl() { ControlTest::hasInputSettingsOfTheBase<KELNavigationTableItem>(); }

    void tableDeclaresNoInterfaceOfItsOwn()
    {
        ControlTest::declaresNoInterfaceOfItsOwn<KELNavigationTable>("KELNavigationTable");
    }

    void pageDeclaresNoInterfaceOfItsOwn()
    {
        ControlTest::declaresNoInterfaceOfItsOwn<KELNavigationTableItem>("KELNavigationTableItem");
    }

    void initStyleOfATableAgain()
    {
        KELNavigationTable table;
        KELNavigationTableStyle *const before = styleOf(&table);
        Record::fill(before);
        before->title = u"old"_s;
        before->titleBackgroundBrush = before->titleForegroundBrush = QBrush(Qt::green);
        before->titleHeight = 1;
        before->tabHeight = 2;
        before->showTitle = true;
        const KELRoundRectControlStyle expected = withDefaultsOfATable(*before);
        const KELRoundRectControlStyle *const made = table.initStyle();
        QCOMPARE(made, table.style());
        QCOMPARE(Record::difference(*made, expected), QString());
        hasDefaultsOfItsOwn(*styleOf(&table));
    }

    void initStyleOfAPageAgain()
    {
        KELNavigationTableItem page;
        KELNavigationTableItemStyle *const before = styleOf(&page);
        Record::fill(before);
        before->buttonBackground = before->buttonForeground = QBrush(Qt::green);
        const KELRoundRectControlStyle expected = withDefaultsOfAPage(*before);
        const KELRoundRectControlStyle *const made = page.initStyle();
        QCOMPARE(made, page.style());
        QCOMPARE(Record::difference(*made, expected), QString());
        hasDefaultsOfItsOwn(*styleOf(&page));
    }

    void buttonBrushesAreStored()
    {
        TableStage stage(2);
        stage.settle();
        KELNavigationTableItem *page = stage.pages.first();
        page->setButtonBackground(Qt::red);
        QCOMPARE(styleOf(page)->buttonBackground, QBrush(Qt::red));
        QCOMPARE(styleOf(page)->buttonForeground, QBrush(QColor(Qt::white)));
        page->setButtonForeground(QBrush(Qt::blue, Qt::Dense3Pattern));
        QCOMPARE(styleOf(page)->buttonForeground, QBrush(Qt::blue, Qt::Dense3Pattern));
        QCOMPARE(styleOf(page)->buttonBackground, QBrush(Qt::red));
        QCOMPARE(styleOf(page)->backgroundBrush, QBrush(Qt::NoBrush));
        QVERIFY(!stage.wasPainted());
    }

    void firstPageIsShownOthersAreNot()
    {
        KELNavigationTable table;
        Pages pages;
        for (int i = 0; i < 4; ++i) {
            pages.append(new KELNavigationTableItem);
            const QSignalSpy visibility(pages.last(), &QGraphicsObject::visibleChanged);
            table.addItem(pages.last());
            QCOMPARE(pages.last()->parentItem(), &table);
            QCOMPARE(whatIsNotShown(&table, pages, 0), QString());
            // Hidden in any case, and the first one shown again.
            QCOMPARE(visibility.count(), i == 0 ? 2 : 1);
        }
        QCOMPARE(table.childItems().size(), 4);
    }

    void pageFillsTheContent_data() { addRows({{"content", namesOf(contents)}}); }

    void pageFillsTheContent()
    {
        const Content &content = contents[fetch<size_t>("content")];
        KELNavigationTable table;
        table.setboundRect(content.table);
        styleOf(&table)->showTitle = content.showTitle;
        styleOf(&table)->titleHeight = content.titleHeight;
        styleOf(&table)->tabHeight = content.tabHeight;
        for (int i = 0; i < 2; ++i) {
            auto *page = new KELNavigationTableItem;
            page->style()->borderWidth = content.border;
            table.addItem(page);
            QCOMPARE(page->style()->boundRect, content.page);
            QCOMPARE(page->boundingRect(), content.page.translated(content.table.topLeft()));
            QCOMPARE(page->pos(), QPointF());
        }
    }

    void laterStyleMovesNothing()
    {
        OpenTable table;
        const Pages pages = addPages(&table, 2);
        table.setboundRect(0, 0, 200, 150);
        styleOf(&table)->showTitle = true;
        styleOf(&table)->tabHeight = 20;
        for (const KELNavigationTableItem *page : pages)
            QCOMPARE(page->style()->boundRect, QRectF(0, 0, 440, 230));
        table.pressAt(QPointF(300, 300));
        QCOMPARE(table.selectIndex(), 1);
        // A later page goes by the new style, and all tabs with it.
        const KELNavigationTableItem *const third = addPages(&table, 1).first();
        QCOMPARE(third->style()->boundRect, QRectF(0, 35, 200, 95));
        QCOMPARE(pages.first()->style()->boundRect, QRectF(0, 0, 440, 230));
        table.pressAt(QPointF(30, 129));
        QCOMPARE(table.selectIndex(), 1);
        table.pressAt(QPointF(30, 131));
        QCOMPARE(table.selectIndex(), 0);
        table.pressAt(QPointF(150, 131));
        QCOMPARE(table.selectIndex(), 2);
    }

    void addItemIgnores_data()
    {
        addRows({{"which",
                  {{"null", 0},
                   {"the page that is shown", 1},
                   {"another page of the table", 2},
                   {"the parent of the table", 3},
                   {"an ancestor of the table", 4}}}});
    }

    void addItemIgnores()
    {
        TableStage stage(2);
        auto *ancestor = new KELNavigationTableItem;
        stage.view.ownScene.addItem(ancestor);
        auto *parent = new KELNavigationTableItem(ancestor);
        stage->setParentItem(parent);
        stage.settle();
        KELNavigationTableItem *const items[] = {nullptr, stage.pages.at(0), stage.pages.at(1),
                                                 parent, ancestor};
        stage->addItem(items[fetch<int>("which")]);
        QCOMPARE(stage.whatIsNotShown(0), QString());
        QCOMPARE(stage->childItems().size(), 2);
        QCOMPARE(stage->parentItem(), parent);
        QCOMPARE(parent->parentItem(), ancestor);
        QVERIFY(parent->isVisible());
        QCOMPARE(parent->style()->boundRect, QRectF(100, 100, 100, 30));
        QVERIFY(!stage.wasPainted());
        QCOMPARE(stage.whatIsWrong(0), QString());
    }

    void addItemRepaints()
    {
        TableStage stage(1);
        stage.settle();
        stage.addPages(1);
        QVERIFY(stage.wasPainted());
    }

    void hiddenTable()
    {
        KELNavigationTable table;
        table.hide();
        const Pages pages = addPages(&table, 3);
        QCOMPARE(table.selectIndex(), 0);
        table.setSelectIndex(2);
        QCOMPARE(table.selectItem(), pages.at(2).data());
        table.show();
        QCOMPARE(whatIsNotShown(&table, pages, 2), QString());
    }

    void tabsAreLaidInSinglePrecision_data()
    {
        QTest::addColumn<QSizeF>("size");
        QTest::addColumn<int>("count");

        for (const QSizeF &size : {QSizeF(440, 310), QSizeF(441.5, 300.25), QSizeF(99, 90)}) {
            for (const int count : {1, 2, 3, 5, 7, 11, 13}) {
                QTest::addRow("%d on %s x %s", count, qPrintable(QString::number(size.width())),
                              qPrintable(QString::number(size.height())))
                    << size << count;
            }
        }
    }

    void tabsAreLaidInSinglePrecision()
    {
        QFETCH(QSizeF, size);
        QFETCH(int, count);
        constexpr double far = std::numeric_limits<double>::infinity();
        OpenTable table;
        table.setboundRect(QRectF(QPointF(), size));
        addPages(&table, count);
        const QList<QRectF> tabs = tabsOf(size, 80, count);
        // On both sides of every edge, as near as can be.
        for (const QRectF &tab : tabs) {
            for (const double edge : {tab.x(), tab.x() + tab.width()}) {
                for (const double x :
                     {std::nextafter(edge, -far), edge, std::nextafter(edge, far)}) {
                    const QPointF pos(x, tab.center().y());
                    const int pressed = firstWith(tabs, pos);
                    for (int selected = 0; selected < count; ++selected) {
                        table.setSelectIndex(selected);
                        table.pressAt(pos);
                        QCOMPARE(table.selectIndex(), pressed < 0 ? selected : pressed);
                    }
                }
            }
        }
    }

    void threeTabs()
    {
        OpenTable table;
        addPages(&table, 3);
        // 440 / 3 as the nearest float, and twice that.
        const QPair<qreal, int> presses[] = {
            {146.666672, 1}, {146.6666717, 0}, {293.333344, 2}, {293.3333435, 1}};
        for (const auto &press : presses) {
            table.pressAt(QPointF(press.first, 270));
            QCOMPARE(table.selectIndex(), press.second);
        }
    }

    void tabsEndWithTheStrip()
    {
        OpenTable table;
        styleOf(&table)->tabHeight = 60.5F;
        addPages(&table, 2);
        const QPointF outside[] = {{-0.001, 280}, {440.001, 280}, {300, 249.499}, {300, 310.001}};
        for (const QPointF &pos : outside) {
            table.pressAt(pos);
            QCOMPARE(table.selectIndex(), 0);
        }
        const QPointF inside[] = {{220.001, 249.5}, {440, 280}, {300, 310}, {440, 310}};
        for (const QPointF &pos : inside) {
            table.pressAt(pos);
            QCOMPARE(table.selectIndex(), 1);
            table.setSelectIndex(0);
        }
    }

    void setSelectIndexShowsThePage()
    {
        KELNavigationTable table;
        const Pages pages = addPages(&table, 4);
        const QSignalSpy firstVisibility(pages.at(0), &QGraphicsObject::visibleChanged);
        const QSignalSpy otherVisibility(pages.at(1), &QGraphicsObject::visibleChanged);
        for (const int index : {3, 2, 0, 2}) {
            table.setSelectIndex(index);
            QCOMPARE(whatIsNotShown(&table, pages, index), QString());
        }
        QCOMPARE(firstVisibility.count(), 3);
        QCOMPARE(otherVisibility.count(), 0);
    }

    void setSelectIndexIgnores_data()
    {
        addRows({{"index",
                  {{"the lowest", std::numeric_limits<int>::min()},
                   {"-1", -1},
                   {"the present one", 1},
                   {"the count", 3},
                   {"the highest", std::numeric_limits<int>::max()}}}});
    }

    void setSelectIndexIgnores()
    {
        QFETCH(int, index);
        TableStage stage(3);
        stage->setSelectIndex(1);
        stage.settle();
        const QSignalSpy visibility(stage.pages.at(1), &QGraphicsObject::visibleChanged);
        stage->setSelectIndex(index);
        QCOMPARE(stage.whatIsNotShown(1), QString());
        QCOMPARE(visibility.count(), 0);
        QVERIFY(!stage.wasPainted());

        KELNavigationTable empty;
        empty.setSelectIndex(index);
        QCOMPARE(empty.selectIndex(), -1);
        QVERIFY(!empty.selectItem());
    }

    void setSelectIndexEmitsNothing()
    {
        TableStage stage(2);
        stage.settle();
        for (KELNavigationTableItem *page : qAsConst(stage.pages))
            stage.log.listenTo(page, u"page"_s);
        stage->setSelectIndex(1);
        QVERIFY(stage.wasPainted());
        QCOMPARE(stage.log.takeWithHover(), QString());
    }

    void filterSwallowsOtherButtons_data() { ControlTest::addEventsOfChildren(); }

    void filterSwallowsOtherButtons()
    {
        ControlTest::swallowsOtherButtonsOfChildren<KELNavigationTable>();
    }

    void optionOfADefaultTable()
    {
        KELNavigationTable table;
        addPages(&table, 2);
        const KELNavigationTableStyle option = optionOf(table);
        QCOMPARE(Record::difference(option, *table.style()), QString());
        QCOMPARE(option.title, defaultTitle);
        QVERIFY(!option.showTitle);
        QCOMPARE(option.titleHeight, 0.0F);
        QCOMPARE(option.tabHeight, 80.0F);
        QCOMPARE(option.titleBackgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(option.titleForegroundBrush, QBrush(Qt::NoBrush));
    }

    void optionTakesTheLook()
    {
        KELRoundRectControl parent;
        parent.setboundRect(10, 20, 500, 500);
        auto *table = new KELNavigationTable(&parent);
        KELNavigationTableStyle *const style = styleOf(table);
        Record::fill(style);
        style->title = u"title"_s;
        style->showTitle = true;
        const KELNavigationTableStyle option = optionOf(*table);
        KELRoundRectControlStyle expected = *style;
        expected.boundRect = QRectF(11, 22, 3, 4);
        expected.margins = QMarginsF();
        expected.xRadius = expected.yRadius = 0;
        expected.isMouseDown = expected.isCheck = false;
        QCOMPARE(Record::difference(option, expected), QString());
        QCOMPARE(option.title, u"title"_s);
        QVERIFY(option.showTitle);
        QCOMPARE(option.titleBackgroundBrush, QBrush(QColor(40, 40, 40, 160)));
        QCOMPARE(option.titleForegroundBrush, QBrush(QColor(Qt::white)));
    }

    void optionLeavesOut()
    {
        KELNavigationTable table;
        KELNavigationTableStyle *style = styleOf(&table);
        style->showTitle = true;
        style->backgroundBrush = style->foregroundBrush = QBrush(Qt::NoBrush);
        style->titleBackgroundBrush = style->titleForegroundBrush = QBrush(Qt::NoBrush);
        style->title.clear();
        KELNavigationTableStyle before = KELNavigationTableStyle();
        before.text = before.title = u"as before"_s;
        before.backgroundBrush = before.foregroundBrush = QBrush(Qt::red);
        before.titleBackgroundBrush = before.titleForegroundBrush = QBrush(Qt::red);
        const KELNavigationTableStyle option = optionOf(table, before);
        QCOMPARE(option.text, u"as before"_s);
        QCOMPARE(option.title, u"as before"_s);
        QCOMPARE(option.backgroundBrush, QBrush(Qt::red));
        QCOMPARE(option.foregroundBrush, QBrush(Qt::red));
        QCOMPARE(option.titleBackgroundBrush, QBrush(Qt::red));
        QCOMPARE(option.titleForegroundBrush, QBrush(Qt::red));
    }

    void optionOfTheOutline_data()
    {
        QTest::addColumn<QBrush>("brush");
        QTest::addColumn<float>("width");
        QTest::addColumn<bool>("taken");

        QTest::newRow("brush and width") << QBrush(Qt::red) << 3.0F << true;
        QTest::newRow("no brush") << QBrush(Qt::NoBrush) << 3.0F << false;
        QTest::newRow("no width") << QBrush(Qt::red) << 0.0F << false;
        QTest::newRow("negative width") << QBrush(Qt::red) << -3.0F << false;
    }

    void optionOfTheOutline()
    {
        QFETCH(QBrush, brush);
        QFETCH(float, width);
        QFETCH(bool, taken);
        KELNavigationTable table;
        table.style()->borderBrush = brush;
        table.style()->borderWidth = width;
        const KELNavigationTableStyle option = optionOf(table);
        QCOMPARE(option.borderBrush, taken ? brush : QBrush(Qt::NoBrush));
        QCOMPARE(option.borderWidth, taken ? width : 0.0F);
    }

    void optionOfTheHeights_data()
    {
        addRows({{"pages", {{"0 pages", 0}, {"1 page", 1}, {"2 pages", 2}, {"5 pages", 5}}},
                 {"showTitle", {{"no title", false}, {"title", true}}}});
    }

    void optionOfTheHeights()
    {
        const int pages = fetch<int>("pages");
        const bool showTitle = fetch<bool>("showTitle");
        KELNavigationTable table;
        styleOf(&table)->showTitle = showTitle;
        styleOf(&table)->titleHeight = 31.5F;
        styleOf(&table)->tabHeight = 62.25F;
        addPages(&table, pages);
        KELNavigationTableStyle before = KELNavigationTableStyle();
        before.titleHeight = before.tabHeight = 99;
        const KELNavigationTableStyle option = optionOf(table, before);
        QCOMPARE(option.showTitle, showTitle);
        QCOMPARE(option.titleHeight, showTitle ? 31.5F : 0.0F);
        QCOMPARE(option.tabHeight, pages > 1 ? 62.25F : 0.0F);
        QCOMPARE(styleOf(&table)->titleHeight, 31.5F);
        QCOMPARE(styleOf(&table)->tabHeight, 62.25F);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTable)
#include "tst_kelnavigationtable.moc"
