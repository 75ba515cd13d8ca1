// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"
#include "verbs.h"

#include <kelcheckbox.h>
#include <kelcombobox.h>
#include <kellineitem.h>
#include <kelnavigationtable.h>
#include <kelprocessbar.h>
#include <kelslidecontrol.h>

#include <QtCore/QMetaEnum>

using namespace Monkey;

namespace {

// Nobody unchecks the selected box of a group, or binds it.
void check(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (control && (step.flag(1) || !stage.groupOf(control)))
        control->setCheck(step.flag(1));
}

void setValue(Stage &stage, const Step &step)
{
    if (auto *const slider = stage.itemAs<KELSlideControl>(step.whole(0)))
        slider->setValue(float(qBound(-1e38, step.number(1), 1e38)));
    if (auto *const bar = stage.itemAs<KELProcessBar>(step.whole(0)))
        bar->setValue(step.whole(1));
}

void setRange(Stage &stage, const Step &step)
{
    auto *const slider = stage.itemAs<KELSlideControl>(step.whole(0));
    // A bound slider whose bounds are not in order never settles.
    if (!slider || slider->property("isBound").toBool())
        return;
    const float number = float(qBound(-1e38, step.number(2), 1e38));
    if (step.whole(1) == 0)
        slider->setMinimun(number);
    else if (step.whole(1) == 1)
        slider->setMaximun(number);
    else
        slider->setStep(number);
    if (Witness *const witness = stage.witness(slider))
        witness->setOdd();
}

void join(Stage &stage, const Step &step)
{
    auto *const box = stage.itemAs<KELRadioBox>(step.whole(0));
    Stage::Group &group = stage.groups.at(Stage::wrap(step.whole(1), Stage::groupCount));
    const Stage::Group *const present = stage.groupOf(box);
    if (!box || !group.group || (present && present != &group) || box->property("isBound").toBool())
        return;
    // An unselected member keeps its state, so it must not be a checked one.
    if (!present && box->isCheck())
        return;
    const int id = step.whole(2);
    if (group.boxes.value(id))
        return;
    // Slots may look while it is being added.
    group.boxes.insert(id, box);
    group.group->addRadioBox(box, id);
}

void select(Stage &stage, const Step &step)
{
    if (KELRadioBoxGroup *const group = Stage::groupOf(&stage, step.whole(0)))
        group->setId(step.whole(1));
}

void disband(Stage &stage, const Step &step)
{
    Stage::Group &group = stage.groups.at(Stage::wrap(step.whole(0), Stage::groupCount));
    delete group.group;
    group = {};
}

void watchEntries(Stage *stage, const KELComboBox *box)
{
    const QList<KELComboBoxItem *> entries = box->items();
    for (KELComboBoxItem *entry : entries)
        stage->watch(entry);
}

void addEntry(Stage &stage, const Step &step)
{
    auto *const box = stage.itemAs<KELComboBox>(step.whole(0));
    if (!box)
        return;
    box->addItem(step.whole(1), step.flag(2) ? text(step.whole(1)) : QString());
    watchEntries(&stage, box);
}

void removeEntry(Stage &stage, const Step &step)
{
    auto *const box = stage.itemAs<KELComboBox>(step.whole(0));
    if (!box)
        return;
    KELComboBoxItem *const entry = box->items().value(step.whole(1));
    const KELComboBoxItem *const selected = box->selectedItem();
    if (step.whole(2) == 0)
        box->removeItem(entry);
    else if (step.whole(2) == 1)
        delete entry;
    else if (entry)
        entry->deleteLater();
    if (step.whole(2) < 2 && entry
        && box->selectedItem() != (selected == entry ? nullptr : selected))
        stage.fail(QStringLiteral("another entry is selected after one was removed"));
}

void editEntries(Stage &stage, const Step &step)
{
    auto *const box = stage.itemAs<KELComboBox>(step.whole(0));
    if (!box)
        return;
    switch (step.whole(1)) {
    case 0:
        box->clearItem();
        break;
    case 1:
        box->bindEnum(QMetaEnum::fromType<Qt::Orientation>());
        break;
    case 2:
        box->bindEnum(QMetaEnum());
        break;
    default:
        if (KELComboBoxItem *const entry = box->items().value(0)) {
            entry->setDisplay(text(step.whole(1)));
            entry->setValue(step.whole(1));
        }
        break;
    }
}

void choose(Stage &stage, const Step &step)
{
    if (auto *const box = stage.itemAs<KELComboBox>(step.whole(0)))
        box->setSelectIndex(step.whole(1));
    else if (auto *const table = stage.itemAs<KELNavigationTable>(step.whole(0)))
        table->setSelectIndex(step.whole(1));
}

void addPage(Stage &stage, const Step &step)
{
    auto *const table = stage.itemAs<KELNavigationTable>(step.whole(0));
    if (table)
        table->addItem(stage.itemAs<KELNavigationTableItem>(step.whole(1)));
}

void setLine(Stage &stage, const Step &step)
{
    if (auto *const line = stage.itemAs<KELLineItem>(step.whole(0)))
        line->setLine({step.number(1), step.number(2)}, {step.number(3), step.number(4)});
}

} // namespace

void Monkey::addControlVerbs(std::vector<Verb> *list)
{
    const Argument item = {"item", Kind::Below, Stage::itemCount};
    const Argument group = {"group", Kind::Below, Stage::groupCount};
    const Argument isOn = {"on", Kind::Below, 2};
    const Argument number = {"number", Kind::Number, 0};
    const Argument index = {"index", Kind::Whole, 0};
    const Argument x = {"x", Kind::Position, 200};
    const Reach anywhere = Reach::Anywhere;
    list->insert(
        list->end(),
        {
            {"check", 12, anywhere, {item, isOn}, check},
            {"value", 10, anywhere, {item, number}, setValue},
            {"range", 6, anywhere, {item, {"bound", Kind::Below, 3}, number}, setRange},
            {"join", 10, anywhere, {item, group, index}, join},
            {"select", 12, anywhere, {group, index}, select},
            {"disband", 1, anywhere, {group}, disband},
            {"entry", 8, anywhere, {item, index, isOn}, addEntry},
            {"unentry", 8, anywhere, {item, index, {"how", Kind::Below, 3}}, removeEntry},
            {"entries", 4, anywhere, {item, {"what", Kind::Below, 6}}, editEntries},
            {"choose", 12, anywhere, {item, index}, choose},
            {"page", 8, anywhere, {item, {"page", Kind::Below, Stage::itemCount}}, addPage},
            {"line", 3, anywhere, {item, x, x, x, x}, setLine},
        });
}
