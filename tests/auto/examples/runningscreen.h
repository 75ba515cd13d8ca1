// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef RUNNINGSCREEN_H
#define RUNNINGSCREEN_H

#include "hand.h"
#include "literals.h"
#include "runningexample.h"

#include <KELScreen>

// The screen that an example shows, and what is on it from the top down, line by line.
inline KELScreen *theScreen()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *screen = qobject_cast<KELScreen *>(window))
            return screen;
    }
    return nullptr;
}

template <class Object>
QVector<Object *> all(const KELScreen *screen)
{
    QVector<Object *> found;
    const QList<QGraphicsItem *> items = screen->scene()->items();
    for (QGraphicsItem *item : items) {
        auto *const object = qobject_cast<Object *>(item->toGraphicsObject());
        if (object && object->isVisible())
            found.append(object);
    }
    const auto place = [](const Object *object) { return object->sceneBoundingRect().topLeft(); };
    std::sort(found.begin(), found.end(), [place](const Object *one, const Object *other) {
        const QPointF first = place(one);
        const QPointF second = place(other);
        return first.y() != second.y() ? first.y() < second.y() : first.x() < second.x();
    });
    return found;
}

inline void tapOn(KELScreen *screen, const QGraphicsItem *item)
{
    const QPointF centre = item->mapToScene(item->boundingRect().center());
    Hand(screen->viewport()).tap(screen->mapFromScene(centre));
}

// Of those with a text.
template <class Object>
Object *withText(const KELScreen *screen, const QString &text)
{
    for (Object *object : all<Object>(screen)) {
        if (object->text() == text)
            return object;
    }
    return nullptr;
}

#endif
