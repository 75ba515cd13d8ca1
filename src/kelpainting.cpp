// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpainting_p.h"

#include "kelcaption_p.h"
#include "kelroundrectcontrol.h"

#include <QtGui/QPainter>

#include <utility>
#include <vector>

namespace {

// Far beyond any screen, and small enough that x + width cannot overflow an int.
constexpr qreal farAwayPx = (1 << 30) - 1;

int roundedPx(qreal value)
{
    return qRound(qBound(-farAwayPx, value, farAwayPx));
}

void setCaptionLook(QPainter *painter, const KELRoundRectControlStyle &option)
{
    painter->setFont(option.font);
    painter->setPen(KELPainting::captionPen(option.foregroundBrush));
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

QRect KELPainting::roundedEach(const QRectF &rect)
{
    return {roundedPx(rect.x()), roundedPx(rect.y()), roundedPx(rect.width()),
            roundedPx(rect.height())};
}

QRectF KELPainting::contentRect(const QRectF &rect, const QMarginsF &margins)
{
    return {rect.x() + margins.left(), rect.y() + margins.top(),
            rect.width() - margins.right() - margins.left(),
            rect.height() - margins.bottom() - margins.top()};
}

int KELPainting::truncatedPx(qreal value)
{
    return int(qBound(-farAwayPx, value, farAwayPx));
}

QPen KELPainting::outlinePen(const QBrush &brush, float width)
{
    if (!qIsFinite(width))
        return {Qt::NoPen};
    return {brush, qreal(width), Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

QPen KELPainting::captionPen(const QBrush &brush)
{
    return outlinePen(brush, 1.0F);
}

void KELPainting::drawRoundRect(QPainter *painter, const KELRoundRectControlStyle &option)
{
    const bool filled = option.backgroundBrush.style() != Qt::NoBrush;
    if (filled)
        painter->setBrush(option.backgroundBrush);

    if (option.borderBrush.style() != Qt::NoBrush) {
        const float halfWidth = option.borderWidth * 0.5F;
        if (option.borderWidth > 0)
            painter->setPen(outlinePen(option.borderBrush, option.borderWidth));
        // kept: a negative width draws the fill alone, enlarged by half of it on every side
        if (halfWidth != 0) {
            const auto inset = qreal(halfWidth);
            drawRounded(painter, option.boundRect.adjusted(inset, inset, -inset, -inset),
                        option.xRadius, option.yRadius);
            return;
        }
    }
    if (filled)
        drawRounded(painter, option.boundRect, option.xRadius, option.yRadius);
}

qreal KELPainting::usableRadius(qreal radius)
{
    return qIsNaN(radius) ? 0 : radius;
}

void KELPainting::drawRounded(QPainter *painter, const QRectF &rect, qreal xRadius, qreal yRadius)
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
        painter->drawPixmap(roundedEach(rect), pixmap);
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

void KELPainting::drawCaption(QPainter *painter, KELCaption *caption,
                              const KELRoundRectControlStyle &option, const QRectF &rect)
{
    if (!isPaintable(rect))
        return;
    setCaptionLook(painter, option);
    caption->draw(painter, rect, option.textFlags, option.text);
}

void KELPainting::drawTrimmedCaption(QPainter *painter, KELCaption *caption,
                                     const KELRoundRectControlStyle &option, const QRectF &rect,
                                     qreal trimWidth)
{
    if (!isPaintable(rect))
        return;
    setCaptionLook(painter, option);
    caption->drawTrimmed(painter, rect, option, trimWidth);
}

void KELPainting::drawContentCaption(QPainter *painter, KELCaption *caption,
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
