// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "captionscene.h"

#include "handdrawing.h"

#include <kellabel.h>

#include <QtCore/QtMath>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace {

constexpr qreal inchesPerMetre = 39.3701;

bool isFinite(const QRectF &rect)
{
    return qIsFinite(rect.x()) && qIsFinite(rect.y()) && qIsFinite(rect.width())
        && qIsFinite(rect.height());
}

} // namespace

int screenDotsPerInch()
{
    return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
}

CaptionScene::CaptionScene() : style()
{
    style.text = QStringLiteral("A caption & more");
    style.font = QFont(QStringLiteral("DejaVu Sans"), 11);
    style.boundRect = QRectF(7, 5, 120, 40);
    style.margins = QMarginsF(2, 1, 4, 3);
    style.textFlags = Qt::AlignCenter | Qt::TextWordWrap;
    style.trimText = true;
    style.foregroundBrush = QColor(20, 30, 160);
}

QImage picture(const CaptionScene &scene, const KelImage::Drawing &draw)
{
    QImage image(scene.pictureSize, QImage::Format_ARGB32_Premultiplied);
    // Exactly, so that what is kept of a caption fits another device with as many dots.
    image.setDotsPerMeterX(qRound(scene.dotsPerInch * inchesPerMetre));
    image.setDotsPerMeterY(qRound(scene.dotsPerInch * inchesPerMetre));
    image.fill(scene.background);
    QPainter painter(&image);
    painter.setFont(scene.painterFont);
    painter.setLayoutDirection(scene.direction);
    painter.translate(20, 10);
    painter.rotate(scene.angle);
    painter.scale(scene.scale, scene.scale);
    draw(&painter);
    return image;
}

QImage drawnByHand(const CaptionScene &scene)
{
    return picture(scene, [&](QPainter *painter) {
        if (isFinite(HandDrawing::withoutMargins(scene.style.boundRect, scene.style.margins)))
            HandDrawing::drawControl(painter, scene.style, scene.style.boundRect);
    });
}

void apply(const CaptionScene &scene, KELLabel *label)
{
    *label->style() = scene.style;
    label->setboundRect(scene.style.boundRect);
}

QImage painted(const CaptionScene &scene, KELLabel *label)
{
    return picture(scene, [&](QPainter *painter) { label->paint(painter, nullptr, nullptr); });
}
