// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "livingobjects.h"

#include <QtCore/QMutex>
#include <QtCore/QThread>

#include <set>

// Called for every QObject at its beginning and its end.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace {

enum Hook { AddQObject = 3, RemoveQObject = 4 };

QMutex *mutex()
{
    static auto *const mutex = new QMutex;
    return mutex;
}

std::set<QObject *> *objects()
{
    static auto *const objects = new std::set<QObject *>; // outlives all of them
    return objects;
}

void enter(QObject *object)
{
    const QMutexLocker locker(mutex());
    objects()->insert(object);
}

void leave(QObject *object)
{
    const QMutexLocker locker(mutex());
    objects()->erase(object);
}

// From the start of the program.
const bool isWatching = [] {
    qtHookData[AddQObject] = quintptr(&enter);
    qtHookData[RemoveQObject] = quintptr(&leave);
    return true;
}();

} // namespace

QObjectList livingObjects()
{
    const QMutexLocker locker(mutex());
    QObjectList own;
    for (QObject *object : *objects()) {
        if (object->thread() == QThread::currentThread())
            own.append(object);
    }
    return own;
}
