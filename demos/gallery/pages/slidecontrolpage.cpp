// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "slidecontrolpage.h"

#include "eventlog.h"
#include "parts.h"
#include "sliderandbar.h"

#include <KELSlideControl>

namespace {

constexpr qreal stackedHeightPx = 3 * Theme::touch + 2 * Theme::gap;

struct Sample
{
    const char *name;
    const char *objectName;
    float minimum;
    float maximum;
    float step;
    int value;
};

enum { Dark, Step, Signed, MinimumIsNotZero, Themed, Disabled };

const Sample samples[] = {
    {"Default, no step", "default-slider", 0, 100, 0, 40},
    {"Step 10", "step-slider", 0, 100, 10, 70},
    {"-50 to 50", "signed-slider", -50, 50, 0, 0},
    {"20 to 120", "offset-slider", 20, 120, 0, 45},
    {"Themed", "themed-slider", 0, 100, 0, 60},
    {"Disabled", "disabled-slider", 0, 100, 0, 60},
};
constexpr int sampleCount = int(std::size(samples));

void dress(KELSlideControl *slider)
{
    slider->style()->backgroundBrush = QColor(Theme::line);
    slider->style()->foregroundBrush = QColor(Theme::leaf);
    slider->style()->borderBrush = QColor(Theme::bar);
}

QString noteFor(const Sample &sample, const KELSlideControl *slider)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(sample.name)).arg(qRound(slider->value()));
}

} // namespace

SlideControlPage::SlideControlPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Slide control"),
         QStringLiteral("Bounds, steps and looks; slider and bar follow each other"))
{
    const QRectF room = body();
    const qreal live = isUpright() ? stackedHeightPx : Parts::sliderAndBarHeight;
    const QRectF table = room.adjusted(0, 0, 0, -live - Theme::pageMargin);
    const int columns = isUpright() ? 2 : 3;
    const QVector<QRectF> cells = Parts::grid(table, columns, sampleCount / columns,
                                              Theme::pageMargin);
    for (int i = 0; i < sampleCount; ++i)
        addSample(cells.at(i), i);
    Parts::addSliderAndBar(host, this, {room.x(), room.bottom() - live, room.width(), live});
}

void SlideControlPage::addSample(const QRectF &cell, int index)
{
    const Sample &sample = samples[index];
    const QRectF rect = cell.adjusted(0, 0, 0, -Theme::notePx);
    KELRoundRectControl *panel = index == Dark ? Parts::addDarkPanel(this, rect)
                                               : Parts::addPanel(this, rect);
    auto *slider = new KELSlideControl(panel);
    slider->setMaximun(sample.maximum);
    slider->setMinimun(sample.minimum);
    slider->setboundRect(Theme::gap, 0, panel->rect().width() - 2 * Theme::gap,
                         panel->rect().height());
    int &value = remembered(QLatin1String(sample.objectName), sample.value);
    // With a minimum other than 0 only this puts the knob where it belongs.
    slider->setValue(float(value));
    slider->setStep(sample.step);
    slider->setEnabled(index != Disabled);
    slider->setObjectName(QLatin1String(sample.objectName));
    if (index == Themed)
        dress(slider);

    KELRoundRectControl *note = Parts::addNote(
        this, {cell.x(), cell.bottom() - Theme::notePx, cell.width(), Theme::notePx},
        noteFor(sample, slider));
    host.log->watch(slider, QLatin1String(sample.name));
    connect(slider, &KELSlideControl::valueChanged, note, [this, slider, note, &sample] {
        remembered(QLatin1String(sample.objectName)) = qRound(slider->value());
        note->setText(noteFor(sample, slider));
    });
}
