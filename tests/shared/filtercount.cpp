// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "filtercount.h"

#include "original.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <algorithm>

namespace {

QVector<QPointer<QObject>> &filters()
{
    static QVector<QPointer<QObject>> installed;
    return installed;
}

using Function = void (QObject::*)(QObject *);

} // namespace

void QObject::installEventFilter(QObject *filterObj)
{
    static const Function install = original<Function>("_ZN7QObject18installEventFilterEPS_");
    if (this == QCoreApplication::instance() && !filters().contains(filterObj))
        filters().append(filterObj);
    (this->*install)(filterObj);
}

void QObject::removeEventFilter(QObject *obj)
{
    static const Function remove = original<Function>("_ZN7QObject17removeEventFilterEPS_");
    if (this == QCoreApplication::instance())
        filters().removeAll(obj);
    (this->*remove)(obj);
}

int applicationFilterCount()
{
    filters().removeAll(nullptr);
    return filters().size();
}
