// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "screenkit.h"

#include "titlebutton.h"

#include <KELLabel>
#include <KELLayout>
#include <KELTheme>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QGraphicsLinearLayout>
#include <QtWidgets/QGraphicsWidget>
#include <QtWidgets/QStyle>

namespace {

constexpr qreal smallShortSidePx = 400;
constexpr qreal topPx = 4;

} // namespace

bool Kit::isSmall(const QSizeF &screen)
{
    return qMin(screen.width(), screen.height()) < smallShortSidePx;
}

bool Kit::isUpright(const QSizeF &screen)
{
    return screen.height() > screen.width();
}

qreal Kit::edgePx(const QSizeF &screen)
{
    return isSmall(screen) ? 12 : 24;
}

qreal Kit::cardGapPx(const QSizeF &screen)
{
    return isSmall(screen) ? 8 : gapPx;
}

int Kit::figurePxFor(const QSizeF &screen)
{
    if (isSmall(screen))
        return figurePx;
    return isUpright(screen) ? uprightFigurePx : bigFigurePx;
}

QFont Kit::font(int sizePx, QFont::Weight weight)
{
    QFont font;
    font.setPixelSize(sizePx);
    font.setWeight(weight);
    return font;
}

QGraphicsLinearLayout *Kit::newColumn(QGraphicsWidget *content)
{
    auto *column = new QGraphicsLinearLayout(Qt::Vertical, content);
    const qreal edge = edgePx(content->size());
    column->setContentsMargins(edge, isSmall(content->size()) ? 0 : topPx, edge, edge);
    column->setSpacing(cardGapPx(content->size()));
    return column;
}

KELLabel *Kit::addTitleLine(QGraphicsLinearLayout *column, const KELTheme &theme,
                            const QString &title, const QString &status)
{
    auto *line = new QGraphicsLinearLayout(Qt::Horizontal);
    line->setMinimumHeight(titleLinePx);
    line->setMaximumHeight(titleLinePx);
    line->addItem(new TitleButton(title, font(bodyPx, QFont::Medium)));
    KELLabel *label = newMutedLabel(theme, status, Qt::AlignRight | Qt::AlignVCenter);
    label->style()->font = font(bodyPx);
    KELLayout::add(line, label, 1);
    column->addItem(line);
    column->setItemSpacing(column->count() - 1, 4);
    return label;
}

Kit::Card Kit::newCard(qreal marginPx)
{
    auto *card = new KELRoundRectControl;
    card->setAcceptedMouseButtons(Qt::NoButton);
    auto *layout = new QGraphicsLinearLayout(Qt::Vertical);
    layout->setContentsMargins(marginPx, marginPx, marginPx, marginPx);
    layout->setSpacing(0);
    KELLayout::setLayout(card, layout);
    return {card, layout};
}

KELLabel *Kit::newLabel(const QString &text, const QFont &font, Qt::Alignment alignment)
{
    auto *label = new KELLabel;
    label->setAcceptedMouseButtons(Qt::NoButton);
    label->style()->font = font;
    label->style()->textFlags = int(
        QStyle::visualAlignment(QGuiApplication::layoutDirection(), alignment) | Qt::AlignAbsolute);
    label->setText(text);
    return label;
}

KELLabel *Kit::newMutedLabel(const KELTheme &theme, const QString &text, Qt::Alignment alignment)
{
    KELLabel *label = newLabel(text, font(secondaryPx), alignment);
    label->style()->foregroundBrush = theme.color(KELTheme::Muted);
    return label;
}

void Kit::addLine(QGraphicsLinearLayout *layout, KELRoundRectControl *control, qreal heightPx)
{
    QGraphicsLayoutItem *item = KELLayout::item(control);
    item->setMinimumSize(0, heightPx);
    item->setPreferredHeight(heightPx);
    item->setMaximumHeight(heightPx);
    item->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    KELLayout::add(layout, control, layout->orientation() == Qt::Horizontal ? 1 : 0);
}

QBrush Kit::ownBrush(const QColor &colour)
{
    return colour.toHsv(); // equals the same colour in RGB only on the screen
}

void Kit::setText(KELRoundRectControl *control, const QString &text)
{
    if (control->text() != text)
        control->setText(text);
}
