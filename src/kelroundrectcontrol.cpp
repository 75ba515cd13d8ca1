// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelroundrectcontrol.h"

#include "kelpainting_p.h"
#include "kelrounding_p.h"
#include "kelroundrectcontrol_p.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QCursor>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QGraphicsView>

#include <algorithm>
#include <utility>

namespace {

// Marks a parent while a child asks for its rectangle; ends the recursion if the parent asks its
// children.
class AskedParent
{
public:
    explicit AskedParent(const QGraphicsItem *item) :
        m_item(item), m_outer(std::exchange(innermost, this))
    { }
    ~AskedParent() { innermost = m_outer; }

    static bool isAsked(const QGraphicsItem *item)
    {
        for (const AskedParent *asked = innermost; asked; asked = asked->m_outer) {
            if (asked->m_item == item)
                return true;
        }
        return false;
    }

private:
    Q_DISABLE_COPY(AskedParent)

    static const AskedParent *innermost;

    const QGraphicsItem *const m_item;
    const AskedParent *const m_outer;
};

const AskedParent *AskedParent::innermost = nullptr;

// The control that the pointer has left, until its mouseLeave() is emitted. Qt keeps a raw pointer
// to the next item while it sends hover events. A slot of mouseLeave() may delete that item, so the
// next item emits the signal when it is entered.
KELRoundRectControl *leftControl = nullptr;

void emitPendingLeave()
{
    if (KELRoundRectControl *control = std::exchange(leftControl, nullptr))
        Q_EMIT control->mouseLeave();
}

// When the pointer leaves the view, Qt sends a leave to every hovered item; nothing is entered
// next.
bool isOfALeftView(const QGraphicsSceneHoverEvent *event)
{
    return !event->widget()->underMouse() && event->screenPos() == QCursor::pos()
        && event->lastScreenPos() == event->screenPos();
}

// Mirrors Qt's own search for the hovered item.
bool isItemEnteredNext(const QGraphicsSceneHoverEvent *event)
{
    const auto *viewport = event->widget();
    const auto *view = viewport != nullptr
        ? qobject_cast<const QGraphicsView *>(viewport->parentWidget())
        : nullptr;
    const QPoint pos = viewport ? viewport->mapFromGlobal(event->screenPos()) : QPoint();
    if (view == nullptr || !viewport->rect().contains(pos) || isOfALeftView(event))
        return false;
    const QList<QGraphicsItem *> items = view->items(QRect(pos, QSize(1, 1)));
    return std::any_of(items.begin(), items.end(), [](const QGraphicsItem *item) {
        return item->acceptHoverEvents() || item->isWidget();
    });
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
    const int widthPx = KELRounding::towardsZero(width, KELRounding::textWidthPx);
    QStringList lines = source.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &line : lines) {
        // Compat: measured with mnemonics, drawn without: an ampersand takes no width here
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

KELControlPrivate::~KELControlPrivate() = default;

// Here, because the gestures' layer must not include the control's private class.
KELPress *KELPress::of(const KELRoundRectControl *control)
{
    return &KELControlPrivate::get(control)->press;
}

bool KELControlPrivate::isEventOfOtherButton(QEvent *event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseRelease:
    case QEvent::GraphicsSceneMouseDoubleClick:
        return static_cast<QGraphicsSceneMouseEvent *>(event)->button() != Qt::LeftButton;
    default:
        return false;
    }
}

// The record's pointer may dangle: it is compared with living widgets, never dereferenced.
void KELControlPrivate::findContextMenu()
{
    const QMenu *const address = q->style()->contextMenu;
    const QWidgetList widgets = QApplication::allWidgets();
    const auto found = std::find(widgets.begin(), widgets.end(), address);
    QMenu *const menu = found == widgets.end() ? nullptr : qobject_cast<QMenu *>(*found);
    trackedMenu = std::make_unique<TrackedMenu>(address, menu);
    if (!menu)
        return;
    // A later menu may reuse this address, so the field is cleared when this one dies.
    trackedMenu->destroyed = QObject::connect(menu, &QObject::destroyed, q, [this, address] {
        if (q->style()->contextMenu == address)
            q->style()->contextMenu = nullptr;
    });
}

void KELControlPrivate::openContextMenu(const QPoint &pos)
{
    QMenu *const menu = liveContextMenu();
    if (menu && !menu->isVisible())
        menu->exec(pos);
}

QMenu *KELControlPrivate::liveContextMenu()
{
    trackContextMenu();
    return q->style()->contextMenu ? trackedMenu->menu.data() : nullptr;
}

void KELControlPrivate::drawContents(QPainter *painter, const KELRoundRectControlStyle &option)
{
    KELPainting::drawBackground(painter, option);
    const QRectF content = KELPainting::contentRect(option.boundRect, option.margins);
    if (!option.pixmap.isNull())
        KELPainting::drawPixmap(painter, content, option.pixmap);
    if (!option.icon.isNull())
        KELPainting::drawGlyph(painter, option, content);
    KELPainting::drawContentCaption(painter, &caption, option);
}

KELRoundRectControl::KELRoundRectControl(QGraphicsObject *parent) :
    KELRoundRectControl(parent, KELControlPrivate::newStyle(), new KELControlPrivate(this))
{ }

KELRoundRectControl::KELRoundRectControl(QGraphicsObject *parent,
                                         KELRoundRectControlStyle *newStyle,
                                         KELControlPrivate *newPrivate) :
    QGraphicsObject(parent), m_style(newStyle), d(newPrivate)
{
    setCacheMode(DeviceCoordinateCache);
    setFlag(ItemIsPanel, true);
}

KELRoundRectControl::~KELRoundRectControl()
{
    // The focus is taken away after Qt has freed the cache, and the repaint that follows makes a
    // new one, which leaks.
    if (scene() && scene()->focusItem() == this)
        setCacheMode(NoCache);
    QMenu *const menu = m_style->contextMenu ? d->liveContextMenu() : nullptr;
    if (menu)
        menu->deleteLater();
    if (leftControl == this)
        leftControl = nullptr;
    delete d;
    // Compat: deleted as the base record, also when it is a derived one
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
    return m_style->isMouseDown && !d->press.hasLostPointer();
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
    // No default initialiser: always assign.
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
    if (!parent)
        return m_style->boundRect;
    // A parent may derive its rectangle from those of its children.
    if (AskedParent::isAsked(parent))
        return m_style->boundRect;
    const AskedParent asked(parent);
    // Compat: a child is placed relative to the corner of its parent's rectangle
    return m_style->boundRect.translated(parent->boundingRect().topLeft());
}

// Compat: neither overload notifies the scene or repaints
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
    KELLook::paint(
        painter, [&] { return KELPainting::contentKey(&staticMetaObject, option); },
        [&] { d->drawContents(painter, option); });
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
    if (!d->press.isLongPressTimer(event->timerId()))
        return;
    const QMenu *const openMenu = d->liveContextMenu();
    if (!d->press.becomeLong() || (openMenu && openMenu->isVisible()))
        return;
    const QPoint menuPos = d->press.pos().toPoint();
    const QPointer<KELRoundRectControl> alive(this);
    Q_EMIT mouseLongPress();
    // Compat: the item-local press position is used as a screen position
    if (alive)
        d->openContextMenu(menuPos);
}

void KELRoundRectControl::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    if (!d->press.arrive(event))
        return;
    d->trackContextMenu();
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mousePressEvent(event);
    if (alive) {
        d->press.begin(event);
        Q_EMIT mousePress(event->pos());
    }
    KELPress::finishDelivery(alive, event);
}

void KELRoundRectControl::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    if (d->press.redeliverIfMisrouted(event))
        return;
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mouseDoubleClickEvent(event);
    if (!alive)
        return;
    Q_EMIT mouseDoubleClicked();
    KELPress::finishDelivery(alive, event);
}

void KELRoundRectControl::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mouseReleaseEvent(event);
    if (!alive)
        return;
    const bool clicked = d->press.end();
    Q_EMIT mouseRelease(event->pos());
    if (alive && clicked)
        Q_EMIT mouseClicked();
}

void KELRoundRectControl::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::mouseMoveEvent(event); // moves a movable item, which calls itemChange()
    if (alive)
        d->press.move(event->pos());
}

void KELRoundRectControl::hoverEnterEvent(QGraphicsSceneHoverEvent *event)
{
    const QPointer<KELRoundRectControl> alive(this);
    QGraphicsObject::hoverEnterEvent(event);
    emitPendingLeave();
    if (alive)
        Q_EMIT mouseEnter();
}

void KELRoundRectControl::hoverLeaveEvent(QGraphicsSceneHoverEvent *event)
{
    QGraphicsObject::hoverLeaveEvent(event);
    if (!isItemEnteredNext(event)) {
        Q_EMIT mouseLeave();
        return;
    }
    const QPointer<KELRoundRectControl> alive(this);
    emitPendingLeave();
    if (!alive)
        return;
    leftControl = this;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (leftControl == this)
                emitPendingLeave();
        },
        Qt::QueuedConnection);
}

void KELRoundRectControl::contextMenuEvent(QGraphicsSceneContextMenuEvent *event)
{
    QGraphicsObject::contextMenuEvent(event);
    if (!d->liveContextMenu())
        return;
    // Accepted first: once the menu was open, the items below may be gone.
    event->accept();
    d->press.cancel();
    d->openContextMenu(event->screenPos());
}

void KELRoundRectControl::onCheckedEvent(bool /*check*/) { }

KELRoundRectControlStyle *KELRoundRectControl::initStyle()
{
    return KELControlPrivate::newStyle();
}
