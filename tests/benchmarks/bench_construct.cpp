// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bareitem.h"
#include "benchmark.h"

#include <KELCheckBox>
#include <KELComboBox>
#include <KELLabel>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRadioBox>
#include <KELSlideControl>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFrame>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>

#include <malloc.h>

#include <memory>
#include <vector>

namespace {

class Scenario
{
public:
    explicit Scenario(const char *what) : m_what(what) { }

    // make() returns a new contender.
    template <typename Make>
    void run(const char *contender, Benchmark::Role role, Make make) const
    {
        if (!Benchmark::isWanted(role))
            return;
        delete make(); // what is made once is made now
        const QByteArray bytes = heapBytes(make);
        measure(contender, role, make);
        Benchmark::printValue("construct, " + m_what, contender, "heap bytes", bytes);
    }

    template <typename Control, typename Widget>
    void run(int parts = 1) const
    {
        run("QGraphicsObject", Benchmark::Role::Reference,
            [parts] { return BareItem::create(parts); });
        run("KELGdiControl", Benchmark::Role::Library, [] { return new Control; });
        run("Qt Widgets", Benchmark::Role::Other, [] { return new Widget; });
    }

private:
    template <typename Make>
    static QByteArray heapBytes(Make make)
    {
        // What the allocator keeps for itself counts little among this many.
        constexpr std::size_t count = 500;
        std::vector<std::unique_ptr<QObject>> contenders(count);
        const std::size_t before = mallinfo2().uordblks;
        for (std::unique_ptr<QObject> &place : contenders)
            place.reset(make());
        return QByteArray::number(quint64((mallinfo2().uordblks - before) / count));
    }

    // One after the other: the allocator then always finds what it has just been given back.
    template <typename Make>
    void measure(const char *contender, Benchmark::Role role, Make make) const
    {
        const int count = Benchmark::repetitions(10000);
        Benchmark::Meter constructing;
        for (int i = 0; i < count; ++i) {
            QObject *object = nullptr;
            constructing.measure([&] { object = make(); });
            delete object;
        }
        constructing.report("construct, " + m_what, contender, role, count);
        Benchmark::Meter destroying;
        for (int i = 0; i < count; ++i) {
            const QObject *const object = make();
            destroying.measure([object] { delete object; });
        }
        destroying.report("destroy, " + m_what, contender, role, count);
    }

    const QByteArray m_what;
};

constexpr int comboParts = 5; // the box, its button with two labels, the list

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    Benchmark::readArguments(argc, argv);
    Scenario("base").run<KELRoundRectControl, QFrame>();
    Scenario("push button").run<KELPushButton, QPushButton>();
    Scenario("label").run<KELLabel, QLabel>();
    Scenario("check box").run<KELCheckBox, QCheckBox>();
    Scenario("radio box").run<KELRadioBox, QRadioButton>();
    Scenario("progress bar").run<KELProcessBar, QProgressBar>();
    Scenario("slider").run<KELSlideControl, QSlider>();
    Scenario("combo box").run<KELComboBox, QComboBox>(comboParts);
    return 0;
}
