// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "census.h"
#include "scenario.h"

#include <kelnonmodaldialog.h>
#include <kelnonmodalhelper.h>

#include <QtGui/QWindow>

namespace {

constexpr QRect popupRect(300, 300, 100, 80);
constexpr int neverMs = 1000000;

void press(QWidget *window)
{
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, QPoint(20, 20));
}

// The press hides it a few milliseconds later.
void waitUntilHidden(const QWidget *widget)
{
    while (widget->isVisible())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

class Helper final : public Scenario
{
public:
    Helper() { m_popup.setGeometry(popupRect); }
    void round() override
    {
        KELNonModalhelper::show(&m_popup, KELNonModalhelper::TriggerScreen, true, neverMs);
        expect(m_popup.isVisible(), "the helper shows the widget");
        press(&m_stage.view);
        waitUntilHidden(&m_popup);
        settleRound();
    }

private:
    SoakStage m_stage;
    QWidget m_popup;
};

class HelperWidgetDeleted final : public Scenario
{
public:
    void round() override
    {
        auto popup = std::make_unique<QWidget>();
        popup->setGeometry(popupRect);
        KELNonModalhelper::show(popup.get(), KELNonModalhelper::TriggerScreen, true, neverMs);
        QCoreApplication::processEvents();
        expect(popup->isVisible(), "the helper shows the widget");
        press(&m_stage.view);
        popup.reset();
        waitForSingleShots();
        settleRound();
    }

private:
    SoakStage m_stage;
};

class Panel final : public Scenario
{
public:
    void round() override
    {
        KELNonModalDialog panel;
        panel.setGeometry(popupRect);
        panel.enableTime(neverMs);
        KELNonModalDialog::showOne(&panel);
        expect(KELNonModalDialog::activeDialog() == &panel, "the panel is shown");
        press(&m_stage.view);
        waitUntilHidden(&panel);
        settleRound();
    }

private:
    SoakStage m_stage;
};

} // namespace

Scenarios popupScenarios()
{
    return {scenario<Helper>("helper", "non-modal helper: show, press outside"),
            scenario<HelperWidgetDeleted>("helper-deleted", "non-modal helper: delete the widget"),
            scenario<Panel>("nonmodaldialog", "non-modal dialog: create, show, press outside")};
}
