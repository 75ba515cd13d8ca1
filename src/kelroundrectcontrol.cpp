// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelroundrectcontrol.h"

#include "kelpainting_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimerEvent>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QMenu>

namespace {

constexpr int longPressMs = 500;
constexpr qreal clickSlopPx = 10.0;

// Text layout counts in 1/64 px, in an int, and subtracts the width of the ellipsis.
constexpr double minTrimWidthPx = -16777216.0;
constexpr double maxTrimWidthPx = 33554431.0;

int trimWidthPx(double width)
{
    return qIsNaN(width) ? 0 : int(qBound(minTrimWidthPx, width, maxTrimWidthPx));
}

} // namespace

void KELRoundRectControlStyle::copy(KELRoundRectControlStyle *dst) const
{
    *dst = *this;
    dst->isMouseDown = false;
    dst->isCheck = false;
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): part of the ABI as it is
QString KELRoundRectControlStyle::getTrimmingText(const QString &source, double width,
                                                  const QFont &sourceFont) const
{
    const QFontMetrics metrics(sourceFont);
    const int widthPx = trimWidthPx(width);
    QStringList lines = source.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &line : lines) {
        // kept: measured with mnemonics, drawn without: an ampersand takes no width here
        line = metrics.elidedText(line, Qt::ElideRight, widthPx, Qt::TextShowMnemonic);
    }
    return lines.join(QLatin1Char('\n'));
}

KELRoundRectControlStyle *KELControlPrivate::newStyle()
{
    auto *const style = new KELRoundRectControlStyle();
    setDefaults(style);
    return style;
}

void KELControlPrivate::setDefaults(KELRoundRectControlStyle *style)
{
    style->boundRect = QRectF(100, 100, 100, 30);
    style->backgroundBrush = KELPainting::solidBrush(qRgba(0, 0, 0, 20));
    style->foregroundBrush = KELPainting::solidBrush(qRgb(0, 0, 0));
    style->borderBrush = KELPainting::solidBrush(qRgb(0, 0, 0));
    style->borderWidth = 0.5F;
    style->contextMenu = nullptr;
    style->textFlags = KELPainting::centredWordWrap;
    style->trimText = true;
    style->iconSize = 30;
}

KELPressScope::KELPressScope(KELRoundRectControl *control, QGraphicsSceneMouseEvent *event) :
    m_control(control), m_event(event), m_grabbed(KELPressWatch::holdsGrab(control))
{ }

KELPressScope::~KELPressScope()
{
    if (m_control)
        m_control->dropLostPress();
    // From an item that ignored the press the scene takes the grab, and warns when it is gone already.
    if (!m_control || (m_grabbed && !KELPressWatch::holdsGrab(m_control)))
        m_event->accept();
}

bool KELPressScope::isForControl() const
{
    return !m_control.isNull() && !m_control->d->hasHandedOnPress;
}

bool KELPressScope::hasLostPointer(const KELRoundRectControl *control)
{
    return control->d->hasLostPointer();
}

KELRoundRectControl::KELRoundRectControl(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELControlPrivate::newStyle())
{ }

KELRoundRectControl::KELRoundRectControl(QGraphicsObject *parent,
                                         KELRoundRectControlStyle *newStyle) :
    QGraphicsObject(parent), m_style(newStyle), d(new KELControlPrivate)
{
    setCacheMode(DeviceCoordinateCache);
    setFlag(ItemIsPanel, true);
}

KELRoundRectControl::~KELRoundRectControl()
{
    delete d;
    if (m_style->contextMenu)
        m_style->contextMenu->deleteLater();
    // kept: deleted as the base record, also when it is a derived one
    delete m_style;
}

KELRoundRectControlStyle *KELRoundRectControl::style() const
{
    return m_style;
}

QRectF KELRoundRectControl::rect() const
{
    return {0, 0, m_style->boundRect.width(), m_style->boundRect.height()};
}

bool KELRoundRectControl::isMouseDown() const
{
    return m_style->isMouseDown && !(d->watch && d->watch->isLost());
}

bool KELRoundRectControl::isCheck() const
{
    return m_style->isCheck;
}

QString KELRoundRectControl::text() const
{
    return m_style->text;
}

void KELRoundRectControl::initStyleOption(KELRoundRectControlStyle *option,
                                          const QStyleOptionGraphicsItem * /*styleOption*/) const
{
    option->boundRect = boundingRect();
    option->font = m_style->font;
    option->margins = m_style->margins;
    option->xRadius = m_style->xRadius;
    option->yRadius = m_style->yRadius;
    option->trimText = m_style->trimText;
    // These fields have no initialiser: written always, so that no picture depends on chance.
    option->borderWidth = 0;
    option->textFlags = m_style->textFlags;
    option->contextMenu = nullptr;
    option->iconSize = m_style->iconSize;

    if (!m_style->pixmap.isNull())
        option->pixmap = m_style->pixmap;
    if (!m_style->icon.isNull())
        option->icon = m_style->icon;
    if (m_style->backgroundBrush.style() != Qt::NoBrush)
        option->backgroundBrush = m_style->backgroundBrush;
    if (m_style->borderBrush.style() != Qt::NoBrush && m_style->borderWidth > 0) {
        option->borderBrush = m_style->borderBrush;
        option->borderWidth = m_style->borderWidth;
    }
    if (m_style->foregroundBrush.style() != Qt::NoBrush) {
        option->foregroundBrush = m_style->foregroundBrush;
        if (!m_style->text.isEmpty())
            option->text = m_style->text;
    }
}

QRectF KELRoundRectControl::boundingRect() const
{
    const QGraphicsItem *parent = parentItem();
    // kept: a child is placed relative to the corner of its parent's rectangle
    return parent ? m_style->boundRect.translated(parent->boundingRect().topLeft())
                  : m_style->boundRect;
}

// kept: neither overload tells the scene or repaints
void KELRoundRectControl::setboundRect(const QRectF &rect)
{
    m_style->boundRect = rect;
}

void KELRoundRectControl::setboundRect(qreal x, qreal y, qreal w, qreal h)
{
    m_style->boundRect = QRectF(x, y, w, h);
}

void KELRoundRectControl::paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
                                QWidget * /*widget*/)
{
    KELRoundRectControlStyle option = KELRoundRectControlStyle();
    initStyleOption(&option, styleOption);

    painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                                | QPainter::SmoothPixmapTransform,
                            true);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Qt::NoBrush);
    KELPainting::drawRoundRect(painter, option);

    const QRectF content = KELPainting::contentRect(option.boundRect, option.margins);
    if (!option.pixmap.isNull())
        KELPainting::drawPixmap(painter, content, option.pixmap);
    if (!option.icon.isNull())
        KELPainting::drawGlyph(painter, option, content);
    KELPainting::drawContentCaption(painter, &d->caption, option);
}

void KELRoundRectControl::setCheck(bool check)
{
    if (check == m_style->isCheck)
        return;
    m_style->isCheck = check;
    update();
    onCheckedEvent(check);
}

void KELRoundRectControl::setText(QString text) // clazy:exclude=function-args-by-ref
{
    m_style->text = std::move(text);
    update();
}

void KELRoundRectControl::timerEvent(QTimerEvent *event)
{
    QGraphicsObject::timerEvent(event);
    if (event->timerId() != d->longPressTimer.timerId())
        return;

    d->longPressTimer.stop();
    if (dropLostPress())
        return;
    const QPoint menuPos(qRound(d->pressPos.x()), qRound(d->pressPos.y()));
    const QPointer<KELRoundRectControl> alive(this);
    Q_EMIT mouseLongPress();
    // kept: the item-local press position is used as a screen position
    if (alive && m_style->contextMenu)
        m_style->contextMenu->exec(menuPos);
}

void KELRoundRectControl::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (handOnStalePress(event))
        return;
    const KELPressScope scope(this, event);
    d->hasHandedOnPress = false;
    auto watch = std::make_unique<KELPressWatch>(this, event);
    QGraphicsObject::mousePressEvent(event);
    if (!scope.isControlAlive())
        return;
    // A coarse timer may fire 25 ms early.
    d->longPressTimer.start(longPressMs, Qt::PreciseTimer, this);
    d->pressPos = event->pos();
    d->hasStaleGrab = false;
    d->watch = std::move(watch);
    d->watch->start(event, [this] { dropLostPress(); });
    if (!m_style->isMouseDown) {
        m_style->isMouseDown = true;
        update();
    }
    Q_EMIT mousePress(event->pos());
    if (scope.isControlAlive() && !event->isAccepted())
        QMetaObject::invokeMethod(
            this, [this] { settlePress(); }, Qt::QueuedConnection);
}

void KELRoundRectControl::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (handOnStalePress(event))
        return;
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mouseDoubleClickEvent(event);
    if (!alive)
        return;
    Q_EMIT mouseDoubleClicked();
    if (!alive)
        event->accept();
}

void KELRoundRectControl::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mouseReleaseEvent(event);
    if (!alive)
        return;
    dropLostPress();
    const bool clicked = d->longPressTimer.isActive();
    d->longPressTimer.stop();
    d->watch.reset();
    d->hasStaleGrab = false;
    if (m_style->isMouseDown) {
        m_style->isMouseDown = false;
        update();
    }
    Q_EMIT mouseRelease(event->pos());
    if (alive && clicked)
        Q_EMIT mouseClicked();
}

void KELRoundRectControl::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mouseMoveEvent(event); // moves a movable item, which calls itemChange()
    if (!alive || !d->longPressTimer.isActive())
        return;
    if ((d->pressPos - event->pos()).manhattanLength() > clickSlopPx)
        d->longPressTimer.stop();
}

void KELRoundRectControl::hoverEnterEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsObject::hoverEnterEvent(event);
    Q_EMIT mouseEnter();
}

void KELRoundRectControl::hoverLeaveEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsObject::hoverLeaveEvent(event);
    Q_EMIT mouseLeave();
}

void KELRoundRectControl::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    QGraphicsObject::contextMenuEvent(event);
    if (!m_style->contextMenu)
        return;
    // Accepted first: once the menu was open, the items below may be gone.
    event->accept();
    m_style->contextMenu->exec(event->screenPos());
}

void KELRoundRectControl::onCheckedEvent(bool /*check*/) { }

KELRoundRectControlStyle *KELRoundRectControl::initStyle()
{
    return KELControlPrivate::newStyle();
}

// A derived control may accept the press after the base ignored it, and so get the rest of it.
void KELRoundRectControl::settlePress()
{
    if (d->watch)
        d->watch->settle();
}

// Ends a press whose pointer went elsewhere, silently. Returns true when it did.
bool KELRoundRectControl::dropLostPress()
{
    if (!d->watch || !d->watch->isLost())
        return false;
    d->hasStaleGrab = d->watch->leavesStaleGrab();
    d->watch.reset();
    d->longPressTimer.stop();
    if (m_style->isMouseDown) {
        m_style->isMouseDown = false;
        update();
    }
    return true;
}

// After a release that went to a popup or a dialog the scene still takes this control for the one that
// is pressed, and sends it the next press, wherever that is. Gives such a press back to the scene.
bool KELRoundRectControl::handOnStalePress(QGraphicsSceneMouseEvent *event)
{
    if (!d->hasStaleGrab)
        return false;
    d->hasStaleGrab = false;
    // A press that arrives accepted was aimed here: the scene had let go of the old grab by itself.
    if (event->isAccepted() || !KELPressWatch::holdsGrab(this))
        return false;
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsScene *const ownScene = scene();
    ownScene->mouseGrabberItem()->ungrabMouse();
    QCoreApplication::sendEvent(ownScene, event);
    if (alive)
        d->hasHandedOnPress = true;
    return true;
}
