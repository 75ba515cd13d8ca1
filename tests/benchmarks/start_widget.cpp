// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "handdrawnwindow.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    HandDrawnWindow<QWidget, Benchmark::Role::Reference> window("QWidget");
    window.show();
    return QApplication::exec();
}
