// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PROGRAM_H
#define PROGRAM_H

#include <QtCore/QStringList>

struct ProgramEnd
{
    QString output; // of both streams, without what Qt says about the machine
    int exitCode = -1;
};

// Runs a program of the tests to its end. A leak found by the sanitizers is an exit code and a
// message, too.
ProgramEnd runProgram(const QString &path, const QStringList &arguments);

#endif
