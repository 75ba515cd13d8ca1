// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// A screen of 1280 x 800 full of buttons of 100 x 30, as docs/guide/board.md describes it: what
// QPixmapCache's limit means for a frame that only shows again what is there, and for one button
// that changes.

#include "benchmark.h"

#include <KELPushButton>
#include <QtGui/QPixmapCache>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <vector>

namespace {

constexpr QSize screen(1280, 800);
constexpr QSize buttonSize(100, 30);
constexpr int columns = screen.width() / buttonSize.width();
constexpr int rows = screen.height() / buttonSize.height();
constexpr int buttons = columns * rows;

// Counts its paints: a cached button does not paint when its picture is there.
class Button : public KELPushButton
{
public:
    explicit Button(int *paints) : m_paints(paints) { }

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        ++*m_paints;
        KELPushButton::paint(painter, option, widget);
    }

private:
    int *const m_paints;
};

class Screen
{
public:
    explicit Screen(QGraphicsItem::CacheMode mode)
    {
        m_view.setFrameShape(QFrame::NoFrame);
        m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view.setSceneRect(0, 0, screen.width(), screen.height());
        for (int i = 0; i < buttons; ++i) {
            auto *button = new Button(&m_paints);
            button->setCacheMode(mode);
            button->setboundRect((i % columns) * buttonSize.width(),
                                 (i / columns) * buttonSize.height(), buttonSize.width(),
                                 buttonSize.height());
            button->setText(QStringLiteral("Channel %1").arg(i));
            m_scene.addItem(button);
            m_buttons.push_back(button);
        }
        m_view.resize(screen);
        m_view.show();
        QCoreApplication::processEvents();
    }

    // One frame for as many repetitions as there are buttons: the numbers are those of one button.
    void expose(int index)
    {
        if (index % buttons == 0)
            m_view.viewport()->repaint();
    }

    void change(int index)
    {
        const int before = m_paints;
        m_buttons[static_cast<std::size_t>(index % buttons)]->update();
        QCoreApplication::processEvents();
        if (m_paints == before)
            qFatal("the button was not painted");
    }

    int paints() const { return m_paints; }

private:
    int m_paints = 0;
    QGraphicsScene m_scene;
    QGraphicsView m_view{&m_scene};
    std::vector<KELPushButton *> m_buttons; // the scene owns them
};

void run(const QByteArray &contender, Benchmark::Role role, QGraphicsItem::CacheMode mode,
         int limitKb, int repetitions)
{
    const int usual = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(limitKb);
    {
        Screen page(mode);
        Benchmark::measure("frame, per button", contender, role, repetitions,
                           [&](int first, int last) {
                               for (int i = first; i < last; ++i)
                                   page.expose(i);
                           });
        Benchmark::measure("one button changes", contender, role, repetitions,
                           [&](int first, int last) {
                               for (int i = first; i < last; ++i)
                                   page.change(i);
                           });
    }
    QPixmapCache::setCacheLimit(usual);
    QPixmapCache::clear();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Benchmark::readArguments(argc, argv);
    constexpr int repetitions = 100 * buttons; // whole frames
    const auto cached = QGraphicsItem::DeviceCoordinateCache;
    run("limit 10 MB", Benchmark::Role::Reference, cached, 10240, repetitions);
    run("limit 20 MB", Benchmark::Role::Other, cached, 20480, repetitions);
    run("limit 2 MB", Benchmark::Role::Other, cached, 2048, repetitions);
    run("no cache", Benchmark::Role::Other, QGraphicsItem::NoCache, 10240, repetitions);
    return 0;
}
