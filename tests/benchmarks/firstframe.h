// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FIRSTFRAME_H
#define FIRSTFRAME_H

#include "benchmark.h"

#include <QtCore/QFile>
#include <QtCore/QRect>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

// A screen of 100 push buttons, and the end of the process once it is painted.
namespace FirstFrame {

constexpr const char *scenario = "start to the first frame";
constexpr int count = 100;
constexpr QSize size(1000, 300);

inline QRect placeOf(int index)
{
    return {index % 10 * 100, index / 10 * 30, 100, 30};
}

inline QByteArray peakMemoryKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first();
    }
    return "0";
}

// To be called while the first frame is painted: it is shown before the event loop goes on.
inline void end(const char *contender, Benchmark::Role role)
{
    QTimer::singleShot(0, qGuiApp, [contender, role] {
        Benchmark::reportProcess(scenario, contender, role);
        if (!RUNNING_ON_VALGRIND)
            Benchmark::printValue(scenario, contender, "peak memory kB", peakMemoryKb());
        QCoreApplication::quit();
    });
}

} // namespace FirstFrame

#endif
