// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sliderandbar.h"

#include "eventlog.h"
#include "page.h"
#include "parts.h"

#include <KELProcessBar>
#include <KELSlideControl>

namespace {

constexpr int firstValue = 35;
constexpr int buttonValues[] = {0, 50, 100};

struct Cells
{
    QRectF slider;
    QRectF bar;
    QRectF buttons;
};

Cells cellsIn(const QRectF &area)
{
    if (area.height() >= 3 * Theme::touch + 2 * Theme::gap) {
        const QVector<QRectF> rows = Parts::grid(area, 1, 3);
        return {rows.at(0), rows.at(1), rows.at(2)};
    }
    const QVector<QRectF> rows = Parts::grid(area, 1, 2);
    const QVector<QRectF> halves = Parts::grid(rows.at(0), 2, 1, Theme::pageMargin);
    return {halves.at(0), halves.at(1), rows.at(1)};
}

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

void Parts::addSliderAndBar(const PageHost &host, QGraphicsObject *parent, const QRectF &rect)
{
    KELRoundRectControl *panel = addPanel(parent, rect);
    panel->style()->backgroundBrush = panel->style()->borderBrush = QBrush(Qt::NoBrush);
    const Cells cells = cellsIn(panel->rect());

    auto *slider = new KELSlideControl(panel);
    slider->setboundRect(cells.slider.x(), cells.slider.y(), cells.slider.width(),
                         cells.slider.height());
    slider->setObjectName(QStringLiteral("slider"));
    auto *bar = new KELProcessBar(panel);
    bar->setboundRect(cells.bar);
    bar->setAcceptedMouseButtons(Qt::NoButton);
    bar->setObjectName(QStringLiteral("bar"));

    rememberValue(host, bar, QStringLiteral("Slider and bar"));
    slider->setValue(float(bar->value()));
    // Watched first: the log shows who moved whom.
    host.log->watch(slider, QStringLiteral("Slider"));
    host.log->watch(bar, QStringLiteral("Bar"));
    connectBothWays(slider, bar);

    const QVector<QRectF> buttonCells = grid(cells.buttons, int(std::size(buttonValues)), 1);
    for (int i = 0; i < buttonCells.size(); ++i) {
        const int value = buttonValues[i];
        KELPushButton *button = addButton(panel, buttonCells.at(i),
                                          QStringLiteral("Set %1").arg(value));
        button->setObjectName(QStringLiteral("set-%1").arg(value));
        host.log->watch(button, button->text());
        QObject::connect(button, &KELPushButton::mouseClicked, bar, [=] { bar->setValue(value); });
    }
}
