// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"
#include "verbs.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kelprocessbar.h>
#include <kelpushbutton.h>
#include <kelslidecontrol.h>

#include <memory>

using namespace Monkey;

namespace {

constexpr int signalCount = 16;

const char *boundProperty(const Stage &stage, const KELRoundRectControl *control)
{
    if (qobject_cast<const KELCheckBox *>(control))
        return "check";
    if (qobject_cast<const KELProcessBar *>(control))
        return "value";
    if (const auto *slider = qobject_cast<const KELSlideControl *>(control)) {
        // Bounds that are not in order, and two sliders, never settle.
        for (const QPointer<Model> &model : stage.models) {
            if (model && model->property("hasSlider").toBool())
                return nullptr;
        }
        return slider->minimun() < slider->maximun() ? "value" : nullptr;
    }
    return nullptr;
}

// The models are bound in a ring; a control may be bound to one of them.
void bind(Stage &stage, const Step &step)
{
    const int index = int(Stage::wrap(step.whole(0), Stage::bindingCount));
    Model *const model = stage.models.at(std::size_t(index));
    Model *const next = stage.models.at(Stage::wrap(index + 1, Stage::bindingCount));
    QPointer<KELDataBind> &binding = stage.bindings.at(std::size_t(index));
    if (!model || !next)
        return;
    if (!binding)
        binding = new KELDataBind(model);
    const auto mode = KELDataBind::BindMode(step.whole(1));
    IKELValueConverter *const converter = stage.converters.at(qAbs(step.whole(2) % 4));
    KELRoundRectControl *const control = stage.item(step.whole(3));
    const char *const property = control ? boundProperty(stage, control) : nullptr;
    if (!property) {
        binding->setBind(model, "number", next, step.whole(2) > 5 ? "silent" : "number", mode,
                         converter);
        return;
    }
    control->setProperty("isBound", true);
    if (qobject_cast<KELSlideControl *>(control))
        model->setProperty("hasSlider", true);
    binding->setBind(model, "number", control, property, mode, converter);
}

void rebind(Stage &stage, const Step &step)
{
    QPointer<KELDataBind> &binding = stage.bindings.at(
        Stage::wrap(step.whole(0), Stage::bindingCount));
    if (!binding)
        return;
    switch (step.whole(1)) {
    case 0:
        binding->unbind();
        break;
    case 1:
        binding->unbind();
        if (binding)
            binding->bind();
        break;
    case 2:
        binding->update();
        break;
    default:
        delete binding;
        break;
    }
}

void setModel(Stage &stage, const Step &step)
{
    if (Model *const model = stage.models.at(Stage::wrap(step.whole(0), Stage::bindingCount)))
        model->setNumber(step.number(1));
}

// Carries out a step at most a few times.
class Reaction
{
public:
    Reaction(Stage *stage, const Step &step) : m_stage(stage), m_step(step) { }
    void operator()() const
    {
        const auto left = m_left; // the slot may delete the sender, and with it this
        if (--*left >= 0) {
            const Step step = m_step;
            m_stage->react(step);
        }
    }

private:
    Stage *m_stage;
    Step m_step;
    std::shared_ptr<int> m_left = std::make_shared<int>(3);
};

void connectOwn(KELRoundRectControl *control, int signal, const Reaction &reaction)
{
    using Base = KELRoundRectControl;
    QObject *const context = control;
    switch (signal) {
    case 0:
        QObject::connect(control, &Base::mousePress, context, reaction);
        break;
    case 1:
        QObject::connect(control, &Base::mouseRelease, context, reaction);
        break;
    case 2:
        QObject::connect(control, &Base::mouseClicked, context, reaction);
        break;
    case 3:
        QObject::connect(control, &Base::mouseDoubleClicked, context, reaction);
        break;
    case 4:
        QObject::connect(control, &Base::mouseLongPress, context, reaction);
        break;
    case 5:
        QObject::connect(control, &Base::mouseEnter, context, reaction);
        break;
    default:
        QObject::connect(control, &Base::mouseLeave, context, reaction);
        break;
    }
}

void connectSpecial(KELRoundRectControl *control, int signal, const Reaction &reaction)
{
    QObject *const context = control;
    if (auto *const box = qobject_cast<KELCheckBox *>(control)) {
        QObject::connect(box, signal % 2 == 0 ? &KELCheckBox::checked : &KELCheckBox::checkChanged,
                         context, reaction);
    } else if (auto *const radio = qobject_cast<KELRadioBox *>(control)) {
        const auto changed = signal % 3 == 0 ? &KELRadioBox::checked
            : signal % 3 == 1                ? &KELRadioBox::unchecked
                                             : &KELRadioBox::checkChanged;
        QObject::connect(radio, changed, context, reaction);
    } else if (auto *const slider = qobject_cast<KELSlideControl *>(control)) {
        QObject::connect(slider, &KELSlideControl::valueChanged, context, reaction);
    } else if (auto *const bar = qobject_cast<KELProcessBar *>(control)) {
        QObject::connect(bar,
                         signal % 2 == 0 ? &KELProcessBar::valueChanged : &KELProcessBar::completed,
                         context, reaction);
    } else if (auto *const combo = qobject_cast<KELComboBox *>(control)) {
        QObject::connect(combo, &KELComboBox::selectItemChanged, context, reaction);
        const QList<KELComboBoxItem *> entries = combo->items();
        for (KELComboBoxItem *entry : entries)
            connectOwn(entry, signal % 7, reaction);
        const QList<QGraphicsItem *> children = combo->childItems();
        for (QGraphicsItem *child : children) {
            if (auto *const button = qobject_cast<KELPushButton *>(child->toGraphicsObject()))
                connectOwn(button, signal % 7, reaction);
        }
    }
}

void on(Stage &stage, const Step &step)
{
    const Reaction reaction(&stage, step.reaction.at(0));
    KELRoundRectControl *const control = stage.item(step.whole(0));
    const int signal = step.whole(1);
    if (signal < 7 && control) {
        connectOwn(control, signal, reaction);
    } else if (signal < 13 && control) {
        connectSpecial(control, signal, reaction);
    } else if (signal == 13) {
        if (KELRadioBoxGroup *const group = Stage::groupOf(&stage, step.whole(0)))
            QObject::connect(group, &KELRadioBoxGroup::idChanged, group, reaction);
    } else if (signal == 14) {
        auto *const panel = qobject_cast<KELNonModalDialog *>(
            stage.view(step.whole(0) % 2 == 0 ? Stage::WindowPanel : Stage::ChildPanel));
        if (panel)
            QObject::connect(panel, &KELNonModalDialog::disappeared, panel, reaction);
    } else if (signal == 15) {
        KELNonModalhelper *const helper = stage.helpers.at(
            Stage::wrap(step.whole(0), Stage::helperCount));
        if (helper)
            QObject::connect(helper, &KELNonModalhelper::triggered, helper, reaction);
    }
}

} // namespace

void Monkey::addBindingVerbs(std::vector<Verb> *list)
{
    const Argument item = {"item", Kind::Below, Stage::itemCount};
    const Argument binding = {"binding", Kind::Below, Stage::bindingCount};
    const Reach anywhere = Reach::Anywhere;
    list->insert(list->end(),
                 {
                     {"bind",
                      8,
                      anywhere,
                      {binding, {"mode", Kind::Below, 6}, {"converter", Kind::Below, 8}, item},
                      bind},
                     {"rebind", 6, anywhere, {binding, {"what", Kind::Below, 4}}, rebind},
                     {"model", 8, anywhere, {binding, {"number", Kind::Number, 0}}, setModel},
                     {"on", 45, anywhere, {item, {"signal", Kind::Below, signalCount}}, on},
                 });
}
