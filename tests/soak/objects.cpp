// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "objects.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMutex>
#include <QtCore/QPointer>

#include <algorithm>
#include <dlfcn.h>
#include <set>
#include <vector>

// Called for every QObject at its beginning and its end.
extern Q_CORE_EXPORT quintptr qtHookData[];

namespace {

enum Hook { AddQObject = 3, RemoveQObject = 4 };

QMutex *mutex()
{
    static QMutex mutex;
    return &mutex;
}

std::set<QObject *> *objects()
{
    static auto *const objects = new std::set<QObject *>; // outlives all of them
    return objects;
}

std::vector<QPointer<QObject>> *filters()
{
    static auto *const filters = new std::vector<QPointer<QObject>>;
    return filters;
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

// Also what died since the last time, as Qt does.
void forgetFilter(const QObject *filter)
{
    filters()->erase(std::remove_if(filters()->begin(), filters()->end(),
                                    [filter](const QPointer<QObject> &entry) {
                                        return entry.isNull() || entry == filter;
                                    }),
                     filters()->end());
}

using FilterFunction = void (*)(QObject *, QObject *);

FilterFunction inQt(const char *symbol)
{
    return reinterpret_cast<FilterFunction>(dlsym(RTLD_NEXT, symbol));
}

} // namespace

// Qt does not tell which filters an object has. These two stand before Qt's own, for the library
// and for Qt's other libraries.
void QObject::installEventFilter(QObject *filter)
{
    static const FilterFunction install = inQt("_ZN7QObject18installEventFilterEPS_");
    if (this == QCoreApplication::instance()) {
        forgetFilter(filter);
        filters()->emplace_back(filter);
    }
    install(this, filter);
}

void QObject::removeEventFilter(QObject *filter)
{
    static const FilterFunction remove = inQt("_ZN7QObject17removeEventFilterEPS_");
    if (this == QCoreApplication::instance())
        forgetFilter(filter);
    remove(this, filter);
}

void Objects::startWatching()
{
    qtHookData[AddQObject] = quintptr(&enter);
    qtHookData[RemoveQObject] = quintptr(&leave);
}

QObjectList Objects::alive()
{
    const QMutexLocker locker(mutex());
    QObjectList all;
    for (QObject *object : *objects())
        all.append(object);
    return all;
}

int Objects::applicationFilters()
{
    return int(std::count_if(filters()->cbegin(), filters()->cend(),
                             [](const QPointer<QObject> &filter) { return !filter.isNull(); }));
}

void Objects::waitForSingleShots()
{
    const auto isSingleShot = [](const QObject *object) {
        return object->inherits("QSingleShotTimer");
    };
    for (QObjectList all = alive(); std::any_of(all.begin(), all.end(), isSingleShot);
         all = alive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
