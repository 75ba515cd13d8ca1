// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"
#include "verbs.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellabel.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelslidecontrol.h>

#include <array>
#include <cmath>

using namespace Monkey;

namespace {

// Counts its paints.
template <class Control>
class Counted : public Control
{
public:
    explicit Counted(Stage *stage) : m_stage(stage) { }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++m_stage->paintsInTurn;
        Control::paint(painter, option, widget);
    }

private:
    Stage *const m_stage;
};

constexpr int classCount = 14; // the frequent ones twice

KELRoundRectControl *create(Stage *stage, int kind)
{
    switch (Stage::wrap(kind, classCount)) {
    case 0: {
        auto *const control = new Counted<KELRoundRectControl>(stage);
        control->setFlag(QGraphicsItem::ItemIsSelectable);
        return control;
    }
    case 1:
        return new Counted<KELCheckBox>(stage);
    case 2:
    case 3:
        return new Counted<KELRadioBox>(stage);
    case 4:
        return new Counted<KELProcessBar>(stage);
    case 5:
        return new Counted<KELSlideControl>(stage);
    case 6:
    case 7:
        return new Counted<KELComboBox>(stage);
    case 8:
        return new Counted<KELNavigationTable>(stage);
    case 9:
        return new Counted<KELNavigationTableItem>(stage);
    case 10:
        return new Counted<KELLabel>(stage);
    case 11:
        return new Counted<KELLineItem>(stage);
    default:
        return new Counted<KELPushButton>(stage);
    }
}

void watchParts(Stage *stage, const KELRoundRectControl *control)
{
    const QList<QGraphicsItem *> children = control->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *const part = qobject_cast<KELRoundRectControl *>(child->toGraphicsObject())) {
            stage->watch(part);
            watchParts(stage, part);
        }
    }
}

void make(Stage &stage, const Step &step)
{
    if (stage.item(step.whole(0)))
        return;
    KELRoundRectControl *const control = create(&stage, step.whole(1));
    stage.setItem(step.whole(0), control);
    control->setboundRect(step.number(4), step.number(5), step.number(6), step.number(7));
    // One of ten goes to another view.
    KELRoundRectControl *const parent = step.whole(2) % 4 == 0 ? stage.item(step.whole(2) / 4)
                                                               : nullptr;
    if (parent && parent != control)
        control->setParentItem(parent);
    else
        stage.add(step.whole(3) < Stage::viewCount && stage.view(step.whole(3)) ? step.whole(3) : 0,
                  control);
    watchParts(&stage, control);
}

// What makes a control more than an empty rectangle.
void equip(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (auto *const box = qobject_cast<KELComboBox *>(control)) {
        for (int i = 0; i < 3; ++i)
            box->addItem(i, text(i));
        watchParts(&stage, box);
        box->setSelectIndex(step.whole(1) % 3);
    } else if (auto *const table = qobject_cast<KELNavigationTable *>(control)) {
        for (int i = 1; i < Stage::itemCount; ++i) {
            auto *const page = stage.itemAs<KELNavigationTableItem>(step.whole(0) + i);
            if (page && !page->isAncestorOf(table))
                table->addItem(page);
        }
    } else if (auto *const line = qobject_cast<KELLineItem *>(control)) {
        line->setLine({10, 10}, {80, 50});
    } else if (control) {
        control->setText(text(step.whole(1)));
    }
}

void destroy(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return;
    if (step.flag(1))
        control->deleteLater();
    else
        delete control;
}

void enable(Stage &stage, const Step &step)
{
    if (KELRoundRectControl *const control = stage.item(step.whole(0)))
        control->setEnabled(step.flag(1));
}

void show(Stage &stage, const Step &step)
{
    if (KELRoundRectControl *const control = stage.item(step.whole(0)))
        control->setVisible(step.flag(1));
}

void reparent(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    KELRoundRectControl *const parent = stage.item(step.whole(1));
    if (!control || control == parent || (parent && control->isAncestorOf(parent)))
        return;
    if (step.flag(2) && parent && control->scene() && control->scene() != parent->scene())
        control->scene()->removeItem(control); // Qt crashes otherwise
    // In a push button, which gets the release, a control stays pressed.
    const QList<Witness *> witnesses = stage.witnesses();
    for (Witness *witness : witnesses) {
        if (witness->control() == control || control->isAncestorOf(witness->control()))
            witness->expectToStay();
    }
    control->setParentItem(step.flag(2) ? parent : nullptr);
}

void leave(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (control && control->scene())
        control->scene()->removeItem(control);
}

void come(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (control && !control->parentItem())
        stage.add(step.whole(1), control);
}

void setRect(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return;
    const QRectF rect(step.number(2), step.number(3), step.number(4), step.number(5));
    if (step.flag(1)) {
        control->setboundRect(rect);
        if (Witness *const witness = stage.witness(control))
            witness->setOdd(); // the knob of a slider may be 15 px off
    } else {
        control->setboundRect(rect.x(), rect.y(), rect.width(), rect.height());
    }
    control->update();
}

// Qt itself does not expect coordinates that are not finite.
double finite(double number)
{
    return std::isfinite(number) ? qBound(-1e6, number, 1e6) : 0;
}

void place(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return;
    constexpr std::array<qreal, 6> scales = {1, 1, 0.5, 2, -1, 0.01};
    control->setPos(finite(step.number(1)), finite(step.number(2)));
    control->setRotation(step.whole(3) * 45);
    control->setScale(scales.at(Stage::wrap(step.whole(4), int(scales.size()))));
    control->setZValue(finite(step.number(5)));
}

void setFlag(Stage &stage, const Step &step)
{
    constexpr std::array<QGraphicsItem::GraphicsItemFlag, 5> flags = {
        QGraphicsItem::ItemIsSelectable, QGraphicsItem::ItemIsMovable,
        QGraphicsItem::ItemIsFocusable, QGraphicsItem::ItemClipsChildrenToShape,
        QGraphicsItem::ItemIsPanel};
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control || stage.groupOf(control)) // the group decides about its input
        return;
    if (Witness *const witness = stage.witness(control))
        witness->expectToStay();
    control->setFlag(flags.at(Stage::wrap(step.whole(1), int(flags.size()))), step.flag(2));
}

void setInput(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control || stage.groupOf(control)) // the group decides about its input
        return;
    switch (step.whole(1)) {
    case 0:
        control->setAcceptHoverEvents(step.flag(2));
        break;
    case 1:
        control->setAcceptTouchEvents(step.flag(2));
        break;
    case 2:
        control->setAcceptedMouseButtons(step.flag(2) ? Qt::LeftButton : Qt::NoButton);
        break;
    case 3:
        control->setAcceptedMouseButtons(step.flag(2) ? Qt::AllButtons : Qt::RightButton);
        break;
    case 4:
        control->setCacheMode(step.flag(2) ? QGraphicsItem::NoCache
                                           : QGraphicsItem::DeviceCoordinateCache);
        break;
    default:
        control->setSelected(step.flag(2));
        break;
    }
}

void focus(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return;
    if (step.flag(1))
        control->setFocus();
    else
        control->clearFocus();
}

} // namespace

void Monkey::addItemVerbs(std::vector<Verb> *list)
{
    const Argument item = {"item", Kind::Below, Stage::itemCount};
    const Argument view = {"view", Kind::Below, Stage::viewCount};
    const Argument isOn = {"on", Kind::Below, 2};
    const Argument x = {"x", Kind::Position, 200};
    const Argument y = {"y", Kind::Position, 130};
    const Argument width = {"width", Kind::Length, 0};
    const Argument height = {"height", Kind::Length, 0};
    const Argument number = {"number", Kind::Number, 0};
    const Reach anywhere = Reach::Anywhere;
    list->insert(list->end(),
                 {
                     {"make",
                      20,
                      anywhere,
                      {item,
                       {"class", Kind::Below, classCount},
                       {"parent", Kind::Below, 64},
                       {"view", Kind::Below, 20},
                       x,
                       y,
                       width,
                       height},
                      make},
                     {"equip", 6, anywhere, {item, {"text", Kind::Below, textCount}}, equip},
                     {"delete", 12, anywhere, {item, {"later", Kind::Below, 2}}, destroy},
                     {"enable", 10, anywhere, {item, isOn}, enable},
                     {"show", 12, anywhere, {item, isOn}, show},
                     {"parent",
                      8,
                      anywhere,
                      {item, {"parent", Kind::Below, Stage::itemCount}, isOn},
                      reparent},
                     {"leave", 6, anywhere, {item}, leave},
                     {"come", 8, anywhere, {item, view}, come},
                     {"rect",
                      8,
                      anywhere,
                      {item, {"overload", Kind::Below, 2}, x, y, width, height},
                      setRect},
                     {"place",
                      3,
                      anywhere,
                      {item, x, y, {"turns", Kind::Below, 8}, {"scale", Kind::Below, 6}, number},
                      place},
                     {"flag", 4, anywhere, {item, {"flag", Kind::Below, 5}, isOn}, setFlag},
                     {"input", 6, anywhere, {item, {"what", Kind::Below, 6}, isOn}, setInput},
                     {"focus", 4, anywhere, {item, isOn}, focus},
                 });
}
