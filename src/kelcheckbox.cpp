// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelcheckbox.h"

#include "kelcheckbox_p.h"
#include "kelpainting_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

constexpr qreal trackHeightPx = 30;
constexpr qreal maxTrackWidthPx = 80;
constexpr qreal knobSizePx = 24;
constexpr qreal knobRightOffsetPx = 27; // from the right end of the track to the knob's left side

void setDefaults(KELCheckBoxStyle *style)
{
    style->backgroundBrush = KELPainting::solidBrush(qRgb(200, 200, 200));
    style->borderWidth = 2.0F;
    style->indicatorBrush = KELPainting::solidBrush(qRgb(0, 123, 185));
    style->borderBrush = KELPainting::solidBrush(qRgb(255, 255, 255));
    style->xRadius = 15.0;
    style->yRadius = 15.0;
}

// Compat: components are not limited; outside 0 to 255 Qt warns and makes the colour invalid
QColor shifted(const QColor &colour, int rgbShift, int alpha)
{
    QColor result;
    result.setRgb(colour.red() + rgbShift, colour.green() + rgbShift, colour.blue() + rgbShift,
                  alpha);
    return result;
}

QColor faded(const QBrush &brush, int alphaLoss)
{
    return shifted(brush.color(), 0, brush.color().alpha() - alphaLoss);
}

QRectF trackRect(const QRectF &rect)
{
    const qreal top = rect.y() + rect.height() * 0.5 - trackHeightPx * 0.5;
    if (rect.width() > maxTrackWidthPx) {
        return {rect.x() + (rect.width() - maxTrackWidthPx) * 0.5, top, maxTrackWidthPx,
                trackHeightPx};
    }
    return {rect.x(), top, rect.width(), trackHeightPx};
}

void drawKnob(QPainter *painter, const KELCheckBoxStyle &option, const QRectF &knob)
{
    if (option.indicatorBrush.style() == Qt::NoBrush)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(KELPainting::usableBrush(option.indicatorBrush));
    KELPainting::drawRoundedRect(painter, knob, option.xRadius, option.yRadius);
}

void drawSwitch(QPainter *painter, const KELCheckBoxStyle &option)
{
    const QRectF track = trackRect(option.boundRect);
    // Compat: without brush or outline the track is drawn with the painter's own brush and pen
    if (option.backgroundBrush.style() != Qt::NoBrush)
        painter->setBrush(KELPainting::usableBrush(option.backgroundBrush));
    if (option.borderBrush.style() != Qt::NoBrush && option.borderWidth > 0)
        painter->setPen(KELPainting::outlinePen(option.borderBrush, option.borderWidth));
    KELPainting::drawRoundedRect(painter, track, option.xRadius, option.yRadius);

    const auto inset = qreal(3 * (option.borderWidth * 0.5F));
    // Compat: the margin on the left follows the outline, the one on the right does not
    const qreal left = option.isCheck ? track.x() + track.width() - knobRightOffsetPx
                                      : track.x() + inset;
    drawKnob(painter, option, {left, track.y() + inset, knobSizePx, knobSizePx});
}

void drawBar(QPainter *painter, const KELCheckBoxStyle &option)
{
    const QRectF &rect = option.boundRect;
    const float half = option.borderWidth * 0.5F;
    if (option.backgroundBrush.style() != Qt::NoBrush) {
        const auto radius = qreal(3 * half);
        painter->setPen(Qt::NoPen);
        painter->setBrush(KELPainting::usableBrush(option.backgroundBrush));
        KELPainting::drawRoundedRect(painter,
                                     {rect.x() + 2, rect.y() + rect.height() * 0.5 - radius,
                                      rect.width() - 4, qreal(6 * half)},
                                     radius, radius);
    }
    const auto inset = qreal(half);
    const qreal left = option.isCheck ? rect.x() + rect.width() - rect.height() + inset
                                      : rect.x() + inset;
    const qreal size = rect.height() - 2 * inset;
    drawKnob(painter, option, {left, rect.y() + inset, size, size});
}

} // namespace

KELCheckBox::KELCheckBox(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELOwnStyle<KELCheckBoxStyle>::create(setDefaults),
                        new KELControlPrivate(this)),
    d(new KELCheckBoxPrivate(m_style))
{
    setAcceptHoverEvents(true);
    setAcceptTouchEvents(true);
    setFlag(ItemIsSelectable, true);
    setAcceptedMouseButtons(Qt::LeftButton);
}

KELCheckBox::~KELCheckBox()
{
    if (KELCheckBoxStyle *own = d->ownStyle.get(m_style))
        own->indicatorBrush = QBrush();
    delete d;
}

void KELCheckBox::initStyleOption(KELCheckBoxStyle *option,
                                  const QStyleOptionGraphicsItem * /*styleOption*/) const
{
    const auto &own = *static_cast<const KELCheckBoxStyle *>(m_style);
    const bool enabled = isEnabled();
    option->boundRect = boundingRect();
    option->font = own.font;
    option->xRadius = own.xRadius;
    option->yRadius = own.yRadius;
    option->trimText = own.trimText;
    option->margins = own.margins;
    option->isCheck = own.isCheck;
    // No default initialiser: always assign.
    option->borderWidth = 0;
    option->textFlags = 0;
    option->contextMenu = nullptr;
    option->iconSize = 0;

    if (own.indicatorBrush.style() != Qt::NoBrush) {
        // Compat: a disabled knob takes its colour from the track
        option->indicatorBrush = enabled ? own.indicatorBrush
                                         : shifted(own.backgroundBrush.color(), -70, 150);
    }
    if (own.backgroundBrush.style() != Qt::NoBrush) {
        const QColor knob = option->indicatorBrush.color();
        if (own.isCheck)
            option->backgroundBrush = shifted(knob, 70, knob.alpha() - 70);
        else
            option->backgroundBrush = enabled ? own.backgroundBrush
                                              : faded(own.backgroundBrush, 170);
    }
    if (own.borderBrush.style() != Qt::NoBrush && own.borderWidth > 0) {
        option->borderBrush = enabled ? own.borderBrush : faded(own.borderBrush, 130);
        option->borderWidth = own.borderWidth;
    }
    if (own.foregroundBrush.style() != Qt::NoBrush) {
        option->foregroundBrush = own.foregroundBrush;
        if (!own.text.isEmpty()) {
            option->textFlags = own.textFlags;
            option->text = own.text;
        }
    }
}

void KELCheckBox::paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
                        QWidget * /*widget*/)
{
    KELCheckBoxStyle option = KELCheckBoxStyle();
    initStyleOption(&option, styleOption);
    if (!KELPainting::isPaintable(option.boundRect))
        return;
    painter->setRenderHint(QPainter::Antialiasing, true);
    const auto makeKey = [&] {
        KELLookKey key = KELPainting::shapeKey(&staticMetaObject, option);
        key << option.indicatorBrush << quint64(option.isCheck) << quint64(uint(d->layoutMode));
        return key;
    };
    KELLook::paint(painter, makeKey, [&] {
        if (d->layoutMode == 0)
            drawSwitch(painter, option);
        else
            drawBar(painter, option);
    });
}

void KELCheckBox::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELCheckBox> alive(this);
    KELRoundRectControl::mousePressEvent(event);
    if (!KELPress::isOwn(alive) || event->button() != Qt::LeftButton)
        return;
    setCheck(!isCheck());
    KELPress::finishDelivery(alive, event);
}

void KELCheckBox::onCheckedEvent(bool /*check*/)
{
    const QPointer<KELCheckBox> alive(this);
    // Compat: the stored state is reported, not the argument
    if (isCheck())
        Q_EMIT checked();
    else
        Q_EMIT unchecked();
    if (alive)
        Q_EMIT checkChanged();
}

KELRoundRectControlStyle *KELCheckBox::initStyle()
{
    m_style = d->ownStyle.replace(m_style, setDefaults);
    return m_style;
}
