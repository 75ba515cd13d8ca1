// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef OBJECTS_H
#define OBJECTS_H

#include <QtCore/QObject>

// Every QObject that lives, and what filters the events of the application object.
namespace Objects {

void startWatching();

QObjectList alive();
int applicationFilters();

// Such a timer runs to its end, also when the object that it was for has died.
void waitForSingleShots();

// The first one of the class that lives, or null.
template <typename Object>
Object *find()
{
    const QObjectList objects = alive();
    for (QObject *object : objects) {
        if (auto *found = qobject_cast<Object *>(object))
            return found;
    }
    return nullptr;
}

} // namespace Objects

#endif
