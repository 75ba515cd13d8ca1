// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "quickwindow.h"
#include "screen.h"
#include "shownpicture.h"

#include <KELTheme>
#include <QtWidgets/QPushButton>

/*
 * 1,000 buttons get another look, from dark to light and back: until they have it, and until it is
 * painted.
 */
namespace {

constexpr int count = 1000;
const QByteArray appliedScenario = "theme of 1,000 controls, applied";
const QByteArray paintedScenario = "theme of 1,000 controls, applied and painted";

template <typename Apply>
void measureThemes(const QByteArray &scenario, const char *contender, Benchmark::Role role,
                   Apply apply)
{
    const int repetitions = 2 * Benchmark::repetitions(5);
    Benchmark::Meter meter;
    for (int i = 0; i < repetitions; ++i)
        apply(&meter, i % 2 != 0);
    meter.report(scenario, contender, role, repetitions);
}

// Calls apply(isDark), paint() and picture(), which is what is on the screen.
template <typename Apply, typename Paint, typename Picture>
void measureBoth(const char *contender, Benchmark::Role role, Apply apply, Paint paint,
                 Picture picture)
{
    QImage looks[2];
    for (const bool isDark : {false, true, false, true}) {
        apply(isDark);
        paint();
        looks[isDark] = picture();
    }
    measureThemes(appliedScenario, contender, role, [&](Benchmark::Meter *meter, bool isDark) {
        meter->measure([&] { apply(isDark); });
        paint();
    });
    measureThemes(paintedScenario, contender, role, [&](Benchmark::Meter *meter, bool isDark) {
        meter->measure([&] {
            apply(isDark);
            paint();
        });
    });
    bool isOther = picture() == looks[true];
    for (int i = 0; i < count; ++i) {
        const QPoint ground = placeOf(i, count).topLeft() + QPoint(10, 15);
        isOther = isOther && looks[0].pixel(ground) != looks[1].pixel(ground);
    }
    Benchmark::printValue(paintedScenario, contender, "all controls painted",
                          isOther ? "yes" : "no");
}

void runParts()
{
    const Screen screen(count);
    KELTheme theme;
    theme.applyTo(screen.view.scene());
    measureBoth(
        "KELTheme", Benchmark::Role::Library,
        [&](bool isDark) { theme.setScheme(isDark ? KELTheme::Dark : KELTheme::HighContrast); },
        View::paintPending, [&] { return shownBy(screen.view); });
}

template <typename Apply>
void runWidgets(const char *contender, Apply apply)
{
    QWidget window;
    window.resize(areaOf(count));
    for (int i = 0; i < count; ++i)
        (new QPushButton(caption, &window))->setGeometry(placeOf(i, count));
    window.show();
    QCoreApplication::processEvents();
    measureBoth(
        contender, Benchmark::Role::Reference, [&](bool isDark) { apply(&window, isDark); },
        View::paintPending, [&] { return shownBy(window); });
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
    const QByteArray columns = QByteArray::number(columnsFor(count));
    QuickWindow window(
        areaOf(count),
        "Pane { padding: 0; function dark() { palette.button = '#222935'; palette.buttonText = "
        "'#F2F5F9' } function light() { palette.button = '#000000'; palette.buttonText = "
        "'#FFFFFF' } Repeater { model: 1000; Button { x: index % "
            + columns + " * 100; y: Math.floor(index / " + columns
            + ") * 30; width: 100; height: 30; text: 'Settings' } } }");
    if (!window.isReady()) {
        Benchmark::leaveOut(paintedScenario, contender, window.reason());
        return;
    }
    measureBoth(
        contender, Benchmark::Role::Reference,
        [&](bool isDark) { window.call(isDark ? "dark" : "light"); },
        [&] { window.paintChanged(); }, [&] { return window.picture(); });
}

} // namespace

int main(int argc, char *argv[])
{
    QuickWindow::chooseSoftware();
    const QApplication app(argc, argv);
    chooseFont();
    runParts();
    runWidgets("Qt Widgets, palette", applyPalette);
    runWidgets("Qt Widgets, style sheet", applyStyleSheet);
    runQuick();
    return 0;
}
