// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <kelcombobox.h>

namespace {

constexpr QRect boxRect(20, 10, 160, 40);
constexpr QPoint onButton(100, 30);
constexpr QPoint onSecondEntry(100, 95);
constexpr QPoint outside(100, 190);

KELComboBox *addBox(SoakStage *stage)
{
    auto *const box = stage->add<KELComboBox>(boxRect);
    box->addItem(1, QStringLiteral("one"));
    box->addItem(2, QStringLiteral("two"));
    box->addItem(3, QStringLiteral("three"));
    box->setSelectIndex(0);
    return box;
}

void use(SoakStage *stage, KELComboBox *box)
{
    box->setSelectIndex(0);
    stage->tap(onButton);
    expect(box->zValue() == 1, "the list opens");
    stage->tap(onSecondEntry);
    expect(box->selectIndex() == 1, "a tap selects the entry");
    stage->tap(onButton);
    expect(box->zValue() == 1, "the list opens again");
    stage->tap(outside);
    expect(box->zValue() == 0, "a press outside closes the list");
}

class NewBox final : public Scenario
{
public:
    void round() override
    {
        KELComboBox *const box = addBox(&m_stage);
        use(&m_stage, box);
        delete box;
        settleRound();
    }

private:
    SoakStage m_stage;
};

class OpenBoxDeleted final : public Scenario
{
public:
    void round() override
    {
        KELComboBox *const box = addBox(&m_stage);
        m_stage.tap(onButton);
        expect(box->zValue() == 1, "the list opens");
        delete box;
        settleRound();
    }

private:
    SoakStage m_stage;
};

class LivingBox final : public Scenario
{
public:
    void round() override
    {
        use(&m_stage, m_box);
        settleRound();
    }

private:
    SoakStage m_stage;
    KELComboBox *const m_box = addBox(&m_stage);
};

class NewEntries final : public Scenario
{
public:
    void round() override
    {
        m_box->addItem(4, QStringLiteral("four"));
        m_stage.tap(onButton);
        delete m_box->items().constLast();
        m_box->clearItem();
        m_box->addItem(1, QStringLiteral("one"));
        m_stage.tap(onButton);
        expect(m_box->items().size() == 1, "one entry is left");
        settleRound();
    }

private:
    SoakStage m_stage;
    KELComboBox *const m_box = addBox(&m_stage);
};

} // namespace

Scenarios comboBoxScenarios()
{
    return {scenario<NewBox>("combobox", "combo box: create, use, delete"),
            scenario<OpenBoxDeleted>("combobox-open", "combo box: delete while open"),
            scenario<LivingBox>("combobox-living", "combo box: use one that lives"),
            scenario<NewEntries>("combobox-entries", "combo box: entries while open")};
}
