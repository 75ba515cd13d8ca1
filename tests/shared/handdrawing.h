// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HANDDRAWING_H
#define HANDDRAWING_H

#include <kelroundrectcontrol.h>

#include <QtGui/QPainter>

// What controls draw alike, drawn by hand. It shares no code with the library, so that a mistake
// there shows up as a difference.
namespace HandDrawing {

void setHints(QPainter *painter);
QPen squarePen(const QBrush &brush, qreal width);
// Fill and outline; nothing without both.
void drawShape(QPainter *painter, const KELRoundRectControlStyle &style, QRectF rect);
QRectF withoutMargins(const QRectF &rect, const QMarginsF &margins);
// Each edge goes to the nearest whole number, halves upwards.
void drawPixmap(QPainter *painter, const QRectF &area, const QPixmap &pixmap);
// In a font family, by default the one that an icon has without another.
void drawGlyph(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &area,
               const QString &family = KELIconFont::g_fontFamily);
void drawCaption(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &area,
                 const QString &caption);
// Each line cut to a whole width; empty lines are left out.
QString elided(const QString &text, qreal width, const QFont &font);

// A whole plain control: shape, picture, glyph and caption in the same place.
void drawControl(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect);

// A picture without symmetry, so that a wrong scale or corner shows, and a gradient.
QPixmap picture();
QBrush gradient();

} // namespace HandDrawing

#endif
