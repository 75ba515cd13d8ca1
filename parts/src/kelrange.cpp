// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelrange.h"

#include "keltouch.h"

#include <QtCore/QLocale>
#include <QtCore/QMetaObject>
#include <QtCore/QPointer>
#include <QtGui/QFontMetricsF>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QGraphicsSceneWheelEvent>

#include <cmath>

namespace {

constexpr qreal knobRadiusPx = 14;
constexpr qreal ringWidthPx = 2;
constexpr qreal ringPx = 2 * ringWidthPx; // with the gap between it and the knob
constexpr qreal leastPx = 2 * (knobRadiusPx + ringPx);
constexpr qreal trackRadiusPx = 4;
constexpr qreal tickWidthPx = 2;
constexpr qreal tickLengthPx = 6;
constexpr qreal leastTickGapPx = 4;
constexpr qreal bubbleGapPx = 4;
constexpr qreal bubbleRadiusPx = 6;
constexpr qreal bubblePaddingXPx = 8;
constexpr qreal bubblePaddingYPx = 4;
constexpr double greatestBound = 1e300; // so that the range between two of them is finite
constexpr double mostSteps = 1e15;
constexpr double stepTolerance = 1e-9; // of a quotient that is meant to be whole
constexpr int mostDecimals = 15;
constexpr int pageSteps = 10;
constexpr int wheelNotch = 120;

} // namespace

// Lengths along the track are measured from the end of the minimum, those across it from the side
// of the bubble.
class KELRangePrivate
{
public:
    explicit KELRangePrivate(KELRange *range) : q(range) { }

    bool isMirrored() const { return q->layoutDirection() == Qt::RightToLeft; }
    qreal length() const { return isVertical ? q->rect().height() : q->rect().width(); }
    qreal breadth() const { return isVertical ? q->rect().width() : q->rect().height(); }
    qreal along(const QPointF &pos) const;
    QRectF placed(qreal from, qreal to, qreal near, qreal far) const;
    QRectF bubblePlace() const;
    QRectF changingPlace() const;
    QSizeF bubbleSize(const QString &text) const;
    qreal bubbleBreadth() const;
    qreal radius() const;
    qreal centre() const;
    qreal knobAt(double ofValue) const;

    double effectiveStep() const;
    double allowed(double wanted) const;
    double valueAt(qreal place) const;
    double valueAfter(int steps) const;
    double valueOfKey(int key) const;
    void follow(const QPointF &pos);

    void paintTrack(QPainter *painter, const QBrush &fill) const;
    void paintTicks(QPainter *painter, const QBrush &brush) const;
    void paintBubble(QPainter *painter) const;

    KELRange *const q;
    QString suffix;
    double minimum = 0;
    double maximum = 100;
    double value = 0;
    double step = 0;
    double tickInterval = 0;
    qreal grip = 0; // from the middle of the knob to the finger
    qreal finger = 0; // along the track
    int decimals = 0;
    int wheelDelta = 0;
    bool isVertical = false;
    bool isBubbleShown = false;
};

qreal KELRangePrivate::along(const QPointF &pos) const
{
    if (isVertical)
        return length() - pos.y();
    return isMirrored() ? length() - pos.x() : pos.x();
}

QRectF KELRangePrivate::placed(qreal from, qreal to, qreal near, qreal far) const
{
    if (isVertical)
        return {isMirrored() ? breadth() - far : near, length() - to, far - near, to - from};
    return {isMirrored() ? length() - to : from, near, to - from, far - near};
}

QSizeF KELRangePrivate::bubbleSize(const QString &text) const
{
    const QFontMetricsF metrics(q->partStyle()->font);
    return {std::ceil(metrics.horizontalAdvance(text)) + 2 * bubblePaddingXPx,
            std::ceil(metrics.height()) + 2 * bubblePaddingYPx};
}

// The same for all values, lest the track move.
qreal KELRangePrivate::bubbleBreadth() const
{
    const QSizeF size = bubbleSize(q->textOf(minimum));
    return isVertical ? qMax(size.width(), bubbleSize(q->textOf(maximum)).width()) : size.height();
}

qreal KELRangePrivate::radius() const
{
    return qBound<qreal>(0, qMin(length(), breadth()) / 2 - ringPx, knobRadiusPx);
}

// On a whole pixel, where there is room.
qreal KELRangePrivate::centre() const
{
    const qreal middle = std::round(breadth() / 2);
    const qreal belowBubble = isBubbleShown ? bubbleBreadth() + bubbleGapPx + radius() : 0;
    return qMin(qMax(middle, belowBubble), breadth() - radius() - ringPx);
}

qreal KELRangePrivate::knobAt(double ofValue) const
{
    const qreal end = radius() + ringPx;
    const double range = maximum - minimum;
    return range > 0 ? end + (ofValue - minimum) / range * (length() - 2 * end) : end;
}

QRectF KELRangePrivate::bubblePlace() const
{
    const QSizeF size = bubbleSize(q->textOf(value));
    const qreal extent = qMin(isVertical ? size.height() : size.width(), length());
    const qreal from = qBound<qreal>(0, knobAt(value) - extent / 2, length() - extent);
    const qreal far = qMax<qreal>(0, centre() - radius() - bubbleGapPx);
    const qreal near = qMax<qreal>(0, far - (isVertical ? size.width() : size.height()));
    return placed(from, from + extent, near, far);
}

// What is painted in another place after a change of the value.
QRectF KELRangePrivate::changingPlace() const
{
    const qreal reach = radius() + ringPx;
    const qreal knob = knobAt(value);
    const QRectF place = placed(knob - reach, knob + reach, centre() - reach, centre() + reach);
    return isBubbleShown && q->isPressed() ? place | bubblePlace() : place;
}

double KELRangePrivate::effectiveStep() const
{
    return step > 0 && (maximum - minimum) / step < mostSteps ? step : 0;
}

double KELRangePrivate::allowed(double wanted) const
{
    const double bounded = qBound(minimum, wanted, maximum);
    const double width = effectiveStep();
    if (!(width > 0))
        return bounded;
    const double nearest = minimum + std::round((bounded - minimum) / width) * width;
    const bool isEndNearer = maximum - bounded < std::abs(bounded - nearest);
    return nearest > maximum || isEndNearer ? maximum : nearest;
}

double KELRangePrivate::valueAt(qreal place) const
{
    const qreal end = radius() + ringPx;
    const qreal travel = length() - 2 * end;
    if (!(travel > 0))
        return value;
    const double part = (place - end) / travel;
    return part >= 1 ? maximum : minimum + qMax(0.0, part) * (maximum - minimum);
}

// From between two steps, such as the maximum, the first one is shorter.
double KELRangePrivate::valueAfter(int steps) const
{
    constexpr double hundredths = 100;
    const double ownStep = effectiveStep();
    const double width = ownStep > 0 ? ownStep : (maximum - minimum) / hundredths;
    if (!(width > 0))
        return value;
    const double index = (value - minimum) / width;
    const double from = steps > 0 ? std::floor(index + stepTolerance)
                                  : std::ceil(index - stepTolerance);
    return minimum + (from + steps) * width;
}

// NaN for a key that is not one of the range.
double KELRangePrivate::valueOfKey(int key) const
{
    const int rightward = isMirrored() && !isVertical ? -1 : 1;
    switch (key) {
    case Qt::Key_Right:
        return valueAfter(rightward);
    case Qt::Key_Left:
        return valueAfter(-rightward);
    case Qt::Key_Up:
        return valueAfter(1);
    case Qt::Key_Down:
        return valueAfter(-1);
    case Qt::Key_PageUp:
        return valueAfter(pageSteps);
    case Qt::Key_PageDown:
        return valueAfter(-pageSteps);
    case Qt::Key_Home:
        return minimum;
    case Qt::Key_End:
        return maximum;
    default:
        return qQNaN();
    }
}

// A finger that stays changes nothing, not even by what gets lost in the arithmetic.
void KELRangePrivate::follow(const QPointF &pos)
{
    const qreal place = along(pos);
    if (place == finger)
        return;
    finger = place;
    q->setValue(valueAt(finger - grip));
}

void KELRangePrivate::paintTrack(QPainter *painter, const QBrush &fill) const
{
    const qreal half = qMin(trackRadiusPx, radius());
    const qreal knob = knobAt(value);
    const qreal middle = centre();
    painter->setBrush(q->partStyle()->trackBrush);
    painter->drawRoundedRect(placed(knob, length() - ringPx, middle - half, middle + half), half,
                             half);
    painter->setBrush(fill);
    painter->drawRoundedRect(placed(ringPx, knob, middle - half, middle + half), half, half);
}

void KELRangePrivate::paintTicks(QPainter *painter, const QBrush &brush) const
{
    const double range = maximum - minimum;
    const qreal travel = length() - 2 * (radius() + ringPx);
    if (!(tickInterval > 0 && range > 0 && tickInterval / range * travel >= leastTickGapPx))
        return;
    const qreal far = centre() + radius();
    const int count = int(range / tickInterval + stepTolerance);
    for (int i = 0; i <= count; ++i) {
        const qreal from = std::round(knobAt(minimum + i * tickInterval)) - tickWidthPx / 2;
        painter->fillRect(placed(from, from + tickWidthPx, far - tickLengthPx, far), brush);
    }
}

void KELRangePrivate::paintBubble(QPainter *painter) const
{
    const KELPartStyle *style = q->partStyle();
    const QRectF bubble = bubblePlace();
    painter->setBrush(style->accentBrush);
    painter->drawRoundedRect(bubble, bubbleRadiusPx, bubbleRadiusPx);
    painter->setLayoutDirection(q->layoutDirection());
    painter->setFont(style->font);
    painter->setPen(QPen(style->accentForegroundBrush, 1));
    painter->drawText(bubble, Qt::AlignCenter | Qt::TextSingleLine, q->textOf(value));
}

KELRange::KELRange(QGraphicsItem *parent) : KELPart(parent), d(new KELRangePrivate(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

KELRange::~KELRange()
{
    delete d;
}

double KELRange::value() const
{
    return d->value;
}

double KELRange::minimum() const
{
    return d->minimum;
}

double KELRange::maximum() const
{
    return d->maximum;
}

double KELRange::step() const
{
    return d->step;
}

double KELRange::tickInterval() const
{
    return d->tickInterval;
}

Qt::Orientation KELRange::orientation() const
{
    return d->isVertical ? Qt::Vertical : Qt::Horizontal;
}

bool KELRange::isBubbleShown() const
{
    return d->isBubbleShown;
}

int KELRange::decimals() const
{
    return d->decimals;
}

QString KELRange::suffix() const
{
    return d->suffix;
}

void KELRange::setRange(double minimum, double maximum)
{
    if (!std::isfinite(minimum) || !std::isfinite(maximum))
        return;
    d->minimum = qBound(-greatestBound, minimum, greatestBound);
    d->maximum = qMax(d->minimum, qMin(maximum, greatestBound));
    updateGeometry();
    update();
    setValue(d->value);
}

void KELRange::setMinimum(double minimum)
{
    setRange(minimum, qMax(minimum, d->maximum));
}

void KELRange::setMaximum(double maximum)
{
    setRange(qMin(d->minimum, maximum), maximum);
}

void KELRange::setStep(double step)
{
    if (!std::isfinite(step))
        return;
    d->step = qMax(0.0, step);
    setValue(d->value);
}

void KELRange::setTickInterval(double interval)
{
    if (!std::isfinite(interval))
        return;
    d->tickInterval = qMax(0.0, interval);
    update();
}

void KELRange::setOrientation(Qt::Orientation orientation)
{
    const bool isVertical = orientation != Qt::Horizontal;
    if (isVertical == d->isVertical)
        return;
    d->isVertical = isVertical;
    QSizePolicy policy = sizePolicy();
    policy.transpose();
    setSizePolicy(policy);
    styleChanged();
}

void KELRange::setBubbleShown(bool shown)
{
    d->isBubbleShown = shown;
    styleChanged();
}

void KELRange::setDecimals(int decimals)
{
    d->decimals = qBound(0, decimals, mostDecimals);
    styleChanged();
}

void KELRange::setSuffix(const QString &suffix)
{
    d->suffix = suffix;
    styleChanged();
}

QString KELRange::textOf(double value) const
{
    return QLocale().toString(value, 'f', d->decimals) + d->suffix;
}

void KELRange::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
                     QWidget * /*widget*/)
{
    const KELPartStyle *style = partStyle();
    const qreal radius = d->radius();
    if (!(radius > 0))
        return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    d->paintTicks(painter, isEnabled() ? style->mutedBrush : style->disabledBrush);
    d->paintTrack(painter, isEnabled() ? style->accentBrush : style->disabledBrush);

    const qreal knob = d->knobAt(d->value);
    const qreal middle = d->centre();
    const QRectF circle = d->placed(knob - radius, knob + radius, middle - radius, middle + radius);
    const QBrush &held = isPressed() ? style->accentBrush : style->knobBrush;
    painter->setBrush(isEnabled() ? held : style->disabledBrush);
    painter->drawEllipse(circle);
    if (isFocusShown()) {
        constexpr qreal outward = ringPx - ringWidthPx / 2;
        painter->setPen(QPen(style->accentBrush, ringWidthPx));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(circle.adjusted(-outward, -outward, outward, outward));
        painter->setPen(Qt::NoPen);
    }
    if (d->isBubbleShown && isPressed())
        d->paintBubble(painter);
}

void KELRange::setValue(double value)
{
    if (!std::isfinite(value))
        return;
    const double next = d->allowed(value);
    if (next == d->value)
        return;
    const QRectF before = d->changingPlace();
    d->value = next;
    update(before | d->changingPlace());
    Q_EMIT valueChanged(next);
}

// Here, not in pressEvent(): a slot that hides the range finds it pressed, so that the press ends.
void KELRange::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELRange> self(this);
    const QPointF pos = event->pos();
    KELPart::mousePressEvent(event);
    if (!self || !event->isAccepted())
        return;
    d->finger = d->along(pos);
    d->grip = d->finger - d->knobAt(d->value);
    const bool isOnKnob = std::abs(d->grip) <= d->radius();
    Q_EMIT pressed();
    if (!self || !isPressed() || isOnKnob)
        return;
    d->grip = 0;
    setValue(d->valueAt(d->finger));
}

void KELRange::dragEvent(const QPointF &pos, bool /*isDrag*/)
{
    d->follow(pos);
}

void KELRange::releaseEvent(const QPointF &pos, bool /*isTap*/)
{
    const QPointer<KELRange> self(this);
    d->follow(pos);
    if (self)
        Q_EMIT released();
}

// Qt still uses the item when it has told of the loss: a slot may delete it later.
void KELRange::pressLostEvent()
{
    QMetaObject::invokeMethod(this, "released", Qt::QueuedConnection);
}

void KELRange::wheelEvent(QGraphicsSceneWheelEvent *event)
{
    if (isPressed())
        return;
    // A wheel that turns to the right gives negative numbers.
    const bool isSideways = event->orientation() == Qt::Horizontal;
    const bool isMirrored = d->isMirrored() && !d->isVertical;
    d->wheelDelta += isSideways && !isMirrored ? -event->delta() : event->delta();
    const int notches = d->wheelDelta / wheelNotch;
    d->wheelDelta -= notches * wheelNotch;
    if (notches != 0)
        setValue(d->valueAfter(notches));
}

void KELRange::keyPressEvent(QKeyEvent *event)
{
    KELPart::keyPressEvent(event);
    const double wanted = isPlainKey(event) ? d->valueOfKey(event->key()) : qQNaN();
    if (std::isnan(wanted))
        return;
    event->accept();
    setValue(wanted);
}

QSizeF KELRange::sizeHint(Qt::SizeHint which, const QSizeF &constraint) const
{
    if (which != Qt::MinimumSize && which != Qt::PreferredSize)
        return KELPart::sizeHint(which, constraint);
    const qreal least = qMax(leastPx, KELTouch::leastSize());
    const qreal length = (which == Qt::MinimumSize ? 2 : 4) * least;
    const qreal withBubble = d->isBubbleShown
        ? d->bubbleBreadth() + bubbleGapPx + 2 * knobRadiusPx + ringPx
        : 0;
    const QSizeF size(length, qMax(least, withBubble));
    return d->isVertical ? size.transposed() : size;
}
