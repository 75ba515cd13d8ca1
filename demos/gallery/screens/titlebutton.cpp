// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "titlebutton.h"

#include <KELScreen>
#include <KELTouch>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <cmath>

namespace {

constexpr qreal arrowWidthPx = 8;
constexpr qreal arrowHeightPx = 16;
constexpr qreal arrowPenPx = 2;
constexpr qreal textOffsetPx = 20; // of a title beside an arrow

} // namespace

TitleButton::TitleButton(const QString &title, const QFont &font) : m_title(title)
{
    setObjectName(QStringLiteral("back"));
    partStyle()->font = font;
}

void TitleButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QRectF area = rect();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const bool isBack = screenBelow() != nullptr;
    if (isBack) {
        const qreal tip = isMirrored ? area.right() - arrowPenPx : area.left() + arrowPenPx;
        const qreal end = isMirrored ? tip - arrowWidthPx : tip + arrowWidthPx;
        const qreal middle = area.center().y();
        const QBrush &brush = isPressed() ? partStyle()->foregroundBrush : partStyle()->accentBrush;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(brush, arrowPenPx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPolyline(QPolygonF(
            {{end, middle - arrowHeightPx / 2}, {tip, middle}, {end, middle + arrowHeightPx / 2}}));
    }
    const qreal offset = isBack ? textOffsetPx : 0;
    const QRectF room = area.adjusted(isMirrored ? 0 : offset, 0, isMirrored ? -offset : 0, 0);
    painter->setFont(partStyle()->font);
    painter->setPen(QPen(partStyle()->foregroundBrush, 0));
    painter->drawText(
        room, (isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter | Qt::AlignAbsolute,
        QFontMetricsF(partStyle()->font).elidedText(m_title, Qt::ElideRight, room.width()));
}

bool TitleButton::pressEvent(const QPointF &)
{
    return screenBelow() != nullptr;
}

void TitleButton::releaseEvent(const QPointF &, bool isTap)
{
    if (KELScreen *screen = isTap ? screenBelow() : nullptr)
        screen->back();
}

QSizeF TitleButton::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which == Qt::MaximumSize)
        return KELPart::sizeHint(which, constraint);
    const qreal least = KELTouch::leastSize();
    const qreal width = textOffsetPx + QFontMetricsF(partStyle()->font).horizontalAdvance(m_title);
    return {which == Qt::MinimumSize ? least : std::ceil(width) + 1, least};
}

// The screen, if there is a page to go back to.
KELScreen *TitleButton::screenBelow() const
{
    for (QGraphicsItem *item = parentItem(); item; item = item->parentItem()) {
        if (const auto *page = qobject_cast<KELPage *>(item->toGraphicsObject()))
            return page->screen() && page->screen()->pageCount() > 1 ? page->screen() : nullptr;
    }
    return nullptr;
}
