// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpainting_p.h"

#include "kelcaptioncache_p.h"
#include "kelrounding_p.h"
#include "kelroundrectcontrol.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <utility>
#include <vector>

class KELGlyphFont
{
public:
    static const QFont &of(const KELIconFont &glyph) { return glyph.m_font; }
};

namespace {

// Item px. Where the numbers of a radial gradient overflow, Qt reads beyond its table of colours.
// One value overflows from 1e38 on, several with a transformation from 1e12 on.
constexpr qreal gradientLimit = 100000;

bool isUsable(qreal value)
{
    return qAbs(value) <= gradientLimit; // false for NaN
}

bool isUsable(const QPointF &point)
{
    return isUsable(point.x()) && isUsable(point.y());
}

bool areElementsUsable(const QTransform &transform)
{
    return isUsable(transform.m11()) && isUsable(transform.m12()) && isUsable(transform.m13())
        && isUsable(transform.m21()) && isUsable(transform.m22()) && isUsable(transform.m23())
        && isUsable(transform.m31()) && isUsable(transform.m32()) && isUsable(transform.m33());
}

// Qt inverts after the view's transformation, and rounding hides a singular matrix there.
// QTransform::inverted() does not say how small the numbers are.
bool isUsable(const QTransform &transform)
{
    if (transform.isIdentity())
        return true;
    if (!areElementsUsable(transform))
        return false;
    const qreal determinant = transform.determinant();
    return determinant != 0 && areElementsUsable(transform.adjoint() / determinant);
}

bool isUsable(const QGradientStops &stops)
{
    return std::all_of(stops.cbegin(), stops.cend(),
                       [](const QGradientStop &stop) { return isUsable(stop.first); });
}

// Qt divides by the square of the radii's difference less that of the centres' distance. If the
// circles touch from inside, Qt draws nothing; if they nearly do, the divisor underflows.
bool areCirclesUsable(const QRadialGradient &gradient)
{
    constexpr qreal share = 1e-6;
    const QPointF distance = gradient.center() - gradient.focalPoint();
    const qreal squaredDistance = QPointF::dotProduct(distance, distance);
    const qreal radius = gradient.radius() - gradient.focalRadius();
    const qreal squaredRadius = radius * radius;
    return qAbs(squaredRadius - squaredDistance) >= share * (squaredRadius + squaredDistance);
}

bool isUsable(const QGradient &gradient)
{
    if (gradient.type() == QGradient::LinearGradient) {
        const auto &linear = static_cast<const QLinearGradient &>(gradient);
        return isUsable(linear.start()) && isUsable(linear.finalStop());
    }
    if (gradient.type() == QGradient::RadialGradient) {
        const auto &radial = static_cast<const QRadialGradient &>(gradient);
        return isUsable(radial.center()) && isUsable(radial.radius())
            && isUsable(radial.focalPoint()) && isUsable(radial.focalRadius())
            && areCirclesUsable(radial);
    }
    const auto &conical = static_cast<const QConicalGradient &>(gradient); // a brush has no others
    return isUsable(conical.center()) && isUsable(conical.angle());
}

void setCaptionLook(QPainter *painter, const KELRoundRectControlStyle &option)
{
    painter->setFont(option.font);
    painter->setPen(KELPainting::captionPen(option.foregroundBrush));
}

const char shapeDrawing = 0; // its address tells it from those of the controls

void drawShape(QPainter *painter, const KELRoundRectControlStyle &option)
{
    const bool filled = option.backgroundBrush.style() != Qt::NoBrush;
    if (filled)
        painter->setBrush(KELPainting::usableBrush(option.backgroundBrush));

    if (option.borderBrush.style() != Qt::NoBrush) {
        const float halfWidth = option.borderWidth * 0.5F;
        if (option.borderWidth > 0)
            painter->setPen(KELPainting::outlinePen(option.borderBrush, option.borderWidth));
        // Compat: a negative width draws the fill alone, enlarged by half of it on every side
        if (halfWidth != 0) {
            const auto inset = qreal(halfWidth);
            KELPainting::drawRoundedRect(painter,
                                         option.boundRect.adjusted(inset, inset, -inset, -inset),
                                         option.xRadius, option.yRadius);
            return;
        }
    }
    if (filled)
        KELPainting::drawRoundedRect(painter, option.boundRect, option.xRadius, option.yRadius);
}

} // namespace

QBrush KELPainting::solidBrush(QRgb rgba)
{
    static std::vector<std::pair<QRgb, QBrush>> brushes;
    for (const auto &kept : brushes) {
        if (kept.first == rgba)
            return kept.second;
    }
    brushes.emplace_back(rgba, QColor::fromRgba(rgba));
    return brushes.back().second;
}

bool KELPainting::isPaintable(const QRectF &rect)
{
    return qIsFinite(rect.x()) && qIsFinite(rect.y()) && qIsFinite(rect.width())
        && qIsFinite(rect.height());
}

QRectF KELPainting::contentRect(const QRectF &rect, const QMarginsF &margins)
{
    return {rect.x() + margins.left(), rect.y() + margins.top(),
            rect.width() - margins.right() - margins.left(),
            rect.height() - margins.bottom() - margins.top()};
}

const QBrush &KELPainting::usableGradient(const QBrush &brush)
{
    static const QBrush none;
    const QGradient &gradient = *brush.gradient();
    return isUsable(gradient) && isUsable(gradient.stops()) && isUsable(brush.transform()) ? brush
                                                                                           : none;
}

QPen KELPainting::outlinePen(const QBrush &brush, float width)
{
    if (!qIsFinite(width))
        return {Qt::NoPen};
    return {usableBrush(brush), qreal(width), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

QPen KELPainting::captionPen(const QBrush &brush)
{
    return outlinePen(brush, 1.0F);
}

KELLookKey KELPainting::shapeKey(const void *drawing, const KELRoundRectControlStyle &option)
{
    KELLookKey key(drawing, option.boundRect);
    key << option.xRadius << option.yRadius << qreal(option.borderWidth) << option.backgroundBrush
        << option.borderBrush;
    return key;
}

KELLookKey KELPainting::contentKey(const void *drawing, const KELRoundRectControlStyle &option)
{
    const QMarginsF &margins = option.margins;
    KELLookKey key = shapeKey(drawing, option);
    key << option.foregroundBrush << margins.left() << margins.top() << margins.right()
        << margins.bottom() << quint64(uint(option.textFlags)) << quint64(option.trimText);
    key.addText(option.text, option.font);
    if (!option.pixmap.isNull())
        key.refuse();
    if (!option.icon.isNull()) {
        key << quint64(uint(option.iconSize));
        key.addText(option.icon, KELGlyphFont::of(option.icon));
    }
    return key;
}

void KELPainting::drawBackground(QPainter *painter, const KELRoundRectControlStyle &option)
{
    if (option.backgroundBrush.style() != Qt::NoBrush || option.borderBrush.style() != Qt::NoBrush)
        KELLook::paint(
            painter, [&] { return shapeKey(&shapeDrawing, option); },
            [&] { drawShape(painter, option); });
}

qreal KELPainting::usableRadius(qreal radius)
{
    return qIsNaN(radius) ? 0 : radius;
}

void KELPainting::drawRoundedRect(QPainter *painter, const QRectF &rect, qreal xRadius,
                                  qreal yRadius)
{
    if (!isPaintable(rect))
        return;
    painter->drawRoundedRect(rect, usableRadius(xRadius), usableRadius(yRadius), Qt::AbsoluteSize);
}

void KELPainting::drawEllipse(QPainter *painter, const QRectF &rect)
{
    if (isPaintable(rect))
        painter->drawEllipse(rect);
}

void KELPainting::drawPixmap(QPainter *painter, const QRectF &rect, const QPixmap &pixmap)
{
    if (isPaintable(rect))
        painter->drawPixmap(KELRounding::halvesUp(rect), pixmap);
}

void KELPainting::drawGlyph(QPainter *painter, KELIconFont glyph, int pixelSize,
                            const QBrush &brush, int flags, const QRectF &rect)
{
    if (!isPaintable(rect))
        return;
    painter->setPen(captionPen(brush));
    glyph.setPixelSize(pixelSize);
    glyph.drawIcon(painter, rect, flags);
}

void KELPainting::drawText(QPainter *painter, const QFont &font, const QBrush &brush, int flags,
                           const QRectF &rect, const QString &text)
{
    if (!isPaintable(rect))
        return;
    painter->setFont(font);
    painter->setPen(captionPen(brush));
    painter->drawText(rect, flags, text);
}

void KELPainting::drawGlyph(QPainter *painter, const KELRoundRectControlStyle &option,
                            const QRectF &rect)
{
    drawGlyph(painter, option.icon, option.iconSize, option.foregroundBrush, option.textFlags,
              rect);
}

void KELPainting::drawCaption(QPainter *painter, KELCaptionCache *caption,
                              const KELRoundRectControlStyle &option, const QRectF &rect)
{
    if (!isPaintable(rect))
        return;
    setCaptionLook(painter, option);
    caption->draw(painter, rect, option.textFlags, option.text);
}

void KELPainting::drawTrimmedCaption(QPainter *painter, KELCaptionCache *caption,
                                     const KELRoundRectControlStyle &option, const QRectF &rect,
                                     qreal trimWidth)
{
    if (!isPaintable(rect))
        return;
    setCaptionLook(painter, option);
    caption->drawTrimmed(painter, rect, option, trimWidth);
}

void KELPainting::drawContentCaption(QPainter *painter, KELCaptionCache *caption,
                                     const KELRoundRectControlStyle &option)
{
    if (option.foregroundBrush.style() == Qt::NoBrush)
        return;
    const QRectF rect = contentRect(option.boundRect, option.margins);
    if (option.trimText)
        drawTrimmedCaption(painter, caption, option, rect, rect.width());
    else
        drawCaption(painter, caption, option, rect);
}
