// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LIVINGOBJECTS_H
#define LIVINGOBJECTS_H

#include <QtCore/QObject>

// The objects of the calling thread that live.
QObjectList livingObjects();

// The first one of the class, or null.
template <typename Object>
Object *findLiving()
{
    const QObjectList objects = livingObjects();
    for (QObject *object : objects) {
        if (auto *found = qobject_cast<Object *>(object))
            return found;
    }
    return nullptr;
}

#endif
