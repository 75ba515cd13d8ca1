// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CARDPAGE_H
#define CARDPAGE_H

#include "page.h"
#include "theme.h"

QT_BEGIN_NAMESPACE
class QGraphicsGridLayout;
class QGraphicsLayoutItem;
class QGraphicsLinearLayout;
QT_END_NAMESPACE
class KELLabel;
class KELRadioBox;
class ScrollArea;

/*
 * A page of cards in as many columns as there is room for. What does not fit is scrolled to.
 *
 * The look comes from the theme: a sample sets only what it is about.
 */
class CardPage : public Page
{
    Q_OBJECT

public:
    CardPage(const PageHost &host, const QRectF &area, const QString &title, const QString &about);

    void attached() override;

protected:
    // A new card: what it shows in a few words, and below that what is added to its layout.
    QGraphicsLinearLayout *newCard(const QString &caption);
    // The same over all columns.
    QGraphicsLinearLayout *newWideCard(const QString &caption);

    // What the newest card shows in a few words.
    KELLabel *newestCaption() const;

public:
    struct Sample
    {
        KELRoundRectControl *control;
        QString caption; // below the control; none if empty
        qreal width = 0; // px; 0: as wide as there is room
        qreal height = Theme::touch;
    };

protected:
    // Adds samples side by side to the newest card, as many in a row as fit, each at least
    // leastWidthPx wide.
    void addSamples(QGraphicsLinearLayout *card, const QVector<Sample> &samples,
                    qreal leastWidthPx = 64);
    // Adds a radio box and its caption, which is to be tapped like the box; returns the caption.
    KELLabel *addChoice(QGraphicsLinearLayout *card, KELRadioBox *box, const QString &text);
    // Adds lines of secondary text to a card.
    KELLabel *addText(QGraphicsLinearLayout *card, const QString &text, int lines = 1);

private:
    Q_DISABLE_COPY(CardPage)
    QGraphicsLinearLayout *addCard(const QString &caption, int columns);

    ScrollArea *m_area;
    QGraphicsGridLayout *m_grid;
    KELLabel *m_newestCaption = nullptr;
    int m_columns;
    qreal m_columnPx;
    qreal m_insidePx = 0; // of the newest card
    int m_cell = 0;
};

#endif
