// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BENCHMARK_H
#define BENCHMARK_H

#include <QtCore/QString>

class Window;

/*
 * Paints each finished screen as a whole, then lets a minute of it pass and paints what changes.
 * Prints what that takes, and writes it as comma-separated values to the file, if there is one.
 * Returns whether that could be written.
 */
bool runBenchmark(Window *window, const QString &csvPath);

#endif
