// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "screen.h"

#include <QtGui/QPixmapCache>

namespace {

using Role = Benchmark::Role;

constexpr int count = 100;
constexpr int many = 1000;

// One press after the other, each until it is painted.
void measurePresses(const char *scenario, const char *contender, Role role, const Screen &screen)
{
    const int size = int(screen.buttons.size());
    Benchmark::Meter meter;
    const int repetitions = Benchmark::repetitions(1000);
    for (int i = -2; i < repetitions; ++i) {
        const int pressed = (i + 2) * 7 % size; // not beside the one before
        if (i < 0)
            screen.press(pressed);
        else
            meter.measure([&] { screen.press(pressed); });
        screen.release(pressed);
    }
    meter.report(scenario, contender, role, repetitions);
}

void measureUpdateModes()
{
    const char *const scenario = "press, by viewport update mode";
    Screen screen(many);
    measurePresses(scenario, "MinimalViewportUpdate", Role::Reference, screen);
    screen.view.setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    measurePresses(scenario, "SmartViewportUpdate", Role::Other, screen);
    screen.view.setViewportUpdateMode(QGraphicsView::BoundingRectViewportUpdate);
    measurePresses(scenario, "BoundingRectViewportUpdate", Role::Other, screen);
    screen.view.setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    measurePresses(scenario, "FullViewportUpdate", Role::Other, screen);
}

void measureIndexes()
{
    for (const int number : {count, many}) {
        const QByteArray scenario = "press, by scene index, " + QByteArray::number(number)
            + " push buttons";
        Screen screen(number);
        measurePresses(scenario, "BspTreeIndex", Role::Reference, screen);
        screen.view.scene()->setItemIndexMethod(QGraphicsScene::NoIndex);
        measurePresses(scenario, "NoIndex", Role::Other, screen);
    }
}

// Until the first frame of a screen that is shown already.
template <typename Place, typename PlaceAgain>
void measureFill(const char *contender, Role role, Place place, PlaceAgain placeAgain)
{
    const int repetitions = Benchmark::repetitions(100);
    Benchmark::Meter meter;
    for (int i = -1; i < repetitions; ++i) {
        View view(areaOf(count));
        view.open();
        const auto fill = [&] {
            for (int n = 0; n < count; ++n) {
                auto *const button = new Button(place(n));
                view.scene()->addItem(button);
                placeAgain(button, n);
            }
            View::paintPending();
        };
        if (i < 0)
            fill();
        else
            meter.measure(fill);
    }
    meter.report("fill a shown view", contender, role, repetitions);
}

QRectF finalPlace(int index)
{
    return placeOf(index, count);
}

void measureGeometry()
{
    measureFill("geometry first, then added", Role::Reference, finalPlace, [](Button *, int) {});
    // The way that is left for a control that the scene knows.
    measureFill(
        "added first, then hidden, placed and shown", Role::Other,
        [](int) { return QRectF(0, 0, 1, 1); },
        [](Button *button, int index) {
            button->hide();
            button->setboundRect(finalPlace(index));
            button->show();
        });
}

void measureBackgrounds()
{
    const char *const scenario = "press, by background";
    {
        const Screen screen(count);
        measurePresses(scenario, "none", Role::Reference, screen);
    }
    {
        Screen screen(count);
        screen.view.setBackgroundBrush(QColor(20, 20, 40));
        measurePresses(scenario, "background brush of the view", Role::Other, screen);
    }
    {
        Screen screen(count);
        auto *const background = new KELRoundRectControl;
        background->setboundRect(screen.view.sceneRect());
        background->style()->backgroundBrush = QColor(20, 20, 40);
        background->setZValue(-1);
        screen.view.scene()->addItem(background);
        View::paintPending();
        measurePresses(scenario, "a control that fills the view", Role::Other, screen);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    QPixmapCache::setCacheLimit(100 * 1024);
    measureUpdateModes();
    measureIndexes();
    measureGeometry();
    measureBackgrounds();
    return 0;
}
