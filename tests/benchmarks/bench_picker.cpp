// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "quickwindow.h"

#include <KELPicker>
#include <KELScreen>
#include <QtCore/QStringListModel>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListView>

/*
 * A choice of 1,000 entries is opened and painted: for the first time, and again.
 */
namespace {

constexpr int entryCount = 1000;
constexpr QSize screenSize(800, 480);
const QByteArray firstScenario = "picker of 1,000 entries, opened first";
const QByteArray againScenario = "picker of 1,000 entries, opened again";

QStringList entries()
{
    QStringList texts;
    for (int row = 0; row < entryCount; ++row)
        texts.append(QStringLiteral("Entry %1").arg(row));
    return texts;
}

template <typename Open, typename Close>
void measureOpening(const char *contender, Benchmark::Role role, Open open, Close close)
{
    Benchmark::measureOnce(firstScenario, contender, role, 1, open);
    close();
    open();
    close();
    const int repetitions = Benchmark::repetitions(300);
    Benchmark::Meter meter;
    for (int i = 0; i < repetitions; ++i) {
        meter.measure(open);
        close();
    }
    meter.report(againScenario, contender, role, repetitions);
}

void paintPending()
{
    QCoreApplication::sendPostedEvents();
}

void runParts()
{
    KELScreen screen;
    screen.resize(screenSize);
    auto *page = new KELPage;
    auto *picker = new KELPicker(page);
    QStringListModel model(entries());
    picker->setModel(&model);
    picker->setGeometry(20, 20, 300, 64);
    screen.push(page);
    screen.show();
    QCoreApplication::processEvents();
    measureOpening(
        "KELPicker", Benchmark::Role::Library,
        [&] {
            picker->open();
            paintPending();
        },
        [&] {
            picker->close();
            QCoreApplication::processEvents();
        });
}

void runWidgets()
{
    QWidget window;
    window.resize(screenSize);
    QComboBox box(&window);
    box.setGeometry(20, 20, 300, 64);
    box.addItems(entries());
    window.show();
    QCoreApplication::processEvents();
    measureOpening(
        "Qt Widgets", Benchmark::Role::Reference,
        [&] {
            box.showPopup();
            paintPending();
        },
        [&] {
            box.hidePopup();
            QCoreApplication::processEvents();
        });
}

void runQuick()
{
    const char *const contender = "Qt Quick Controls 2";
    QuickWindow window(screenSize,
                       "Item { function open() { box.popup.open() } function close() { "
                       "box.popup.close() } ComboBox { id: box; x: 20; y: 20; width: 300; height: "
                       "64; model: 1000; popup.enter: null; popup.exit: null } }");
    if (!window.isReady()) {
        Benchmark::leaveOut(firstScenario, contender, window.reason());
        return;
    }
    window.paintChanged();
    measureOpening(
        contender, Benchmark::Role::Other,
        [&] {
            window.call("open");
            window.paintChanged();
        },
        [&] {
            window.call("close");
            QCoreApplication::processEvents();
        });
}

} // namespace

int main(int argc, char *argv[])
{
    QuickWindow::chooseSoftware();
    const QApplication app(argc, argv);
    runParts();
    runWidgets();
    runQuick();
    return 0;
}
