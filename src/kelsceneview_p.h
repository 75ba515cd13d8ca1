// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSCENEVIEW_P_H
#define KELSCENEVIEW_P_H

#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QGraphicsScene;
class QGraphicsView;
class QWidget;
QT_END_NAMESPACE

// What the frameless, transparent views with a scene of their own have in common.
namespace KELSceneView {

// The look of the library's windows. Compat: all other window flags go, so that one with a parent
// is a child widget.
void setWindowLook(QWidget *window);

// Gives the view its look and a scene, which it owns and returns.
QGraphicsScene *setUp(QGraphicsView *view);

// Deletes the scene, for the destructor of the view, while the view can still answer the slots of
// its items. The pointer is null meanwhile.
void tearDown(const QGraphicsView *view, QPointer<QGraphicsScene> *scene);

} // namespace KELSceneView

#endif
