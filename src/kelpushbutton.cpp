// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpushbutton.h"

#include "kelpainting_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtCore/QEvent>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace {

void setDefaults(KELPushButtonStyle *style)
{
    style->backgroundBrush = KELPainting::solidBrush(qRgba(0, 0, 0, 20));
    style->iconMargins = QMarginsF(5, 1, 5, 1);
    style->borderWidth = 2.0F;
}

void applyPressedLook(KELPushButtonStyle &option)
{
    option.backgroundBrush = KELPainting::solidBrush(qRgba(50, 70, 100, 200));
}

void applyDisabledLook(KELPushButtonStyle &option)
{
    option.foregroundBrush = KELPainting::solidBrush(qRgba(150, 150, 150, 100));
    option.borderBrush = KELPainting::solidBrush(qRgba(150, 150, 150, 100));
}

// Height of the caption strip below a picture.
float stripHeight(const KELPushButtonStyle &option)
{
    const QMarginsF &margins = option.margins;
    // Compat: the top margin counts twice
    return float(QFontMetrics(option.font).height() + margins.top()
                 + (margins.top() + margins.bottom()));
}

// Where the picture goes: above the strip, inside the icon margins.
QRectF pictureRect(const KELPushButtonStyle &option, float strip)
{
    const QRectF &rect = option.boundRect;
    const QMarginsF &margins = option.iconMargins;
    return {rect.x() + margins.left(), rect.y() + margins.top(),
            rect.width() - margins.right() - margins.left(),
            rect.height() - qreal(strip) - margins.bottom() - margins.top()};
}

void drawCaptionStrip(QPainter *painter, KELCaptionCache *caption, const KELPushButtonStyle &option,
                      float strip)
{
    const QRectF &rect = option.boundRect;
    const QMarginsF &margins = option.margins;
    const QRectF captionRect(rect.x() + margins.left(),
                             rect.y() + rect.height() - qreal(strip) + margins.top(),
                             rect.width() - margins.right() - margins.left(),
                             qreal(strip) - margins.top() - margins.bottom());
    // Compat: trimmed to the width of the whole button, and always, whatever trimText says
    KELPainting::drawTrimmedCaption(painter, caption, option, captionRect, rect.width());
}

void drawPixmapButton(QPainter *painter, KELCaptionCache *caption, const KELPushButtonStyle &option)
{
    if (option.foregroundBrush.style() == Qt::NoBrush) {
        KELPainting::drawPixmap(painter, option.boundRect, option.pixmap);
        return;
    }
    const float strip = stripHeight(option);
    KELPainting::drawPixmap(painter, pictureRect(option, strip), option.pixmap);
    drawCaptionStrip(painter, caption, option, strip);
}

void drawGlyphButton(QPainter *painter, KELCaptionCache *caption, const KELPushButtonStyle &option)
{
    if (option.text.isEmpty()) {
        KELPainting::drawGlyph(painter, option, pictureRect(option, 0));
        return;
    }
    const float strip = stripHeight(option);
    KELPainting::drawGlyph(painter, option, pictureRect(option, strip));
    drawCaptionStrip(painter, caption, option, strip);
}

void drawContents(QPainter *painter, KELCaptionCache *caption, const KELPushButtonStyle &option)
{
    KELPainting::drawBackground(painter, option);
    if (!option.pixmap.isNull())
        drawPixmapButton(painter, caption, option);
    else if (!option.icon.isNull())
        drawGlyphButton(painter, caption, option);
    else
        KELPainting::drawContentCaption(painter, caption, option);
}

} // namespace

KELPushButton::KELPushButton(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELOwnStyle<KELPushButtonStyle>::create(setDefaults),
                        new KELControlPrivate(this)),
    isMouseDownTemplate(applyPressedLook),
    isDisableTemplate(applyDisabledLook)
{
    setAcceptHoverEvents(true);
    setAcceptTouchEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setFiltersChildEvents(true);
    setHandlesChildEvents(true);
    setFlags(flags() | ItemIsSelectable | ItemClipsToShape);
}

KELPushButton::~KELPushButton() = default;

void KELPushButton::setIsMouseDownTemplate(const std::function<void(KELPushButtonStyle &)> &look)
{
    isMouseDownTemplate = look;
}

void KELPushButton::setIsCheckedTemplate(const std::function<void(KELPushButtonStyle &)> &look)
{
    isCheckedTemplate = look;
}

void KELPushButton::setIsDisableTemplate(const std::function<void(KELPushButtonStyle &)> &look)
{
    isDisableTemplate = look;
}

const KELPushButtonStyle *KELPushButton::buttonStyle() const
{
    return static_cast<const KELPushButtonStyle *>(m_style);
}

void KELPushButton::initStyleOption(KELPushButtonStyle *option,
                                    const QStyleOptionGraphicsItem *styleOption) const
{
    const bool pressed = isMouseDown();
    KELRoundRectControl::initStyleOption(option, styleOption);
    option->isMouseDown = pressed;
    option->isCheck = isCheck();
    option->iconMargins = buttonStyle()->iconMargins;

    if (!isEnabled()) {
        if (isDisableTemplate)
            isDisableTemplate(*option);
        return;
    }
    if (isCheck() && isCheckedTemplate)
        isCheckedTemplate(*option);
    if (pressed && isMouseDownTemplate)
        isMouseDownTemplate(*option);
}

void KELPushButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
                          QWidget * /*widget*/)
{
    KELPushButtonStyle option = KELPushButtonStyle();
    initStyleOption(&option, styleOption);

    // Compat: a button's pixmap is scaled without smoothing, unlike the base's
    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing, true);
    painter->setBrushOrigin(QPointF(option.boundRect.x(), option.boundRect.y()));
    painter->setPen(Qt::NoPen);
    painter->setBrush(Qt::NoBrush);

    KELCaptionCache *const caption = &KELControlPrivate::get(this)->caption;
    const auto makeKey = [&option] {
        const QMarginsF &margins = option.iconMargins;
        KELLookKey key = KELPainting::contentKey(&staticMetaObject, option);
        key << margins.left() << margins.top() << margins.right() << margins.bottom();
        return key;
    };
    KELLook::paint(painter, makeKey, [&] { drawContents(painter, caption, option); });
}

KELPushButtonStyle *KELPushButton::initStyle()
{
    // The record adds nothing that owns memory, so the destructor resets nothing.
    KELPushButtonStyle *const buttonStyle = KELOwnStyle<KELPushButtonStyle>(nullptr).replace(
        m_style, setDefaults);
    m_style = buttonStyle;
    return buttonStyle;
}

bool KELPushButton::sceneEventFilter(QGraphicsItem * /*watched*/, QEvent *event)
{
    // If a child accepts touches, Qt regards a touch on it as accepted, whatever the button does,
    // and does not turn it into a press.
    if (event->type() == QEvent::TouchBegin && handlesChildEvents())
        event->ignore();
    return KELControlPrivate::isEventOfOtherButton(event);
}
