// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "anatomy.h"
#include "benchmark.h"
#include "commandline.h"
#include "eventlog.h"
#include "iconset.h"
#include "snapshot.h"
#include "window.h"

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

using Action = CommandLine::Action;

void chooseOffscreen(const CommandLine &line)
{
    if (line.action == Action::Run || line.isPlatformGiven)
        return;
    for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

bool openLog(const QString &path, QFile *file)
{
    if (path == QLatin1String("-"))
        return file->open(stdout, QIODevice::WriteOnly);
    file->setFileName(path);
    return file->open(QIODevice::WriteOnly | QIODevice::Truncate);
}

// A font that was asked for must work; the default one may be missing.
bool installIcons(const QString &asked, IconSet *icons)
{
    if (!asked.isEmpty())
        return icons->install(asked);
    const QString path = IconSet::defaultPath();
    if (path.isEmpty() || !icons->install(path)) {
        std::fputs("kelgdi-gallery: warning: no icon font, install fonts-font-awesome or use "
                   "--icon-font\n",
                   stderr);
    }
    return true;
}

int printGeometry(const Window &window, const QString &name)
{
    const QRect rect = window.geometryOf(name);
    if (rect.isNull())
        return complain(QStringLiteral("no control '%1' on this page").arg(name));
    std::printf("%d,%d %dx%d\n", rect.x(), rect.y(), rect.width(), rect.height());
    return 0;
}

// The pictures have the same fonts on every machine.
int saveAnatomy(const QString &directory)
{
    IconSet icons;
    if (!icons.install(Anatomy::fontPath()))
        return complain(QStringLiteral("no DejaVu Sans, install fonts-dejavu-core"));
    const QString failed = Anatomy::saveAll(directory);
    return failed.isEmpty() ? 0 : complain(QStringLiteral("cannot write '%1'").arg(failed));
}

int perform(const CommandLine &line, Window *window)
{
    switch (line.action) {
    case Action::Screenshot:
        return saveScreenshot(window, line.target)
            ? 0
            : complain(QStringLiteral("cannot write '%1'").arg(line.target));
    case Action::ScreenshotAll: {
        const QString failed = saveAllScreenshots(window, line.target);
        return failed.isEmpty() ? 0 : complain(QStringLiteral("cannot write '%1'").arg(failed));
    }
    case Action::GeometryOf:
        return printGeometry(*window, line.target);
    case Action::Benchmark:
        return runBenchmark(window, line.csv)
            ? 0
            : complain(QStringLiteral("cannot write '%1'").arg(line.csv));
    case Action::Run:
    case Action::Anatomy:
    case Action::Answered:
        break;
    }
    window->show();
    window->activateWindow(); // without a window manager nobody else gives it the keyboard
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    const CommandLine line = parseCommandLine(argc, argv);
    if (line.action == Action::Answered)
        return line.exitCode;

    chooseOffscreen(line);
    const QApplication app(argc, argv);
    if (line.action == Action::Anatomy)
        return saveAnatomy(line.target);
    IconSet icons;
    if (!installIcons(line.iconFont, &icons))
        return complain(QStringLiteral("cannot use '%1' as icon font").arg(line.iconFont));
    QFile logFile;
    if (!line.log.isEmpty() && !openLog(line.log, &logFile))
        return complain(QStringLiteral("cannot write '%1'").arg(line.log));
    EventLog log(logFile.isOpen() ? &logFile : nullptr);
    Window window(line.size, &log, &icons);
    window.setLook(line.look);
    window.setLanguage(line.language);
    window.showPage(line.page);
    return perform(line, &window);
}
