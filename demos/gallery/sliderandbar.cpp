// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sliderandbar.h"

#include "code/code.h"
#include "eventlog.h"

#include <KELProcessBar>
#include <KELPushButton>
#include <KELSlideControl>

namespace {

constexpr int firstValue = 35;
constexpr int buttonValues[] = {0, 50, 100};

// Each follows the other; a slider between two whole numbers is left where the finger put it.
void connectBothWays(KELSlideControl *slider, KELProcessBar *bar)
{
    QObject::connect(slider, &KELSlideControl::valueChanged, bar,
                     [=] { bar->setValue(qRound(slider->value())); });
    QObject::connect(bar, &KELProcessBar::valueChanged, slider, [=] {
        if (qRound(slider->value()) != bar->value())
            slider->setValue(float(bar->value()));
    });
}

void rememberValue(const PageHost &host, KELProcessBar *bar, const QString &key)
{
    bar->setValue(host.memory->value(key, firstValue));
    QObject::connect(bar, &KELProcessBar::valueChanged, bar,
                     [=] { host.memory->insert(key, bar->value()); });
}

} // namespace

QVector<CardPage::Sample> SliderAndBar::buttons() const
{
    QVector<CardPage::Sample> samples;
    for (KELPushButton *button : setters)
        samples.append({button, QString()});
    return samples;
}

SliderAndBar newSliderAndBar(const PageHost &host, KELProcessBar *bar)
{
    SliderAndBar pair{Code::newSlider(), bar, {}};
    pair.slider->setObjectName(QStringLiteral("slider"));
    bar->setObjectName(QStringLiteral("bar"));
    bar->setAcceptedMouseButtons(Qt::NoButton);
    rememberValue(host, bar, QStringLiteral("Slider and bar"));
    pair.slider->setValue(float(bar->value()));
    // Watched first: the log shows who moved whom.
    host.log->watch(pair.slider, QStringLiteral("Slider"));
    host.log->watch(bar, QStringLiteral("Bar"));
    connectBothWays(pair.slider, bar);
    for (const int value : buttonValues) {
        auto *button = new KELPushButton;
        button->setText(QStringLiteral("Set %1").arg(value));
        button->setObjectName(QStringLiteral("set-%1").arg(value));
        host.log->watch(button, button->text());
        QObject::connect(button, &KELPushButton::mouseClicked, bar, [=] { bar->setValue(value); });
        pair.setters.append(button);
    }
    return pair;
}
