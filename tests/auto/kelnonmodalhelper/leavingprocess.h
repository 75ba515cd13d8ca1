// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LEAVINGPROCESS_H
#define LEAVINGPROCESS_H

#include "helperstage.h"

#include <QtCore/QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include <sys/wait.h>

// The test program once more, as a process of its own that ends while helpers are at work. It
// prints "left" at the last moment that it has, and is expected to print nothing else.
namespace LeavingProcess {

// Outlive main(), and are destroyed after the application object.
inline std::unique_ptr<KELNonModalhelper> helperOfTheProcess;
inline std::unique_ptr<HelperStage::PanelInWindow> stageOfTheProcess;
// Never destroyed; here no leak check takes them for lost.
inline std::vector<QWidget *> windowsLeftOpen;

inline void leaveOpen(QWidget *widget, Qt::WindowFlags flags)
{
    widget->setWindowFlags(flags);
    widget->setGeometry(30, 30, 200, 100);
    windowsLeftOpen.push_back(widget);
    KELNonModalhelper::show(widget, KELNonModalhelper::TriggerScreen, true, 50);
}

inline void leavePopupsOpen()
{
    leaveOpen(new QWidget, Qt::Window);
    leaveOpen(new QWidget, Qt::Popup);
    leaveOpen(new QWidget, Qt::Tool);
    leaveOpen(new QWidget(windowsLeftOpen.front()), Qt::Widget);
    HelperStage::sendMouse(windowsLeftOpen.front(), QPointF(1, 1), QPointF(700, 1));
}

inline void outlivesTheApplication(int argc, char *argv[])
{
    std::unique_ptr<KELNonModalhelper> helper;
    {
        QApplication app(argc, argv);
        HelperStage::PanelInWindow stage;
        helper = std::make_unique<KELNonModalhelper>(stage.panel);
    }
}

inline void outlivesTheApplicationAtWork(int argc, char *argv[])
{
    std::unique_ptr<KELNonModalhelper> helper;
    {
        QApplication app(argc, argv);
        HelperStage::PanelInWindow stage;
        helper = std::make_unique<KELNonModalhelper>(stage.panel);
        helper->enableTime(HelperStage::longPeriodMs);
        stage.pressOutside();
    }
    helper->stopTime();
    helper->setTriggerSource(HelperStage::none);
    helper->ignoreOnce();
    helper->show();
}

inline void outlivesOneApplicationOfTwo(int argc, char *argv[])
{
    std::unique_ptr<KELNonModalhelper> helper;
    {
        QApplication app(argc, argv);
        HelperStage::PanelInWindow stage;
        helper = std::make_unique<KELNonModalhelper>(stage.panel);
    }
    QApplication app(argc, argv);
    HelperStage::PanelInWindow stage;
    stage.pressOutside();
    helper.reset();
    stage.pressOutside();
}

inline void madeWithoutAnApplication(int /*argc*/, char * /*argv*/[])
{
    KELNonModalhelper helper(nullptr);
    helper.enableTime(5);
    helper.show();
}

inline void destroyedAfterMain(int argc, char *argv[])
{
    QApplication app(argc, argv);
    HelperStage::PanelInWindow stage;
    helperOfTheProcess = std::make_unique<KELNonModalhelper>(stage.panel);
    helperOfTheProcess->enableTime(HelperStage::longPeriodMs);
    stage.pressOutside();
}

inline void staticObject(int argc, char *argv[])
{
    QApplication app(argc, argv);
    static KELNonModalhelper helper(nullptr);
    helper.enableTime(1);
    helper.startTime();
}

inline void popupsLeftOpen(int argc, char *argv[])
{
    QApplication app(argc, argv);
    leavePopupsOpen();
}

inline void popupsLeftOpenByExit(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QTimer::singleShot(0, &app, [] {
        leavePopupsOpen();
        std::exit(EXIT_SUCCESS);
    });
    QCoreApplication::exec();
}

inline void exitInASlotOfTriggered(int argc, char *argv[])
{
    QApplication app(argc, argv);
    stageOfTheProcess = std::make_unique<HelperStage::PanelInWindow>();
    helperOfTheProcess = std::make_unique<KELNonModalhelper>(stageOfTheProcess->panel);
    QObject::connect(helperOfTheProcess.get(), &KELNonModalhelper::triggered, &app, [] {
        leavePopupsOpen();
        // Widgets are not destroyed after main().
        windowsLeftOpen.push_back(&stageOfTheProcess.release()->window);
        std::exit(EXIT_SUCCESS);
    });
    stageOfTheProcess->pressOutside();
    QCoreApplication::exec();
}

inline void quitWithAHideScheduled(int argc, char *argv[])
{
    QApplication app(argc, argv);
    HelperStage::PanelInWindow stage;
    KELNonModalhelper::show(stage.panel, HelperStage::parent, true, HelperStage::longPeriodMs);
    QTimer::singleShot(0, &app, [&] {
        stage.pressOutside();
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
}

inline void quitByTheLastWindow(int argc, char *argv[])
{
    QApplication app(argc, argv);
    HelperStage::Window window(QRect(20, 30, 400, 300));
    KELNonModalhelper::show(&window, HelperStage::screen, true, 1);
    QTimer::singleShot(HelperStage::patienceMs, &app, [] { std::_Exit(EXIT_FAILURE); });
    // A window that is hidden does not end the application, one that is closed does.
    auto *const closing = new HelperStage::Window(QRect(20, 30, 100, 100));
    closing->setAttribute(Qt::WA_DeleteOnClose);
    closing->show();
    KELNonModalhelper::show(closing, HelperStage::screen, false, 0);
    QTimer::singleShot(20, closing, &QWidget::close);
    QCoreApplication::exec();
}

struct Way
{
    const char *name;
    void (*run)(int argc, char *argv[]);
};

inline const Way ways[] = {
    {"outlives-the-application", outlivesTheApplication},
    {"outlives-the-application-at-work", outlivesTheApplicationAtWork},
    {"outlives-one-application-of-two", outlivesOneApplicationOfTwo},
    {"made-without-an-application", madeWithoutAnApplication},
    {"destroyed-after-main", destroyedAfterMain},
    {"static-object", staticObject},
    {"popups-left-open", popupsLeftOpen},
    {"popups-left-open-by-exit", popupsLeftOpenByExit},
    {"exit-in-a-slot-of-triggered", exitInASlotOfTriggered},
    {"quit-with-a-hide-scheduled", quitWithAHideScheduled},
    {"quit-by-the-last-window", quitByTheLastWindow},
};

inline int run(const char *name, int argc, char *argv[])
{
    // Registered first, so it comes after the static objects made later.
    std::atexit([] { std::puts("left"); });
    for (const Way &way : ways) {
        if (qstrcmp(way.name, name) == 0) {
            way.run(argc, argv);
            return EXIT_SUCCESS;
        }
    }
    return EXIT_FAILURE;
}

struct Result
{
    QString output; // of both streams, without what the offscreen platform cannot do
    int exitCode = -1;
};

inline Result start(const QString &way)
{
    const QTemporaryDir runtimeDir;
    const QByteArray command = "XDG_RUNTIME_DIR='" + QFile::encodeName(runtimeDir.path()) + "' "
        + qgetenv("KEL_EMULATOR") + " '"
        + QFile::encodeName(QCoreApplication::applicationFilePath()) + "' --leave " + way.toLatin1()
        + " 2>&1";
    Result result;
    // QProcess does not work in an emulated process.
    FILE *const process = popen(command.constData(), "r");
    if (!process)
        return result;
    char line[1024];
    while (std::fgets(line, sizeof line, process)) {
        if (qstrncmp(line, "This plugin does not support ", 29) != 0)
            result.output += QString::fromLocal8Bit(line);
    }
    const int status = pclose(process);
    if (WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    return result;
}

} // namespace LeavingProcess

#endif
