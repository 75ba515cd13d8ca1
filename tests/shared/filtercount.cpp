// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "filtercount.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <algorithm>
#include <cstring>
#include <dlfcn.h>

namespace {

QVector<QPointer<QObject>> &filters()
{
    static QVector<QPointer<QObject>> installed;
    return installed;
}

using Function = void (QObject::*)(QObject *);

// That of Qt. A pointer to a member function that is not virtual begins with the address, on the
// processors that this runs on.
Function original(const char *symbol)
{
    Function function = nullptr;
    void *const address = dlsym(RTLD_NEXT, symbol);
    std::memcpy(&function, &address, sizeof address);
    return function;
}

} // namespace

void QObject::installEventFilter(QObject *filterObj)
{
    static const Function install = original("_ZN7QObject18installEventFilterEPS_");
    if (this == QCoreApplication::instance() && !filters().contains(filterObj))
        filters().append(filterObj);
    (this->*install)(filterObj);
}

void QObject::removeEventFilter(QObject *obj)
{
    static const Function remove = original("_ZN7QObject17removeEventFilterEPS_");
    if (this == QCoreApplication::instance())
        filters().removeAll(obj);
    (this->*remove)(obj);
}

int applicationFilterCount()
{
    filters().removeAll(nullptr);
    return filters().size();
}
