// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELROWPAINTER_P_H
#define KELROWPAINTER_P_H

#include "kelrow.h"

#include <QtGui/QBrush>
#include <QtGui/QPixmap>
#include <QtGui/QStaticText>

// What a row shows. A picture is drawn instead of the glyph, a text of the icon font.
struct KELRowContent
{
    QString caption;
    QString detail;
    QString value;
    QString glyph;
    QPixmap picture;
    KELRow::End end = KELRow::NoEnd;
    bool isOn = false;
    bool isEnabled = true;
};

// How it shows it. The knob goes from 0, off, to 1, on.
struct KELRowState
{
    bool isPressed = false;
    bool isSelected = false;
    bool isFocusShown = false;
    bool hasSeparator = true;
    KELRow::Card card = KELRow::NoCard;
    qreal knob = 0;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

// A text on one line, laid out once and drawn many times.
class KELRowText
{
public:
    // Does nothing if all three are as before. False if there is nothing to draw.
    bool layOut(const QString &text, const QFont &font, qreal limit);
    bool layOutGlyph(const QString &text, int pixelSize);

    // The width without a limit.
    qreal naturalWidth(const QString &text, const QFont &font);

    QSizeF size() const { return m_drawn.size(); }
    // At the whole number next to \a topLeft.
    void draw(QPainter *painter, const QPointF &topLeft, const QBrush &brush) const;

private:
    QStaticText m_drawn;
    QString m_text;
    QFont m_font;
    qreal m_naturalWidth = 0;
    qreal m_limit = -1;
};

// The picture of a mark and what it depends on.
struct KELRowMark
{
    QPixmap picture;
    QBrush ground;
    QBrush sign;
    int kind = -1;
};

// What a row keeps from one paint to the next; the owner of a row has one for it. Its content may
// change to that of any row.
struct KELRowCache
{
    KELRowText caption;
    KELRowText detail;
    KELRowText value;
    KELRowText glyph;
    KELRowMark mark;
};

/*
 * Paints rows: those of a list, too, which are not items.
 *
 * Nothing is painted outside the rectangle. The pen, the brush, the font and the hints of the
 * painter are other ones afterwards; its clip is not.
 */
namespace KELRowPainter {

// The height that a row asks for.
qreal height(const KELPartStyle &style, bool hasDetail);
// The size that shows the whole content.
QSizeF hint(const KELPartStyle &style, const KELRowContent &content);

void paint(QPainter *painter, const QRectF &rect, const KELPartStyle &style,
           const KELRowContent &content, const KELRowState &state, KELRowCache *cache);

} // namespace KELRowPainter

#endif
