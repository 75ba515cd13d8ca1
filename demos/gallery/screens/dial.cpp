// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "dial.h"

#include <QtCore/QtMath>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

#include <cmath>

namespace {

constexpr double step = 0.5;
constexpr qreal penPx = 18;
constexpr qreal knobPx = 32;
constexpr qreal reachPx = 32; // of a finger, to both sides of the arc
constexpr qreal leastPx = 160;
constexpr qreal usualPx = 340;

// In degrees, clockwise from the bottom left, as the hand of a gauge goes.
constexpr double beginDegrees = 225;
constexpr double sweepDegrees = 270;
constexpr int perDegree = 16; // of QPainter

QPointF onCircle(const QRectF &ring, double share)
{
    const double angle = qDegreesToRadians(beginDegrees - share * sweepDegrees);
    return ring.center() + ring.width() / 2 * QPointF(qCos(angle), -qSin(angle));
}

} // namespace

Dial::Dial(double minimum, double maximum) :
    m_minimum(minimum), m_maximum(maximum), m_value(minimum)
{ }

double Dial::value() const
{
    return m_value;
}

void Dial::setValue(double value)
{
    const double wanted = qBound(m_minimum, qRound(value / step) * step, m_maximum);
    if (qFuzzyCompare(wanted, m_value))
        return;
    m_value = wanted;
    update();
    Q_EMIT valueChanged(wanted);
}

void Dial::setFill(const QBrush &brush)
{
    if (brush == m_fill)
        return;
    m_fill = brush;
    update();
}

QRectF Dial::inside() const
{
    const qreal half = ring().width() / 2 / M_SQRT2 - penPx / 2;
    return QRectF(-half, -half, 2 * half, 2 * half).translated(ring().center());
}

void Dial::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const double share = (m_value - m_minimum) / (m_maximum - m_minimum);
    const int begin = int(beginDegrees * perDegree);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(partStyle()->trackBrush, penPx, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(ring(), begin, -int(sweepDegrees * perDegree));
    if (share > 0) {
        const QBrush &fill = m_fill.style() == Qt::NoBrush ? partStyle()->accentBrush : m_fill;
        painter->setPen(QPen(fill, penPx, Qt::SolidLine, Qt::RoundCap));
        painter->drawArc(ring(), begin, -int(share * sweepDegrees * perDegree));
    }
    painter->setPen(Qt::NoPen);
    painter->setBrush(partStyle()->foregroundBrush);
    painter->drawEllipse(onCircle(ring(), share), knobPx / 2, knobPx / 2);
}

bool Dial::pressEvent(const QPointF &pos)
{
    const QPointF way = pos - ring().center();
    const qreal radius = std::hypot(way.x(), way.y());
    if (qAbs(radius - ring().width() / 2) > reachPx)
        return false;
    setValue(valueAt(pos));
    return true;
}

void Dial::dragEvent(const QPointF &pos, bool isDrag)
{
    if (isDrag)
        setValue(valueAt(pos));
}

void Dial::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Right)
        setValue(m_value + step);
    else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Left)
        setValue(m_value - step);
    else
        KELPart::keyPressEvent(event);
}

QSizeF Dial::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    switch (which) {
    case Qt::MinimumSize:
        return {leastPx, leastPx};
    case Qt::PreferredSize:
        return {usualPx, usualPx};
    default:
        return KELPart::sizeHint(which, constraint);
    }
}

// The circle that the arc is on, as large as there is room for the knob around it.
QRectF Dial::ring() const
{
    const qreal side = qMin(size().width(), size().height()) - knobPx - 2;
    return QRectF(-side / 2, -side / 2, side, side).translated(rect().center());
}

double Dial::valueAt(const QPointF &pos) const
{
    const QPointF way = pos - ring().center();
    double clockwise = beginDegrees - qRadiansToDegrees(std::atan2(-way.y(), way.x()));
    if (clockwise < 0)
        clockwise += 360;
    if (clockwise >= 360)
        clockwise -= 360;
    // In the gap at the bottom the nearer end counts.
    const double gapMiddle = (sweepDegrees + 360) / 2;
    const double share = clockwise > gapMiddle ? 0 : qMin(1.0, clockwise / sweepDegrees);
    return m_minimum + share * (m_maximum - m_minimum);
}
