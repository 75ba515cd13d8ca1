// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelsceneview_p.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

void KELSceneView::setWindowLook(QWidget *window)
{
    window->setStyleSheet(QStringLiteral("background: transparent;"));
    window->setWindowFlags(Qt::FramelessWindowHint);
    window->setAttribute(Qt::WA_TranslucentBackground);
}

QGraphicsScene *KELSceneView::setUp(QGraphicsView *view)
{
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWindowLook(view);

    auto *const scene = new QGraphicsScene(view);
    // setboundRect() does not tell the scene: an index would keep the old rectangle.
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    return scene;
}

void KELSceneView::tearDown(const QGraphicsView *view, QPointer<QGraphicsScene> *scene)
{
    QGraphicsScene *const own = *scene;
    scene->clear();
    // Without an application object Qt cannot take a scene out of a view: it goes with the other
    // children.
    if (own && own->parent() == view && QCoreApplication::instance())
        delete own;
}
