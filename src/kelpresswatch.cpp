// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpresswatch_p.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QVector>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsObject>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>
#include <QtWidgets/QGraphicsView>

#include <algorithm>

namespace {

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

// True when a pointer over this viewport reaches the items of scene. Views may show each other: those on the way
// here are left out.
bool serves(const QWidget *viewport, const QGraphicsScene *scene, QVector<const QWidget *> way = {})
{
    if (!viewport || !viewport->isVisible() || !viewport->isEnabled())
        return false;
    const auto *view = qobject_cast<const QGraphicsView *>(viewport->parentWidget());
    if (view && (view->scene() != scene || !view->isInteractive()))
        return false;

    const QGraphicsProxyWidget *proxy = viewport->window()->graphicsProxyWidget();
    if (!proxy)
        return true;
    if (!proxy->isVisible() || !proxy->isEnabled() || !proxy->scene())
        return false;
    way.append(viewport);
    const QList<QGraphicsView *> outerViews = proxy->scene()->views();
    return std::any_of(outerViews.begin(), outerViews.end(),
                       [proxy, &way](const QGraphicsView *outer) {
                           return !way.contains(outer->viewport())
                               && serves(outer->viewport(), proxy->scene(), way);
                       });
}

} // namespace

KELPressWatch::KELPressWatch(QGraphicsObject *item, const QGraphicsSceneMouseEvent *press) :
    m_item(item),
    m_button(press->button() & item->acceptedMouseButtons()),
    m_grabbed(holdsGrab(item)),
    // The scene ignores a press before it sends it to an item that holds the grab already.
    m_grabbedBefore(m_grabbed && !press->isAccepted()),
    m_view(press->widget()),
    m_hadView(serves(m_view, item->scene())),
    m_popup(QApplication::activePopupWidget()),
    m_modal(QApplication::activeModalWidget())
{ }

KELPressWatch::~KELPressWatch()
{
    for (const QMetaObject::Connection &connection : m_connections)
        QObject::disconnect(connection);
}

void KELPressWatch::start(const QGraphicsSceneMouseEvent *press, const std::function<void()> &check)
{
    m_check = check;
    m_connections[0] = QObject::connect(m_item, &QGraphicsObject::enabledChanged, m_item, check);
    m_connections[1] = QObject::connect(m_item, &QGraphicsObject::visibleChanged, m_item, check);
    // An item that ignores the press loses the grab as soon as its handler returns: as it should.
    if (m_grabbedBefore || (m_grabbed && press->isAccepted()))
        watchGrab();
}

void KELPressWatch::settle()
{
    if (!m_hadGrab && m_check && holdsGrab(m_item))
        watchGrab();
}

void KELPressWatch::watchGrab()
{
    m_hadGrab = true;
    m_connections[2] = QObject::connect(QAbstractEventDispatcher::instance(m_item->thread()),
                                        &QAbstractEventDispatcher::awake, m_item, m_check);
}

bool KELPressWatch::isLost() const
{
    if (!m_item->isEnabled() || !m_item->isVisible())
        return true;
    if (m_button != Qt::NoButton && !(m_item->acceptedMouseButtons() & m_button))
        return true;
    return m_hadGrab
        && (!holdsGrab(m_item) || (m_hadView && !serves(m_view, m_item->scene())) || isCovered());
}

bool KELPressWatch::leavesStaleGrab() const
{
    return !m_grabbedBefore && holdsGrab(m_item);
}

bool KELPressWatch::holdsGrab(const QGraphicsObject *item)
{
    const QGraphicsItem *grabber = item->scene() ? item->scene()->mouseGrabberItem() : nullptr;
    return grabber == item
        || (grabber != nullptr && item->handlesChildEvents() && item->isAncestorOf(grabber));
}

bool KELPressWatch::isCovered() const
{
    const QWidget *popup = QApplication::activePopupWidget();
    if (popup && popup != m_popup && !isInside(m_view, popup))
        return true;
    const QWidget *modal = QApplication::activeModalWidget();
    return modal != nullptr && modal != m_modal && blocks(modal, m_view);
}
