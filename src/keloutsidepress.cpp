// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keloutsidepress_p.h"

#include "kelproxies_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPolygonF>
#include <QtGui/QTouchEvent>
#include <QtWidgets/QGraphicsItem>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

namespace {

bool isPress(const QEvent *event)
{
    return event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick
        || event->type() == QEvent::TouchBegin;
}

// In the receiving widget.
QPoint pressPos(const QEvent *event)
{
    if (event->type() != QEvent::TouchBegin)
        return static_cast<const QMouseEvent *>(event)->pos();
    const auto &points = static_cast<const QTouchEvent *>(event)->touchPoints();
    return points.isEmpty() ? QPoint() : points.first().pos().toPoint();
}

} // namespace

KELOutsidePress::KELOutsidePress(const QGraphicsItem *control, Client *client) :
    m_control(control), m_client(client)
{
    QCoreApplication::instance()->installEventFilter(this);
}

KELOutsidePress::~KELOutsidePress()
{
    if (QCoreApplication *app = QCoreApplication::instance())
        app->removeEventFilter(this);
}

bool KELOutsidePress::eventFilter(QObject *watched, QEvent *event)
{
    if (!isPress(event) || !event->isAccepted() || !isOutside(watched, event))
        return false;
    const QPointer<QObject> target(watched);
    const bool hadTarget = !target.isNull();
    m_client->pressedOutside();
    // Qt must not go on to an object that a slot destroyed.
    return hadTarget && target.isNull();
}

bool KELOutsidePress::isOutside(const QObject *receiver, const QEvent *event) const
{
    if (!m_control->scene())
        return false;
    if (receiver->isWidgetType())
        return isOutside(static_cast<const QWidget *>(receiver), pressPos(event));
    // The window of a widget passes the press on to the widget.
    return receiver->isWindowType() && !receiver->inherits("QWidgetWindow");
}

bool KELOutsidePress::isOutside(const QWidget *receiver, const QPoint &pos) const
{
    const QList<QGraphicsView *> views = m_control->scene()->views();
    for (const QGraphicsView *view : views) {
        const QVector<QPoint> positions = KELProxies::mapToViewport(view->viewport(), receiver,
                                                                    pos);
        for (const QPoint &viewPos : positions) {
            if (view->viewport()->rect().contains(viewPos)
                && m_client->isHit(view->mapToScene(QRect(viewPos, QSize(1, 1)))))
                return false;
        }
    }
    return true;
}
