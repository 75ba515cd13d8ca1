// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"
#include "verbs.h"

#include <kelcheckbox.h>
#include <kelnavigationtable.h>
#include <kelpushbutton.h>

#include <QtWidgets/QMenu>

using namespace Monkey;

namespace {

// The record, for an edit that may make the control paint beyond its rectangle.
KELRoundRectControlStyle *recordOf(const Stage &stage, const Step &step)
{
    const KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return nullptr;
    if (Witness *const witness = stage.witness(control))
        witness->setOdd();
    return control->style();
}

void setNumber(Stage &stage, const Step &step)
{
    KELRoundRectControlStyle *const style = recordOf(stage, step);
    if (!style)
        return;
    const double number = step.number(2);
    switch (step.whole(1)) {
    case 0:
        style->borderWidth = float(qBound(-1e38, number, 1e38));
        break;
    case 1:
        style->xRadius = number;
        break;
    case 2:
        style->yRadius = number;
        break;
    case 3:
        style->textFlags = step.whole(2);
        break;
    case 4:
        style->trimText = step.flag(2);
        break;
    case 5:
        style->iconSize = qBound(1, step.whole(2), 200);
        break;
    default:
        style->margins = QMarginsF(number, 3, 5, step.whole(1) == 6 ? number : 0);
        break;
    }
    stage.item(step.whole(0))->update();
}

void setBrush(Stage &stage, const Step &step)
{
    KELRoundRectControlStyle *const style = recordOf(stage, step);
    if (!style)
        return;
    const QBrush value = brush(step.whole(2));
    const auto *const item = stage.item(step.whole(0));
    switch (step.whole(1)) {
    case 0:
        style->backgroundBrush = value;
        break;
    case 1:
        style->foregroundBrush = value;
        break;
    case 2:
        style->borderBrush = value;
        break;
    default:
        if (qobject_cast<const KELCheckBox *>(item))
            static_cast<KELCheckBoxStyle *>(style)->indicatorBrush = value;
        else if (qobject_cast<const KELNavigationTable *>(item))
            static_cast<KELNavigationTableStyle *>(style)->titleBackgroundBrush = value;
        else if (qobject_cast<const KELNavigationTableItem *>(item))
            static_cast<KELNavigationTableItemStyle *>(style)->buttonForeground = value;
        break;
    }
    stage.item(step.whole(0))->update();
}

void setFont(Stage &stage, const Step &step)
{
    KELRoundRectControlStyle *const style = recordOf(stage, step);
    if (!style)
        return;
    QFont font(step.whole(1) % 2 == 0 ? QString() : QStringLiteral("no such family"));
    font.setPixelSize(qBound(1, step.whole(2), 100));
    font.setItalic(step.whole(1) > 2);
    font.setUnderline(step.whole(1) > 3);
    style->font = font;
    stage.item(step.whole(0))->update();
}

void setPicture(Stage &stage, const Step &step)
{
    KELRoundRectControlStyle *const style = recordOf(stage, step);
    if (!style)
        return;
    style->pixmap = pixmap(step.whole(1));
    style->icon = KELIconFont(static_cast<unsigned short>(step.whole(2) & 0xffff));
    stage.item(step.whole(0))->update();
}

void setText(Stage &stage, const Step &step)
{
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return;
    if (step.flag(2))
        control->style()->text = text(step.whole(1));
    else
        control->setText(text(step.whole(1)));
}

void setTable(Stage &stage, const Step &step)
{
    const auto *const table = stage.itemAs<KELNavigationTable>(step.whole(0));
    if (!table)
        return;
    auto *const style = static_cast<KELNavigationTableStyle *>(recordOf(stage, step));
    style->title = text(step.whole(1));
    style->showTitle = step.flag(2);
    style->tabHeight = float(qBound(-1e38, step.number(3), 1e38));
    style->titleHeight = float(qBound(-1e38, step.number(3), 1e38));
}

void setLook(Stage &stage, const Step &step)
{
    auto *const button = stage.itemAs<KELPushButton>(step.whole(0));
    if (!button)
        return;
    const int number = step.whole(2);
    std::function<void(KELPushButtonStyle &)> look;
    if (number % 4 != 0) {
        look = [number](KELPushButtonStyle &style) {
            style.backgroundBrush = brush(number);
            style.iconMargins = QMarginsF(number, number, 1, 1);
        };
    }
    if (step.whole(1) == 0)
        button->setIsMouseDownTemplate(look);
    else if (step.whole(1) == 1)
        button->setIsCheckedTemplate(look);
    else
        button->setIsDisableTemplate(look);
}

void setMenu(Stage &stage, const Step &step)
{
    const KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!control)
        return;
    QMenu *const menu = control->style()->contextMenu;
    if (!menu && step.flag(1)) {
        auto *const made = new QMenu;
        made->addAction(QStringLiteral("Stop"));
        made->addAction(QStringLiteral("Start"));
        control->style()->contextMenu = made;
    } else if (menu && !step.flag(1)) {
        menu->deleteLater(); // it may be open
        control->style()->contextMenu = nullptr;
    }
}

} // namespace

void Monkey::addStyleVerbs(std::vector<Verb> *list)
{
    const Argument item = {"item", Kind::Below, Stage::itemCount};
    const Argument textNumber = {"text", Kind::Below, textCount};
    const Argument isOn = {"on", Kind::Below, 2};
    const Argument number = {"number", Kind::Number, 0};
    const Argument brushNumber = {"brush", Kind::Below, brushCount};
    const Reach anywhere = Reach::Anywhere;
    list->insert(
        list->end(),
        {
            {"style", 10, anywhere, {item, {"field", Kind::Below, 8}, number}, setNumber},
            {"brush", 6, anywhere, {item, {"field", Kind::Below, 4}, brushNumber}, setBrush},
            {"font",
             3,
             anywhere,
             {item, {"kind", Kind::Below, 5}, {"size", Kind::Whole, 0}},
             setFont},
            {"picture",
             4,
             anywhere,
             {item, {"pixmap", Kind::Below, pixmapCount}, {"glyph", Kind::Whole, 0}},
             setPicture},
            {"text", 6, anywhere, {item, textNumber, {"quietly", Kind::Below, 2}}, setText},
            {"title", 3, anywhere, {item, textNumber, isOn, number}, setTable},
            {"look", 3, anywhere, {item, {"state", Kind::Below, 3}, brushNumber}, setLook},
            {"menu", 6, anywhere, {item, isOn}, setMenu},
        });
}
