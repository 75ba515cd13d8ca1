// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LEAVINGPROCESS_H
#define LEAVINGPROCESS_H

#include "helperstage.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

// The test program once more, as a process of its own that ends while helpers are at work. It
// prints "left" at the last moment that it has, and is expected to print nothing else.
namespace LeavingProcess {

// Outlives main(), and is destroyed after the application object.
inline std::unique_ptr<Helper> helperOfTheProcess;
// Never destroyed; here no leak check takes them for lost.
inline HelperStage *stageOfTheProcess = nullptr;
inline std::vector<QWidget *> windowsLeftOpen;

inline void leaveOpen(QWidget *widget, Qt::WindowFlags flags)
{
    widget->setWindowFlags(flags);
    widget->setGeometry(30, 30, 200, 100);
    windowsLeftOpen.push_back(widget);
    Helper::show(widget, Helper::TriggerScreen, true, 50);
}

inline void leavePopupsOpen()
{
    leaveOpen(new QWidget, Qt::Window);
    leaveOpen(new QWidget, Qt::Popup);
    leaveOpen(new QWidget, Qt::Tool);
    leaveOpen(new QWidget(windowsLeftOpen.front()), Qt::Widget);
    sendMouse(windowsLeftOpen.front(), QPointF(1, 1), QPointF(700, 1));
}

// A helper that outlives the application object.
inline std::unique_ptr<Helper> runApplication(int argc, char *argv[], bool isAtWork)
{
    QApplication app(argc, argv);
    HelperStage stage(Maker::Nobody);
    auto helper = std::make_unique<Helper>(stage.panel);
    if (isAtWork) {
        helper->enableTime(longPeriodMs);
        stage.pressOutside();
    }
    return helper;
}

struct Ending
{
    const char *name;
    void (*run)(int argc, char *argv[]);
};

inline const std::vector<Ending> endings = {
    {"outlives the application", [](int argc, char *argv[]) { runApplication(argc, argv, false); }},
    {"outlives the application at work",
     [](int argc, char *argv[]) {
         const auto helper = runApplication(argc, argv, true);
         helper->stopTime();
         helper->setTriggerSource(Helper::TriggerNone);
         helper->ignoreOnce();
         helper->show();
     }},
    {"outlives one application of two",
     [](int argc, char *argv[]) {
         auto helper = runApplication(argc, argv, false);
         const QApplication app(argc, argv);
         HelperStage stage(Maker::Nobody);
         stage.pressOutside();
         helper.reset();
         stage.pressOutside();
     }},
    {"made without an application",
     [](int /*argc*/, char * /*argv*/[]) {
         Helper helper(nullptr);
         helper.enableTime(5);
         helper.show();
     }},
    {"destroyed after main",
     [](int argc, char *argv[]) { helperOfTheProcess = runApplication(argc, argv, true); }},
    {"static object",
     [](int argc, char *argv[]) {
         const QApplication app(argc, argv);
         static Helper helper(nullptr);
         helper.enableTime(1);
         helper.startTime();
     }},
    {"popups left open",
     [](int argc, char *argv[]) {
         const QApplication app(argc, argv);
         leavePopupsOpen();
     }},
    {"popups left open by exit()",
     [](int argc, char *argv[]) {
         QApplication app(argc, argv);
         QTimer::singleShot(0, &app, [] {
             leavePopupsOpen();
             std::exit(EXIT_SUCCESS);
         });
         QCoreApplication::exec();
     }},
    {"exit() in a slot of triggered()",
     [](int argc, char *argv[]) {
         QApplication app(argc, argv);
         stageOfTheProcess = new HelperStage(Maker::Nobody);
         helperOfTheProcess = std::make_unique<Helper>(stageOfTheProcess->panel);
         QObject::connect(helperOfTheProcess.get(), &Helper::triggered, &app, [] {
             leavePopupsOpen();
             std::exit(EXIT_SUCCESS);
         });
         stageOfTheProcess->pressOutside();
         QCoreApplication::exec();
     }},
    {"quit with a hide scheduled",
     [](int argc, char *argv[]) {
         QApplication app(argc, argv);
         HelperStage stage(Maker::StaticShow, longPeriodMs);
         QTimer::singleShot(0, &app, [&] {
             stage.pressOutside();
             QCoreApplication::quit();
         });
         QCoreApplication::exec();
     }},
    {"quit by the last window",
     [](int argc, char *argv[]) {
         QApplication app(argc, argv);
         Window window(QRect(20, 30, 400, 300));
         Helper::show(&window, Helper::TriggerScreen, true, 1);
         QTimer::singleShot(patienceMs, &app, [] { std::_Exit(EXIT_FAILURE); });
         // A window that is hidden does not end the application, one that is closed does.
         auto *const closing = new Window(QRect(20, 30, 100, 100));
         closing->setAttribute(Qt::WA_DeleteOnClose);
         closing->show();
         Helper::show(closing, Helper::TriggerScreen, false, 0);
         QTimer::singleShot(20, closing, &QWidget::close);
         QCoreApplication::exec();
     }},
};

// With the place of an ending.
inline void run(int argc, char *argv[])
{
    // Registered first, so it comes after the static objects made later.
    std::atexit([] { std::puts("left"); });
    endings.at(size_t(std::atoi(argv[2]))).run(argc, argv);
}

} // namespace LeavingProcess

#endif
