// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltouchrouter_p.h"

#include "kelpress_p.h"
#include "kelroundrectcontrol.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVector>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>

#include <algorithm>
#include <utility>

namespace {

KELTouchRouter *router = nullptr;
const QGraphicsSceneMouseEvent *eventInDelivery = nullptr;

constexpr int maxNestedViews = 8; // views may show each other

QWidget *widgetOf(const QWindow *window)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    const auto found = std::find_if(
        widgets.begin(), widgets.end(),
        [window](const QWidget *widget) { return widget->windowHandle() == window; });
    return found == widgets.end() ? nullptr : *found;
}

// Pictures, lines and the like ignore presses; Qt tries each in turn, so skip them.
bool isDecoration(const QGraphicsItem *item)
{
    const auto *const text = qgraphicsitem_cast<const QGraphicsTextItem *>(item);
    if (text != nullptr && text->textInteractionFlags() != Qt::NoTextInteraction)
        return false;
    return item->type() >= QGraphicsPathItem::Type && item->type() <= QGraphicsItemGroup::Type
        && !(item->flags() & (QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemIsMovable));
}

// The item that receives the item's pointer events.
QGraphicsItem *handlerOf(QGraphicsItem *item)
{
    QGraphicsItem *handler = item;
    for (QGraphicsItem *parent = item->parentItem(); parent; parent = parent->parentItem()) {
        if (parent->handlesChildEvents())
            handler = parent;
    }
    return handler;
}

struct Target
{
    KELRoundRectControl *control = nullptr;
    QGraphicsView *view = nullptr;
};

// The control that a press at pos would reach, as a scene finds the item that is pressed.
Target targetAt(const QWidget *window, const QPoint &pos, int depth = 0)
{
    QWidget *const viewport = window->childAt(pos);
    auto *const view = viewport ? qobject_cast<QGraphicsView *>(viewport->parentWidget()) : nullptr;
    if (!view || view->viewport() != viewport || !view->isInteractive() || !viewport->isEnabled()
        || depth > maxNestedViews)
        return {};
    const QPoint viewPos = viewport->mapFrom(window, pos);
    const QList<QGraphicsItem *> items = view->items(QRect(viewPos, QSize(1, 1)));
    for (QGraphicsItem *item : items) {
        if (!(item->acceptedMouseButtons() & Qt::LeftButton) || isDecoration(item))
            continue;
        if (item->isBlockedByModalPanel())
            return {};
        if (const auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item)) {
            const QPointF proxyPos = proxy->mapFromScene(view->mapToScene(viewPos));
            return proxy->widget() ? targetAt(proxy->widget(), proxyPos.toPoint(), depth + 1)
                                   : Target();
        }
        auto *const object = handlerOf(item)->toGraphicsObject();
        auto *const control = qobject_cast<KELRoundRectControl *>(object);
        // Qt moves all selected items with one that is movable, also those under the first finger.
        const bool isFree = control != nullptr && control->isEnabled()
            && !KELPress::of(control)->isHeld()
            && !(control->flags() & QGraphicsItem::ItemIsMovable);
        return isFree ? Target{control, view} : Target();
    }
    return {};
}

} // namespace

KELTouchRouter::~KELTouchRouter()
{
    if (router == this)
        router = nullptr;
}

void KELTouchRouter::watchFrom(KELRoundRectControl *control, const QGraphicsSceneMouseEvent *event)
{
    if (!router) {
        router = new KELTouchRouter(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(router);
        router->m_firstScreenPos = event->screenPos();
        // A view inside a proxy has no native window.
        router->m_firstWindow = event->widget() ? event->widget()->window()->windowHandle()
                                                : nullptr;
        router->watchDeathOf(router->m_firstWindow);
    }
    router->m_firstControl = control;
}

bool KELTouchRouter::isFromFurtherFinger(const QGraphicsSceneMouseEvent *event)
{
    return event == eventInDelivery;
}

bool KELTouchRouter::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWindowType())
        return false;
    const QPointer<QObject> aliveWindow(watched);
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel: {
        const auto *touch = static_cast<const QTouchEvent *>(event);
        auto *const window = static_cast<QWindow *>(watched);
        if (!touch->device() || touch->device()->type() != QTouchDevice::TouchScreen)
            break;
        if (event->type() == QEvent::TouchCancel)
            cancel(window);
        else
            handle(window, event->type(), touch->touchPoints());
        break;
    }
    default:
        break;
    }
    return aliveWindow.isNull();
}

void KELTouchRouter::handle(QWindow *window, QEvent::Type type, const Points &points)
{
    // If a slot installs another filter, Qt calls this one again for the same event.
    if (window == m_handledWindow && points.isSharedWith(m_handledPoints))
        return;
    const QPointer<KELTouchRouter> alive(this);
    const QPointer<QWindow> aliveWindow(window);
    findFirstFinger(points);
    for (const QTouchEvent::TouchPoint &point : points) {
        if (isFirstFinger(type, point))
            m_firstWindow = window;
        else
            handleFinger(window, point);
        if (!alive || !aliveWindow || router != this)
            return;
    }
    m_handledPoints = points; // after those of a nested event loop
    m_handledWindow = window;
    stopUnlessNeeded();
}

// Qt does not say which finger drives the mouse: it is the first one that was down. In a view
// inside a proxy the press position may differ.
void KELTouchRouter::findFirstFinger(const Points &points)
{
    if (m_firstFingerId != unknownId)
        return;
    for (const QTouchEvent::TouchPoint &point : points) {
        // Its release was lost. Qt keeps waiting for that id, which is lower than any newer one.
        if (!m_isFirstFingerDown && point.id() < m_lowestFingerId)
            m_firstFingerId = point.id();
        if (point.state() == Qt::TouchPointPressed || indexOf(point.id()) >= 0)
            continue;
        const bool isAtPress = point.startScreenPos().toPoint() == m_firstScreenPos;
        if (isAtPress || m_firstFingerId == unknownId)
            m_firstFingerId = point.id();
        if (isAtPress)
            return;
    }
}

bool KELTouchRouter::isFirstFinger(QEvent::Type type, const QTouchEvent::TouchPoint &point)
{
    if (point.state() == Qt::TouchPointPressed && m_firstFingerId == noId
        && type == QEvent::TouchBegin)
        m_firstFingerId = point.id();
    if (point.id() != m_firstFingerId)
        return false;
    m_isFirstFingerDown = point.state() != Qt::TouchPointReleased;
    if (!m_isFirstFingerDown)
        m_firstFingerId = noId;
    return true;
}

void KELTouchRouter::handleFinger(QWindow *window, const QTouchEvent::TouchPoint &point)
{
    const QPointer<KELTouchRouter> alive(this);
    int index = indexOf(point.id());
    if (point.state() == Qt::TouchPointPressed && index >= 0) {
        m_fingers.removeAt(index); // its release never reached the window
        index = -1;
    }
    if (index < 0) {
        // A finger that came down in one event with the first one is handled on its next event.
        const Finger finger = fingerOf(window, point);
        m_fingers.append(finger);
        m_lowestFingerId = qMin(m_lowestFingerId, finger.id);
        watchDeathOf(window);
        const bool isKept = send(QEvent::GraphicsSceneMousePress, finger, finger.downScreenPos);
        if (!alive || router != this)
            return;
        index = indexOf(point.id());
        // As with the mouse, an ignored press gets no release.
        if (index >= 0 && !isKept)
            m_fingers[index].control = nullptr;
    }
    if (point.state() == Qt::TouchPointPressed || index < 0)
        return;
    const Finger finger = m_fingers.at(index);
    const QPoint screenPos = point.screenPos().toPoint();
    if (point.state() == Qt::TouchPointReleased) {
        m_fingers.removeAt(index);
        send(QEvent::GraphicsSceneMouseRelease, finger, screenPos);
    } else if (screenPos != finger.lastScreenPos) {
        m_fingers[index].lastScreenPos = screenPos;
        send(QEvent::GraphicsSceneMouseMove, finger, screenPos);
    }
}

int KELTouchRouter::indexOf(int id) const
{
    const auto found = std::find_if(m_fingers.begin(), m_fingers.end(),
                                    [id](const Finger &finger) { return finger.id == id; });
    return found == m_fingers.end() ? -1 : int(std::distance(m_fingers.begin(), found));
}

KELTouchRouter::Finger KELTouchRouter::fingerOf(QWindow *window,
                                                const QTouchEvent::TouchPoint &point)
{
    Finger finger;
    finger.id = point.id();
    finger.window = window;
    finger.downScreenPos = point.startScreenPos().toPoint();
    finger.lastScreenPos = finger.downScreenPos;
    const QWidget *const widget = widgetOf(window);
    if (!widget || QApplication::activePopupWidget())
        return finger;
    const Target target = targetAt(widget, widget->mapFromGlobal(finger.downScreenPos));
    finger.control = target.control;
    finger.view = target.view;
    return finger;
}

// Returns whether the control took the event.
bool KELTouchRouter::send(QEvent::Type type, const Finger &finger, const QPoint &screenPos)
{
    KELRoundRectControl *const control = finger.control;
    QGraphicsView *const view = finger.view;
    if (!control || !view || !control->scene() || control->scene() != view->scene())
        return false;
    QWidget *const viewport = view->viewport();
    const QTransform toControl = control->deviceTransform(view->viewportTransform()).inverted();
    const auto toScene = [&](const QPoint &pos) {
        return view->mapToScene(viewport->mapFromGlobal(pos));
    };
    const auto toItem = [&](const QPoint &pos) {
        return toControl.map(QPointF(viewport->mapFromGlobal(pos)));
    };
    QGraphicsSceneMouseEvent event(type);
    event.setWidget(viewport);
    event.setPos(toItem(screenPos));
    event.setScenePos(toScene(screenPos));
    event.setScreenPos(screenPos);
    event.setLastPos(toItem(finger.lastScreenPos));
    event.setLastScenePos(toScene(finger.lastScreenPos));
    event.setLastScreenPos(finger.lastScreenPos);
    event.setButtonDownPos(Qt::LeftButton, toItem(finger.downScreenPos));
    event.setButtonDownScenePos(Qt::LeftButton, toScene(finger.downScreenPos));
    event.setButtonDownScreenPos(Qt::LeftButton, finger.downScreenPos);
    const bool isRelease = type == QEvent::GraphicsSceneMouseRelease;
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
    // Qt must not forget which items the first finger is moving.
    event.setButtons(isRelease ? QGuiApplication::mouseButtons()
                               : Qt::MouseButtons(Qt::LeftButton));
    event.setModifiers(QGuiApplication::keyboardModifiers());
    event.setSource(Qt::MouseEventSynthesizedByQt);
    event.accept();

    const auto *const outer = std::exchange(eventInDelivery, &event);
    control->scene()->sendEvent(control, &event);
    eventInDelivery = outer;
    return event.isAccepted();
}

// Qt cancels every window that has touches, and also a single window that a dialog blocks.
void KELTouchRouter::cancel(const QWindow *window)
{
    if (m_isFirstFingerDown && (!m_firstWindow || m_firstWindow == window)) {
        m_isFirstFingerDown = false;
        if (m_firstControl)
            KELPress::of(m_firstControl)->cancel();
    }
    const auto firstCancelled = std::stable_partition(
        m_fingers.begin(), m_fingers.end(),
        [window](const Finger &finger) { return finger.window != window; });
    const QVector<Finger> cancelled(firstCancelled, m_fingers.end());
    m_fingers.erase(firstCancelled, m_fingers.end());
    stopUnlessNeeded();
    for (const Finger &finger : cancelled) {
        if (finger.control)
            KELPress::of(finger.control)->cancel();
        send(QEvent::GraphicsSceneMouseRelease, finger, finger.lastScreenPos);
    }
}

void KELTouchRouter::watchDeathOf(QWindow *window) const
{
    if (window) {
        connect(window, &QObject::destroyed, this, &KELTouchRouter::forgetDeadWindows,
                Qt::UniqueConnection);
    }
}

// A dead window reports no more touches.
void KELTouchRouter::forgetDeadWindows()
{
    m_fingers.erase(std::remove_if(m_fingers.begin(), m_fingers.end(),
                                   [](const Finger &finger) { return finger.window.isNull(); }),
                    m_fingers.end());
    if (!m_firstWindow)
        m_isFirstFingerDown = false;
    stopUnlessNeeded();
}

void KELTouchRouter::stopUnlessNeeded()
{
    if (router == this && !m_isFirstFingerDown && m_fingers.isEmpty())
        stop();
}

void KELTouchRouter::stop()
{
    QCoreApplication::instance()->removeEventFilter(this);
    router = nullptr;
    deleteLater();
}
