// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"

#include "pageregistry.h"
#include "screens/chargepoint.h"
#include "screens/room.h"
#include "screens/systemdata.h"
#include "window.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtGui/QPaintEvent>

#include <cstdio>

namespace {

constexpr int frameCount = 60;
constexpr int stepCount = 60;
constexpr double nsPerMs = 1e6;

struct Result
{
    const char *screen;
    double msPerFrame;
    int paints; // in all steps
    qint64 paintedPixels;
    double msPerStep;
    qint64 memoryKb;
};

// Counts what is painted into a viewport.
class PaintCounter : public QObject
{
public:
    int paints = 0;
    qint64 pixels = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++paints;
            for (const QRect &rect : static_cast<QPaintEvent *>(event)->region())
                pixels += qint64(rect.width()) * rect.height();
        }
        return false;
    }
};

// What the screen shows goes on by one step.
void step(const Window &window)
{
    if (auto *room = window.findChild<Room *>())
        room->tick();
    if (auto *point = window.findChild<ChargePoint *>())
        point->tick();
    if (auto *data = window.findChild<SystemData *>())
        data->read();
}

// The resident memory of this process; 0 where the kernel does not tell.
qint64 memoryKb()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> pages = file.readAll().split(' ');
    constexpr int kbPerPage = 4;
    return pages.size() > 1 ? pages.at(1).toLongLong() * kbPerPage : 0;
}

Result measure(Window *window, int page)
{
    window->showPage(page);
    QCoreApplication::processEvents();
    PaintCounter counter;
    window->viewport()->installEventFilter(&counter);
    QElapsedTimer clock;
    clock.start();
    for (int frame = 0; frame < frameCount; ++frame)
        window->viewport()->repaint();
    const double msPerFrame = double(clock.nsecsElapsed()) / nsPerMs / frameCount;

    counter.paints = 0;
    counter.pixels = 0;
    clock.restart();
    for (int i = 0; i < stepCount; ++i) {
        step(*window);
        QCoreApplication::processEvents();
    }
    const double msPerStep = double(clock.nsecsElapsed()) / nsPerMs / stepCount;
    return {galleryPages().at(size_t(page)).name,
            msPerFrame,
            counter.paints,
            counter.pixels,
            msPerStep,
            memoryKb()};
}

QByteArray asLine(const Result &result, const QSize &size)
{
    return QStringLiteral("%1,%2x%3,%4,%5,%6,%7,%8,%9,%10\n")
        .arg(QLatin1String(result.screen))
        .arg(size.width())
        .arg(size.height())
        .arg(frameCount)
        .arg(result.msPerFrame, 0, 'f', 3)
        .arg(stepCount)
        .arg(result.paints)
        .arg(result.paintedPixels)
        .arg(result.msPerStep, 0, 'f', 3)
        .arg(result.memoryKb)
        .toLatin1();
}

} // namespace

bool runBenchmark(Window *window, const QString &csvPath)
{
    window->show();
    QByteArray text = "screen,size,frames,ms_per_frame,steps,paints,painted_px,ms_per_step,"
                      "memory_kb\n";
    const std::vector<PageEntry> &pages = galleryPages();
    for (size_t i = 0; i < pages.size(); ++i) {
        if (pages[i].createScreen)
            text += asLine(measure(window, int(i)), window->size());
    }
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    if (csvPath.isEmpty())
        return true;
    QFile file(csvPath);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size()
        && file.flush();
}
