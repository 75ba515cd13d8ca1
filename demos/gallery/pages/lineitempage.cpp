// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "lineitempage.h"

#include "eventlog.h"
#include "parts.h"

#include <KELLineItem>
#include <QtCore/QLineF>
#include <QtGui/QLinearGradient>

namespace {

constexpr qreal insetPx = 16;
constexpr qreal nameWidthPx = 64; // the widest is "Gradient"
constexpr qreal widestPx = 8;

const char *const menuEntries[] = {"Open", "Copy", "Paste", "Rename", "Delete"};
constexpr float widths[] = {0, 0.5F, 1, 2, 4, float(widestPx)};

struct BrushSample
{
    const char *name;
    QBrush (*brush)(const QPointF &from, const QPointF &to);
};

const BrushSample brushSamples[] = {
    {"Solid", [](const QPointF &, const QPointF &) { return QBrush(QColor(Theme::accent)); }},
    {"Gradient",
     [](const QPointF &from, const QPointF &to) {
         QLinearGradient gradient(from, to);
         gradient.setColorAt(0, QColor(0x14, 0x9e, 0x8c));
         gradient.setColorAt(1, QColor(Theme::warm));
         return QBrush(gradient);
     }},
    {"Pattern",
     [](const QPointF &, const QPointF &) {
         return QBrush(QColor(Theme::leaf), Qt::Dense4Pattern);
     }},
    {"NoBrush", [](const QPointF &, const QPointF &) { return QBrush(Qt::NoBrush); }},
};

KELLineItem *addLine(QGraphicsObject *parent, const QLineF &line, const QBrush &brush, float width)
{
    auto *item = new KELLineItem(parent);
    item->setLine(line.p1(), line.p2());
    item->setAcceptedMouseButtons(Qt::NoButton);
    // The picture kept of a line would end at its rectangle, which is as flat as the line.
    item->setCacheMode(QGraphicsItem::NoCache);
    item->style()->borderBrush = brush;
    item->style()->borderWidth = width;
    return item;
}

// A line that shows nothing beyond from and to, where its ends would reach.
void addTrimmedLine(KELRoundRectControl *panel, const QPointF &from, const QPointF &to,
                    const QBrush &brush, float width)
{
    const QPointF reach(qreal(width / 2), 0);
    addLine(panel, {from + reach, to - reach}, brush, width);
}

// One row a line, with its name to the left: draw(row, from, to) adds the line.
template <typename Draw>
void addNamedLines(KELRoundRectControl *panel, const QStringList &names, Draw draw)
{
    const QVector<QRectF> rows = Parts::grid(
        panel->rect().adjusted(insetPx, Theme::gap, -insetPx, -Theme::gap), 1, names.size(), 0);
    for (int row = 0; row < names.size(); ++row) {
        QRectF name = rows.at(row);
        name.setWidth(nameWidthPx);
        Parts::addNote(panel, name, names.at(row), Theme::muted, Qt::AlignLeft | Qt::AlignVCenter);
        const qreal y = qRound(name.center().y());
        draw(row, QPointF(name.right() + widestPx, y), QPointF(rows.at(row).right(), y));
    }
}

void fillWidths(KELRoundRectControl *panel)
{
    QStringList names;
    for (const float width : widths)
        names.append(QStringLiteral("%1 px").arg(double(width)));
    addNamedLines(panel, names, [panel](int row, const QPointF &from, const QPointF &to) {
        addTrimmedLine(panel, from, to, QColor(Theme::ink), widths[row]);
    });
}

void fillBrushes(KELRoundRectControl *panel)
{
    QStringList names;
    for (const BrushSample &sample : brushSamples)
        names.append(QLatin1String(sample.name));
    addNamedLines(panel, names, [panel](int row, const QPointF &from, const QPointF &to) {
        addTrimmedLine(panel, from, to, brushSamples[row].brush(from, to), float(widestPx));
    });
}

void fillDirections(KELRoundRectControl *panel)
{
    constexpr int rays = 12;
    const QPointF centre = panel->rect().center();
    const qreal radius = qMin(panel->rect().width(), panel->rect().height()) / 2 - Theme::gap;
    for (int ray = 0; ray < rays; ++ray) {
        QLineF line = QLineF::fromPolar(radius, ray * 360.0 / rays).translated(centre);
        line.setP1(line.pointAt(0.25));
        addLine(panel, line, QColor(ray % 3 == 0 ? Theme::accent : Theme::warm), 2);
    }
}

} // namespace

LineItemPage::LineItemPage(const PageHost &pageHost, const QRectF &area) :
    Page(pageHost, area, QStringLiteral("Line item"),
         QStringLiteral("Separators between live entries, widths, directions and brushes"))
{
    const QRectF room = body();
    QVector<QRectF> cells = Parts::grid(room, 2, 2, Theme::pageMargin);
    if (room.width() > room.height()) {
        const QVector<QRectF> columns = Parts::grid(room, 3, 1, Theme::pageMargin);
        cells = columns.mid(0, 2) + Parts::grid(columns.at(2), 1, 2, Theme::pageMargin);
    }
    fillMenu(addSample(cells.at(0), QStringLiteral("Separators")));
    fillWidths(addSample(cells.at(1), QStringLiteral("Widths")));
    fillDirections(addSample(cells.at(2), QStringLiteral("Directions")));
    fillBrushes(addSample(cells.at(3), QStringLiteral("Brushes, 8 px wide")));
}

KELRoundRectControl *LineItemPage::addSample(const QRectF &cell, const QString &caption)
{
    Parts::addNote(this, {cell.x(), cell.bottom() - Theme::notePx, cell.width(), Theme::notePx},
                   caption);
    return Parts::addPanel(this, cell.adjusted(0, 0, 0, -Theme::notePx));
}

void LineItemPage::fillMenu(KELRoundRectControl *panel)
{
    const int count = Parts::fitting(panel->rect().height(), Theme::touch,
                                     int(std::size(menuEntries)), 0);
    const QVector<QRectF> rows = Parts::grid(panel->rect(), 1, count, 0);
    for (int i = 0; i < count; ++i) {
        KELPushButton *entry = Parts::addButton(panel, rows.at(i), QLatin1String(menuEntries[i]));
        entry->style()->backgroundBrush = entry->style()->borderBrush = QBrush(Qt::NoBrush);
        entry->setObjectName(QStringLiteral("entry-%1").arg(i));
        host.log->watch(entry, entry->text());
    }
    for (int i = 1; i < count; ++i) {
        const QPointF left = rows.at(i).topLeft();
        addLine(panel,
                {left + QPointF(insetPx, 0), left + QPointF(rows.at(i).width() - insetPx, 0)},
                QColor(Theme::line), 1);
    }
}
