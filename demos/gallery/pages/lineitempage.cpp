// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "lineitempage.h"

#include "code/code.h"
#include "eventlog.h"
#include "screens/screenkit.h"

#include <KELLabel>
#include <KELLayout>
#include <KELLineItem>
#include <KELPushButton>
#include <KELTheme>
#include <QtCore/QLineF>
#include <QtGui/QLinearGradient>
#include <QtWidgets/QGraphicsLinearLayout>

namespace {

constexpr qreal nameWidthPx = 72; // the widest is "Gradient"
constexpr qreal rowPx = 24;
constexpr qreal starPx = 112;
constexpr qreal sampleEndPx = 160; // where the gradient ends
constexpr float wideLinePx = 8;

const char *const menuEntries[] = {"Open", "Copy", "Paste", "Delete"};

// A line that a layout places: across the room that it gets.
KELLineItem *newLine(const QBrush &brush, float width)
{
    auto *line = new KELLineItem;
    line->setLine({0, 0}, {100, 0});
    line->setAcceptedMouseButtons(Qt::NoButton);
    line->style()->borderBrush = brush;
    line->style()->borderWidth = qreal(width);
    return line;
}

QBrush gradient()
{
    QLinearGradient gradient(0, 0, sampleEndPx, 0); // in item px
    gradient.setColorAt(0, QColor(Theme::leaf));
    gradient.setColorAt(1, QColor(Theme::warm));
    return gradient;
}

} // namespace

LineItemPage::LineItemPage(const PageHost &pageHost, const QRectF &area) :
    CardPage(pageHost, area, QStringLiteral("Line item"),
             QStringLiteral("Separators between live entries, widths, directions and brushes"))
{
    addMenu();
    QVector<KELRoundRectControl *> lines;
    QStringList names;
    for (const float width : {0.0F, 0.5F, 1.0F, 2.0F, 4.0F, wideLinePx}) {
        lines.append(newLine(QColor(Theme::ink), width));
        names.append(QStringLiteral("%1 px").arg(double(width)));
    }
    addLines(QStringLiteral("borderWidth"), names, lines);
    addLines(QStringLiteral("borderBrush, 8 px wide"),
             {QStringLiteral("Solid"), QStringLiteral("Gradient"), QStringLiteral("Pattern"),
              QStringLiteral("NoBrush")},
             {newLine(QColor(Theme::accent), wideLinePx), newLine(gradient(), wideLinePx),
              newLine(QBrush(QColor(Theme::leaf), Qt::Dense4Pattern), wideLinePx),
              newLine(QBrush(Qt::NoBrush), wideLinePx)});
    addDirections();
}

void LineItemPage::addMenu()
{
    QGraphicsLinearLayout *card = newCard(QStringLiteral("Separators; their code is shown"));
    card->setSpacing(0);
    for (int i = 0; i < int(std::size(menuEntries)); ++i) {
        if (i > 0)
            KELLayout::add(card, Code::newSeparator());
        auto *entry = new KELPushButton;
        entry->setText(QLatin1String(menuEntries[i]));
        entry->setObjectName(QStringLiteral("entry-%1").arg(i));
        entry->style()->backgroundBrush = QColor(Theme::card);
        entry->style()->borderWidth = 0;
        host.log->watch(entry, entry->text());
        QGraphicsLayoutItem *item = KELLayout::item(entry);
        item->setMinimumHeight(Theme::touch);
        item->setPreferredHeight(Theme::touch);
        KELLayout::add(card, entry);
    }
}

// One row a line, with its name beside it.
void LineItemPage::addLines(const QString &caption, const QStringList &names,
                            const QVector<KELRoundRectControl *> &lines)
{
    QGraphicsLinearLayout *card = newCard(caption);
    card->setSpacing(0);
    for (int i = 0; i < lines.size(); ++i) {
        auto *row = new QGraphicsLinearLayout(Qt::Horizontal);
        KELLabel *label = Kit::newMutedLabel(*host.theme, names.at(i));
        QGraphicsLayoutItem *item = KELLayout::item(label);
        item->setMinimumSize(nameWidthPx, rowPx);
        item->setPreferredSize(nameWidthPx, rowPx);
        item->setMaximumSize(nameWidthPx, rowPx);
        KELLayout::add(row, label);
        KELLayout::add(row, lines.at(i), 1);
        card->addItem(row);
    }
    card->addStretch();
}

void LineItemPage::addDirections()
{
    constexpr int rays = 12;
    auto *star = new KELRoundRectControl;
    star->setboundRect(0, 0, starPx, starPx);
    star->setAcceptedMouseButtons(Qt::NoButton);
    star->style()->backgroundBrush = star->style()->borderBrush = QBrush(Qt::NoBrush);
    for (int ray = 0; ray < rays; ++ray) {
        QLineF line = QLineF::fromPolar(starPx / 2 - 4, ray * 360.0 / rays)
                          .translated(starPx / 2, starPx / 2);
        line.setP1(line.pointAt(0.25));
        KELLineItem *item = newLine(QColor(ray % 3 == 0 ? Theme::accent : Theme::warm), 2);
        item->setLine(line.p1(), line.p2());
        // The picture kept of a line would end at its rectangle, which is as flat as the line.
        item->setCacheMode(NoCache);
        item->setParentItem(star);
    }
    addSamples(newCard(QStringLiteral("Any direction")), {{star, QString(), starPx, starPx}});
}
