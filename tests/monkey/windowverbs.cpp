// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stage.h"
#include "verbs.h"

#include <kelcontentview.h>
#include <keldialogbase.h>
#include <kelsidemenu.h>

using namespace Monkey;

namespace {

void showView(Stage &stage, const Step &step)
{
    QGraphicsView *const view = stage.view(step.whole(0));
    if (!view)
        return;
    switch (step.whole(1)) {
    case 0:
        view->hide();
        break;
    case 1:
        view->setEnabled(false);
        break;
    case 2:
        view->setInteractive(false);
        break;
    default: // most often
        view->setInteractive(true);
        view->setEnabled(true);
        view->show();
        break;
    }
}

void resizeView(Stage &stage, const Step &step)
{
    constexpr int limitPx = 400;
    if (QGraphicsView *const view = stage.view(step.whole(0)))
        view->resize(qBound(-1, step.whole(1), limitPx), qBound(-1, step.whole(2), limitPx));
}

void setContent(Stage &stage, const Step &step)
{
    if (auto *const view = qobject_cast<KELContentView *>(stage.view(step.whole(0))))
        view->setContent(stage.item(step.whole(1)));
}

void addToMenu(Stage &stage, const Step &step)
{
    auto *const menu = qobject_cast<KELSideMenu *>(stage.view(Stage::SideMenu));
    KELRoundRectControl *const control = stage.item(step.whole(0));
    if (!menu)
        return;
    if (Witness *const witness = control ? stage.witness(control) : nullptr)
        witness->setOdd(); // the menu sets its border width
    menu->addItem(control);
}

void setUpMenu(Stage &stage, const Step &step)
{
    auto *const menu = qobject_cast<KELSideMenu *>(stage.view(Stage::SideMenu));
    if (!menu)
        return;
    const float number = float(qBound(-300.0, step.number(1), 300.0));
    if (step.whole(0) == 0)
        menu->setOrientation(KELSideMenu::OrientationMode(step.whole(1)));
    else if (step.whole(0) == 1)
        menu->setSpace(number);
    else
        menu->setBorderWidth(number);
}

void usePanel(Stage &stage, const Step &step)
{
    auto *const panel = qobject_cast<KELNonModalDialog *>(
        stage.view(step.flag(0) ? Stage::WindowPanel : Stage::ChildPanel));
    switch (step.whole(1)) {
    case 0:
        KELNonModalDialog::showOne(panel);
        break;
    case 1:
        KELNonModalDialog::showOne(nullptr);
        break;
    case 2:
        if (panel)
            panel->enableTime(step.whole(2));
        break;
    case 3:
        if (panel)
            panel->ignoreOnce();
        break;
    default:
        if (panel)
            panel->setTriggerSource(KELNonModalhelper::TriggerSource(step.whole(2)));
        break;
    }
    const KELNonModalDialog *const active = KELNonModalDialog::activeDialog();
    if (active && !active->isVisible())
        stage.fail(QStringLiteral("the active panel is not visible"));
}

void useDialog(Stage &stage, const Step &step)
{
    KELDialogBase *const dialog = stage.dialog;
    if (!dialog)
        return;
    switch (step.whole(0)) {
    case 0:
        dialog->dialogShake(step.whole(1));
        break;
    case 1:
        dialog->show();
        break;
    case 2:
        dialog->close();
        break;
    case 3:
        dialog->setBackgroundPixmap(pixmap(qAbs(step.whole(1) % pixmapCount)));
        break;
    case 4:
        dialog->accept();
        break;
    default:
        if (!stage.isNested() && !dialog->isVisible())
            dialog->exec();
        break;
    }
}

void useHelper(Stage &stage, const Step &step)
{
    QPointer<KELNonModalhelper> &helper = stage.helpers.at(
        Stage::wrap(step.whole(0), Stage::helperCount));
    const int number = step.whole(2);
    if (!helper)
        helper = new KELNonModalhelper(stage.popup);
    switch (step.whole(1)) {
    case 0:
        helper->setTriggerSource(KELNonModalhelper::TriggerSource(number));
        break;
    case 1:
        helper->show();
        break;
    case 2:
        helper->enableTime(number);
        break;
    case 3:
        helper->stopTime();
        break;
    case 4:
        helper->ignoreOnce();
        break;
    case 5:
        helper->startTime();
        break;
    case 6:
        delete helper;
        break;
    default:
        KELNonModalhelper::show(stage.popup, KELNonModalhelper::TriggerSource(number % 3),
                                step.flag(2), number);
        break;
    }
}

void swapScene(Stage &stage, const Step &step)
{
    QGraphicsView *const view = stage.view(Stage::SecondView);
    if (view)
        view->setScene(step.flag(0) ? stage.sceneOf(Stage::PlainView) : nullptr);
}

} // namespace

void Monkey::addWindowVerbs(std::vector<Verb> *list)
{
    const Argument item = {"item", Kind::Below, Stage::itemCount};
    const Argument view = {"view", Kind::Below, Stage::viewCount};
    const Argument isOn = {"on", Kind::Below, 2};
    const Argument whole = {"whole", Kind::Whole, 0};
    const Argument size = {"size", Kind::Length, 0};
    const Reach anywhere = Reach::Anywhere;
    list->insert(
        list->end(),
        {
            {"view",
             4,
             Reach::OutermostLoop,
             {view},
             [](Stage &stage, const Step &step) { stage.makeView(step.whole(0)); }},
            {"noview",
             2,
             Reach::OutermostLoop,
             {view},
             [](Stage &stage, const Step &step) { stage.dropView(step.whole(0)); }},
            {"showview", 6, Reach::NotInSlots, {view, {"how", Kind::Below, 12}}, showView},
            {"resize", 3, Reach::NotInSlots, {view, size, size}, resizeView},
            {"content", 3, anywhere, {view, item}, setContent},
            {"swap", 2, Reach::OutermostLoop, {isOn}, swapScene},
            {"sidemenu", 3, anywhere, {item}, addToMenu},
            {"menusetup",
             2,
             anywhere,
             {{"what", Kind::Below, 3}, {"number", Kind::Number, 0}},
             setUpMenu},
            {"panel", 4, anywhere, {isOn, {"what", Kind::Below, 5}, whole}, usePanel},
            {"dialog", 4, Reach::NotInSlots, {{"what", Kind::Below, 6}, whole}, useDialog},
            {"helper",
             5,
             anywhere,
             {{"helper", Kind::Below, Stage::helperCount}, {"what", Kind::Below, 8}, whole},
             useHelper},
        });
}
