// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawing.h"

#include <QtGui/QFontMetrics>

#include <cmath>

namespace HandDrawing {

void setHints(QPainter *painter)
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::TextAntialiasing);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
}

QPen squarePen(const QBrush &brush, qreal width)
{
    return QPen(brush, width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
}

void drawShape(QPainter *painter, const KELRoundRectControlStyle &style, QRectF rect)
{
    const bool isOutlined = style.borderBrush.style() != Qt::NoBrush && style.borderWidth > 0;
    if (!isOutlined && style.backgroundBrush.style() == Qt::NoBrush)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(style.backgroundBrush);
    if (isOutlined) {
        const auto width = qreal(style.borderWidth);
        painter->setPen(squarePen(style.borderBrush, width));
        rect.adjust(width / 2, width / 2, -width / 2, -width / 2);
    }
    painter->drawRoundedRect(rect, style.xRadius, style.yRadius, Qt::AbsoluteSize);
}

// Another order of the subtractions rounds otherwise.
QRectF withoutMargins(const QRectF &rect, const QMarginsF &margins)
{
    return QRectF(rect.x() + margins.left(), rect.y() + margins.top(),
                  rect.width() - margins.right() - margins.left(),
                  rect.height() - margins.bottom() - margins.top());
}

void drawPixmap(QPainter *painter, const QRectF &area, const QPixmap &pixmap)
{
    const auto whole = [](qreal value) { return int(std::floor(value + 0.5)); };
    painter->drawPixmap(whole(area.x()), whole(area.y()), whole(area.width()), whole(area.height()),
                        pixmap);
}

void drawGlyph(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &area,
               const QString &family)
{
    QFont font(family, -1, -1, false);
    font.setPixelSize(style.iconSize);
    painter->setPen(squarePen(style.foregroundBrush, 1));
    painter->setFont(font);
    painter->drawText(area, style.textFlags, QString(1, style.icon.getIcon()));
}

void drawCaption(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &area,
                 const QString &caption)
{
    painter->setPen(squarePen(style.foregroundBrush, 1));
    painter->setFont(style.font);
    painter->drawText(area, style.textFlags, caption);
}

QString elided(const QString &text, qreal width, const QFont &font)
{
    constexpr qreal leastPx = -16777216;
    constexpr qreal mostPx = 33554431;
    const int wholeWidth = qIsNaN(width) ? 0 : int(qBound(leastPx, width, mostPx));
    QStringList kept;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.isEmpty()) {
            kept += QFontMetrics(font).elidedText(line, Qt::ElideRight, wholeWidth,
                                                  Qt::TextShowMnemonic);
        }
    }
    return kept.join(QLatin1Char('\n'));
}

void drawControl(QPainter *painter, const KELRoundRectControlStyle &style, const QRectF &rect)
{
    setHints(painter);
    drawShape(painter, style, rect);
    const QRectF content = withoutMargins(rect, style.margins);
    if (!style.pixmap.isNull())
        drawPixmap(painter, content, style.pixmap);
    if (!style.icon.isNull())
        drawGlyph(painter, style, content);
    if (style.foregroundBrush.style() != Qt::NoBrush) {
        drawCaption(painter, style, content,
                    style.trimText ? elided(style.text, content.width(), style.font) : style.text);
    }
}

QPixmap picture()
{
    QPixmap pixmap(24, 18);
    pixmap.fill(QColor(250, 240, 10));
    QPainter painter(&pixmap);
    painter.fillRect(0, 0, 7, 5, Qt::red);
    painter.fillRect(12, 9, 12, 9, QColor(0, 0, 200, 150));
    return pixmap;
}

QBrush gradient()
{
    QLinearGradient colours(0, 0, 150, 80);
    colours.setColorAt(0, Qt::yellow);
    colours.setColorAt(1, Qt::darkBlue);
    return colours;
}

} // namespace HandDrawing
