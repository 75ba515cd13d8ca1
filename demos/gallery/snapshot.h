// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SNAPSHOT_H
#define SNAPSHOT_H

#include <QtCore/QString>

class Window;

// Saves what the window shows as PNG. Returns false when the file could not be written.
bool saveScreenshot(Window *window, const QString &path);

// Saves each page as <name>.png in directory. Returns the file that could not be written, or
// nothing.
QString saveAllScreenshots(Window *window, const QString &directory);

#endif
