// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "quickwindow.h"
#include "screen.h"

#include <QtGui/QImage>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QGraphicsProxyWidget>
#include <QtWidgets/QPushButton>

#include <algorithm>
#include <vector>

namespace {

constexpr int qtCacheLimitKb = 10240;
constexpr int roomyCacheLimitKb = 1024 * 1024;

QByteArray numberPainted()
{
    return QByteArray::number(qulonglong(Button::painted.size()));
}

class Repaint
{
public:
    explicit Repaint(int count) :
        m_count(count), m_name("repaint, " + QByteArray::number(count) + " push buttons")
    { }

    void run() const
    {
        runFloor();
        runLibrary();
        runLibraryInLittleRoom();
        if (m_count > 1000) // takes minutes to build
            return;
        runWidgets();
        runProxies();
        runQuick();
    }

private:
    template <typename Run>
    void measure(const char *contender, Benchmark::Role role, Run run) const
    {
        const int repetitions = Benchmark::repetitions(3);
        run();
        const qint64 before = Benchmark::pageFaults();
        Benchmark::measureOnce(m_name, contender, role, repetitions, [&run, repetitions] {
            for (int i = 0; i < repetitions; ++i)
                run();
        });
        if (!RUNNING_ON_VALGRIND) {
            Benchmark::printValue(
                m_name, contender, "page faults",
                QByteArray::number((Benchmark::pageFaults() - before) / repetitions));
        }
    }

    template <typename Run>
    void measureLibrary(const char *contender, Benchmark::Role role, Run run) const
    {
        measure(contender, role, [&run] {
            Button::painted.clear();
            run();
        });
        Benchmark::printValue(m_name, contender, "painted", numberPainted());
    }

    void runFloor() const
    {
        std::vector<HandDrawing::PushButton> drawings;
        drawings.reserve(std::size_t(m_count));
        for (int i = 0; i < m_count; ++i)
            drawings.emplace_back(placeOf(i, m_count), caption);
        QImage image(areaOf(m_count), QImage::Format_ARGB32_Premultiplied);
        measure("QPainter", Benchmark::Role::Floor, [&] {
            QPainter painter(&image);
            painter.fillRect(image.rect(), Qt::white);
            for (const HandDrawing::PushButton &drawing : drawings)
                drawing.draw(&painter);
        });
    }

    void runLibrary() const
    {
        Screen screen(m_count);
        measureLibrary("KELGdiControl, all changed", Benchmark::Role::Library,
                       [&] { View::paintChanged(screen.buttons); });
        measureLibrary("KELGdiControl, none changed", Benchmark::Role::Library,
                       [&] { screen.view.paintAgain(); });
    }

    void runLibraryInLittleRoom() const
    {
        QPixmapCache::setCacheLimit(qtCacheLimitKb);
        Screen screen(m_count);
        measureLibrary("KELGdiControl, all changed, 10 MB", Benchmark::Role::Library,
                       [&] { View::paintChanged(screen.buttons); });
        measureLibrary("KELGdiControl, none changed, 10 MB", Benchmark::Role::Library,
                       [&] { screen.view.paintAgain(); });
        QPixmapCache::setCacheLimit(roomyCacheLimitKb);
    }

    void runWidgets() const
    {
        QWidget window;
        window.resize(areaOf(m_count));
        std::vector<QWidget *> buttons;
        for (int i = 0; i < m_count; ++i) {
            buttons.push_back(new QPushButton(caption, &window));
            buttons.back()->setGeometry(placeOf(i, m_count));
        }
        window.show();
        QCoreApplication::processEvents();
        measure("Qt Widgets, all changed", Benchmark::Role::Other, [&] {
            for (QWidget *button : buttons)
                button->update();
            View::paintPending();
        });
    }

    void runProxies() const
    {
        View view(areaOf(m_count));
        std::vector<QGraphicsItem *> proxies;
        for (int i = 0; i < m_count; ++i) {
            auto *const button = new QPushButton(caption);
            button->setGeometry(placeOf(i, m_count));
            proxies.push_back(view.scene()->addWidget(button));
        }
        view.open();
        measure("QGraphicsProxyWidget, all changed", Benchmark::Role::Other,
                [&] { View::paintChanged(proxies); });
        measure("QGraphicsProxyWidget, none changed", Benchmark::Role::Other,
                [&] { view.paintAgain(); });
    }

    void runQuick() const
    {
        static const QByteArray contender = "Qt Quick Controls 2, all changed";
        QByteArray item
            = "Grid { columns: COLUMNS; Repeater { model: COUNT; Button { width: 100; height: 30; "
              "text: 'Settings' } } }";
        item.replace("COLUMNS", QByteArray::number(columnsFor(m_count)));
        item.replace("COUNT", QByteArray::number(m_count));
        QuickWindow window(areaOf(m_count), item);
        if (window.isReady())
            measure(contender, Benchmark::Role::Other, [&] { window.paint(); });
        else
            Benchmark::leaveOut(m_name, contender, window.reason());
    }

    const int m_count;
    const QByteArray m_name;
};

// How many controls find room in Qt's own cache: with one more, all are painted for every frame.
bool findsRoom(int count, const QSize &size)
{
    QPixmapCache::clear();
    Screen screen(count, size);
    screen.view.paintAgain();
    Button::painted.clear();
    screen.view.paintAgain();
    return Button::painted.empty();
}

void findRoom(const QSize &size)
{
    QPixmapCache::setCacheLimit(qtCacheLimitKb);
    int some = 1;
    int tooMany = 2000;
    while (tooMany - some > 1) {
        const int middle = (some + tooMany) / 2;
        (findsRoom(middle, size) ? some : tooMany) = middle;
    }
    QPixmapCache::setCacheLimit(roomyCacheLimitKb);
    Benchmark::printValue("room in Qt's own pixmap cache of 10 MB",
                          QByteArray::number(size.width()) + " x "
                              + QByteArray::number(size.height()),
                          "controls", QByteArray::number(some));
}

void measurePress(int count)
{
    const Screen screen(count);
    const QByteArray contender = QByteArray::number(count) + " push buttons";
    const int repetitions = Benchmark::repetitions(1000);
    for (int warmUp = 0; warmUp < 3; ++warmUp) {
        for (int i = 0; i < std::min(count, repetitions + 2); ++i) {
            screen.press(i);
            screen.release(i);
        }
    }
    screen.press(1); // the first one that is selected before
    screen.release(1);
    Benchmark::Meter meter;
    bool areTheTwo = true;
    for (int i = 0; i < repetitions; ++i) {
        const int selected = (i + 1) % count;
        const int pressed = (i + 2) % count;
        Button::painted.clear();
        meter.measure([&] { screen.press(pressed); });
        const auto isPainted = [&screen](int index) {
            return std::count(Button::painted.begin(), Button::painted.end(),
                              screen.buttons.at(std::size_t(index)))
                == 1;
        };
        areTheTwo = areTheTwo && Button::painted.size() == 2 && isPainted(selected)
            && isPainted(pressed);
        screen.release(pressed);
    }
    meter.report("press", contender,
                 count == 100 ? Benchmark::Role::Reference : Benchmark::Role::Library, repetitions);
    Benchmark::printValue("press", contender,
                          "painted are the pressed one and the one selected before",
                          areTheTwo ? "yes" : "no");
}

} // namespace

int main(int argc, char *argv[])
{
    QuickWindow::chooseSoftware();
    const QApplication app(argc, argv);
    QPixmapCache::setCacheLimit(roomyCacheLimitKb);
    for (const int count : {100, 1000, 10000}) {
        Repaint(count).run();
        measurePress(count);
    }
    if (!RUNNING_ON_VALGRIND) {
        for (const QSize &size : {QSize(100, 30), QSize(200, 60), QSize(400, 240), QSize(800, 480)})
            findRoom(size);
    }
    return 0;
}
