// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "captionscene.h"

#include <kellabel.h>

#include <QtCore/QStringList>
#include <QtCore/QtMath>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace {

constexpr int inchPx = 39; // dots per metre of one dot per inch

bool isFinite(const QRectF &rect)
{
    return qIsFinite(rect.x()) && qIsFinite(rect.y()) && qIsFinite(rect.width())
        && qIsFinite(rect.height());
}

} // namespace

QImage picture(const CaptionScene &scene, const std::function<void(QPainter *)> &draw)
{
    QImage image(scene.pictureSize, QImage::Format_ARGB32_Premultiplied);
    image.setDotsPerMeterX(scene.dotsPerInch * inchPx);
    image.setDotsPerMeterY(scene.dotsPerInch * inchPx);
    image.fill(QColor(240, 240, 230));
    QPainter painter(&image);
    painter.setFont(scene.painterFont);
    painter.setLayoutDirection(scene.direction);
    painter.translate(20, 10);
    painter.rotate(scene.angle);
    painter.scale(scene.scale, scene.scale);
    draw(&painter);
    return image;
}

QString elidedByHand(const QString &text, qreal width, const QFont &font)
{
    constexpr qreal leastPx = -16777216;
    constexpr qreal mostPx = 33554431;
    const int wholeWidth = qIsNaN(width) ? 0 : int(qBound(leastPx, width, mostPx));
    QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &line : lines)
        line = QFontMetrics(font).elidedText(line, Qt::ElideRight, wholeWidth,
                                             Qt::TextShowMnemonic);
    return lines.join(QLatin1Char('\n'));
}

QImage drawnByHand(const CaptionScene &scene)
{
    return picture(scene, [&scene](QPainter *painter) {
        // In this order: others round otherwise.
        const QRectF content(scene.rect.x() + scene.margins.left(),
                             scene.rect.y() + scene.margins.top(),
                             scene.rect.width() - scene.margins.right() - scene.margins.left(),
                             scene.rect.height() - scene.margins.bottom() - scene.margins.top());
        if (!isFinite(content))
            return;
        painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                                | QPainter::SmoothPixmapTransform);
        painter->setFont(scene.font);
        painter->setPen(QPen(scene.brush, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter->drawText(content, scene.flags,
                          scene.trimText ? elidedByHand(scene.text, content.width(), scene.font)
                                         : scene.text);
    });
}

void apply(const CaptionScene &scene, KELLabel *label)
{
    KELRoundRectControlStyle *const style = label->style();
    style->text = scene.text;
    style->font = scene.font;
    style->margins = scene.margins;
    style->textFlags = scene.flags;
    style->trimText = scene.trimText;
    style->foregroundBrush = scene.brush;
    label->setboundRect(scene.rect);
}

QImage painted(const CaptionScene &scene, KELLabel *label)
{
    return picture(scene, [label](QPainter *painter) { label->paint(painter, nullptr, nullptr); });
}
