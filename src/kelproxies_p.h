// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPROXIES_P_H
#define KELPROXIES_P_H

#include <QtCore/QPoint>
#include <QtCore/QVector>

QT_BEGIN_NAMESPACE
class QGraphicsScene;
class QWidget;
QT_END_NAMESPACE

// Views in views: a view inside a QGraphicsProxyWidget gets its pointer events from the views of
// the proxy's scene.
namespace KELProxies {

// True when a pointer over this viewport reaches the items of scene.
bool deliversTo(const QWidget *viewport, const QGraphicsScene *scene);

// Where a press on receiver may come to the viewport, in the viewport: an ignored press goes on to
// parent widgets, and through proxies to the views in them.
QVector<QPoint> mapToViewport(const QWidget *viewport, const QWidget *receiver, const QPoint &pos);

} // namespace KELProxies

#endif
