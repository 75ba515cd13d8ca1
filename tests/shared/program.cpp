// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "program.h"

#include <QtCore/QFile>

#include <cstdio>

#include <sys/wait.h>

namespace {

QByteArray quoted(const QString &word)
{
    return " '" + QFile::encodeName(word) + '\'';
}

} // namespace

// QProcess does not work under an emulator.
ProgramEnd runProgram(const QString &path, const QStringList &arguments)
{
    QByteArray command = qgetenv("KEL_EMULATOR") + quoted(path);
    for (const QString &argument : arguments)
        command += quoted(argument);
    ProgramEnd end;
    FILE *const pipe = popen((command + " 2>&1").constData(), "r");
    if (!pipe)
        return end;
    QByteArray line(4096, '\0');
    while (std::fgets(line.data(), line.size(), pipe)) {
        const QString text = QString::fromLocal8Bit(line.constData());
        if (!text.startsWith(QLatin1String("This plugin does not support "))
            && !text.startsWith(QLatin1String("QStandardPaths: ")))
            end.output += text;
    }
    const int status = pclose(pipe);
    if (WIFEXITED(status))
        end.exitCode = WEXITSTATUS(status);
    return end;
}
