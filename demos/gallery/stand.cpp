// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "stand.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsItem>

#include <utility>

QFont Anatomy::plainFont(int pixelSize, QFont::Weight weight)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

void Anatomy::drawScene(QGraphicsScene *scene, const QSizeF &size, QPainter *painter)
{
    const QList<QGraphicsItem *> items = scene->items();
    for (QGraphicsItem *item : items)
        item->setCacheMode(QGraphicsItem::NoCache); // drawn at the painter's scale, in its font
    painter->setFont(plainFont(Stand::fontSizePx));
    const QRectF area(QPointF(), size);
    scene->render(painter, area, area);
}

qreal Anatomy::pairEdge(qreal height, const KELRoundRectControlStyle &style)
{
    return (height - style.iconSize - pairGapPx - QFontMetrics(style.font).height()) / 2;
}

Anatomy::Specimen Anatomy::Stand::specimen(const QString &title, const QSizeF &size,
                                           std::vector<CallOut> callOuts,
                                           std::vector<QRectF> guides) const
{
    const auto draw = [scene = m_scene, size](QPainter *painter) {
        drawScene(scene.get(), size, painter);
    };
    return {title, size, draw, std::move(callOuts), std::move(guides)};
}
