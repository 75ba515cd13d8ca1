// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"
#include "verbs.h"
#include "virtualtime.h"

#include <QtWidgets/QApplication>

#include <array>

using namespace Monkey;

namespace {

struct Spot
{
    QWidget *widget = nullptr;
    QPoint pos;
};

// A place of an item, in a view that shows it; of an open popup, while there is one and the item is
// a multiple of three.
Spot spotOf(const Stage &stage, int item, double x, double y)
{
    constexpr qreal limitPx = 2000;
    QWidget *const popup = QApplication::activePopupWidget();
    if (popup && item % 3 == 0)
        return {popup, QPointF(x * popup->width(), y * popup->height()).toPoint()};
    const KELRoundRectControl *const control = stage.item(item);
    if (!control || !control->scene())
        return {};
    const QRectF rect = control->boundingRect();
    const QPointF pos = control->mapToScene(rect.x() + x * rect.width(),
                                            rect.y() + y * rect.height());
    if (!(qAbs(pos.x()) < limitPx && qAbs(pos.y()) < limitPx))
        return {};
    const QList<QGraphicsView *> views = control->scene()->views();
    for (const QGraphicsView *view : views) {
        if (view->isVisible())
            return {view->viewport(), view->mapFromScene(pos)};
    }
    return {};
}

Spot spotOf(const Stage &stage, const Step &step, int first)
{
    return spotOf(stage, step.whole(first), step.number(first + 1), step.number(first + 2));
}

Qt::MouseButton buttonOf(const Step &step, int index)
{
    constexpr std::array<Qt::MouseButton, 3> buttons = {Qt::LeftButton, Qt::RightButton,
                                                        Qt::MiddleButton};
    return buttons.at(Stage::wrap(step.whole(index), int(buttons.size())));
}

void press(Stage &stage, const Step &step)
{
    const Spot spot = spotOf(stage, step, 0);
    if (spot.widget)
        stage.hands.pressMouse(spot.widget, spot.pos, buttonOf(step, 3), step.flag(4));
}

void tap(Stage &stage, const Step &step)
{
    const Spot spot = spotOf(stage, step, 0);
    if (!spot.widget)
        return;
    stage.hands.pressMouse(spot.widget, spot.pos, Qt::LeftButton, step.flag(3));
    stage.hands.releaseMouse(Qt::LeftButton);
}

void move(Stage &stage, const Step &step)
{
    const Spot spot = spotOf(stage, step, 0);
    if (spot.widget)
        stage.hands.moveMouse(spot.widget, spot.pos);
}

void bare(Stage &stage, const Step &step)
{
    QGraphicsView *const view = stage.view(step.whole(0));
    if (!view || !view->isVisible())
        return;
    const QPoint pos(step.whole(1) % 500, step.whole(2) % 500);
    stage.hands.pressMouse(view->viewport(), pos, Qt::LeftButton, false);
    stage.hands.releaseMouse(Qt::LeftButton);
}

void touch(Stage &stage, const Step &step)
{
    const Spot spot = spotOf(stage, step, 1);
    if (spot.widget)
        stage.hands.touch(step.whole(0), spot.widget, spot.pos);
}

void slide(Stage &stage, const Step &step)
{
    const Spot spot = spotOf(stage, step, 1);
    if (spot.widget)
        stage.hands.slide(step.whole(0), spot.widget, spot.pos);
}

void wheel(Stage &stage, const Step &step)
{
    const Spot spot = spotOf(stage, step, 0);
    if (spot.widget)
        stage.hands.wheel(spot.widget, spot.pos, step.whole(3) % 1000);
}

void key(Stage &stage, const Step &step)
{
    constexpr std::array<int, 9> keys = {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Down,
                                         Qt::Key_Up,     Qt::Key_Tab,    Qt::Key_Backtab,
                                         Qt::Key_Space,  Qt::Key_Menu,   Qt::Key_A};
    stage.hands.key(keys.at(Stage::wrap(step.whole(0), int(keys.size()))));
}

void release(const Stage &stage, QGraphicsScene *scene)
{
    QGraphicsItem *const grabber = scene ? scene->mouseGrabberItem() : nullptr;
    if (!grabber)
        return;
    const QGraphicsObject *const object = grabber->toGraphicsObject();
    if (Witness *const witness = object ? stage.witness(object) : nullptr)
        witness->losePointer();
    grabber->ungrabMouse();
}

// The turns around it: a control stays pressed if grab and selection go elsewhere in one of them.
void ungrab(Stage &stage, const Step &step)
{
    stage.turn();
    release(stage, stage.sceneOf(step.whole(0)));
    stage.turn();
}

void grab(Stage &stage, const Step &step)
{
    stage.turn();
    const KELRoundRectControl *const control = stage.item(step.whole(0));
    release(stage, control ? control->scene() : nullptr);
    stage.turn();
    KELRoundRectControl *const item = stage.item(step.whole(0));
    if (!item || !item->scene() || !item->isVisible() || item->scene()->mouseGrabberItem())
        return;
    item->grabMouse();
    stage.turn();
}

void elapse(Stage &stage, const Step &step)
{
    stage.turn(); // what is posted comes before a timer
    stage.time->advance(qBound(0, step.whole(0), 10000));
}

} // namespace

void Monkey::addPointerVerbs(std::vector<Verb> *list)
{
    const Argument item = {"item", Kind::Below, Stage::itemCount};
    const Argument view = {"view", Kind::Below, Stage::viewCount};
    const Argument x = {"x", Kind::Place, 0};
    const Argument y = {"y", Kind::Place, 0};
    const Argument finger = {"finger", Kind::Below, 2};
    const Argument button = {"button", Kind::Button, 3};
    const Argument isDouble = {"may-be-double", Kind::Below, 2};
    const Reach events = Reach::NotInSlots;
    list->insert(
        list->end(),
        {
            {"press", 20, events, {item, x, y, button, isDouble}, press},
            {"tap", 20, events, {item, x, y, isDouble}, tap},
            {"move", 20, events, {item, x, y}, move},
            {"release",
             20,
             events,
             {button},
             [](Stage &stage, const Step &step) { stage.hands.releaseMouse(buttonOf(step, 0)); }},
            {"bare",
             6,
             events,
             {view, {"x", Kind::Position, 240}, {"y", Kind::Position, 160}},
             bare},
            {"touch", 15, events, {finger, item, x, y}, touch},
            {"slide", 10, events, {finger, item, x, y}, slide},
            {"lift",
             15,
             events,
             {finger},
             [](Stage &stage, const Step &step) { stage.hands.lift(step.whole(0)); }},
            {"letgo", 3, events, {}, [](Stage &stage, const Step &) { stage.hands.releaseAll(); }},
            {"cancel", 3, events, {}, [](Stage &stage, const Step &) { stage.hands.cancel(); }},
            {"wheel", 4, events, {item, x, y, {"delta", Kind::Whole, 0}}, wheel},
            {"key", 8, events, {{"key", Kind::Below, 9}}, key},
            {"grab", 3, events, {item}, grab},
            {"ungrab", 4, events, {view}, ungrab},
            {"elapse", 8, events, {{"ms", Kind::Time, 0}}, elapse},
            {"turn", 10, events, {}, [](Stage &stage, const Step &) { stage.turn(); }},
        });
}
