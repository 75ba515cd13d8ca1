// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "slidecontrolpage.h"

#include "code/code.h"
#include "eventlog.h"
#include "sliderandbar.h"

#include <KELLabel>
#include <KELProcessBar>
#include <KELSlideControl>

namespace {

constexpr qreal barPx = 30;

struct Kind
{
    const char *name;
    const char *objectName;
    float minimum;
    float maximum;
    float step;
    int value;
};

enum { Default, Step, Signed, MinimumIsNotZero, Dressed, Disabled };

const Kind kinds[] = {
    {"No step", "default-slider", 0, 100, 0, 40},
    {"Step 10", "step-slider", 0, 100, 10, 70},
    {"-50 to 50", "signed-slider", -50, 50, 0, 0},
    {"20 to 120", "offset-slider", 20, 120, 0, 45},
    {"In colours of its own", "themed-slider", 0, 100, 0, 60},
    {"Disabled", "disabled-slider", 0, 100, 0, 60},
};

QString noteFor(const Kind &kind, const KELSlideControl *slider)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(kind.name)).arg(qRound(slider->value()));
}

} // namespace

SlideControlPage::SlideControlPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Slide control"),
             QStringLiteral("Drag the knob; a press on the groove moves it there"))
{
    const SliderAndBar live = newSliderAndBar(host, new KELProcessBar);
    QGraphicsLinearLayout *card = newCard(
        QStringLiteral("Slider and bar; the slider's code is shown"));
    addSamples(card, {{live.slider, QString()}});
    addSamples(card, {{live.bar, QString(), 0, barPx}});
    addSamples(card, live.buttons(), 72);
    for (int i = 0; i < int(std::size(kinds)); ++i)
        addSlider(i);
}

void SlideControlPage::addSlider(int index)
{
    const Kind &kind = kinds[index];
    auto *slider = new KELSlideControl;
    slider->setMaximun(kind.maximum);
    slider->setMinimun(kind.minimum);
    int &value = remembered(QLatin1String(kind.objectName), kind.value);
    slider->setValue(float(value));
    slider->setStep(kind.step);
    slider->setEnabled(index != Disabled);
    slider->setObjectName(QLatin1String(kind.objectName));
    if (index == Dressed) {
        slider->style()->backgroundBrush = QColor(Theme::line);
        slider->style()->foregroundBrush = QColor(Theme::leaf);
    }
    QGraphicsLinearLayout *card = newCard(noteFor(kind, slider));
    KELLabel *note = newestCaption();
    addSamples(card, {{slider, QString()}});
    host.log->watch(slider, QLatin1String(kind.name));
    connect(slider, &KELSlideControl::valueChanged, note, [this, slider, note, &kind] {
        remembered(QLatin1String(kind.objectName)) = qRound(slider->value());
        note->setText(noteFor(kind, slider));
    });
}
