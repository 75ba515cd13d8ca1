// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpress_p.h"

#include "kelproxies_p.h"
#include "kelroundrectcontrol.h"
#include "keltouchrouter_p.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <array>

namespace {

constexpr int longPressMs = 500;
constexpr qreal clickSlopPx = 10.0;

bool isInside(const QWidget *widget, const QWidget *ancestor)
{
    while (widget && widget != ancestor)
        widget = widget->parentWidget();
    return widget != nullptr;
}

const QWidget *outermostParent(const QWidget *widget)
{
    while (widget->parentWidget())
        widget = widget->parentWidget();
    return widget;
}

// True when modal keeps input from widget, by the rules of Qt::WindowModality.
bool blocks(const QWidget *modal, const QWidget *widget)
{
    if (!widget)
        return true;
    if (isInside(widget, modal))
        return false;
    return modal->windowModality() != Qt::WindowModal
        || outermostParent(modal) == outermostParent(widget);
}

// True when the scene sends the pointer to the item, or to a child whose events the item handles.
bool sceneTargets(const QGraphicsObject *item)
{
    const QGraphicsItem *grabber = item->scene() ? item->scene()->mouseGrabberItem() : nullptr;
    return grabber == item
        || (grabber != nullptr && item->handlesChildEvents() && item->isAncestorOf(grabber));
}

} // namespace

// Snapshot of the state in which a press arrived, to detect its loss.
struct KELPress::Origin
{
    Origin(const KELRoundRectControl *control, const QGraphicsSceneMouseEvent *event);
    ~Origin();

    bool isCovered() const;

    const QPointF pos;
    const Qt::MouseButtons button;
    const bool isOfFurtherFinger;
    // Qt marks the event ignored before it delivers it to an item that already holds the grab.
    const bool heldOlderGrab;
    const QPointer<QWidget> viewport;
    const bool hadView;
    const QGraphicsScene *const scene; // not used, only compared
    const QPointer<QWidget> popup;
    const QPointer<QWidget> modal;

    bool isBegun = false;
    bool isHeld = false; // the pointer belongs to the control until the release
    bool mayBeReturned = false; // a derived class may still ignore the press that the base accepted
    bool isRefused = false; // a selectable control keeps presses of the left button only
    bool isRecheckDue = false;
    std::array<QMetaObject::Connection, 3> connections;
};

KELPress::Origin::Origin(const KELRoundRectControl *control,
                         const QGraphicsSceneMouseEvent *event) :
    pos(event->pos()),
    button(event->button() & control->acceptedMouseButtons()),
    isOfFurtherFinger(KELTouchRouter::isFromFurtherFinger(event)),
    heldOlderGrab(!isOfFurtherFinger && !event->isAccepted() && sceneTargets(control)),
    viewport(event->widget()),
    hadView(KELProxies::deliversTo(viewport, control->scene())),
    scene(control->scene()),
    popup(QApplication::activePopupWidget()),
    modal(QApplication::activeModalWidget())
{ }

KELPress::Origin::~Origin()
{
    for (const QMetaObject::Connection &connection : connections)
        QObject::disconnect(connection);
}

bool KELPress::Origin::isCovered() const
{
    const QWidget *newPopup = QApplication::activePopupWidget();
    if (newPopup && newPopup != popup && !isInside(viewport, newPopup))
        return true;
    const QWidget *newModal = QApplication::activeModalWidget();
    return newModal != nullptr && newModal != modal && blocks(newModal, viewport);
}

KELPress::KELPress(KELRoundRectControl *control) : m_control(control) { }

void KELPress::DeleteOrigin::operator()(Origin *origin) const
{
    delete origin;
}

bool KELPress::isOwn(const KELRoundRectControl *control)
{
    return control != nullptr && of(control)->m_isOwn;
}

bool KELPress::arrive(QGraphicsSceneMouseEvent *event)
{
    if (redeliverIfMisrouted(event))
        return false;
    m_isOwn = true;
    m_isSceneTarget = sceneTargets(m_control);
    m_origin.reset(new Origin(m_control, event));
    return true;
}

void KELPress::begin(QGraphicsSceneMouseEvent *event)
{
    // A coarse timer may fire 25 ms early.
    m_longPressTimer.start(longPressMs, Qt::PreciseTimer, m_control);
    watch(event);
    setPressedLook(true);
}

void KELPress::beginUnseen(QGraphicsSceneMouseEvent *event)
{
    m_longPressTimer.stop();
    watch(event);
}

void KELPress::watch(const QGraphicsSceneMouseEvent *event)
{
    if (!m_origin) // a selectionChanged() slot has run a whole press in between
        m_origin.reset(new Origin(m_control, event));
    m_hasStaleGrab = false;
    Origin &origin = *m_origin;
    const bool isOffered = m_isSceneTarget || origin.isOfFurtherFinger;
    origin.isBegun = true;
    origin.isHeld = origin.heldOlderGrab || (isOffered && event->isAccepted());
    origin.mayBeReturned = origin.isHeld && !origin.heldOlderGrab && !origin.isOfFurtherFinger
        && m_control->isSelected();
    const QGraphicsItem::GraphicsItemFlags offers = QGraphicsItem::ItemIsSelectable
        | QGraphicsItem::ItemIsMovable;
    origin.isRefused = !origin.isHeld && !event->isAccepted() && (m_control->flags() & offers) != 0;

    const auto checking = [this] { check(); };
    origin.connections = {
        QObject::connect(m_control, &QGraphicsObject::enabledChanged, m_control, checking),
        QObject::connect(m_control, &QGraphicsObject::visibleChanged, m_control, checking),
        QObject::connect(QAbstractEventDispatcher::instance(m_control->thread()),
                         &QAbstractEventDispatcher::awake, m_control, checking)};
    if (event->source() == Qt::MouseEventSynthesizedByQt && !origin.isOfFurtherFinger)
        KELTouchRouter::watchFrom(m_control, event);
}

void KELPress::move(const QPointF &pos)
{
    if (m_longPressTimer.isActive() && (m_origin->pos - pos).manhattanLength() > clickSlopPx)
        m_longPressTimer.stop();
}

bool KELPress::end()
{
    dropIfLost();
    const bool clicked = m_longPressTimer.isActive();
    m_hasStaleGrab = false;
    stop();
    return clicked;
}

bool KELPress::becomeLong()
{
    m_longPressTimer.stop();
    return !dropIfLost();
}

bool KELPress::isLost() const
{
    if (!m_origin || !m_origin->isBegun)
        return false;
    if (!m_control->isEnabled() || !m_control->isVisible()
        || (m_origin->scene != nullptr && m_control->scene() != m_origin->scene))
        return true;
    const Qt::MouseButtons button = m_origin->button;
    if (button != Qt::NoButton && !(m_control->acceptedMouseButtons() & button))
        return true;
    if (!m_origin->isHeld)
        return false;
    if (!m_origin->isOfFurtherFinger && !sceneTargets(m_control)) {
        // The scene takes grab and selection away from an item that ignores the press.
        const QGraphicsScene *const scene = m_control->scene();
        return !m_origin->mayBeReturned || m_control->isSelected() || scene == nullptr
            || scene->mouseGrabberItem() != nullptr;
    }
    return (m_origin->hadView && !KELProxies::deliversTo(m_origin->viewport, m_control->scene()))
        || m_origin->isCovered();
}

QPointF KELPress::pos() const
{
    return m_origin ? m_origin->pos : QPointF();
}

bool KELPress::isHeld() const
{
    return m_origin && m_origin->isHeld && !isLost();
}

bool KELPress::hasLostPointer() const
{
    return m_hasStaleGrab || isLost();
}

bool KELPress::dropIfLost()
{
    if (!isLost())
        return false;
    // In another scene the control was given the grab anew.
    m_hasStaleGrab = !m_origin->heldOlderGrab && m_control->scene() == m_origin->scene
        && sceneTargets(m_control);
    stop();
    return true;
}

// The end of every press: released, lost, or ignored by all.
void KELPress::stop()
{
    m_origin.reset();
    m_longPressTimer.stop();
    setPressedLook(false);
}

void KELPress::check()
{
    if (dropIfLost() || !m_origin->mayBeReturned)
        return;
    m_origin->mayBeReturned = false;
    m_origin->isHeld = sceneTargets(m_control);
}

void KELPress::finishDelivery(KELRoundRectControl *control, QGraphicsSceneMouseEvent *event)
{
    // From an item that ignores the press the scene takes the grab, also from a dead one.
    if (!control) {
        event->accept();
        return;
    }
    KELPress *const press = of(control);
    // No grab any more: a slot took it while the event was being delivered.
    if (press->m_origin && !sceneTargets(control))
        press->m_origin->mayBeReturned = false;
    press->dropIfLost();
    // A derived control may still accept the press that the base ignored, and so receive the rest
    // of it.
    Origin *const origin = press->m_origin.get();
    if (origin && !origin->isHeld && !event->isAccepted() && !origin->isRecheckDue) {
        origin->isRecheckDue = true;
        QMetaObject::invokeMethod(
            control, [press] { press->recheckGrab(); }, Qt::QueuedConnection);
    }
    // If the press is ignored, the scene ungrabs the item, and warns if the grab is already gone.
    if (press->m_isSceneTarget && !sceneTargets(control))
        event->accept();
}

void KELPress::recheckGrab()
{
    if (!m_origin || !m_origin->isRecheckDue)
        return;
    m_origin->isRecheckDue = false;
    m_origin->isHeld = sceneTargets(m_control);
    if (!m_origin->isHeld && m_origin->isRefused)
        stop();
}

bool KELPress::redeliverIfMisrouted(QGraphicsSceneMouseEvent *event)
{
    if (!m_hasStaleGrab)
        return false;
    m_hasStaleGrab = false;
    // A press that arrives accepted was aimed here: the scene itself had released the old grab.
    if (event->isAccepted() || !sceneTargets(m_control))
        return false;
    const QPointer<KELRoundRectControl> alive(m_control);
    QGraphicsScene *const scene = m_control->scene();
    scene->mouseGrabberItem()->ungrabMouse();
    QCoreApplication::sendEvent(scene, event);
    if (alive)
        m_isOwn = false;
    return true;
}

void KELPress::setPressedLook(bool pressed)
{
    KELRoundRectControlStyle *const style = m_control->style();
    if (style->isMouseDown == pressed)
        return;
    style->isMouseDown = pressed;
    m_control->update();
}
