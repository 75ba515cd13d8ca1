// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "quickwindow.h"
#include "screen.h"

#include <KELTheme>
#include <QtWidgets/QPushButton>

/*
 * 1,000 buttons get another look: for the first time, and then again and again, from dark to light
 * and back. What is painted afterwards is not counted.
 */
namespace {

constexpr int count = 1000;
const QByteArray firstScenario = "theme of 1,000 controls, first";
const QByteArray againScenario = "theme of 1,000 controls, another";

// Calls apply(isDark).
template <typename Apply>
void measureThemes(const char *contender, Benchmark::Role role, Apply apply)
{
    Benchmark::measureOnce(firstScenario, contender, role, 1, [&] { apply(true); });
    QCoreApplication::sendPostedEvents();
    const int repetitions = Benchmark::repetitions(200);
    Benchmark::Meter meter;
    for (int i = 0; i < repetitions; ++i) {
        meter.measure([&] { apply(i % 2 != 0); });
        QCoreApplication::sendPostedEvents();
    }
    meter.report(againScenario, contender, role, repetitions);
}

void runParts()
{
    const Screen screen(count);
    KELTheme theme;
    theme.applyTo(screen.view.scene());
    measureThemes("KELTheme", Benchmark::Role::Library, [&](bool isDark) {
        theme.setScheme(isDark ? KELTheme::Dark : KELTheme::HighContrast);
    });
}

template <typename Apply>
void runWidgets(const char *contender, Benchmark::Role role, Apply apply)
{
    QWidget window;
    window.resize(areaOf(count));
    for (int i = 0; i < count; ++i)
        (new QPushButton(caption, &window))->setGeometry(placeOf(i, count));
    window.show();
    QCoreApplication::processEvents();
    measureThemes(contender, role, [&](bool isDark) { apply(&window, isDark); });
}

void applyPalette(QWidget *window, bool isDark)
{
    window->setPalette(QPalette(isDark ? QColor(0x222935) : QColor(Qt::black)));
}

void applyStyleSheet(QWidget *window, bool isDark)
{
    window->setStyleSheet(isDark ? QStringLiteral("QPushButton { background: #222935; }")
                                 : QStringLiteral("QPushButton { background: #000000; }"));
}

void runQuick()
{
    const char *const contender = "Qt Quick Controls 2";
    QuickWindow window(areaOf(count),
                       "Pane { function dark() { palette.button = '#222935'; palette.buttonText = "
                       "'#F2F5F9' } function light() { palette.button = '#000000'; "
                       "palette.buttonText = '#FFFFFF' } Repeater { model: 1000; Button { width: "
                       "100; height: 30; text: 'Settings' } } }");
    if (!window.isReady()) {
        Benchmark::leaveOut(firstScenario, contender, window.reason());
        return;
    }
    measureThemes(contender, Benchmark::Role::Other,
                  [&](bool isDark) { window.call(isDark ? "dark" : "light"); });
}

} // namespace

int main(int argc, char *argv[])
{
    QuickWindow::chooseSoftware();
    const QApplication app(argc, argv);
    runParts();
    runWidgets("Qt Widgets, palette", Benchmark::Role::Reference, applyPalette);
    runWidgets("Qt Widgets, style sheet", Benchmark::Role::Other, applyStyleSheet);
    runQuick();
    return 0;
}
