// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SCREENKIT_H
#define SCREENKIT_H

#include <QtCore/QSizeF>
#include <QtGui/QBrush>
#include <QtGui/QFont>

QT_BEGIN_NAMESPACE
class QGraphicsLinearLayout;
class QGraphicsWidget;
class QString;
QT_END_NAMESPACE
class KELLabel;
class KELRoundRectControl;
class KELTheme;

// What the finished screens have in common: measures, cards, captions.
namespace Kit {

enum Font : int {
    secondaryPx = 13,
    bodyPx = 16,
    buttonPx = 18,
    titlePx = 22,
    smallFigurePx = 34,
    figurePx = 44,
    uprightFigurePx = 68,
    bigFigurePx = 92
};

constexpr qreal gapPx = 16; // between cards, and inside them
constexpr qreal titleLinePx = 48; // a tap on the title goes back

// Whether there is no room for more than one column, or two tiles in a row.
bool isSmall(const QSizeF &screen);
bool isUpright(const QSizeF &screen);

// From the edge of the screen to the first card.
qreal edgePx(const QSizeF &screen);
// Between cards.
qreal cardGapPx(const QSizeF &screen);

// For the one figure of a screen.
int figurePxFor(const QSizeF &screen);

QFont font(int sizePx, QFont::Weight weight = QFont::Normal);

// Layout of all that is below one another on a screen: its edges are kept free.
QGraphicsLinearLayout *newColumn(QGraphicsWidget *content);

// The line on top: title at its begin, status at its end. Returns the label of the status.
KELLabel *addTitleLine(QGraphicsLinearLayout *column, const KELTheme &theme, const QString &title,
                       const QString &status);

// A card to be put into a layout, and the layout on it.
struct Card
{
    KELRoundRectControl *control;
    QGraphicsLinearLayout *layout;
};
Card newCard(qreal marginPx = gapPx);

// A caption that presses go through. alignment is mirrored where the application is.
KELLabel *newLabel(const QString &text, const QFont &font,
                   Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);
// The same in secondary print.
KELLabel *newMutedLabel(const KELTheme &theme, const QString &text,
                        Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);

// Appends a control that has a height of its own, and as much of the width as there is.
void addLine(QGraphicsLinearLayout *layout, KELRoundRectControl *control, qreal heightPx);

// A brush that no theme takes for the one of a new control: black is the colour of its caption.
QBrush ownBrush(const QColor &colour);

// Changes the text, and paints anew, only if it is another one.
void setText(KELRoundRectControl *control, const QString &text);

} // namespace Kit

#endif
