// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelslidecontrol.h"

#include "kelpainting_p.h"
#include "kelrounding_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

constexpr qreal knobSizePx = 30;
constexpr qreal grooveHeightPx = 4;
constexpr qreal grooveInsetPx = 3;
constexpr qreal grooveRoundnessPercent = 3;
constexpr float knobOutlinePx = 2.0F;

qreal knobTop(qreal y, qreal height)
{
    return y + height * 0.5 - knobSizePx * 0.5;
}

// In single precision, like the values.
float knobOffset(float fraction, qreal width)
{
    return float(qreal(fraction) * (width - knobSizePx));
}

void drawGroove(QPainter *painter, const QRectF &rect)
{
    if (KELPainting::isPaintable(rect)) {
        painter->drawRoundedRect(rect, grooveRoundnessPercent, grooveRoundnessPercent,
                                 Qt::RelativeSize);
    }
}

} // namespace

class KELSlideControlPrivate
{
public:
    // Compat: equal bounds divide by zero
    float fraction() const { return (value - minimun) / (maximun - minimun); }
    float range() const { return maximun - minimun; }

    float value = 0;
    float pressValue = 0;
    float maximun = 100;
    float minimun = 0;
    float step = 0;
    QRectF knobRect = QRectF(0, 0, knobSizePx, knobSizePx);
    QPointF pressPos;
    bool dragging = false;
    QBasicTimer timer;
};

KELSlideControl::KELSlideControl(QGraphicsObject *parent) :
    KELRoundRectControl(parent), d(new KELSlideControlPrivate)
{
    m_style = KELSlideControl::initStyle();
    setAcceptHoverEvents(true);
    setAcceptTouchEvents(true);
    setFlag(ItemIsSelectable, true);
    setAcceptedMouseButtons(Qt::LeftButton);
}

KELSlideControl::~KELSlideControl()
{
    delete d;
}

float KELSlideControl::value() const
{
    return d->value;
}

float KELSlideControl::maximun() const
{
    return d->maximun;
}

float KELSlideControl::minimun() const
{
    return d->minimun;
}

float KELSlideControl::step() const
{
    return d->step;
}

void KELSlideControl::setStep(float step)
{
    d->step = step;
}

void KELSlideControl::setMaximun(float maximum)
{
    // Compat: the value is limited to the bound that is replaced
    if (d->value > d->maximun)
        d->value = d->maximun;
    d->maximun = maximum;
}

void KELSlideControl::setMinimun(float minimum)
{
    // Compat: the value is limited to the bound that is replaced
    if (d->value < d->minimun)
        d->value = d->minimun;
    d->minimun = minimum;
}

void KELSlideControl::setValue(float v)
{
    if (d->step > 0) {
        const float difference = v - d->value;
        if (qAbs(difference) < d->step)
            return;
        v = d->value + KELRounding::halvesUp(difference / d->step) * d->step;
    }
    if (v > d->maximun)
        d->value = d->maximun;
    else if (v < d->minimun)
        d->value = d->minimun;
    else
        d->value = v;

    const QRectF &rect = m_style->boundRect;
    d->knobRect.moveLeft(rect.x() + qreal(knobOffset(d->fraction(), rect.width())));
    update();
    Q_EMIT valueChanged(); // Compat: also when the value is the same
}

void KELSlideControl::setboundRect(const QRectF &rect)
{
    KELRoundRectControl::setboundRect(rect);
    // Compat: 15 px further to the right than setValue() puts it
    const qreal left = rect.x() + 15 + qreal(knobOffset(d->fraction(), rect.width()));
    d->knobRect = QRectF(left, knobTop(rect.y(), rect.height()), knobSizePx, knobSizePx);
}

void KELSlideControl::setboundRect(qreal x, qreal y, qreal w, qreal h)
{
    KELRoundRectControl::setboundRect(x, y, w, h);
    // Compat: the minimum is not subtracted
    const qreal left = x + qreal(knobOffset(d->value / d->range(), w));
    d->knobRect = QRectF(left, knobTop(y, h), knobSizePx, knobSizePx);
}

void KELSlideControl::paint(QPainter *painter, const QStyleOptionGraphicsItem * /*styleOption*/,
                            QWidget * /*widget*/)
{
    // Compat: the groove is placed by boundingRect(), the knob by the stored rectangle
    const QRectF rect = boundingRect();
    if (!KELPainting::isPaintable(rect))
        return;
    painter->setRenderHint(QPainter::Antialiasing, true);
    const QRectF groove(rect.x() + grooveInsetPx,
                        rect.y() + rect.height() * 0.5 - grooveHeightPx * 0.5,
                        rect.width() - 2 * grooveInsetPx, grooveHeightPx);
    const QBrush fill = isEnabled() ? KELPainting::usableBrush(m_style->foregroundBrush)
                                    : KELPainting::solidBrush(qRgb(110, 110, 110));
    const QBrush outline = isEnabled() ? m_style->borderBrush
                                       : KELPainting::solidBrush(qRgb(170, 170, 170));

    const bool isFilled = d->minimun <= d->value && d->value <= d->maximun
        && fill.style() != Qt::NoBrush;
    const QRectF &knob = d->knobRect;

    const auto makeKey = [&] {
        KELLookKey key(&staticMetaObject, rect);
        key << m_style->backgroundBrush << fill << outline << quint64(isFilled) << knob.x()
            << knob.y() << knob.width() << knob.height();
        return key;
    };
    KELLook::paint(painter, makeKey, [&] {
        if (m_style->backgroundBrush.style() != Qt::NoBrush) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(KELPainting::usableBrush(m_style->backgroundBrush));
            drawGroove(painter, groove);
        }
        // Compat: without a groove the filled part is drawn with the painter's own pen
        if (isFilled) {
            painter->setBrush(fill);
            drawGroove(painter,
                       {groove.left(), groove.top(), knob.left() - rect.x() + 12, grooveHeightPx});
        }
        // Compat: without an outline the knob is drawn with the pen left by the steps before
        if (outline.style() != Qt::NoBrush)
            painter->setPen(KELPainting::outlinePen(outline, knobOutlinePx));
        painter->setBrush(fill);
        KELPainting::drawEllipse(painter, knob);
    });
}

void KELSlideControl::timerEvent(QTimerEvent *event)
{
    // Compat: the base is not called, so its long press never comes
    if (event->timerId() != d->timer.timerId())
        return;
    d->timer.stop();
    update();
}

void KELSlideControl::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELSlideControl> alive(this);
    KELRoundRectControl::mousePressEvent(event);
    if (!KELPress::isOwn(alive))
        return;
    const QPointF pos = event->pos();
    d->dragging = d->knobRect.contains(pos);
    if (d->dragging) {
        d->pressPos = pos;
        d->pressValue = d->value;
        return;
    }
    const QRectF &rect = m_style->boundRect;
    const qreal place = (pos.x() - rect.x()) / (rect.width() - knobSizePx);
    setValue(float(qreal(d->minimun) + qreal(d->range()) * place));
    KELPress::finishDelivery(alive, event);
}

void KELSlideControl::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELSlideControl> alive(this);
    KELRoundRectControl::mouseMoveEvent(event);
    // Compat: dragging stays true after the release
    if (!alive || !d->dragging || KELPress::of(this)->hasLostPointer())
        return;
    const qreal way = (event->pos().x() - d->pressPos.x())
        / (m_style->boundRect.width() - knobSizePx);
    setValue(float(qreal(d->pressValue) + qreal(d->range()) * way));
}

KELRoundRectControlStyle *KELSlideControl::initStyle()
{
    m_style->backgroundBrush = KELPainting::solidBrush(qRgb(192, 192, 192));
    m_style->foregroundBrush = KELPainting::solidBrush(qRgb(50, 173, 235));
    m_style->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    return m_style;
}
