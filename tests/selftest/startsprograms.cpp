// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Succeeds where QProcess can start a program: it cannot in a process that qemu emulates.

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    return QProcess::execute(QStringLiteral("true"), {}) == 0 ? 0 : 1;
}
