// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "checkboxpage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELCheckBox>

#include <numeric>

namespace {

constexpr qreal titlePx = 32;
constexpr qreal liveHeightPx = Theme::touch + Theme::notePx + 2 * Theme::gap;
constexpr qreal switchPx = 38; // the track and a little room above the note

const char *const lookNames[] = {"Off", "On", "Off, disabled", "On, disabled"};
constexpr int lookCount = int(std::size(lookNames));
constexpr int liveWidths[] = {48, 64, 80, 160};

// Colours within the bounds that a check box computes its other looks in.
void dress(KELCheckBox *box)
{
    auto *style = static_cast<KELCheckBoxStyle *>(box->style());
    style->backgroundBrush = QColor(Theme::line);
    style->borderBrush = QColor(Theme::faint);
    style->indicatorBrush = QColor(Theme::leaf);
}

// As many switches as fit side by side.
int switchesIn(qreal width)
{
    int count = int(std::size(liveWidths));
    while (count > 1
           && std::accumulate(liveWidths, liveWidths + count, 0) + (count + 1) * Theme::gap > width)
        --count;
    return count;
}

} // namespace

CheckBoxPage::CheckBoxPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Check box"),
         QStringLiteral("Default and own colours; the switches below are live"))
{
    const QRectF room = body();
    const QRectF looks = room.adjusted(0, 0, 0, -liveHeightPx - Theme::pageMargin);
    const QVector<QRectF> cells = Parts::grid(looks, isUpright() ? 1 : 2, isUpright() ? 2 : 1,
                                              Theme::pageMargin);
    addLooks(Parts::addDarkPanel(this, cells.at(0)), QStringLiteral("Default colours"), true);
    addLooks(Parts::addPanel(this, cells.at(1)), QStringLiteral("Own colours"), false);
    addLiveSwitches(Parts::addPanel(this, room.adjusted(0, room.height() - liveHeightPx, 0, 0)));
}

void CheckBoxPage::addLooks(KELRoundRectControl *panel, const QString &title, bool isDark)
{
    const QRectF rect = panel->rect();
    Parts::addLabel(panel, {0, Theme::gap, rect.width(), titlePx - Theme::gap}, title,
                    Theme::font(Theme::bodyPx, true), isDark ? Theme::onAccent : Theme::ink,
                    Qt::AlignCenter);
    const QVector<QRectF> cells = Parts::grid(
        rect.adjusted(Theme::gap, titlePx, -Theme::gap, -Theme::gap), 2, lookCount / 2);
    for (int look = 0; look < lookCount; ++look) {
        const QRectF &cell = cells.at(look);
        auto *box = new KELCheckBox(panel);
        const qreal top = qRound(cell.center().y() - (switchPx + Theme::notePx) / 2);
        box->setboundRect(cell.x(), top, cell.width(), switchPx);
        box->setAcceptedMouseButtons(Qt::NoButton);
        box->setAcceptHoverEvents(false);
        box->setCheck(look % 2 != 0);
        box->setEnabled(look < 2);
        if (!isDark)
            dress(box);
        Parts::addNote(panel,
                       {cell.x(), cell.bottom() - Theme::notePx, cell.width(), Theme::notePx},
                       QLatin1String(lookNames[look]), isDark ? Theme::barText : Theme::muted);
    }
}

void CheckBoxPage::addLiveSwitches(KELRoundRectControl *panel)
{
    const int count = switchesIn(panel->rect().width());
    const int widths = std::accumulate(liveWidths, liveWidths + count, 0);
    const qreal space = (panel->rect().width() - widths) / (count + 1);
    qreal x = 0;
    for (int i = 0; i < count; ++i) {
        const qreal width = liveWidths[i];
        x += space;
        auto *box = new KELCheckBox(panel);
        box->setboundRect(qRound(x), Theme::gap, width, Theme::touch);
        box->setObjectName(QStringLiteral("switch-%1").arg(width));
        dress(box);
        box->setCheck(remembered(box->objectName(), i % 2) != 0);
        host.log->watch(box, QStringLiteral("Switch %1 px").arg(width));
        connect(box, &KELCheckBox::checkChanged, this,
                [this, box] { remembered(box->objectName()) = box->isCheck(); });
        Parts::addNote(panel,
                       {x - space / 2, Theme::gap + Theme::touch, width + space, Theme::notePx},
                       QStringLiteral("%1 px").arg(width));
        x += width;
    }
}
