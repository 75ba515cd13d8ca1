// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "hand.h"
#include "keltest.h"
#include "samples.h"

#include <kelcombobox.h>
#include <kelcontentview.h>
#include <kelnavigationtable.h>
#include <kelradiobox.h>
#include <kelsidemenu.h>
#include <kelslidecontrol.h>

#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsWidget>

#include <algorithm>

namespace {

constexpr QRgb blue = qRgb(50, 173, 235); // dots of radio boxes
constexpr QRgb green = qRgb(0, 255, 0);
constexpr QPointF pageCorner(0, 35);
constexpr QPoint viewPos(70, 50);

// From the top down and from left to right.
template <typename Control>
QList<Control *> all(const QGraphicsView *view)
{
    QList<Control *> controls;
    const QList<QGraphicsItem *> items = view->items();
    for (QGraphicsItem *item : items) {
        if (auto *control = dynamic_cast<Control *>(item))
            controls.append(control);
    }
    std::sort(controls.begin(), controls.end(), [](const Control *a, const Control *b) {
        const QPointF first = a->sceneBoundingRect().topLeft();
        const QPointF second = b->sceneBoundingRect().topLeft();
        return first.y() < second.y() || (first.y() == second.y() && first.x() < second.x());
    });
    return controls;
}

QImage picture(QGraphicsView *view)
{
    QImage image(view->viewport()->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    view->viewport()->render(&image);
    return image;
}

// The pixels of a colour in the view, in the scene.
QRectF drawnIn(QRgb colour, QGraphicsView *view)
{
    const QImage image = picture(view);
    QRect pixels;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == colour)
                pixels |= QRect(x, y, 1, 1);
        }
    }
    return view->viewportTransform().inverted().mapRect(QRectF(pixels));
}

// Within the two pixels that antialiased edges and a scaled view may take.
bool isCentredOn(const QRectF &drawn, const QPointF &centre)
{
    return !drawn.isEmpty() && (drawn.center() - centre).manhattanLength() < 2;
}

void tap(const QGraphicsView *view, const QPointF &scenePos)
{
    Hand(view->viewport()).tap(view->mapFromScene(scenePos));
}

void drag(const QGraphicsView *view, const QPointF &from, const QPointF &to)
{
    Hand(view->viewport()).drag(view->mapFromScene(from), view->mapFromScene(to));
}

// The sample's table without what the guide recommends: the controls are on the page itself.
void removeLayer(KELNavigationTable *table)
{
    QGraphicsItem *const page = table->selectItem();
    const QList<QGraphicsItem *> items = page->childItems();
    for (QGraphicsItem *item : items) {
        if (!dynamic_cast<QGraphicsWidget *>(item))
            continue;
        const QList<QGraphicsItem *> controls = item->childItems();
        for (QGraphicsItem *control : controls)
            control->setParentItem(page);
        delete item;
    }
}

// The table of the sample in a window, as the guide shows it there.
class Stage
{
public:
    Stage() : table(newSettings()), view(newExactView(table, &window, viewPos))
    {
        window.resize(600, 420);
    }
    bool show()
    {
        window.show();
        return QTest::qWaitForWindowExposed(&window);
    }
    KELSlideControl *greenSlider() const
    {
        KELSlideControl *const slider = all<KELSlideControl>(view).value(0);
        slider->style()->foregroundBrush = QColor(green);
        return slider;
    }

    QWidget window;
    KELNavigationTable *const table;
    KELContentView *const view;
};

// Both halves of the guide's picture: without the layer and with it.
bool savePicture(const QString &file)
{
    QImage image(920, 310, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (const bool layered : {false, true}) {
        Stage stage;
        if (!layered)
            removeLayer(stage.table);
        all<KELSlideControl>(stage.view).value(0)->setValue(40);
        all<KELComboBox>(stage.view).value(0)->setSelectIndex(1);
        if (!stage.show())
            return false;
        painter.drawImage(layered ? 480 : 0, 0, picture(stage.view));
    }
    painter.end();
    return image.save(file);
}

} // namespace

class tst_GuidePlacing : public KelTest
{
    Q_OBJECT

private Q_SLOTS:
    void viewIsPixelExact_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("as large as the content") << QSize(440, 310);
        QTest::newRow("larger") << QSize(500, 333);
        QTest::newRow("smaller") << QSize(101, 51);
    }

    void viewIsPixelExact()
    {
        QFETCH(const QSize, size);
        Stage stage;
        QCOMPARE(stage.view->size(), QSize(440, 310));
        QVERIFY(stage.show());
        stage.view->resize(size);
        QCOMPARE(stage.view->pos(), viewPos);
        QCOMPARE(stage.view->viewport()->geometry(), QRect(QPoint(0, 0), size));
        QVERIFY(stage.view->viewportTransform().isIdentity());
    }

    void radioBoxIsDrawnAndPressedAtItsPlace_data()
    {
        addRows({{"id", {{"first", 0}, {"second", 1}, {"third", 2}}}});
    }

    void radioBoxIsDrawnAndPressedAtItsPlace()
    {
        const int id = fetch<int>("id");
        Stage stage;
        all<KELSlideControl>(stage.view).value(0)->hide();
        QVERIFY(stage.show());
        const auto *group = stage.table->selectItem()->findChild<KELRadioBoxGroup *>();
        const QPointF centre = pageCorner + QPointF(40 + 60 * id, 40);
        tap(stage.view, pageCorner + QPointF(40 + 60 * ((id + 1) % 3), 40));
        tap(stage.view, centre);
        QCOMPARE(group->id(), id);
        const QRectF drawn = drawnIn(blue, stage.view);
        QVERIFY(isCentredOn(drawn, centre));
        QVERIFY(drawn.width() > 16);
        QVERIFY(drawn.height() > 16);
    }

    void sliderIsDrawnAndDraggedAtItsPlace()
    {
        Stage stage;
        KELSlideControl *slider = stage.greenSlider();
        QVERIFY(stage.show());
        const QPointF knob = pageCorner + QPointF(20 + 15, 120);
        QVERIFY(isCentredOn(drawnIn(green, stage.view), knob));
        drag(stage.view, knob + QPointF(0, 10), knob + QPointF(100, 10));
        QCOMPARE(slider->value(), 50.0F);
        // The knob ends the part of the groove that is filled in its colour.
        const QRectF drawn = drawnIn(green, stage.view);
        QVERIFY(qAbs(drawn.right() - (knob.x() + 100 + 14)) < 2);
        QVERIFY(qAbs(drawn.center().y() - knob.y()) < 2);
        QVERIFY(drawn.height() > 25);
    }

    void entryOfTheComboBoxIsTaken_data()
    {
        addRows({{"index", {{"first", 0}, {"second", 1}, {"last", 2}}}});
    }

    void entryOfTheComboBoxIsTaken()
    {
        const int index = fetch<int>("index");
        Stage stage;
        QVERIFY(stage.show());
        const KELComboBox *speed = all<KELComboBox>(stage.view).value(0);
        const QPointF corner = pageCorner + QPointF(270, 20);
        tap(stage.view, corner + QPointF(75, 20));
        QVERIFY(speed->items().first()->isVisible());
        tap(stage.view, corner + QPointF(75, 39 + 30 * index + 15));
        QCOMPARE(speed->selectIndex(), index);
        QVERIFY(!speed->items().first()->isVisible());
    }

    void pressBesideTheControlsGoesToThePage()
    {
        Stage stage;
        QVERIFY(stage.show());
        const QSignalSpy pressed(stage.table->selectItem(), &KELRoundRectControl::mousePress);
        tap(stage.view, pageCorner + QPointF(0, 0));
        tap(stage.view, pageCorner + QPointF(70, 40));
        tap(stage.view, pageCorner + QPointF(439, 194));
        QCOMPARE(pressed.count(), 3);
    }

    void tabIsPressed()
    {
        Stage stage;
        QVERIFY(stage.show());
        tap(stage.view, QPointF(330, 232));
        QCOMPARE(stage.table->selectIndex(), 1);
        QVERIFY(!all<KELRadioBox>(stage.view).value(0)->isVisible());
    }

    void menuRowIsDrawnAndPressedAtItsPlace_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QPointF>("corner");
        QTest::newRow("first") << 0 << QPointF(0, 0);
        QTest::newRow("second") << 1 << QPointF(0, 60.5);
        QTest::newRow("third") << 2 << QPointF(0, 121.5);
    }

    void menuRowIsDrawnAndPressedAtItsPlace()
    {
        QFETCH(const int, row);
        QFETCH(const QPointF, corner);
        QWidget window;
        window.resize(400, 300);
        KELSideMenu *menu = newMenuRows(&window);
        const QList<KELSlideControl *> sliders = all<KELSlideControl>(menu);
        for (KELSlideControl *slider : sliders)
            slider->style()->foregroundBrush = QColor(slider == sliders.at(row) ? Qt::green
                                                                                : Qt::red);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        tap(menu, corner + QPointF(30, 30));
        QVERIFY(all<KELRadioBox>(menu).value(row)->isCheck());
        QVERIFY(isCentredOn(drawnIn(blue, menu), corner + QPointF(30, 30)));
        QVERIFY(isCentredOn(drawnIn(green, menu), corner + QPointF(75, 30)));
        drag(menu, corner + QPointF(75, 30), corner + QPointF(175, 30));
        QVERIFY(qAbs(sliders.at(row)->value() - 50) < 1);
    }

    void menuIsAsLongAsItsRows()
    {
        QWidget window;
        const KELSideMenu *menu = newMenuRows(&window);
        QCOMPARE(menu->height(), int(3 * 60 + 3 * 0.5 + 4));
    }

    void withoutLayerTheCircleIsBesideItsPlace()
    {
        Stage stage;
        removeLayer(stage.table);
        all<KELSlideControl>(stage.view).value(0)->hide();
        QVERIFY(stage.show());
        // The circle would be 35 px further up, where the cache has cut it off; the press is taken
        // below.
        QVERIFY(drawnIn(blue, stage.view).isEmpty());
        tap(stage.view, pageCorner + QPointF(100, 40));
        QVERIFY(all<KELRadioBox>(stage.view).value(1)->isCheck());
    }

    void withoutLayerTheKnobIsBesideItsGroove()
    {
        Stage stage;
        removeLayer(stage.table);
        const KELSlideControl *slider = stage.greenSlider();
        QVERIFY(stage.show());
        const QPointF knob = pageCorner + QPointF(20 + 15, 120);
        QVERIFY(drawnIn(green, stage.view).height() < 10);
        drag(stage.view, knob, knob + QPointF(100, 0));
        QVERIFY(!qFuzzyCompare(slider->value(), 50.0F));
    }

    void entryInAMovedTableIsNotTaken()
    {
        KelTestView view(QSize(700, 500));
        KELNavigationTable *table = newSettings();
        table->setPos(100, 100);
        view.ownScene.addItem(table);
        QVERIFY(view.showAndWait());
        const KELComboBox *speed = all<KELComboBox>(&view).value(0);
        const QPointF corner = QPointF(100, 100) + pageCorner + QPointF(270, 20);
        tap(&view, corner + QPointF(75, 20));
        QVERIFY(speed->items().first()->isVisible());
        tap(&view, corner + QPointF(75, 39 + 15));
        QCOMPARE(speed->selectIndex(), -1);
        QVERIFY(!speed->items().first()->isVisible());
    }

    void pageMovedToTheCornerNeedsNoLayer()
    {
        Stage stage;
        KELNavigationTableItem *page = stage.table->selectItem();
        removeLayer(stage.table);
        const QRectF area = page->boundingRect();
        page->setboundRect(0, 0, area.right(), area.bottom());
        all<KELSlideControl>(stage.view).value(0)->hide();
        QVERIFY(stage.show());

        tap(stage.view, QPointF(100, 40));
        QVERIFY(all<KELRadioBox>(stage.view).value(1)->isCheck());
        QVERIFY(isCentredOn(drawnIn(blue, stage.view), QPointF(100, 40)));
    }
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == "--picture")
        return savePicture(arguments.at(2)) ? 0 : 1;
    tst_GuidePlacing test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_guideplacing.moc"
