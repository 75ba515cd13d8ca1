// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelpresswatch_p.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsObject>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace {

bool isInside(const QWidget *widget, const QWidget *window)
{
    for (; widget; widget = widget->parentWidget()) {
        if (widget == window)
            return true;
    }
    return false;
}

// True when input to widget is blocked by modal.
bool blocks(const QWidget *modal, const QWidget *widget)
{
    if (!widget)
        return true;
    if (isInside(widget, modal))
        return false;
    return modal->windowModality() != Qt::WindowModal || isInside(modal, widget->window());
}

} // namespace

KELPressWatch::KELPressWatch(QGraphicsObject *item, const QGraphicsSceneMouseEvent *press) :
    m_item(item),
    // An ignored press loses the grab as soon as the handler returns: there is nothing to lose.
    m_hadGrab(press->isAccepted() && holdsGrab(item)),
    m_hadView(press->widget() != nullptr && press->widget()->isVisible()),
    m_view(press->widget()),
    m_popup(QApplication::activePopupWidget()),
    m_modal(QApplication::activeModalWidget())
{ }

KELPressWatch::~KELPressWatch()
{
    for (const QMetaObject::Connection &connection : m_connections)
        QObject::disconnect(connection);
}

void KELPressWatch::start(const std::function<void()> &check)
{
    m_connections[0] = QObject::connect(m_item, &QGraphicsObject::enabledChanged, m_item, check);
    m_connections[1] = QObject::connect(m_item, &QGraphicsObject::visibleChanged, m_item, check);
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance(m_item->thread());
    if (m_hadGrab && dispatcher) {
        m_connections[2] = QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, m_item,
                                            check);
    }
}

bool KELPressWatch::isLost() const
{
    if (!m_item->isEnabled() || !m_item->isVisible()
        || m_item->acceptedMouseButtons() == Qt::NoButton) {
        return true;
    }
    return m_hadGrab && (!holdsGrab(m_item) || isViewGone() || isCovered());
}

bool KELPressWatch::holdsGrab(const QGraphicsObject *item)
{
    const QGraphicsItem *grabber = item->scene() ? item->scene()->mouseGrabberItem() : nullptr;
    return grabber != nullptr && (grabber == item || item->isAncestorOf(grabber));
}

bool KELPressWatch::isViewGone() const
{
    return m_hadView && !(m_view != nullptr && m_view->isVisible());
}

bool KELPressWatch::isCovered() const
{
    const QWidget *popup = QApplication::activePopupWidget();
    if (popup && popup != m_popup && !isInside(m_view, popup))
        return true;
    const QWidget *modal = QApplication::activeModalWidget();
    return modal != nullptr && modal != m_modal && blocks(modal, m_view);
}
