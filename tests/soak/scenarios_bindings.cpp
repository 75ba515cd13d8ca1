// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <kelcheckbox.h>
#include <keldatabind.h>
#include <kelslidecontrol.h>

namespace {

enum class First { Source, Destination, Binding };

// Two new check boxes, and one that lives.
template <First first>
class Binding final : public Scenario
{
public:
    void round() override
    {
        auto source = std::make_unique<KELCheckBox>();
        auto destination = std::make_unique<KELCheckBox>();
        KELDataBind *const binding = KELDataBind::bind(source.get(), "check", destination.get(),
                                                       "check", KELDataBind::TwoWay);
        source->setCheck(true);
        expect(destination->isCheck(), "the destination follows the source");
        destination->setCheck(false);
        expect(!source->isCheck(), "the source follows the destination");
        binding->unbind();
        binding->setBind(source.get(), "check", &m_living, "check", KELDataBind::TwoWay);
        binding->unbind();
        binding->setBind(source.get(), "check", destination.get(), "check", KELDataBind::OneWay);
        binding->update();
        KELDataBind::bind(&m_living, "check", destination.get(), "check", KELDataBind::OneWay)
            ->setParent(destination.get());
        if (first == First::Binding)
            delete binding;
        else if (first == First::Destination)
            destination.reset();
        source.reset();
        destination.reset();
        settleRound();
    }

private:
    KELCheckBox m_living;
};

class LivingBinding final : public Scenario
{
public:
    LivingBinding()
    {
        m_source.setStep(1);
        m_binding = KELDataBind::bind(&m_source, "value", &m_destination, "value",
                                      KELDataBind::TwoWay);
    }
    void round() override
    {
        m_source.setValue(m_source.value() < 50 ? 75 : 25);
        expect(qFuzzyCompare(m_source.value(), m_destination.value()), "the sliders agree");
        m_destination.setValue(60);
        m_binding->unbind();
        m_binding->bind();
        settleRound();
    }

private:
    KELSlideControl m_source;
    KELSlideControl m_destination;
    KELDataBind *m_binding = nullptr;
};

} // namespace

Scenarios bindingScenarios()
{
    return {scenario<Binding<First::Source>>("binding-source",
                                             "binding: bind, rebind, delete the source"),
            scenario<Binding<First::Destination>>("binding-destination",
                                                  "binding: delete the destination"),
            scenario<Binding<First::Binding>>("binding-deleted", "binding: delete the binding"),
            scenario<LivingBinding>("binding-living", "binding: change two sliders, rebind")};
}
