// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "progressbarpage.h"

#include "code/code.h"
#include "sliderandbar.h"

#include <KELProcessBar>
#include <KELSlideControl>

namespace {

constexpr qreal barPx = 30;
constexpr int fillAlpha = 100;

KELProcessBar *newBar(int value)
{
    KELProcessBar *bar = Code::newProgressBar();
    bar->setValue(value);
    bar->setAcceptedMouseButtons(Qt::NoButton);
    return bar;
}

} // namespace

ProgressBarPage::ProgressBarPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Progress bar"),
             QStringLiteral("From 0 to 100 percent; it is 30 px high, whatever its rectangle is"))
{
    const SliderAndBar live = newSliderAndBar(host, Code::newProgressBar());
    QGraphicsLinearLayout *card = newCard(
        QStringLiteral("Move the slider; the bar's code is shown"));
    addSamples(card, {{live.bar, QString(), 0, barPx}});
    addSamples(card, {{live.slider, QString()}});
    addSamples(card, live.buttons(), 72);

    QGraphicsLinearLayout *values = newCard(QStringLiteral("Values"));
    for (const int value : {0, 33, 66, 100})
        addSamples(values, {{newBar(value), QString(), 0, barPx}});

    KELProcessBar *dressed = newBar(75);
    dressed->style()->backgroundBrush = QColor(Theme::line);
    QColor fill(Theme::warm);
    fill.setAlpha(fillAlpha); // the number is legible on both
    dressed->style()->borderBrush = fill;
    KELProcessBar *disabled = newBar(75);
    disabled->setEnabled(false);
    QGraphicsLinearLayout *looks = newCard(QStringLiteral("Colours of its own, disabled"));
    addSamples(looks, {{dressed, QString(), 0, barPx}});
    addSamples(looks, {{disabled, QString(), 0, barPx}});
}
