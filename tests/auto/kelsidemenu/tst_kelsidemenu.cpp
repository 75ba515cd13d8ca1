// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "menustage.h"

#include <kelcombobox.h>

#include <QtCore/QPointer>
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
    QList<QSizeF> items; // in the scene, the lowest first
    QRectF control; // the last one
    QList<QRectF> separators;

    double along(const QSizeF &size) const { return horizontal ? size.width() : size.height(); }
    double across(const QSizeF &size) const { return horizontal ? size.height() : size.width(); }

    float sum() const
    {
        float total = 0;
        for (int i = items.size() - 1; i >= 0; --i)
            total += float(along(items.at(i)));
        return total;
    }

    void resizeTo(double length, double thickness)
    {
        const QSize wanted(horizontal ? int(length) : int(thickness),
                           horizontal ? int(thickness) : int(length));
        view = wanted.expandedTo(QSize(0, 0));
    }

    void addFirst(const QSizeF &size)
    {
        control = QRectF(QPointF(), size);
        resizeTo(along(size) + double(border), across(size) + 2 * double(border));
        items.append(size);
    }

    void add(const QSizeF &size)
    {
        if (items.isEmpty()) {
            addFirst(size);
            return;
        }
        const float p = sum() + float(items.size() - 1) * space;
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
        resizeTo(double(sum() + float(items.size() - 1) * newSpace) + 2, across(view));
    }
};

const QList<QSizeF> equalSizes = {{100, 40}, {100, 40}, {100, 40}, {100, 40}, {100, 40}};
const QList<QSizeF> risingSizes = {{20, 30}, {40, 50.5}, {70.75, 90}, {200, 200}};
const QList<QSizeF> fallingSizes = {{200.875, 180.625}, {99.25, 70}, {33, 12.5}, {0, 0}, {1, 1}};
const QList<QSizeF> manySizes(risingSizes + fallingSizes + risingSizes);

void addLayouts()
{
    QTest::addColumn<int>("orientation");
    QTest::addColumn<float>("space");
    QTest::addColumn<float>("border");

    const QPair<int, const char *> orientations[] = {
        {0, "horizontal"}, {vertically, "vertical"}, {otherOrientation, "seven"}};
    for (const auto &orientation : orientations) {
        for (const float space : {0.5F, 0.0F, -3.25F, 12.0F, 100.3F}) {
            for (const float border : {2.0F, 0.0F, 7.75F, -1.5F}) {
                QTest::addRow("%s, space %g, border %g", orientation.second, double(space),
                              double(border))
                    << orientation.first << space << border;
            }
        }
    }
}

} // namespace

class tst_KELSideMenu : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithItsDefaults()
    {
        KELSideMenu menu(nullptr);
        QCOMPARE(int(menu.orientation()), 0);
        QCOMPARE(menu.orientation(), KELSideMenu::Horizontal);
        QCOMPARE(menu.space(), 0.5F);
        QCOMPARE(menu.borderWidth(), 2.0F);
        QVERIFY(menu.scene()->items().isEmpty());
        QCOMPARE(int(KELSideMenu::Vertical), 1);
        static_assert(sizeof(KELSideMenu::OrientationMode) == sizeof(int), "as wide as an int");
    }

    void isSetUpAsAnOverlay_data()
    {
        QTest::addColumn<bool>("hasParent");
        QTest::newRow("window") << false;
        QTest::newRow("child widget") << true;
    }

    void isSetUpAsAnOverlay()
    {
        QFETCH(bool, hasParent);
        QWidget parent;
        const KELSideMenu menu(hasParent ? &parent : nullptr);
        QCOMPARE(menu.parentWidget(), hasParent ? &parent : nullptr);
        QCOMPARE(menu.isWindow(), !hasParent);
        QCOMPARE(menu.windowFlags() & ~Qt::WindowFlags(Qt::Window), Qt::FramelessWindowHint);
        QCOMPARE(menu.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(menu.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(menu.styleSheet(), u"background: transparent;"_s);
        QVERIFY(menu.testAttribute(Qt::WA_TranslucentBackground));
        QCOMPARE(menu.sceneRect(), QRectF(0, 0, menu.width(), menu.height()));
        QCOMPARE(menu.scene()->sceneRect(),
                 hasParent ? QRectF(0, 0, 100, 30) : QRectF(0, 0, 640, 480));
    }

    void ownsItsScene()
    {
        auto *menu = new KELSideMenu(nullptr);
        const QPointer<QGraphicsScene> scene(menu->scene());
        QVERIFY(scene);
        QCOMPARE(scene->parent(), menu);
        QCOMPARE(scene->itemIndexMethod(), QGraphicsScene::NoIndex);
        delete menu;
        QVERIFY(!scene);
    }

    void addsNoSignalsSlotsOrProperties()
    {
        const QMetaObject &meta = KELSideMenu::staticMetaObject;
        QCOMPARE(meta.superClass(), &QGraphicsView::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void fieldsAreStored()
    {
        OpenMenu menu(nullptr);
        for (const int value : {vertically, otherOrientation, -1, 0}) {
            menu.setOrientationValue(value);
            QCOMPARE(int(menu.orientation()), value);
        }
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
        KELSideMenu menu(nullptr);
        KELRoundRectControl *first = add(&menu);
        KELRoundRectControl *second = add(&menu);
        const QSize size = menu.size();
        menu.setOrientation(KELSideMenu::Vertical);
        menu.setBorderWidth(9);
        QCOMPARE(first->style()->boundRect, QRectF(0, 0, 100, 40));
        QCOMPARE(second->style()->boundRect, QRectF(100.5, 0, 100, 40));
        QCOMPARE(first->style()->borderWidth, 2.0F);
        QCOMPARE(second->style()->borderWidth, 2.0F);
        QCOMPARE(menu.size(), size);
        QCOMPARE(add(&menu)->style()->borderWidth, 9.0F);
    }

    void firstControl_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<float>("border");
        QTest::addColumn<QSizeF>("control");
        QTest::addColumn<QSize>("view");

        const QSizeF usual(100, 40);
        QTest::newRow("horizontal") << 0 << 2.0F << usual << QSize(102, 44);
        QTest::newRow("vertical") << vertically << 2.0F << usual << QSize(104, 42);
        QTest::newRow("seven") << otherOrientation << 2.0F << usual << QSize(104, 42);
        QTest::newRow("no border") << 0 << 0.0F << usual << QSize(100, 40);
        QTest::newRow("fractions, horizontal") << 0 << 1.45F << QSizeF(100.5, 40) << QSize(101, 42);
        QTest::newRow("fractions, vertical")
            << vertically << 1.45F << QSizeF(100, 40.5) << QSize(102, 41);
        QTest::newRow("negative border") << 0 << -3.5F << usual << QSize(96, 33);
    }

    void firstControl()
    {
        QFETCH(int, orientation);
        QFETCH(float, border);
        QFETCH(QSizeF, control);
        QFETCH(QSize, view);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        menu.setBorderWidth(border);
        const KELRoundRectControl *first = add(&menu, control);
        QCOMPARE(first->style()->boundRect, QRectF(QPointF(0, 0), control));
        QCOMPARE(first->boundingRect(), QRectF(QPointF(0, 0), control));
        QCOMPARE(first->pos(), QPointF());
        QCOMPARE(first->style()->borderWidth, border);
        QCOMPARE(first->scene(), menu.scene());
        QCOMPARE(menu.size(), view);
        QCOMPARE(menu.scene()->items().size(), 1);
    }

    void secondControl()
    {
        OpenMenu menu(nullptr);
        add(&menu);
        const KELRoundRectControl *second = add(&menu);
        QCOMPARE(second->style()->boundRect, QRectF(100.5, 0, 100, 40));
        QCOMPARE(second->style()->borderWidth, 2.0F);
        QCOMPARE(menu.size(), QSize(204, 44));
        QCOMPARE(separatorsOf(menu).size(), 1);
        QCOMPARE(separatorsOf(menu).first()->boundingRect(), QRectF(100, 0, 0, 44));

        OpenMenu column(nullptr);
        column.setOrientationValue(vertically);
        add(&column);
        QCOMPARE(add(&column)->style()->boundRect, QRectF(0, 40.5, 100, 40));
        QCOMPARE(column.size(), QSize(104, 84));
        QCOMPARE(separatorsOf(column).first()->boundingRect(), QRectF(0, 40, 104, 0));
    }

    void furtherControlsCountEverySpace()
    {
        OpenMenu menu(nullptr);
        menu.setSpace(10);
        add(&menu);
        add(&menu);
        // Three items with two spaces between, then five with four.
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(230, 0, 100, 40));
        QCOMPARE(menu.size(), QSize(334, 44));
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(350, 0, 100, 40));
        QCOMPARE(menu.size(), QSize(454, 44));
        QCOMPARE(separatorsOf(menu).size(), 3);
    }

    void layout_data() { addLayouts(); }

    void layout()
    {
        QFETCH(int, orientation);
        QFETCH(float, space);
        QFETCH(float, border);
        for (const auto &sizes : {equalSizes, risingSizes, fallingSizes, manySizes}) {
            OpenMenu menu(nullptr);
            menu.setOrientationValue(orientation);
            menu.setBorderWidth(border);
            menu.setSpace(space);
            Model model = {orientation == 0, space, border, menu.size(), {}, {}, {}};
            for (const QSizeF &size : sizes) {
                const KELRoundRectControl *control = add(&menu, size);
                model.add(size);
                // Not QCOMPARE: to the bit.
                QVERIFY(control->style()->boundRect.x() == model.control.x());
                QVERIFY(control->style()->boundRect.y() == model.control.y());
                QVERIFY(control->style()->boundRect.size() == model.control.size());
                QCOMPARE(control->style()->borderWidth, border);
                QCOMPARE(menu.size(), model.view);
                const auto separators = separatorsOf(menu);
                QCOMPARE(separators.size(), model.separators.size());
                for (int i = 0; i < separators.size(); ++i) {
                    QVERIFY(separators.at(i)->boundingRect().x() == model.separators.at(i).x());
                    QVERIFY(separators.at(i)->boundingRect().y() == model.separators.at(i).y());
                    QCOMPARE(separators.at(i)->boundingRect(), model.separators.at(i));
                }
                QCOMPARE(menu.scene()->items().size(), model.items.size());
            }
        }
    }

    void lengthIsSummedInSinglePrecision()
    {
        // Rounded after each addition, from either end, and rounded once.
        constexpr float sizes[] = {1000.1F, 1000.3F, 99.9F};
        constexpr float space = 0.1F;
        const float sum = (sizes[0] + sizes[1]) + sizes[2];
        QVERIFY(sum == (sizes[2] + sizes[1]) + sizes[0]);
        QVERIFY(sum != float(double(sizes[0]) + double(sizes[1]) + double(sizes[2])));
        for (const auto orientation : {KELSideMenu::Horizontal, KELSideMenu::Vertical}) {
            KELSideMenu menu(nullptr);
            menu.setOrientation(orientation);
            menu.setSpace(0);
            for (const float size : sizes)
                add(&menu, QSizeF(double(size), double(size)));
            const QPointF corner = add(&menu)->boundingRect().topLeft();
            QVERIFY(corner.x() + corner.y() == double(sum));
        }
        KELSideMenu menu(nullptr);
        menu.setSpace(space);
        add(&menu);
        add(&menu);
        const double third = add(&menu)->boundingRect().x();
        QVERIFY(third == double((200.0F + 2 * space) + space));
        QVERIFY(third != 200.0 + 3 * double(space));
    }

    void lengthIsSummedFromTheTopmostItemDown_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<int>("indexMethod");
        QTest::addColumn<bool>("isFirstOnTop");
        for (const int orientation : {0, vertically}) {
            QTest::addRow("%d, no index", orientation)
                << orientation << int(QGraphicsScene::NoIndex) << false;
            QTest::addRow("%d, tree", orientation)
                << orientation << int(QGraphicsScene::BspTreeIndex) << false;
            QTest::addRow("%d, tree, the first on top", orientation)
                << orientation << int(QGraphicsScene::BspTreeIndex) << true;
        }
    }

    void lengthIsSummedFromTheTopmostItemDown()
    {
        QFETCH(int, orientation);
        QFETCH(int, indexMethod);
        QFETCH(bool, isFirstOnTop);
        constexpr float sizes[] = {1000.1F, 0.1F, 0.3F};
        const float downwards = isFirstOnTop ? (sizes[0] + sizes[2]) + sizes[1]
                                             : (sizes[2] + sizes[1]) + sizes[0];
        const float upwards = isFirstOnTop ? (sizes[1] + sizes[2]) + sizes[0]
                                           : (sizes[0] + sizes[1]) + sizes[2];
        // Otherwise this would say nothing.
        QVERIFY(downwards != upwards);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        menu.scene()->setItemIndexMethod(QGraphicsScene::ItemIndexMethod(indexMethod));
        menu.setSpace(0);
        QList<KELRoundRectControl *> controls;
        for (const float size : sizes)
            controls.append(add(&menu, QSizeF(double(size), double(size))));
        if (isFirstOnTop)
            controls.first()->setZValue(1);
        // Two spaces and 2 px, just enough for one more whole pixel in one of the two orders.
        const int whole = qCeil(qMin(downwards, upwards));
        const float space = (float(whole) - qMax(downwards, upwards)) / 2;
        menu.setSpace(space);
        QCOMPARE(orientation == 0 ? menu.width() : menu.height(),
                 int(double(downwards + 2 * space) + 2));
        QVERIFY(int(double(downwards + 2 * space)) != int(double(upwards + 2 * space)));
        menu.setSpace(0);
        const QPointF fourth = add(&menu)->boundingRect().topLeft();
        QVERIFY((orientation == 0 ? fourth.x() : fourth.y()) == double(downwards));
    }

    void layoutAfterItsFieldsChanged()
    {
        OpenMenu menu(nullptr);
        Model model = {true, 0.5F, 2, menu.size(), {}, {}, {}};
        const auto addBoth = [&](const QSizeF &size) {
            model.add(size);
            const KELRoundRectControl *control = add(&menu, size);
            return control->style()->boundRect == model.control && menu.size() == model.view;
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
        KELSideMenu menu(nullptr);
        KELRoundRectControl *controls[] = {makeControl({50, 20}), makeControl({60, 30})};
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
        QTest::addColumn<int>("orientation");
        QTest::addColumn<qreal>("thickness");
        QTest::addColumn<int>("then");

        for (const int orientation : {0, vertically, otherOrientation}) {
            // 44 px thick: room for 42 and one border.
            QTest::addRow("%d, thinner", orientation) << orientation << 20.0 << 44;
            QTest::addRow("%d, just room", orientation) << orientation << 42.0 << 44;
            QTest::addRow("%d, no room", orientation) << orientation << 42.25 << 46;
            QTest::addRow("%d, far thicker", orientation) << orientation << 90.75 << 94;
        }
    }

    void thickControlWidensTheMenu()
    {
        QFETCH(int, orientation);
        QFETCH(qreal, thickness);
        QFETCH(int, then);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        add(&menu, QSizeF(40, 40));
        add(&menu, orientation == 0 ? QSizeF(40, thickness) : QSizeF(thickness, 40));
        QCOMPARE(orientation == 0 ? menu.height() : menu.width(), then);
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
        QFETCH(qreal, size);
        QFETCH(int, length);
        KELSideMenu menu(nullptr);
        const KELRoundRectControl *first = add(&menu, QSizeF(size, 30));
        QCOMPARE(first->style()->boundRect.height(), 30.0);
        QCOMPARE(menu.size(), QSize(length, 34));
        add(&menu, QSizeF(size, 30));
        QCOMPARE(menu.size(), QSize(length, 34));
        menu.setSpace(1);
        QCOMPARE(menu.height(), 34);
    }

    void childItemsCount_data() { addOrientations(); }

    void childItemsCount()
    {
        QFETCH(int, orientation);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        KELRoundRectControl *first = makeControl({100, 100});
        auto *child = new KELRoundRectControl(first);
        child->setboundRect(10, 10, 30, 30);
        auto *grandchild = new KELRoundRectControl(child);
        grandchild->setboundRect(500, 500, 7, 7);
        menu.addItem(first);
        QCOMPARE(menu.scene()->items().size(), 3);
        QCOMPARE(orientation == 0 ? menu.width() : menu.height(), 102);
        // 100 + 30 + 7 and two spaces, then the space.
        QRectF second = add(&menu, {50, 50})->style()->boundRect;
        QCOMPARE(orientation == 0 ? second.x() : second.y(), 138.5);
        // 137 + 50 and four spaces, then the space: there is a separator too.
        second = add(&menu, {50, 50})->style()->boundRect;
        QCOMPARE(orientation == 0 ? second.x() : second.y(), 189.5);
    }

    void comboBoxCountsWithItsItems()
    {
        KELSideMenu menu(nullptr);
        auto *box = new KELComboBox(nullptr);
        menu.addItem(box);
        float extents = 0;
        const auto items = menu.scene()->items();
        for (const QGraphicsItem *item : items)
            extents += float(item->boundingRect().width());
        QVERIFY(items.size() > 1);
        const QRectF rect = add(&menu)->style()->boundRect;
        QCOMPARE(rect.x(), double(extents + float(items.size()) * 0.5F));
    }

    void itemsOfTheApplicationCount_data() { addOrientations(); }

    void itemsOfTheApplicationCount()
    {
        QFETCH(int, orientation);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        menu.resize(200, 200);
        menu.scene()->addRect(0, 0, 60, 60, Qt::NoPen)->setPos(300, 300);
        // The scene is not empty, so this is not a first control.
        const QRectF rect = add(&menu, {50, 50})->style()->boundRect;
        QCOMPARE(rect, orientation == 0 ? QRectF(60.5, 0, 50, 50) : QRectF(0, 60.5, 50, 50));
        QCOMPARE(separatorsOf(menu).size(), 1);
        QCOMPARE(menu.size(), orientation == 0 ? QSize(114, 200) : QSize(200, 114));
    }

    void hiddenItemsCount()
    {
        KELSideMenu menu(nullptr);
        add(&menu)->hide();
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(100.5, 0, 100, 40));
    }

    void separatorsCountAcross()
    {
        // A separator has no extent along its menu, but it has one across.
        KELSideMenu menu(nullptr);
        add(&menu);
        add(&menu);
        QCOMPARE(separatorsOf(menu).first()->boundingRect().height(), 44.0);
        menu.setOrientation(KELSideMenu::Vertical);
        // 40 + 44 + 40 and two spaces, then the space.
        QCOMPARE(add(&menu)->style()->boundRect, QRectF(0, 125.5, 100, 40));
        QCOMPARE(menu.size(), QSize(204, 169));
        QCOMPARE(separatorsOf(menu).last()->boundingRect(), QRectF(0, 125, 204, 0));
    }

    void separator_data() { addOrientations(); }

    void separator()
    {
        QFETCH(int, orientation);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        menu.setSpace(3.5F);
        add(&menu);
        add(&menu);
        QCOMPARE(separatorsOf(menu).size(), 1);
        KELLineItem *line = separatorsOf(menu).first();
        QCOMPARE(line->style()->borderWidth, 3.5F);
        QCOMPARE(line->style()->borderBrush, QBrush(QColor(Qt::white)));
        QVERIFY(!line->parentItem());
        // The line itself.
        const QSize canvas(200, 200);
        const QImage byHand = KelImage::draw(canvas, 1, [orientation](QPainter *painter) {
            painter->setPen(QPen(Qt::white, 3.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
            painter->drawLine(orientation == 0 ? QLineF(100, 0, 100, 44) : QLineF(0, 40, 104, 40));
        });
        QCOMPARE(KelImage::difference(KelImage::paint(line, canvas), byHand), QString());
        // A later change is for later lines.
        menu.setSpace(8);
        QCOMPARE(line->style()->borderWidth, 3.5F);
        add(&menu);
        QCOMPARE(separatorsOf(menu).first()->style()->borderWidth, 3.5F);
        QCOMPARE(separatorsOf(menu).last()->style()->borderWidth, 8.0F);
    }

    void separatorReachesTheEdgeOfThatTime()
    {
        KELSideMenu menu(nullptr);
        add(&menu);
        menu.resize(500, 333);
        // Before the menu grows for the thicker control.
        add(&menu, QSizeF(100, 600));
        QCOMPARE(separatorsOf(menu).first()->boundingRect(), QRectF(100, 0, 0, 333));
        QCOMPARE(menu.height(), 604);
        add(&menu, QSizeF(100, 600));
        QCOMPARE(separatorsOf(menu).first()->boundingRect(), QRectF(100, 0, 0, 333));
        QCOMPARE(separatorsOf(menu).last()->boundingRect().height(), 604.0);
    }

    void noSeparator_data()
    {
        QTest::addColumn<float>("space");
        QTest::addColumn<qreal>("second");
        QTest::addColumn<qreal>("third");
        QTest::addColumn<int>("width");

        QTest::newRow("no space") << 0.0F << 100.0 << 200.0 << 304;
        QTest::newRow("negative space") << -10.0F << 90.0 << 180.0 << 284;
    }

    void noSeparator()
    {
        QFETCH(float, space);
        QFETCH(qreal, second);
        QFETCH(qreal, third);
        QFETCH(int, width);
        KELSideMenu menu(nullptr);
        menu.setSpace(space);
        add(&menu);
        QCOMPARE(add(&menu)->style()->boundRect.x(), second);
        QCOMPARE(add(&menu)->style()->boundRect.x(), third);
        QVERIFY(separatorsOf(menu).isEmpty());
        QCOMPARE(menu.width(), width);
    }

    void setSpaceOfAnEmptyMenu_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<float>("space");
        QTest::addColumn<int>("length");

        for (const int orientation : {0, vertically, otherOrientation}) {
            QTest::addRow("%d, half a px", orientation) << orientation << 0.5F << 1;
            QTest::addRow("%d, none", orientation) << orientation << 0.0F << 2;
            QTest::addRow("%d, more than 2 px", orientation) << orientation << 8.0F << 0;
            QTest::addRow("%d, negative", orientation) << orientation << -10.75F << 12;
        }
    }

    void setSpaceOfAnEmptyMenu()
    {
        QFETCH(int, orientation);
        QFETCH(float, space);
        QFETCH(int, length);
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        menu.resize(300, 200);
        menu.setSpace(space);
        QCOMPARE(menu.size(), orientation == 0 ? QSize(length, 200) : QSize(300, length));
        QCOMPARE(menu.space(), space);
    }

    void setSpaceResizes_data() { addLayouts(); }

    void setSpaceResizes()
    {
        QFETCH(int, orientation);
        QFETCH(float, space);
        QFETCH(float, border);
        for (const auto &sizes : {QList<QSizeF>{{100, 40}}, risingSizes, manySizes}) {
            OpenMenu menu(nullptr);
            menu.setOrientationValue(orientation);
            menu.setBorderWidth(border);
            Model model = {orientation == 0, 0.5F, border, menu.size(), {}, {}, {}};
            for (const QSizeF &size : sizes) {
                add(&menu, size);
                model.add(size);
            }
            menu.setSpace(space);
            model.setSpace(space);
            QCOMPARE(menu.size(), model.view);
        }
        // In numbers: three items with two spaces, and 2 px.
        OpenMenu menu(nullptr);
        menu.setOrientationValue(orientation);
        menu.setBorderWidth(border);
        add(&menu, QSizeF(100, 100));
        add(&menu, QSizeF(100, 100));
        menu.resize(250, 250);
        menu.setSpace(4);
        QCOMPARE(menu.size(), orientation == 0 ? QSize(210, 250) : QSize(250, 210));
    }

    void setSpaceMovesNothing()
    {
        KELSideMenu menu(nullptr);
        const KELRoundRectControl *first = add(&menu);
        const KELRoundRectControl *second = add(&menu);
        menu.setSpace(50);
        QCOMPARE(first->style()->boundRect, QRectF(0, 0, 100, 40));
        QCOMPARE(second->style()->boundRect, QRectF(100.5, 0, 100, 40));
        QCOMPARE(separatorsOf(menu).size(), 1);
        QCOMPARE(separatorsOf(menu).first()->boundingRect(), QRectF(100, 0, 0, 44));
        QCOMPARE(menu.scene()->items().size(), 3);
    }
};

KEL_TEST_MAIN(tst_KELSideMenu)
#include "tst_kelsidemenu.moc"
