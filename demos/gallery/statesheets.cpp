// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stand.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELLabel>
#include <KELNavigationTable>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSlideControl>

namespace Anatomy {

namespace {

constexpr qreal fadedOpacity = 0.4;
constexpr QSizeF cellSize(150, 66);
constexpr QRectF buttonRect(10, 10, 130, 46);
constexpr float tabHeightPx = 56;

// What a control looks like that has been brought into a state.
template <class Control>
Specimen state(
    const char *name, const QRectF &rect,
    const std::function<void(Control *)> &bring = [](Control *) {})
{
    const Stand stand;
    bring(stand.add(new Control, rect));
    return stand.specimen(QLatin1String(name), cellSize);
}

// For classes without a disabled look.
void fade(QGraphicsItem *item)
{
    item->setEnabled(false);
    item->setOpacity(fadedOpacity);
}

void dress(KELRoundRectControl *control)
{
    KELRoundRectControlStyle *const style = control->style();
    style->backgroundBrush = QColor(59, 110, 165);
    style->foregroundBrush = QColor(Qt::white);
    style->borderBrush = QColor(Qt::white);
    style->borderWidth = 2;
    style->xRadius = 8;
    style->yRadius = 8;
    style->text = QStringLiteral("Start");
}

void giveLooks(KELPushButton *button)
{
    button->setIsMouseDownTemplate(
        [](KELPushButtonStyle &look) { look.backgroundBrush = QColor(24, 60, 100); });
    button->setIsCheckedTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Qt::white);
        look.foregroundBrush = QColor(24, 60, 100);
    });
    button->setIsDisableTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(70, 84, 102);
        look.borderBrush = QColor(110, 124, 142);
        look.foregroundBrush = QColor(150, 164, 182);
    });
}

Specimen button(const char *name, const std::function<void(KELPushButton *)> &bring)
{
    return state<KELPushButton>(name, buttonRect, [&](KELPushButton *button) {
        dress(button);
        bring(button);
    });
}

void press(KELPushButton *button)
{
    button->style()->isMouseDown = true;
}

std::vector<Specimen> buttonStates()
{
    return {
        button("released", [](KELPushButton *) {}),
        button("pressed", press),
        button("checked", [](KELPushButton *button) { button->setCheck(true); }),
        button("disabled", [](KELPushButton *button) { button->setEnabled(false); }),
        button("released, own looks", giveLooks),
        button("pressed, own look",
               [](KELPushButton *button) {
                   giveLooks(button);
                   press(button);
               }),
        button("checked, own look",
               [](KELPushButton *button) {
                   giveLooks(button);
                   button->setCheck(true);
               }),
        button("disabled, own look",
               [](KELPushButton *button) {
                   giveLooks(button);
                   button->setEnabled(false);
               }),
    };
}

std::vector<Specimen> rectStates()
{
    const auto faded = [](KELRoundRectControl *control) {
        dress(control);
        fade(control);
    };
    return {state<KELRoundRectControl>("in any state", buttonRect, dress),
            state<KELRoundRectControl>("disabled, opacity 0.4", buttonRect, faded)};
}

std::vector<Specimen> labelStates()
{
    const auto write = [](KELLabel *label) { label->setText(QStringLiteral("21.5 °C")); };
    const auto faded = [write](KELLabel *label) {
        write(label);
        fade(label);
    };
    return {state<KELLabel>("in any state", buttonRect, write),
            state<KELLabel>("disabled, opacity 0.4", buttonRect, faded)};
}

Specimen checkBox(const char *name, bool isOn, bool isEnabled)
{
    return state<KELCheckBox>(name, buttonRect, [=](KELCheckBox *box) {
        box->setCheck(isOn);
        box->setEnabled(isEnabled);
    });
}

std::vector<Specimen> checkBoxStates()
{
    return {checkBox("off", false, true), checkBox("on", true, true),
            checkBox("off, disabled", false, false), checkBox("on, disabled", true, false)};
}

std::vector<Specimen> radioBoxStates()
{
    const auto check = [](KELRadioBox *box) { box->setCheck(true); };
    const auto faded = [](KELRadioBox *box) {
        box->setCheck(true);
        fade(box);
    };
    return {state<KELRadioBox>("off", buttonRect), state<KELRadioBox>("on", buttonRect, check),
            state<KELRadioBox>("off, opacity 0.4", buttonRect, fade),
            state<KELRadioBox>("on, opacity 0.4", buttonRect, faded)};
}

Specimen progressBar(const char *name, int percent)
{
    return state<KELProcessBar>(name, buttonRect,
                                [percent](KELProcessBar *bar) { bar->setValue(percent); });
}

std::vector<Specimen> progressBarStates()
{
    const auto faded = [](KELProcessBar *bar) {
        bar->setValue(60);
        fade(bar);
    };
    return {progressBar("empty", 0), progressBar("in progress", 60), progressBar("completed", 100),
            state<KELProcessBar>("opacity 0.4", buttonRect, faded)};
}

std::vector<Specimen> sliderStates()
{
    const auto slide = [](KELSlideControl *slider) { slider->setValue(60); };
    const auto disabled = [slide](KELSlideControl *slider) {
        slide(slider);
        slider->setEnabled(false);
    };
    return {state<KELSlideControl>("enabled, dragged", buttonRect, slide),
            state<KELSlideControl>("disabled", buttonRect, disabled)};
}

QList<KELLabel *> labelsOf(const QGraphicsItem *item)
{
    QList<KELLabel *> labels;
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *const label = dynamic_cast<KELLabel *>(child))
            labels += label;
        labels += labelsOf(child);
    }
    return labels;
}

KELPushButton *buttonOf(const KELComboBox *box)
{
    const QList<QGraphicsItem *> children = box->childItems();
    for (QGraphicsItem *child : children) {
        if (auto *const button = dynamic_cast<KELPushButton *>(child))
            return button;
    }
    return nullptr;
}

Specimen comboBox(const char *name, const std::function<void(KELComboBox *)> &bring)
{
    const Stand stand;
    auto *const box = stand.add(new KELComboBox, QRectF(10, 8, 130, 34));
    for (const char *entry : {"Slow", "Fast"})
        box->addItem(0, QLatin1String(entry));
    box->setSelectIndex(1);
    const QList<KELLabel *> labels = labelsOf(box);
    for (KELLabel *label : labels)
        label->style()->font = plainFont(Stand::fontSizePx);
    bring(box);
    return stand.specimen(QLatin1String(name), QSizeF(cellSize.width(), 112));
}

std::vector<Specimen> comboBoxStates()
{
    return {comboBox("closed", [](KELComboBox *) {}),
            comboBox("pressed", [](KELComboBox *box) { press(buttonOf(box)); }),
            comboBox("open, entry pressed",
                     [](KELComboBox *box) {
                         Q_EMIT buttonOf(box)->mouseClicked();
                         press(box->items().constFirst());
                     }),
            comboBox("disabled", [](KELComboBox *box) { box->setEnabled(false); })};
}

Specimen table(const char *name, const std::function<void(KELNavigationTable *)> &bring)
{
    const Stand stand;
    auto *const table = stand.add(new KELNavigationTable, QRectF(0, 0, 134, 96));
    table->setPos(8, 8);
    auto *const style = static_cast<KELNavigationTableStyle *>(table->style());
    style->font = plainFont(12);
    style->backgroundBrush = QColor(59, 110, 165);
    style->tabHeight = tabHeightPx;
    const struct
    {
        const char *title;
        ushort glyph;
    } pages[] = {{"Home", 0x2302}, {"Setup", 0x2699}};
    for (const auto &one : pages) {
        auto *const page = new KELNavigationTableItem;
        page->setText(QLatin1String(one.title));
        page->style()->icon = KELIconFont(one.glyph);
        page->style()->iconSize = 24;
        page->style()->font = plainFont(12);
        const qreal edge = pairEdge(tabHeightPx, *page->style());
        page->style()->margins = QMarginsF(3, pairGapPx - edge, 3, edge);
        page->style()->backgroundBrush = QColor(70, 84, 102);
        table->addItem(page);
    }
    bring(table);
    return stand.specimen(QLatin1String(name), QSizeF(cellSize.width(), 112));
}

std::vector<Specimen> tableStates()
{
    return {table("first page shown", [](KELNavigationTable *) {}),
            table("second page shown", [](KELNavigationTable *table) { table->setSelectIndex(1); }),
            table("disabled, opacity 0.4", fade)};
}

} // namespace

const std::vector<Sheet> &stateSheets()
{
    static const std::vector<Sheet> sheets = {
        {"round-rect", rectStates},
        {"push-button", buttonStates},
        {"label", labelStates},
        {"check-box", checkBoxStates},
        {"radio-box", radioBoxStates},
        {"progress-bar", progressBarStates},
        {"slide-control", sliderStates},
        {"combo-box", comboBoxStates},
        {"navigation-table", tableStates},
    };
    return sheets;
}

} // namespace Anatomy
