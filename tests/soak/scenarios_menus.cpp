// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <kelpushbutton.h>

#include <QtCore/QTimer>
#include <QtWidgets/QMenu>

namespace {

QMenu *newMenu()
{
    auto *const menu = new QMenu;
    menu->addAction(QStringLiteral("One"));
    return menu;
}

void openMenu(SoakStage *stage, QMenu *menu)
{
    bool wasShown = false;
    QTimer::singleShot(0, menu, [menu, &wasShown] {
        wasShown = menu->isVisible();
        menu->close();
    });
    const QPoint pos(100, 50);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos,
                            stage->view.viewport()->mapToGlobal(pos));
    QCoreApplication::sendEvent(stage->view.viewport(), &event);
    expect(wasShown, "the menu opens");
}

class NewMenu final : public Scenario
{
public:
    void round() override
    {
        auto *const button = m_stage.add<KELPushButton>(QRectF(50, 20, 100, 60));
        button->style()->contextMenu = newMenu();
        openMenu(&m_stage, button->style()->contextMenu);
        delete button;
        settleRound();
    }

private:
    SoakStage m_stage;
};

class LivingMenu final : public Scenario
{
public:
    LivingMenu() { m_button->style()->contextMenu = newMenu(); }
    void round() override
    {
        openMenu(&m_stage, m_button->style()->contextMenu);
        settleRound();
    }

private:
    SoakStage m_stage;
    KELPushButton *const m_button = m_stage.add<KELPushButton>(QRectF(50, 20, 100, 60));
};

} // namespace

Scenarios menuScenarios()
{
    return {scenario<NewMenu>("contextmenu", "context menu: create, open, close, delete"),
            scenario<LivingMenu>("contextmenu-living", "context menu: open one that lives")};
}
