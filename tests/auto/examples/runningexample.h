// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef RUNNINGEXAMPLE_H
#define RUNNINGEXAMPLE_H

#include "hand.h"

#include <KELContentView>

#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

// For a test that runs in the event loop of an example, on the windows that its main() makes.

template <typename Control>
Control *find(const KELContentView *view)
{
    const QList<QGraphicsItem *> items = view->scene()->items();
    for (QGraphicsItem *item : items) {
        if (auto *control = dynamic_cast<Control *>(item))
            return control;
    }
    return nullptr;
}

inline void tap(const KELContentView *view, const QPointF &scenePos)
{
    Hand(view->viewport()).tap(view->mapFromScene(scenePos));
}

template <typename Test>
void runInTheExample()
{
    QTimer::singleShot(0, qApp, [] {
        Test test;
        QCoreApplication::exit(QTest::qExec(&test));
    });
}

#endif
