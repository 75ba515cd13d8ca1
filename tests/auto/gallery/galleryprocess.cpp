// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "galleryprocess.h"

namespace {

constexpr int patienceMs = 120000;

} // namespace

QString Gallery::program()
{
    return qEnvironmentVariable("KEL_GALLERY", QStringLiteral("kelgdi-gallery"));
}

QProcessEnvironment Gallery::environment(const QString &runtimeDir)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_LOGGING_RULES",
                             "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"}) {
        environment.remove(QLatin1String(name));
    }
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeDir);
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}

Gallery::Result Gallery::run(const QStringList &arguments, const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program(), arguments);
    Result result;
    if (!process.waitForFinished(patienceMs))
        process.kill();
    else if (process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.errorLines = QString::fromUtf8(process.readAllStandardError()).split(QLatin1Char('\n'));
    // What follows the last line end is no line.
    if (result.errorLines.constLast().isEmpty())
        result.errorLines.removeLast();
    return result;
}
