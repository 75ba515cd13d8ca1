// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "census.h"

#include "filtercount.h"
#include "livingobjects.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QFile>
#include <QtCore/QMetaMethod>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>

#include <algorithm>
#include <malloc.h>
#include <unistd.h>

namespace {

void settle()
{
    waitForSingleShots();
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    QPixmapCache::clear();
}

qint64 allocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

qint64 residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

int connectionsOf(QObject *object)
{
    struct Open : public QObject
    {
        using QObject::receivers;
    };
    int count = 0;
    const QMetaObject *const meta = object->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        // As the macro SIGNAL() writes it.
        if (method.methodType() == QMetaMethod::Signal)
            count += (object->*(&Open::receivers))('2' + method.methodSignature());
    }
    return count;
}

int timersOf(QObject *object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object).size();
}

} // namespace

void waitForSingleShots()
{
    const auto isSingleShot = [](const QObject *object) {
        return object->inherits("QSingleShotTimer");
    };
    for (QObjectList all = livingObjects(); std::any_of(all.begin(), all.end(), isSingleShot);
         all = livingObjects())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

Census Census::take()
{
    settle();
    Census census;
    census.bytes = allocatedBytes();
    census.rss = residentBytes();
    census.filters = applicationFilterCount();
    census.windows = QApplication::topLevelWidgets().size() + QGuiApplication::allWindows().size();
    const QObjectList objects = livingObjects();
    for (QObject *object : objects) {
        ++census.objects;
        ++census.classes[object->metaObject()->className()];
        census.timers += timersOf(object);
        census.connections += connectionsOf(object);
        if (const auto *scene = qobject_cast<const QGraphicsScene *>(object))
            census.items += scene->items().size();
    }
    return census;
}
