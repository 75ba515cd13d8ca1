// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawnwindow.h"

#include <QtGui/QRasterWindow>

// Not even Qt Widgets.
int main(int argc, char *argv[])
{
    const QGuiApplication app(argc, argv);
    HandDrawnWindow<QRasterWindow, Benchmark::Role::Floor> window("QRasterWindow");
    window.show();
    return QGuiApplication::exec();
}
