// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef COMMANDLINE_H
#define COMMANDLINE_H

#include "window.h"

#include <QtCore/QSize>
#include <QtCore/QString>

// What the command line asks for, checked as far as that is possible without a display.
struct CommandLine
{
    enum class Action { Run, Screenshot, ScreenshotAll, Anatomy, GeometryOf, Benchmark, Answered };

    Action action = Action::Run;
    int exitCode = 0; // when answered
    int page = -1; // index in the registry; -1: the list of all
    KELTheme::Scheme look = KELTheme::Light;
    Window::Language language = Window::English;
    QSize size = QSize(800, 480);
    QString iconFont; // as given; empty: look for the default one
    QString target; // a file, a directory or the name of a control, as the action needs
    QString csv; // where the figures of the benchmark go, too
    QString log;
    bool isPlatformGiven = false;
};

// Parses the arguments without a GUI. A bad one is answered here, with one line on stderr.
CommandLine parseCommandLine(int argc, char *argv[]);

// Prints "kelgdi-gallery: <what>" as one line on stderr; returns the exit code for bad input.
int complain(const QString &what);

#endif
