// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "tablestage.h"

#include <cmath>
#include <limits>

namespace {

const QString defaultTitle = u"KELRoundRectControlStyle"_s;

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

    void tableStartsWithItsDefaults()
    {
        const KELNavigationTable table(nullptr);
        const KELNavigationTableStyle *style = styleOf(&table);
        QCOMPARE(style->title, defaultTitle);
        QCOMPARE(style->titleBackgroundBrush, QBrush(QColor(40, 40, 40, 160)));
        QCOMPARE(style->titleForegroundBrush, QBrush(QColor(Qt::white)));
        QCOMPARE(style->titleHeight, 35.0F);
        QCOMPARE(style->tabHeight, 80.0F);
        QVERIFY(!style->showTitle);
        QCOMPARE(style->backgroundBrush, QBrush(QColor(20, 15, 55, 200)));
        QCOMPARE(style->borderWidth, 2.0F);
        QCOMPARE(style->boundRect, QRectF(0, 0, 440, 310));
        QCOMPARE(style->xRadius, 0.0);
        QCOMPARE(style->yRadius, 0.0);
        // as in the base
        QCOMPARE(style->foregroundBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(style->borderBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(style->textFlags, 0x1084);
        QVERIFY(style->trimText);
        QVERIFY(style->text.isNull());
        QCOMPARE(style->iconSize, 30);
        QCOMPARE(style->font, QFont());
        QCOMPARE(style->margins, QMarginsF());
        QVERIFY(style->pixmap.isNull());
        QVERIFY(style->icon.isNull());
        QVERIFY(!style->contextMenu);
    }

    void pageStartsWithItsDefaults()
    {
        const KELNavigationTableItem page(nullptr);
        const KELNavigationTableItemStyle *style = styleOf(&page);
        QCOMPARE(style->buttonBackground, QBrush(QColor(0, 0, 0, 210)));
        QCOMPARE(style->buttonForeground, QBrush(QColor(Qt::white)));
        QCOMPARE(style->backgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(style->borderWidth, 0.0F);
        QCOMPARE(style->margins, QMarginsF(3, 3, 3, 3));
        // as in the base
        QCOMPARE(style->boundRect, QRectF(100, 100, 100, 30));
        QCOMPARE(style->foregroundBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(style->borderBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(style->textFlags, 0x1084);
        QVERIFY(style->trimText);
        QCOMPARE(style->iconSize, 30);
        QVERIFY(!style->contextMenu);
    }

    void tableIsSetUpForTaps()
    {
        KELRoundRectControl parent(nullptr);
        auto *table = new KELNavigationTable(&parent);
        QCOMPARE(table->parentItem(), &parent);
        QVERIFY(table->acceptHoverEvents());
        QVERIFY(table->acceptTouchEvents());
        QCOMPARE(table->flags(), QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsPanel);
        QCOMPARE(table->acceptedMouseButtons(), Qt::MouseButtons(Qt::LeftButton));
        QVERIFY(!table->selectItem());
        QCOMPARE(table->selectIndex(), -1);
        QVERIFY(table->childItems().isEmpty());
        QVERIFY(!table->filtersChildEvents());
    }

    void pageIsAPlainControl()
    {
        const KELRoundRectControl plain(nullptr);
        KELRoundRectControl parent(nullptr);
        auto *page = new KELNavigationTableItem(&parent);
        QCOMPARE(page->parentItem(), &parent);
        QCOMPARE(page->flags(), plain.flags());
        QCOMPARE(page->acceptedMouseButtons(), plain.acceptedMouseButtons());
        QCOMPARE(page->acceptHoverEvents(), plain.acceptHoverEvents());
        QCOMPARE(page->acceptTouchEvents(), plain.acceptTouchEvents());
        QVERIFY(page->isVisible());
    }

    void addNoSignalsSlotsOrProperties()
    {
        const QMetaObject &base = KELRoundRectControl::staticMetaObject;
        for (const QMetaObject *type :
             {&KELNavigationTable::staticMetaObject, &KELNavigationTableItem::staticMetaObject}) {
            QCOMPARE(type->superClass(), &base);
            QCOMPARE(type->methodCount(), base.methodCount());
            QCOMPARE(type->propertyCount(), base.propertyCount());
        }
    }

    void initStyleOfATableAgain()
    {
        KELNavigationTable table(nullptr);
        KELNavigationTableStyle *before = styleOf(&table);
        before->font.setPixelSize(33);
        before->text = u"caption"_s;
        before->margins = QMarginsF(1, 2, 3, 4);
        before->foregroundBrush = QBrush(Qt::red);
        before->borderBrush = QBrush(Qt::blue);
        before->trimText = false;
        before->textFlags = Qt::AlignLeft;
        before->isCheck = true;
        before->isMouseDown = true;
        before->title = u"old"_s;
        before->titleBackgroundBrush = QBrush(Qt::green);
        before->titleForegroundBrush = QBrush(Qt::green);
        before->titleHeight = 1;
        before->tabHeight = 2;
        before->showTitle = true;
        before->backgroundBrush = QBrush(Qt::green);
        before->borderWidth = 9;
        before->xRadius = before->yRadius = 7;
        before->boundRect = QRectF(1, 2, 3, 4);

        const KELRoundRectControlStyle *made = table.initStyle();
        QCOMPARE(made, table.style());
        const KELNavigationTableStyle *style = styleOf(&table);
        QCOMPARE(style->font.pixelSize(), 33);
        QCOMPARE(style->text, u"caption"_s);
        QCOMPARE(style->margins, QMarginsF(1, 2, 3, 4));
        QCOMPARE(style->foregroundBrush, QBrush(Qt::red));
        QCOMPARE(style->borderBrush, QBrush(Qt::blue));
        QVERIFY(!style->trimText);
        QCOMPARE(style->textFlags, int(Qt::AlignLeft));
        QVERIFY(!style->isCheck);
        QVERIFY(!style->isMouseDown);
        QCOMPARE(style->title, defaultTitle);
        QCOMPARE(style->titleBackgroundBrush, QBrush(QColor(40, 40, 40, 160)));
        QCOMPARE(style->titleForegroundBrush, QBrush(QColor(Qt::white)));
        QCOMPARE(style->titleHeight, 35.0F);
        QCOMPARE(style->tabHeight, 80.0F);
        QVERIFY(!style->showTitle);
        QCOMPARE(style->backgroundBrush, QBrush(QColor(20, 15, 55, 200)));
        QCOMPARE(style->borderWidth, 2.0F);
        QCOMPARE(style->xRadius, 0.0);
        QCOMPARE(style->yRadius, 0.0);
        QCOMPARE(style->boundRect, QRectF(0, 0, 440, 310));
    }

    void initStyleOfAPageAgain()
    {
        KELNavigationTableItem page(nullptr);
        KELNavigationTableItemStyle *before = styleOf(&page);
        before->font.setPixelSize(33);
        before->text = u"caption"_s;
        before->boundRect = QRectF(1, 2, 3, 4);
        before->xRadius = 7;
        before->isCheck = true;
        before->margins = QMarginsF(1, 2, 3, 4);
        before->backgroundBrush = QBrush(Qt::green);
        before->borderWidth = 9;
        before->buttonBackground = QBrush(Qt::green);
        before->buttonForeground = QBrush(Qt::green);

        const KELRoundRectControlStyle *made = page.initStyle();
        QCOMPARE(made, page.style());
        const KELNavigationTableItemStyle *style = styleOf(&page);
        QCOMPARE(style->font.pixelSize(), 33);
        QCOMPARE(style->text, u"caption"_s);
        QCOMPARE(style->boundRect, QRectF(1, 2, 3, 4));
        QCOMPARE(style->xRadius, 7.0);
        QVERIFY(!style->isCheck);
        QCOMPARE(style->margins, QMarginsF(3, 3, 3, 3));
        QCOMPARE(style->backgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(style->borderWidth, 0.0F);
        QCOMPARE(style->buttonBackground, QBrush(QColor(0, 0, 0, 210)));
        QCOMPARE(style->buttonForeground, QBrush(QColor(Qt::white)));
    }

    void buttonBrushesAreStored()
    {
        Stage stage(2);
        QVERIFY(stage.show());
        KELNavigationTableItem *page = stage.pages.first();
        page->setButtonBackground(Qt::red);
        QCOMPARE(styleOf(page)->buttonBackground, QBrush(Qt::red));
        QCOMPARE(styleOf(page)->buttonForeground, QBrush(QColor(Qt::white)));
        page->setButtonForeground(QBrush(Qt::blue, Qt::Dense3Pattern));
        QCOMPARE(styleOf(page)->buttonForeground, QBrush(Qt::blue, Qt::Dense3Pattern));
        QCOMPARE(styleOf(page)->buttonBackground, QBrush(Qt::red));
        QCOMPARE(styleOf(page)->backgroundBrush, QBrush(Qt::NoBrush));
        QCoreApplication::processEvents();
        QCOMPARE(stage.table->paints, 0);
    }

    void firstPageIsShownOthersAreNot()
    {
        KELNavigationTable table(nullptr);
        QList<KELNavigationTableItem *> pages;
        for (int i = 0; i < 4; ++i) {
            pages.append(new KELNavigationTableItem(nullptr));
            const QSignalSpy visibility(pages.last(), &QGraphicsObject::visibleChanged);
            table.addItem(pages.last());
            QCOMPARE(pages.last()->parentItem(), &table);
            QCOMPARE(whatIsNotShown(&table, pages, 0), QString());
            // Hidden in any case, and the first one shown again.
            QCOMPARE(visibility.count(), i == 0 ? 2 : 1);
        }
        QCOMPARE(table.childItems().size(), 4);
    }

    void pageFillsTheContent_data()
    {
        QTest::addColumn<QRectF>("table");
        QTest::addColumn<bool>("showTitle");
        QTest::addColumn<float>("titleHeight");
        QTest::addColumn<float>("tabHeight");
        QTest::addColumn<float>("border");
        QTest::addColumn<QRectF>("page");

        const QRectF usual(0, 0, 440, 310);
        QTest::newRow("defaults") << usual << false << 35.0F << 80.0F << 0.0F
                                  << QRectF(0, 0, 440, 230);
        QTest::newRow("border") << usual << false << 35.0F << 80.0F << 2.0F
                                << QRectF(2, 2, 438, 228);
        QTest::newRow("title") << usual << true << 35.0F << 80.0F << 0.0F
                               << QRectF(0, 35, 440, 195);
        QTest::newRow("title and border")
            << usual << true << 40.5F << 60.25F << 1.5F << QRectF(1.5, 42, 438.5, 207.75);
        QTest::newRow("no height of the tabs")
            << usual << false << 35.0F << 0.0F << 0.0F << QRectF(0, 0, 440, 310);
        QTest::newRow("negative border")
            << usual << false << 35.0F << 80.0F << -3.0F << QRectF(-3, -3, 443, 233);
        QTest::newRow("table lower than its tabs")
            << QRectF(0, 0, 50, 30) << true << 35.0F << 80.0F << 0.0F << QRectF(0, 35, 50, -85);
        QTest::newRow("table off the origin")
            << QRectF(50, 40, 300, 200) << true << 35.0F << 80.0F << 1.0F << QRectF(1, 36, 299, 84);
    }

    void pageFillsTheContent()
    {
        QFETCH(QRectF, table);
        QFETCH(bool, showTitle);
        QFETCH(float, titleHeight);
        QFETCH(float, tabHeight);
        QFETCH(float, border);
        QFETCH(QRectF, page);
        KELNavigationTable control(nullptr);
        control.setboundRect(table);
        styleOf(&control)->showTitle = showTitle;
        styleOf(&control)->titleHeight = titleHeight;
        styleOf(&control)->tabHeight = tabHeight;
        for (int i = 0; i < 2; ++i) {
            auto *item = new KELNavigationTableItem(nullptr);
            item->style()->borderWidth = border;
            control.addItem(item);
            QCOMPARE(item->style()->boundRect, page);
            QCOMPARE(item->boundingRect(), page.translated(table.topLeft()));
            QCOMPARE(item->pos(), QPointF());
        }
    }

    void laterStyleMovesNothing()
    {
        OpenTable table(nullptr);
        const auto pages = addPages(&table, 2);
        table.setboundRect(0, 0, 200, 150);
        styleOf(&table)->showTitle = true;
        styleOf(&table)->tabHeight = 20;
        for (const KELNavigationTableItem *page : pages)
            QCOMPARE(page->style()->boundRect, QRectF(0, 0, 440, 230));
        table.pressAt(QPointF(300, 300));
        QCOMPARE(table.selectIndex(), 1);
        // A later page goes by the new style, and all tabs with it.
        auto *third = new KELNavigationTableItem(nullptr);
        table.addItem(third);
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
        QTest::addColumn<int>("which");

        QTest::newRow("null") << 0;
        QTest::newRow("the page that is shown") << 1;
        QTest::newRow("another page of the table") << 2;
        QTest::newRow("the parent of the table") << 3;
        QTest::newRow("an ancestor of the table") << 4;
    }

    void addItemIgnores()
    {
        QFETCH(int, which);
        KelTestView view;
        auto *ancestor = new KELNavigationTableItem(nullptr);
        view.ownScene.addItem(ancestor);
        auto *parent = new KELNavigationTableItem(ancestor);
        auto *table = new OpenTable(parent);
        const auto pages = addPages(table, 2);
        QVERIFY(view.showAndWait());
        view.grab();
        table->paints = 0;
        KELNavigationTableItem *const items[] = {nullptr, pages.at(0), pages.at(1), parent,
                                                 ancestor};
        table->addItem(items[which]);
        QCOMPARE(whatIsNotShown(table, pages, 0), QString());
        QCOMPARE(table->childItems().size(), 2);
        QCOMPARE(table->parentItem(), parent);
        QCOMPARE(parent->parentItem(), ancestor);
        QVERIFY(parent->isVisible());
        QCOMPARE(parent->style()->boundRect, QRectF(100, 100, 100, 30));
        QCoreApplication::processEvents();
        QCOMPARE(table->paints, 0);
        table->setSelectIndex(2);
        QCOMPARE(table->selectIndex(), 0);
        table->pressAt(QPointF(225, 300));
        QCOMPARE(table->selectIndex(), 1);
    }

    void pageOfAnotherParent()
    {
        KELRoundRectControl parent(nullptr);
        parent.setboundRect(7, 7, 100, 100);
        KELNavigationTable table(nullptr);
        auto *page = new KELNavigationTableItem(&parent);
        table.addItem(page);
        QCOMPARE(page->parentItem(), &table);
        QVERIFY(parent.childItems().isEmpty());
        QCOMPARE(page->boundingRect(), QRectF(0, 0, 440, 230));
    }

    void addItemRepaints()
    {
        Stage stage(1);
        QVERIFY(stage.show());
        auto *page = new KELNavigationTableItem(nullptr);
        stage.table->addItem(page);
        QCoreApplication::processEvents();
        QVERIFY(stage.table->paints > 0);
    }

    void hiddenTable()
    {
        KELNavigationTable table(nullptr);
        table.hide();
        const auto pages = addPages(&table, 3);
        QCOMPARE(table.selectIndex(), 0);
        table.setSelectIndex(2);
        QCOMPARE(table.selectItem(), pages.at(2));
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
        OpenTable table(nullptr);
        table.setboundRect(QRectF(QPointF(), size));
        addPages(&table, count);
        const QList<QRectF> tabs = tabsOf(size, 80, count);
        // On both sides of every edge, as near as can be.
        for (const QRectF &tab : tabs) {
            for (const double edge : {tab.x(), tab.x() + tab.width()}) {
                for (const double x :
                     {std::nextafter(edge, -far), edge, std::nextafter(edge, far)}) {
                    for (int selected = 0; selected < count; ++selected) {
                        table.setSelectIndex(selected);
                        const QPointF pos(x, tab.center().y());
                        table.pressAt(pos);
                        const int pressed = firstWith(tabs, pos);
                        QCOMPARE(table.selectIndex(), pressed < 0 ? selected : pressed);
                    }
                }
            }
        }
    }

    void threeTabs()
    {
        OpenTable table(nullptr);
        addPages(&table, 3);
        // 440 / 3 as the nearest float, and twice that.
        table.pressAt(QPointF(146.666672, 270));
        QCOMPARE(table.selectIndex(), 1);
        table.pressAt(QPointF(146.6666717, 270));
        QCOMPARE(table.selectIndex(), 0);
        table.pressAt(QPointF(293.333344, 270));
        QCOMPARE(table.selectIndex(), 2);
        table.pressAt(QPointF(293.3333435, 270));
        QCOMPARE(table.selectIndex(), 1);
    }

    void tabsEndWithTheStrip()
    {
        OpenTable table(nullptr);
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
        KELNavigationTable table(nullptr);
        const auto pages = addPages(&table, 4);
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
        QTest::addColumn<int>("index");

        QTest::newRow("the lowest") << std::numeric_limits<int>::min();
        QTest::newRow("-1") << -1;
        QTest::newRow("the present one") << 1;
        QTest::newRow("the count") << 3;
        QTest::newRow("the highest") << std::numeric_limits<int>::max();
    }

    void setSelectIndexIgnores()
    {
        QFETCH(int, index);
        Stage stage(3);
        stage.table->setSelectIndex(1);
        QVERIFY(stage.show());
        const QSignalSpy visibility(stage.pages.at(1), &QGraphicsObject::visibleChanged);
        stage.table->setSelectIndex(index);
        QCOMPARE(stage.whatIsNotShown(1), QString());
        QCOMPARE(visibility.count(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(stage.table->paints, 0);

        KELNavigationTable empty(nullptr);
        empty.setSelectIndex(index);
        QCOMPARE(empty.selectIndex(), -1);
        QVERIFY(!empty.selectItem());
    }

    void setSelectIndexEmitsNothing()
    {
        Stage stage(2);
        QVERIFY(stage.show());
        const SignalCount ofTable(stage.table);
        const SignalCount ofFirst(stage.pages.at(0));
        const SignalCount ofSecond(stage.pages.at(1));
        stage.table->setSelectIndex(1);
        QCoreApplication::processEvents();
        QCOMPARE(ofTable.all() + ofFirst.all() + ofSecond.all(), QString());
    }

    void setSelectIndexRepaints()
    {
        Stage stage(2);
        QVERIFY(stage.show());
        stage.table->setSelectIndex(1);
        QCoreApplication::processEvents();
        QVERIFY(stage.table->paints > 0);
    }

    void filter_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("button");
        QTest::addColumn<bool>("filtered");

        const QPair<int, const char *> types[] = {
            {156, "press"}, {157, "release"}, {158, "double"}};
        for (const auto &type : types) {
            QTest::addRow("%s, left", type.second) << type.first << int(Qt::LeftButton) << false;
            QTest::addRow("%s, right", type.second) << type.first << int(Qt::RightButton) << true;
            QTest::addRow("%s, middle", type.second) << type.first << int(Qt::MiddleButton) << true;
            QTest::addRow("%s, back", type.second) << type.first << int(Qt::BackButton) << true;
            QTest::addRow("%s, none", type.second) << type.first << int(Qt::NoButton) << true;
        }
        QTest::newRow("move, right") << 155 << int(Qt::RightButton) << false;
        QTest::newRow("context menu") << 159 << int(Qt::RightButton) << false;
        QTest::newRow("hover enter") << 160 << int(Qt::RightButton) << false;
        QTest::newRow("wheel") << 168 << int(Qt::RightButton) << false;
    }

    void filter()
    {
        QFETCH(int, type);
        QFETCH(int, button);
        QFETCH(bool, filtered);
        OpenTable table(nullptr);
        const auto pages = addPages(&table, 2);
        QGraphicsSceneMouseEvent event{QEvent::Type(type)};
        event.setButton(Qt::MouseButton(button));
        event.setPos(QPointF(300, 270));
        QCOMPARE(table.sceneEventFilter(pages.first(), &event), filtered);
        QCOMPARE(table.sceneEventFilter(nullptr, &event), filtered);
        QCOMPARE(table.selectIndex(), 0);
    }

    void optionOfADefaultTable()
    {
        KELNavigationTable table(nullptr);
        addPages(&table, 2);
        KELNavigationTableStyle option = KELNavigationTableStyle();
        table.initStyleOption(&option, nullptr);
        QCOMPARE(option.boundRect, QRectF(0, 0, 440, 310));
        QCOMPARE(option.backgroundBrush, QBrush(QColor(20, 15, 55, 200)));
        QCOMPARE(option.foregroundBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(option.borderBrush, QBrush(QColor(Qt::black)));
        QCOMPARE(option.borderWidth, 2.0F);
        QCOMPARE(option.title, defaultTitle);
        QCOMPARE(option.textFlags, 0x1084);
        QVERIFY(option.trimText);
        QVERIFY(!option.showTitle);
        QCOMPARE(option.titleHeight, 0.0F);
        QCOMPARE(option.tabHeight, 80.0F);
        QCOMPARE(option.titleBackgroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(option.titleForegroundBrush, QBrush(Qt::NoBrush));
        QCOMPARE(option.iconSize, 30);
        QVERIFY(option.text.isNull());
        QVERIFY(option.pixmap.isNull());
        QVERIFY(option.icon.isNull());
    }

    void optionTakesTheLook()
    {
        KELRoundRectControl parent(nullptr);
        parent.setboundRect(10, 20, 500, 500);
        auto *table = new KELNavigationTable(&parent);
        table->setboundRect(5, 6, 300, 200);
        KELNavigationTableStyle *style = styleOf(table);
        style->font.setPixelSize(27);
        style->textFlags = Qt::AlignRight;
        style->trimText = false;
        style->showTitle = true;
        style->text = u"caption"_s;
        style->title = u"title"_s;
        style->pixmap = QPixmap(4, 4);
        style->pixmap.fill(Qt::red);
        style->icon = KELIconFont(0xE001);
        style->iconSize = 17;
        KELNavigationTableStyle option = KELNavigationTableStyle();
        table->initStyleOption(&option, nullptr);
        QCOMPARE(option.boundRect, QRectF(15, 26, 300, 200));
        QCOMPARE(option.font.pixelSize(), 27);
        QCOMPARE(option.textFlags, int(Qt::AlignRight));
        QVERIFY(!option.trimText);
        QVERIFY(option.showTitle);
        QCOMPARE(option.text, u"caption"_s);
        QCOMPARE(option.title, u"title"_s);
        QCOMPARE(option.pixmap.cacheKey(), style->pixmap.cacheKey());
        QCOMPARE(option.icon.getIcon().unicode(), ushort(0xE001));
        QCOMPARE(option.iconSize, 17);
        QCOMPARE(option.titleBackgroundBrush, QBrush(QColor(40, 40, 40, 160)));
        QCOMPARE(option.titleForegroundBrush, QBrush(QColor(Qt::white)));
    }

    void optionLeavesOut()
    {
        KELNavigationTable table(nullptr);
        KELNavigationTableStyle *style = styleOf(&table);
        style->showTitle = true;
        style->backgroundBrush = QBrush(Qt::NoBrush);
        style->foregroundBrush = QBrush(Qt::NoBrush);
        style->titleBackgroundBrush = QBrush(Qt::NoBrush);
        style->titleForegroundBrush = QBrush(Qt::NoBrush);
        style->title.clear();
        style->margins = QMarginsF(1, 2, 3, 4);
        style->xRadius = style->yRadius = 5;
        style->isCheck = style->isMouseDown = true;
        KELNavigationTableStyle option = KELNavigationTableStyle();
        option.text = option.title = u"as before"_s;
        option.backgroundBrush = option.foregroundBrush = QBrush(Qt::red);
        option.titleBackgroundBrush = option.titleForegroundBrush = QBrush(Qt::red);
        table.initStyleOption(&option, nullptr);
        QCOMPARE(option.text, u"as before"_s);
        QCOMPARE(option.title, u"as before"_s);
        QCOMPARE(option.backgroundBrush, QBrush(Qt::red));
        QCOMPARE(option.foregroundBrush, QBrush(Qt::red));
        QCOMPARE(option.titleBackgroundBrush, QBrush(Qt::red));
        QCOMPARE(option.titleForegroundBrush, QBrush(Qt::red));
        QCOMPARE(option.margins, QMarginsF());
        QCOMPARE(option.xRadius, 0.0);
        QCOMPARE(option.yRadius, 0.0);
        QVERIFY(!option.isCheck);
        QVERIFY(!option.isMouseDown);
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
        KELNavigationTable table(nullptr);
        table.style()->borderBrush = brush;
        table.style()->borderWidth = width;
        KELNavigationTableStyle option = KELNavigationTableStyle();
        table.initStyleOption(&option, nullptr);
        QCOMPARE(option.borderBrush, taken ? brush : QBrush(Qt::NoBrush));
        QCOMPARE(option.borderWidth, taken ? width : 0.0F);
    }

    void optionOfTheHeights_data()
    {
        QTest::addColumn<int>("pages");
        QTest::addColumn<bool>("showTitle");

        for (const int pages : {0, 1, 2, 5}) {
            QTest::addRow("%d pages", pages) << pages << false;
            QTest::addRow("%d pages and a title", pages) << pages << true;
        }
    }

    void optionOfTheHeights()
    {
        QFETCH(int, pages);
        QFETCH(bool, showTitle);
        KELNavigationTable table(nullptr);
        styleOf(&table)->showTitle = showTitle;
        styleOf(&table)->titleHeight = 31.5F;
        styleOf(&table)->tabHeight = 62.25F;
        addPages(&table, pages);
        KELNavigationTableStyle option = KELNavigationTableStyle();
        option.titleHeight = option.tabHeight = 99;
        table.initStyleOption(&option, nullptr);
        QCOMPARE(option.showTitle, showTitle);
        QCOMPARE(option.titleHeight, showTitle ? 31.5F : 0.0F);
        QCOMPARE(option.tabHeight, pages > 1 ? 62.25F : 0.0F);
        QCOMPARE(styleOf(&table)->titleHeight, 31.5F);
        QCOMPARE(styleOf(&table)->tabHeight, 62.25F);
    }
};

KEL_TEST_MAIN(tst_KELNavigationTable)
#include "tst_kelnavigationtable.moc"
