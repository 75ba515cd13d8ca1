// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SCENARIO_H
#define SCENARIO_H

#include "hand.h"
#include "keltest.h"

#include <kelroundrectcontrol.h>

#include <memory>
#include <vector>

// Something that an application does again and again. What the constructor makes lives through all
// rounds; what a round makes is gone at its end.
class Scenario
{
public:
    Scenario() = default;
    virtual ~Scenario() = default;
    virtual void round() = 0;

private:
    Q_DISABLE_COPY(Scenario)
};

struct ScenarioEntry
{
    const char *name; // for the command line
    const char *text;
    std::unique_ptr<Scenario> (*create)();
};

template <typename Made>
ScenarioEntry scenario(const char *name, const char *text)
{
    return {name, text, []() -> std::unique_ptr<Scenario> { return std::make_unique<Made>(); }};
}

using Scenarios = std::vector<ScenarioEntry>;
Scenarios bindingScenarios();
Scenarios comboBoxScenarios();
Scenarios controlScenarios();
Scenarios dialogScenarios();
Scenarios menuScenarios();
Scenarios panelScenarios();
Scenarios popupScenarios();

// A scene in a window, all of it small.
class SoakStage
{
public:
    SoakStage();

    template <typename Control>
    Control *add(const QRectF &rect)
    {
        auto *const control = new Control;
        control->setboundRect(rect);
        view.ownScene.addItem(control);
        return control;
    }
    void tap(const QPoint &pos); // with a finger

    KelTestView view;
    Hand mouse{&view};
    Hand finger{&view, Input::Touch};
};

// Delivers what is posted, and deletes what waits for it.
void settleRound();

// Ends the program: a round that does nothing leaves nothing behind.
void expect(bool condition, const char *what);

#endif
