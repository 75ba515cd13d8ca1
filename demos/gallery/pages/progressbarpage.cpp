// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "progressbarpage.h"

#include "parts.h"
#include "sliderandbar.h"

#include <KELProcessBar>

namespace {

constexpr int sampleValues[] = {-5, 0, 33, 100, 150};
constexpr int sampleCount = int(std::size(sampleValues)) + 1; // and a tall one
constexpr qreal stackedHeightPx = 3 * Theme::touch + 2 * Theme::gap;

KELProcessBar *addBar(QGraphicsObject *parent, const QRectF &rect, int value)
{
    auto *bar = new KELProcessBar(parent);
    bar->setboundRect(rect);
    bar->setAcceptedMouseButtons(Qt::NoButton);
    bar->setValue(value);
    return bar;
}

} // namespace

ProgressBarPage::ProgressBarPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Progress bar"),
         QStringLiteral("Values as they are shown; slider and bar follow each other"))
{
    const QRectF room = body();
    const qreal live = isUpright() ? stackedHeightPx : Parts::sliderAndBarHeight;
    const QRectF table = room.adjusted(0, 0, 0, -live - Theme::pageMargin);
    const int columns = isUpright() ? 2 : 3;
    const QVector<QRectF> cells = Parts::grid(table, columns, sampleCount / columns,
                                              Theme::pageMargin);
    for (int i = 0; i < sampleCount - 1; ++i)
        addSample(cells.at(i), sampleValues[i]);
    addTallSample(cells.at(sampleCount - 1));
    Parts::addSliderAndBar(host, this, {room.x(), room.bottom() - live, room.width(), live});
}

void ProgressBarPage::addSample(const QRectF &cell, int value)
{
    KELRoundRectControl *card = Parts::addPanel(this, cell.adjusted(0, 0, 0, -Theme::notePx));
    addBar(card, card->rect().adjusted(Theme::gap, 0, -Theme::gap, 0), value);
    Parts::addNote(this, {cell.x(), cell.bottom() - Theme::notePx, cell.width(), Theme::notePx},
                   QStringLiteral("setValue(%1)").arg(value));
}

// The outline is the control's rectangle: the bar stays as high as ever.
void ProgressBarPage::addTallSample(const QRectF &cell)
{
    const QRectF rect = cell.adjusted(0, 0, 0, -Theme::notePx);
    KELRoundRectControl *outline = Parts::addCard(this, rect);
    outline->style()->borderBrush = QBrush(QColor(Theme::accent));
    outline->style()->xRadius = outline->style()->yRadius = 0;
    KELProcessBar *bar = addBar(this, rect, 75);
    bar->style()->backgroundBrush = QColor(Theme::disabled);
    bar->style()->borderBrush = QColor(Theme::warm);
    bar->style()->foregroundBrush = QColor(Theme::ink);
    Parts::addNote(this, {cell.x(), cell.bottom() - Theme::notePx, cell.width(), Theme::notePx},
                   QStringLiteral("%1 px tall").arg(rect.height()));
}
