// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "menustage.h"

#include <kelcombobox.h>

#include <QtCore/QtMath>
#include <QtGui/QPainter>

#include <limits>

namespace {

// The layout worked out here once more.
struct Model
{
    bool horizontal;
    float space;
    float border;
    QSize view;
    QList<QSizeF> items = {}; // in the scene, the lowest first
    QRectF control = {}; // the last one
    QList<QRectF> separators = {};

    double along(const QSizeF &size) const { return horizontal ? size.width() : size.height(); }
    double across(const QSizeF &size) const { return horizontal ? size.height() : size.width(); }

    float lengthOfItems() const
    {
        float total = 0;
        for (int i = items.size() - 1; i >= 0; --i)
            total += float(along(items.at(i)));
        return total + float(items.size() - 1) * space;
    }

    void resizeTo(double length, double thickness)
    {
        const QSize wanted(horizontal ? int(length) : int(thickness),
                           horizontal ? int(thickness) : int(length));
        view = wanted.expandedTo(QSize(0, 0));
    }

    void add(const QSizeF &size)
    {
        if (items.isEmpty()) {
            control = QRectF(QPointF(), size);
            resizeTo(along(size) + double(border), across(size) + 2 * double(border));
            items.append(size);
            return;
        }
        const float p = lengthOfItems();
        if (space > 0) {
            const QRectF line = horizontal ? QRectF(double(p), 0, 0, view.height())
                                           : QRectF(0, double(p), view.width(), 0);
            separators.append(line);
            items.append(line.size());
        }
        const auto begin = double(p + space);
        control = QRectF(horizontal ? QPointF(begin, 0) : QPointF(0, begin), size);
        double thickness = across(view);
        if (thickness < across(size) + double(border))
            thickness = across(size) + 2 * double(border);
        resizeTo(double(p) + along(size) + double(space) + 2 * double(border), thickness);
        items.append(size);
    }

    void setSpace(float newSpace)
    {
        space = newSpace;
        resizeTo(double(lengthOfItems()) + 2, across(view));
    }
};

// Not by QCOMPARE: to the bit.
bool areSame(const QRectF &a, const QRectF &b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

const QList<QSizeF> equalSizes = {{100, 40}, {100, 40}, {100, 40}, {100, 40}, {100, 40}};
const QList<QSizeF> risingSizes = {{20, 30}, {40, 50.5}, {70.75, 90}, {200, 200}};
const QList<QSizeF> fallingSizes = {{200.875, 180.625}, {99.25, 70}, {33, 12.5}, {0, 0}, {1, 1}};
const QList<QSizeF> manySizes(risingSizes + fallingSizes + risingSizes);

struct Width
{
    const char *name;
    float px;
};

const std::vector<Width> spaces = {
    {"0.5", 0.5F}, {"0", 0}, {"-3.25", -3.25F}, {"12", 12}, {"100.3", 100.3F}};
const std::vector<Width> borders = {{"2", 2}, {"0", 0}, {"7.75", 7.75F}, {"-1.5", -1.5F}};

void addLayouts()
{
    addRows(
        {{"orientation", orientations}, {"space", namesOf(spaces)}, {"border", namesOf(borders)}});
}

float spaceOfRow()
{
    return spaces[fetch<size_t>("space")].px;
}

float borderOfRow()
{
    return borders[fetch<size_t>("border")].px;
}

} // namespace

class tst_KELSideMenu : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsDefaults()
    {
        const KELSideMenu menu(nullptr);
        QCOMPARE(int(menu.orientation()), 0);
        QCOMPARE(menu.orientation(), KELSideMenu::Horizontal);
        QCOMPARE(menu.space(), 0.5F);
        QCOMPARE(menu.borderWidth(), 2.0F);
        QCOMPARE(menu.sceneRect(), QRectF(0, 0, menu.width(), menu.height()));
        QCOMPARE(menu.scene()->sceneRect(), QRectF(0, 0, 640, 480));
        QWidget parent;
        QCOMPARE(KELSideMenu(&parent).scene()->sceneRect(), QRectF(0, 0, 100, 30));
        QCOMPARE(int(KELSideMenu::Vertical), 1);
        static_assert(sizeof(KELSideMenu::OrientationMode) == sizeof(int), "as wide as an int");
    }

    void fieldsAreStored()
    {
        for (const int value : {1, 7, -1, 0})
            QCOMPARE(int(Menu(value).orientation()), value);
        Menu menu;
        for (const float value : {0.0F, -5.25F, 1e6F, 0.1F}) {
            menu.setBorderWidth(value);
            QCOMPARE(menu.borderWidth(), value);
            menu.setSpace(value / 2);
            QCOMPARE(menu.space(), value / 2);
            QCOMPARE(menu.borderWidth(), value);
        }
    }

    void changedFieldsMoveNothing()
    {
        Menu menu;
        KELRoundRectControl *first = menu.add();
        KELRoundRectControl *second = menu.add();
        const QSize size = menu.size();
        menu.setOrientation(KELSideMenu::Vertical);
        menu.setBorderWidth(9);
        QCOMPARE(menu.size(), size);
        menu.setSpace(50);
        QCOMPARE(first->style()->boundRect, QRectF(0, 0, 100, 40));
        QCOMPARE(second->style()->boundRect, QRectF(100.5, 0, 100, 40));
        QCOMPARE(first->style()->borderWidth, 2.0F);
        QCOMPARE(second->style()->borderWidth, 2.0F);
        QCOMPARE(menu.separators().size(), 1);
        QCOMPARE(menu.separators().first()->boundingRect(), QRectF(100, 0, 0, 44));
        QCOMPARE(menu.scene()->items().size(), 3);
        QCOMPARE(menu.add()->style()->borderWidth, 9.0F);
    }

    void firstControl_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<float>("border");
        QTest::addColumn<QSizeF>("control");
        QTest::addColumn<QSize>("view");

        const QSizeF usual(100, 40);
        QTest::newRow("horizontal") << 0 << 2.0F << usual << QSize(102, 44);
        QTest::newRow("vertical") << 1 << 2.0F << usual << QSize(104, 42);
        QTest::newRow("seven") << 7 << 2.0F << usual << QSize(104, 42);
        QTest::newRow("no border") << 0 << 0.0F << usual << QSize(100, 40);
        QTest::newRow("fractions, horizontal") << 0 << 1.45F << QSizeF(100.5, 40) << QSize(101, 42);
        QTest::newRow("fractions, vertical") << 1 << 1.45F << QSizeF(100, 40.5) << QSize(102, 41);
        QTest::newRow("negative border") << 0 << -3.5F << usual << QSize(96, 33);
    }

    void firstControl()
    {
        QFETCH(const float, border);
        QFETCH(const QSizeF, control);
        QFETCH(const QSize, view);
        Menu menu(fetch<int>("orientation"));
        menu.setBorderWidth(border);
        const KELRoundRectControl *first = menu.add(control);
        QCOMPARE(first->style()->boundRect, QRectF(QPointF(0, 0), control));
        QCOMPARE(first->boundingRect(), QRectF(QPointF(0, 0), control));
        QCOMPARE(first->pos(), QPointF());
        QCOMPARE(first->style()->borderWidth, border);
        QCOMPARE(first->scene(), menu.scene());
        QCOMPARE(menu.size(), view);
        QCOMPARE(menu.scene()->items().size(), 1);
    }

    void secondControl_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QRectF>("control");
        QTest::addColumn<QRectF>("separator");
        QTest::addColumn<QSize>("view");

        QTest::newRow("horizontal")
            << horizontally << QRectF(100.5, 0, 100, 40) << QRectF(100, 0, 0, 44) << QSize(204, 44);
        QTest::newRow("vertical") << vertically << QRectF(0, 40.5, 100, 40) << QRectF(0, 40, 104, 0)
                                  << QSize(104, 84);
    }

    void secondControl()
    {
        QFETCH(const QRectF, control);
        QFETCH(const QRectF, separator);
        QFETCH(const QSize, view);
        Menu menu(fetch<int>("orientation"));
        menu.add();
        const KELRoundRectControl *second = menu.add();
        QCOMPARE(second->style()->boundRect, control);
        QCOMPARE(second->style()->borderWidth, 2.0F);
        QCOMPARE(menu.size(), view);
        QCOMPARE(menu.separators().size(), 1);
        QCOMPARE(menu.separators().first()->boundingRect(), separator);
    }

    void furtherControlsCountEverySpace()
    {
        Menu menu;
        menu.setSpace(10);
        menu.add();
        menu.add();
        // Three items with two spaces between, then five with four.
        QCOMPARE(menu.rectOfNext(), QRectF(230, 0, 100, 40));
        QCOMPARE(menu.size(), QSize(334, 44));
        QCOMPARE(menu.rectOfNext(), QRectF(350, 0, 100, 40));
        QCOMPARE(menu.size(), QSize(454, 44));
        QCOMPARE(menu.separators().size(), 3);
    }

    void layout_data() { addLayouts(); }

    void layout()
    {
        for (const auto &sizes : {equalSizes, risingSizes, fallingSizes, manySizes}) {
            Menu menu(fetch<int>("orientation"));
            menu.setBorderWidth(borderOfRow());
            menu.setSpace(spaceOfRow());
            Model model = {fetch<int>("orientation") == horizontally, spaceOfRow(), borderOfRow(),
                           menu.size()};
            for (const QSizeF &size : sizes) {
                const KELRoundRectControl *control = menu.add(size);
                model.add(size);
                QVERIFY(areSame(control->style()->boundRect, model.control));
                QCOMPARE(control->style()->borderWidth, borderOfRow());
                QCOMPARE(menu.size(), model.view);
                const auto separators = menu.separators();
                QCOMPARE(separators.size(), model.separators.size());
                for (int i = 0; i < separators.size(); ++i)
                    QVERIFY(areSame(separators.at(i)->boundingRect(), model.separators.at(i)));
                QCOMPARE(menu.scene()->items().size(), model.items.size());
            }
        }
    }

    void lengthIsSummedInSinglePrecision_data() { addRows({{"orientation", orientations}}); }

    void lengthIsSummedInSinglePrecision()
    {
        // Rounded after each addition, from either end, and rounded once.
        constexpr float sizes[] = {1000.1F, 1000.3F, 99.9F};
        const float sum = (sizes[0] + sizes[1]) + sizes[2];
        QVERIFY(sum == (sizes[2] + sizes[1]) + sizes[0]);
        QVERIFY(sum != float(double(sizes[0]) + double(sizes[1]) + double(sizes[2])));
        Menu menu(fetch<int>("orientation"));
        menu.setSpace(0);
        for (const float size : sizes)
            menu.add(QSizeF(double(size), double(size)));
        QVERIFY(menu.begin(menu.rectOfNext()) == double(sum));
    }

    void spacesAreSummedInSinglePrecision()
    {
        constexpr float space = 0.1F;
        Menu menu;
        menu.setSpace(space);
        menu.add();
        menu.add();
        const double third = menu.rectOfNext().x();
        QVERIFY(third == double((200.0F + 2 * space) + space));
        QVERIFY(third != 200.0 + 3 * double(space));
    }

    void lengthIsSummedFromTheTopmostItemDown_data()
    {
        addRows({{"orientation", orientations},
                 {"index",
                  {{"no index", QGraphicsScene::NoIndex}, {"tree", QGraphicsScene::BspTreeIndex}}},
                 {"top", {{"the last on top", false}, {"the first on top", true}}}},
                [](const std::vector<int> &row) {
                    return row[1] == QGraphicsScene::BspTreeIndex || row[2] == 0;
                });
    }

    void lengthIsSummedFromTheTopmostItemDown()
    {
        const bool isFirstOnTop = fetch<bool>("top");
        constexpr float sizes[] = {1000.1F, 0.1F, 0.3F};
        const float downwards = isFirstOnTop ? (sizes[0] + sizes[2]) + sizes[1]
                                             : (sizes[2] + sizes[1]) + sizes[0];
        const float upwards = isFirstOnTop ? (sizes[1] + sizes[2]) + sizes[0]
                                           : (sizes[0] + sizes[1]) + sizes[2];
        // Otherwise this would say nothing.
        QVERIFY(downwards != upwards);
        Menu menu(fetch<int>("orientation"));
        menu.scene()->setItemIndexMethod(fetch<QGraphicsScene::ItemIndexMethod>("index"));
        menu.setSpace(0);
        QList<KELRoundRectControl *> controls;
        for (const float size : sizes)
            controls.append(menu.add(QSizeF(double(size), double(size))));
        if (isFirstOnTop)
            controls.first()->setZValue(1);
        // Two spaces and 2 px, just enough for one more whole pixel in one of the two orders.
        const int whole = qCeil(qMin(downwards, upwards));
        const float space = (float(whole) - qMax(downwards, upwards)) / 2;
        menu.setSpace(space);
        QCOMPARE(menu.length(), int(double(downwards + 2 * space) + 2));
        QVERIFY(int(double(downwards + 2 * space)) != int(double(upwards + 2 * space)));
        menu.setSpace(0);
        QVERIFY(menu.begin(menu.rectOfNext()) == double(downwards));
    }

    void layoutAfterItsFieldsChanged()
    {
        Menu menu;
        Model model = {true, 0.5F, 2, menu.size()};
        const auto addBoth = [&](const QSizeF &size) {
            model.add(size);
            return menu.rectOfNext(size) == model.control && menu.size() == model.view;
        };
        QVERIFY(addBoth(QSizeF(50, 60)));
        QVERIFY(addBoth(QSizeF(70, 20)));
        menu.setSpace(6);
        model.setSpace(6);
        QCOMPARE(menu.size(), model.view);
        QVERIFY(addBoth(QSizeF(10, 20)));
        menu.setBorderWidth(11);
        model.border = 11;
        QVERIFY(addBoth(QSizeF(10, 90)));
        menu.setOrientation(KELSideMenu::Vertical);
        model.horizontal = false;
        QVERIFY(addBoth(QSizeF(30, 30)));
        menu.resize(20, 500);
        model.view = QSize(20, 500);
        QVERIFY(addBoth(QSizeF(30, 30)));
        menu.setSpace(-1);
        model.setSpace(-1);
        QVERIFY(addBoth(QSizeF(3000, 30)));
    }

    void controlKeepsItsSize()
    {
        // The corner it had before counts for nothing, nor does its position in the scene.
        Menu menu;
        KELRoundRectControl *controls[] = {newControl({50, 20}), newControl({60, 30})};
        for (KELRoundRectControl *control : controls) {
            control->setPos(5, 6);
            menu.addItem(control);
            QCOMPARE(control->pos(), QPointF(5, 6));
        }
        QCOMPARE(controls[0]->boundingRect(), QRectF(0, 0, 50, 20));
        QCOMPARE(controls[1]->boundingRect(), QRectF(50.5, 0, 60, 30));
    }

    void thickControlWidensTheMenu_data()
    {
        // 44 px thick: room for 42 and one border.
        addRows(
            {{"orientation", orientations},
             {"hundredths",
              {{"thinner", 2000}, {"just room", 4200}, {"no room", 4225}, {"far thicker", 9075}}}});
    }

    void thickControlWidensTheMenu()
    {
        const qreal thickness = fetch<int>("hundredths") / 100.0;
        Menu menu(fetch<int>("orientation"));
        menu.add(QSizeF(40, 40));
        menu.add(fetch<int>("orientation") == 0 ? QSizeF(40, thickness) : QSizeF(thickness, 40));
        QCOMPARE(menu.thickness(), thickness > 42 ? int(thickness + 4) : 44);
    }

    void oddSizes_data()
    {
        QTest::addColumn<qreal>("size");
        QTest::addColumn<int>("length");

        QTest::newRow("not a number") << std::numeric_limits<qreal>::quiet_NaN() << 0;
        QTest::newRow("infinite") << std::numeric_limits<qreal>::infinity() << QWIDGETSIZE_MAX;
        QTest::newRow("minus infinite") << -std::numeric_limits<qreal>::infinity() << 0;
        QTest::newRow("beyond an integer") << 1e300 << QWIDGETSIZE_MAX;
        QTest::newRow("negative") << -50.0 << 0;
    }

    void oddSizes()
    {
        QFETCH(const qreal, size);
        QFETCH(const int, length);
        Menu menu;
        QCOMPARE(menu.rectOfNext(QSizeF(size, 30)).height(), 30.0);
        QCOMPARE(menu.size(), QSize(length, 34));
        menu.add(QSizeF(size, 30));
        QCOMPARE(menu.size(), QSize(length, 34));
        menu.setSpace(1);
        QCOMPARE(menu.height(), 34);
    }

    void childItemsCount_data() { addRows({{"orientation", orientations}}); }

    void childItemsCount()
    {
        Menu menu(fetch<int>("orientation"));
        KELRoundRectControl *first = newControl({100, 100});
        auto *child = new KELRoundRectControl(first);
        child->setboundRect(10, 10, 30, 30);
        auto *grandchild = new KELRoundRectControl(child);
        grandchild->setboundRect(500, 500, 7, 7);
        menu.addItem(first);
        QCOMPARE(menu.scene()->items().size(), 3);
        QCOMPARE(menu.length(), 102);
        // 100 + 30 + 7 and two spaces, then the space.
        QCOMPARE(menu.begin(menu.rectOfNext({50, 50})), 138.5);
        // 137 + 50 and four spaces, then the space: there is a separator too.
        QCOMPARE(menu.begin(menu.rectOfNext({50, 50})), 189.5);
    }

    void comboBoxCountsWithItsItems()
    {
        Menu menu;
        menu.addItem(new KELComboBox(nullptr));
        float extents = 0;
        const auto items = menu.scene()->items();
        for (const QGraphicsItem *item : items)
            extents += float(item->boundingRect().width());
        QVERIFY(items.size() > 1);
        QCOMPARE(menu.rectOfNext().x(), double(extents + float(items.size()) * 0.5F));
    }

    void itemsOfTheApplicationCount_data() { addRows({{"orientation", orientations}}); }

    void itemsOfTheApplicationCount()
    {
        const bool isHorizontal = fetch<int>("orientation") == horizontally;
        Menu menu(fetch<int>("orientation"));
        menu.resize(200, 200);
        menu.scene()->addRect(0, 0, 60, 60, Qt::NoPen)->setPos(300, 300);
        // The scene is not empty, so this is not a first control.
        QCOMPARE(menu.rectOfNext({50, 50}),
                 isHorizontal ? QRectF(60.5, 0, 50, 50) : QRectF(0, 60.5, 50, 50));
        QCOMPARE(menu.separators().size(), 1);
        QCOMPARE(menu.size(), isHorizontal ? QSize(114, 200) : QSize(200, 114));
    }

    void hiddenItemsCount()
    {
        Menu menu;
        menu.add()->hide();
        QCOMPARE(menu.rectOfNext(), QRectF(100.5, 0, 100, 40));
    }

    void separatorsCountAcross()
    {
        // A separator has no extent along its menu, but it has one across.
        Menu menu;
        menu.add();
        menu.add();
        QCOMPARE(menu.separators().first()->boundingRect().height(), 44.0);
        menu.setOrientation(KELSideMenu::Vertical);
        // 40 + 44 + 40 and two spaces, then the space.
        QCOMPARE(menu.rectOfNext(), QRectF(0, 125.5, 100, 40));
        QCOMPARE(menu.size(), QSize(204, 169));
        QCOMPARE(menu.separators().last()->boundingRect(), QRectF(0, 125, 204, 0));
    }

    void separator_data() { addRows({{"orientation", orientations}}); }

    void separator()
    {
        const bool isHorizontal = fetch<int>("orientation") == horizontally;
        Menu menu(fetch<int>("orientation"));
        menu.setSpace(3.5F);
        menu.add();
        menu.add();
        QCOMPARE(menu.separators().size(), 1);
        KELLineItem *line = menu.separators().first();
        QCOMPARE(line->style()->borderWidth, 3.5F);
        QCOMPARE(line->style()->borderBrush, QBrush(QColor(Qt::white)));
        QVERIFY(!line->parentItem());
        const auto byHand = [&](QPainter *painter) {
            painter->setPen(QPen(Qt::white, 3.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            painter->drawLine(isHorizontal ? QLineF(100, 0, 100, 44) : QLineF(0, 40, 104, 40));
        };
        QCOMPARE(KelImage::differenceFrom(byHand, line, QSize(200, 200)), QString());
        // A later change is for later lines.
        menu.setSpace(8);
        QCOMPARE(line->style()->borderWidth, 3.5F);
        menu.add();
        QCOMPARE(menu.separators().first()->style()->borderWidth, 3.5F);
        QCOMPARE(menu.separators().last()->style()->borderWidth, 8.0F);
    }

    void separatorReachesTheEdgeOfThatTime()
    {
        Menu menu;
        menu.add();
        menu.resize(500, 333);
        // Before the menu grows for the thicker control.
        menu.add(QSizeF(100, 600));
        QCOMPARE(menu.separators().first()->boundingRect(), QRectF(100, 0, 0, 333));
        QCOMPARE(menu.height(), 604);
        menu.add(QSizeF(100, 600));
        QCOMPARE(menu.separators().first()->boundingRect(), QRectF(100, 0, 0, 333));
        QCOMPARE(menu.separators().last()->boundingRect().height(), 604.0);
    }

    void noSeparator_data() { addRows({{"space", {{"no space", 0}, {"negative space", -10}}}}); }

    void noSeparator()
    {
        const int space = fetch<int>("space");
        Menu menu;
        menu.setSpace(float(space));
        menu.add();
        QCOMPARE(menu.rectOfNext().x(), 100.0 + space);
        QCOMPARE(menu.rectOfNext().x(), 200.0 + 2 * space);
        QVERIFY(menu.separators().isEmpty());
        QCOMPARE(menu.width(), 304 + 2 * space);
    }

    void setSpaceOfAnEmptyMenu_data()
    {
        addRows({{"orientation", orientations},
                 {"hundredths",
                  {{"half a px", 50}, {"none", 0}, {"more than 2 px", 800}, {"negative", -1075}}}});
    }

    void setSpaceOfAnEmptyMenu()
    {
        const float space = float(fetch<int>("hundredths")) / 100;
        Menu menu(fetch<int>("orientation"));
        menu.resize(300, 200);
        const int thickness = menu.thickness();
        menu.setSpace(space);
        QCOMPARE(menu.length(), qMax(0, int(2 - space)));
        QCOMPARE(menu.thickness(), thickness);
        QCOMPARE(menu.space(), space);
    }

    void setSpaceResizes_data() { addLayouts(); }

    void setSpaceResizes()
    {
        for (const auto &sizes : {QList<QSizeF>{{100, 40}}, risingSizes, manySizes}) {
            Menu menu(fetch<int>("orientation"));
            menu.setBorderWidth(borderOfRow());
            Model model = {fetch<int>("orientation") == horizontally, 0.5F, borderOfRow(),
                           menu.size()};
            for (const QSizeF &size : sizes) {
                menu.add(size);
                model.add(size);
            }
            menu.setSpace(spaceOfRow());
            model.setSpace(spaceOfRow());
            QCOMPARE(menu.size(), model.view);
        }
        // In numbers: three items with two spaces, and 2 px.
        Menu menu(fetch<int>("orientation"));
        menu.setBorderWidth(borderOfRow());
        menu.add(QSizeF(100, 100));
        menu.add(QSizeF(100, 100));
        menu.resize(250, 250);
        menu.setSpace(4);
        QCOMPARE(menu.length(), 210);
        QCOMPARE(menu.thickness(), 250);
    }
};

KEL_TEST_MAIN(tst_KELSideMenu)
#include "tst_kelsidemenu.moc"
