// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "cardpage.h"

#include "screens/screenkit.h"
#include "scrollarea.h"

#include <KELLabel>
#include <KELLayout>
#include <KELRadioBox>
#include <KELTheme>
#include <QtWidgets/QGraphicsGridLayout>
#include <QtWidgets/QGraphicsLinearLayout>

#include <cmath>

namespace {

constexpr qreal leastCardPx = 300;
constexpr qreal widestCardPx = 560;
constexpr qreal captionPx = 20;
constexpr int mostColumns = 3;

} // namespace

CardPage::CardPage(const PageHost &pageHost, const QRectF &area, const QString &title,
                   const QString &about) :
    Page(pageHost, area, title, about),
    m_area(new ScrollArea(this)),
    m_grid(new QGraphicsGridLayout(m_area->content()))
{
    const qreal edge = Theme::pageMargin;
    const QRectF room(0, body().top(), area.width(), area.height() - body().top());
    m_area->setGeometry(room.translated(area.topLeft()));
    const qreal gap = Kit::cardGapPx(area.size());
    const qreal whole = room.width() - 2 * edge + gap;
    m_columns = qBound(1, int(whole / (leastCardPx + gap)), mostColumns);
    m_columnPx = qMin(widestCardPx, std::floor(whole / m_columns - gap));
    m_grid->setContentsMargins(edge, 0, edge, edge);
    m_grid->setSpacing(gap);
    for (int column = 0; column < m_columns; ++column)
        m_grid->setColumnFixedWidth(column, m_columnPx);
}

void CardPage::attached()
{
    m_area->fitContent();
    int &position = remembered(QStringLiteral("position"));
    m_area->setPosition(position);
    connect(m_area, &ScrollArea::positionChanged, this,
            [this] { remembered(QStringLiteral("position")) = int(m_area->position()); });
}

QGraphicsLinearLayout *CardPage::newCard(const QString &caption)
{
    return addCard(caption, 1);
}

QGraphicsLinearLayout *CardPage::newWideCard(const QString &caption)
{
    return addCard(caption, m_columns);
}

KELLabel *CardPage::newestCaption() const
{
    return m_newestCaption;
}

KELLabel *CardPage::addChoice(QGraphicsLinearLayout *card, KELRadioBox *box, const QString &text)
{
    auto *row = new QGraphicsLinearLayout(Qt::Horizontal);
    row->setSpacing(Theme::gap);
    QGraphicsLayoutItem *item = KELLayout::item(box);
    item->setMinimumSize(Theme::touch, Theme::touch);
    item->setMaximumSize(Theme::touch, Theme::touch);
    KELLayout::add(row, box);
    KELLabel *caption = Kit::newLabel(text, Kit::font(Kit::bodyPx));
    caption->setAcceptedMouseButtons(Qt::LeftButton);
    KELLayout::item(caption)->setMinimumHeight(Theme::touch);
    KELLayout::add(row, caption, 1);
    card->addItem(row);
    return caption;
}

QGraphicsLinearLayout *CardPage::addCard(const QString &caption, int columns)
{
    const Kit::Card card = Kit::newCard(Theme::pageMargin);
    card.layout->setSpacing(Theme::gap);
    m_newestCaption = addText(card.layout, caption);
    m_insidePx = columns * m_columnPx + (columns - 1) * m_grid->horizontalSpacing()
        - 2 * Theme::pageMargin;
    if (m_cell % m_columns + columns > m_columns)
        m_cell += m_columns - m_cell % m_columns;
    KELLayout::add(m_grid, card.control, m_cell / m_columns, m_cell % m_columns, 1, columns);
    // The list of a combo box lies over the cards below.
    card.control->setZValue(-m_cell);
    m_cell += columns;
    return card.layout;
}

void CardPage::addSamples(QGraphicsLinearLayout *card, const QVector<Sample> &samples,
                          qreal leastWidthPx)
{
    const int fitting = qBound(1, int((m_insidePx + Theme::gap) / (leastWidthPx + Theme::gap)),
                               samples.size());
    const int rows = (samples.size() + fitting - 1) / fitting;
    const int perRow = (samples.size() + rows - 1) / rows;
    QGraphicsLinearLayout *row = nullptr;
    for (int i = 0; i < samples.size(); ++i) {
        if (i % perRow == 0) {
            row = new QGraphicsLinearLayout(Qt::Horizontal);
            row->setSpacing(Theme::gap);
            card->addItem(row);
        }
        const Sample &sample = samples.at(i);
        auto *column = new QGraphicsLinearLayout(Qt::Vertical);
        column->setSpacing(Theme::gap / 2);
        QGraphicsLayoutItem *item = KELLayout::item(sample.control);
        item->setPreferredHeight(sample.height);
        item->setMinimumHeight(sample.height);
        item->setMaximumHeight(sample.height);
        if (sample.width > 0) {
            item->setMinimumWidth(sample.width);
            item->setMaximumWidth(sample.width);
        } else {
            item->setMinimumWidth(leastWidthPx);
            item->setPreferredWidth(widestCardPx); // as wide as the others
        }
        KELLayout::add(column, sample.control);
        column->setAlignment(item, Qt::AlignCenter);
        if (!sample.caption.isEmpty()) {
            KELLabel *label = Kit::newMutedLabel(*host.theme, sample.caption, Qt::AlignCenter);
            KELLayout::add(column, label);
        }
        if (sample.width > 0)
            row->addStretch();
        row->addItem(column);
        if (sample.width > 0 && (i % perRow == perRow - 1 || i == samples.size() - 1))
            row->addStretch();
    }
}

KELLabel *CardPage::addText(QGraphicsLinearLayout *card, const QString &text, int lines)
{
    KELLabel *label = Kit::newMutedLabel(*host.theme, text);
    QGraphicsLayoutItem *item = KELLayout::item(label);
    item->setPreferredHeight(captionPx * lines);
    item->setMinimumHeight(captionPx * lines);
    item->setMaximumHeight(captionPx * lines);
    item->setPreferredWidth(1); // as wide as the card
    item->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    KELLayout::add(card, label);
    return label;
}
