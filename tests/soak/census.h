// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CENSUS_H
#define CENSUS_H

#include <QtCore/QMap>
#include <QtCore/QtGlobal>

// What a program holds, once it has settled.
struct Census
{
    static Census take();

    qint64 bytes = 0; // allocated
    qint64 rss = 0;
    int objects = 0;
    int filters = 0; // of the application object
    int timers = 0;
    int connections = 0;
    int windows = 0; // and widgets without a parent
    int items = 0; // in all scenes
    QMap<QByteArray, int> classes; // how many objects of each
};

// Such a timer runs to its end, also when the object that it was for has died.
void waitForSingleShots();

#endif
