// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelproxies_p.h"

#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <algorithm>
#include <iterator>

namespace {

// The viewports on the way out from a view. Views may show each other: none is visited twice.
using Visited = QVector<const QWidget *>;

QVector<const QGraphicsView *> viewsOf(const QGraphicsProxyWidget *proxy, const Visited &visited)
{
    QVector<const QGraphicsView *> views;
    const QList<QGraphicsView *> all = proxy->scene()->views();
    std::copy_if(
        all.begin(), all.end(), std::back_inserter(views),
        [&visited](const QGraphicsView *view) { return !visited.contains(view->viewport()); });
    return views;
}

bool delivers(const QWidget *viewport, const QGraphicsScene *scene, Visited visited)
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
    visited.append(viewport);
    const QVector<const QGraphicsView *> outerViews = viewsOf(proxy, visited);
    return std::any_of(outerViews.begin(), outerViews.end(), [&](const QGraphicsView *outer) {
        return delivers(outer->viewport(), proxy->scene(), visited);
    });
}

QVector<QPoint> mapped(const QWidget *viewport, const QWidget *receiver, const QPoint &pos,
                       Visited visited)
{
    QWidget *const window = viewport->window();
    if (receiver->window() == window) {
        const bool related = receiver == viewport || receiver->isAncestorOf(viewport)
            || viewport->isAncestorOf(receiver);
        return related ? QVector<QPoint>{viewport->mapFrom(window, receiver->mapTo(window, pos))}
                       : QVector<QPoint>();
    }
    QVector<QPoint> positions;
    const QGraphicsProxyWidget *const proxy = window->graphicsProxyWidget();
    if (!proxy || !proxy->scene())
        return positions;
    visited.append(viewport);
    const QVector<const QGraphicsView *> outerViews = viewsOf(proxy, visited);
    for (const QGraphicsView *outer : outerViews) {
        const QVector<QPoint> outerPositions = mapped(outer->viewport(), receiver, pos, visited);
        for (const QPoint &outerPos : outerPositions) {
            const QPointF inProxy = proxy->mapFromScene(outer->mapToScene(outerPos));
            positions.append(viewport->mapFrom(window, inProxy.toPoint()));
        }
    }
    return positions;
}

} // namespace

bool KELProxies::deliversTo(const QWidget *viewport, const QGraphicsScene *scene)
{
    return delivers(viewport, scene, {});
}

QVector<QPoint> KELProxies::mapToViewport(const QWidget *viewport, const QWidget *receiver,
                                          const QPoint &pos)
{
    return mapped(viewport, receiver, pos, {});
}
