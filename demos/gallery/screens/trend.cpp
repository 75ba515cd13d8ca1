// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "trend.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace {

constexpr qreal penPx = 2;
constexpr qreal leastHeightPx = 24;
constexpr qreal usualHeightPx = 48;

} // namespace

Trend::Trend(int capacity) : m_capacity(qMax(2, capacity))
{
    setAcceptedMouseButtons(Qt::NoButton);
    setFocusPolicy(Qt::NoFocus);
}

void Trend::setRange(double minimum, double maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    update();
}

void Trend::setGridShown(bool shown)
{
    m_isGridShown = shown;
    update();
}

void Trend::setValues(const QVector<double> &values)
{
    const QVector<double> newest = values.mid(qMax(0, values.size() - m_capacity));
    if (newest == m_values)
        return;
    m_values = newest;
    update();
}

void Trend::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    if (m_isGridShown) {
        for (const qreal y : {size().height() / 2, size().height() - 1})
            painter->fillRect(QRectF(0, qRound(y), size().width(), 1), partStyle()->borderBrush);
    }
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(
        QPen(partStyle()->accentBrush, penPx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(line());
}

QSizeF Trend::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    switch (which) {
    case Qt::MinimumSize:
        return {leastHeightPx, leastHeightPx};
    case Qt::PreferredSize:
        return {2 * usualHeightPx, usualHeightPx};
    default:
        return KELPart::sizeHint(which, constraint);
    }
}

QPolygonF Trend::line() const
{
    if (m_values.size() < 2)
        return {};
    const auto ends = std::minmax_element(m_values.cbegin(), m_values.cend());
    const bool isFixed = m_minimum < m_maximum;
    const double least = isFixed ? m_minimum : *ends.first;
    const double span = qMax(1e-9, (isFixed ? m_maximum : *ends.second) - least);
    const QRectF room = rect().adjusted(penPx, penPx, -penPx, -penPx);
    QPolygonF points;
    for (int i = 0; i < m_values.size(); ++i) {
        const double share = qBound(0.0, (m_values.at(i) - least) / span, 1.0);
        const int age = m_values.size() - 1 - i;
        points.append({room.right() - age * room.width() / (m_capacity - 1),
                       room.bottom() - share * room.height()});
    }
    return points;
}
