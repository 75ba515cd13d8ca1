// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPAINTING_P_H
#define KELPAINTING_P_H

#include "kellook_p.h"

#include <QtCore/QMarginsF>
#include <QtCore/QRectF>
#include <QtGui/QBrush>
#include <QtGui/QColor>
#include <QtGui/QPen>

QT_BEGIN_NAMESPACE
class QFont;
class QPainter;
class QPixmap;
class QString;
QT_END_NAMESPACE

class KELCaptionCache;
class KELIconFont;
struct KELRoundRectControlStyle;

// The painting steps that the controls share, each named after what it draws.
namespace KELPainting {

constexpr int centredWordWrap = 0x1084; // Qt::AlignCenter | Qt::TextWordWrap

// A solid brush that all controls share: each new one costs an allocation.
QBrush solidBrush(QRgb rgba);

// Qt cannot paint a rectangle with a NaN or infinite value.
bool isPaintable(const QRectF &rect);

QRectF contentRect(const QRectF &rect, const QMarginsF &margins);

// For brushes that are gradients.
const QBrush &usableGradient(const QBrush &brush);

// brush as it is, or without a style where Qt cannot paint with it: a gradient with a number that
// is not finite or beyond 100,000, with a singular transformation, or with circles that touch.
inline const QBrush &usableBrush(const QBrush &brush)
{
    const Qt::BrushStyle style = brush.style();
    return style >= Qt::LinearGradientPattern && style <= Qt::ConicalGradientPattern
        ? usableGradient(brush)
        : brush;
}

// The pen of lines and outlines; a width that is not finite draws none, and so does a brush that is
// not usable.
QPen outlinePen(const QBrush &brush, float width);

// The pen of captions and glyphs.
QPen captionPen(const QBrush &brush);

// What the rounded rectangle of the record depends on, and that with all of its contents. A look
// with a pixmap is not kept.
KELLookKey shapeKey(const void *drawing, const KELRoundRectControlStyle &option);
KELLookKey contentKey(const void *drawing, const KELRoundRectControlStyle &option);

// Sets the painter's pen and brush from the record and draws the rounded rectangle.
void drawBackground(QPainter *painter, const KELRoundRectControlStyle &option);

// radius as it is, or 0 when it is not a number.
qreal usableRadius(qreal radius);

// Draws with the painter's pen and brush. Radii in item px; one that is not a number is 0.
void drawRoundedRect(QPainter *painter, const QRectF &rect, qreal xRadius, qreal yRadius);

// Draws with the painter's pen and brush.
void drawEllipse(QPainter *painter, const QRectF &rect);

void drawPixmap(QPainter *painter, const QRectF &rect, const QPixmap &pixmap);

// Set the painter's pen and font and draw the glyph or the text as it is given.
void drawGlyph(QPainter *painter, KELIconFont glyph, int pixelSize, const QBrush &brush, int flags,
               const QRectF &rect);
void drawText(QPainter *painter, const QFont &font, const QBrush &brush, int flags,
              const QRectF &rect, const QString &text);

// Sets the painter's pen and font and draws the record's glyph.
void drawGlyph(QPainter *painter, const KELRoundRectControlStyle &option, const QRectF &rect);

// Sets the painter's pen and font and draws the record's caption, as it is or elided to trimWidth.
void drawCaption(QPainter *painter, KELCaptionCache *caption,
                 const KELRoundRectControlStyle &option, const QRectF &rect);
void drawTrimmedCaption(QPainter *painter, KELCaptionCache *caption,
                        const KELRoundRectControlStyle &option, const QRectF &rect,
                        qreal trimWidth);

// Draws the record's caption into its content rectangle, elided if the record asks for it. Draws
// nothing without a foreground brush.
void drawContentCaption(QPainter *painter, KELCaptionCache *caption,
                        const KELRoundRectControlStyle &option);

} // namespace KELPainting

#endif
