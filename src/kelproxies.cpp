// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelproxies_p.h"

#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <algorithm>

namespace {

// The viewports on the way out from a view, on the stack. Views may show each other: none is
// visited twice.
struct Hop
{
    const QWidget *viewport;
    const Hop *previous;

    bool isVisited(const QWidget *other) const
    {
        const Hop *hop = this;
        while (hop && hop->viewport != other)
            hop = hop->previous;
        return hop != nullptr;
    }
};

// Calls visit(view) for the views of the proxy until it returns true.
template <typename Visit>
bool anyViewOf(const QGraphicsProxyWidget *proxy, const Hop &hop, const Visit &visit)
{
    const QList<QGraphicsView *> views = proxy->scene()->views();
    return std::any_of(views.begin(), views.end(), [&](const QGraphicsView *view) {
        return !hop.isVisited(view->viewport()) && visit(view);
    });
}

bool delivers(const QWidget *viewport, const QGraphicsScene *scene, const Hop *previous)
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
    const Hop hop = {viewport, previous};
    return anyViewOf(proxy, hop, [proxy, &hop](const QGraphicsView *outer) {
        return delivers(outer->viewport(), proxy->scene(), &hop);
    });
}

QVector<QPoint> mapped(const QWidget *viewport, const QWidget *receiver, const QPoint &pos,
                       const Hop *previous)
{
    QVector<QPoint> positions;
    QWidget *const window = viewport->window();
    if (receiver->window() == window) {
        if (receiver == viewport || receiver->isAncestorOf(viewport)
            || viewport->isAncestorOf(receiver))
            positions.append(viewport->mapFrom(window, receiver->mapTo(window, pos)));
        return positions;
    }
    const QGraphicsProxyWidget *const proxy = window->graphicsProxyWidget();
    if (!proxy || !proxy->scene())
        return positions;
    const Hop hop = {viewport, previous};
    anyViewOf(proxy, hop, [&](const QGraphicsView *outer) {
        const QVector<QPoint> outerPositions = mapped(outer->viewport(), receiver, pos, &hop);
        for (const QPoint &outerPos : outerPositions) {
            const QPointF inProxy = proxy->mapFromScene(outer->mapToScene(outerPos));
            positions.append(viewport->mapFrom(window, inProxy.toPoint()));
        }
        return false;
    });
    return positions;
}

} // namespace

bool KELProxies::deliversTo(const QWidget *viewport, const QGraphicsScene *scene)
{
    return delivers(viewport, scene, nullptr);
}

QVector<QPoint> KELProxies::mapToViewport(const QWidget *viewport, const QWidget *receiver,
                                          const QPoint &pos)
{
    return mapped(viewport, receiver, pos, nullptr);
}
