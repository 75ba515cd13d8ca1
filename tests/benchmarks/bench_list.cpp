// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "quickwindow.h"
#include "shownpicture.h"

#include <KELList>
#include <KELScreen>
#include <QtCore/QStringListModel>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyledItemDelegate>

#include <malloc.h>

/*
 * A list of 10,000 rows that is flung: each frame it has moved by a few pixels more, and is
 * painted.
 */
namespace {

constexpr int rowCount = 10000;
constexpr int rowHeightPx = 64;
constexpr int stepPx = 13;
constexpr int usualFrames = 3000;
constexpr int countedFrames = 100;
constexpr QSize screenSize(800, 480);
const QByteArray scenario = "list of 10,000 rows, a frame of a fling";

QStringList captions()
{
    QStringList texts;
    texts.reserve(rowCount);
    for (int row = 0; row < rowCount; ++row)
        texts.append(QStringLiteral("Sensor %1").arg(row));
    return texts;
}

// Serves no timers: what moves is moved by the benchmark.
void paintPending()
{
    QCoreApplication::sendPostedEvents();
}

int lastPosition = 0;

// Calls frame(position).
template <typename Frame>
void measureFrames(const char *contender, Benchmark::Role role, Frame frame)
{
    Benchmark::measure(scenario, contender, role, usualFrames, [&](int first, int last) {
        for (int i = first; i < last; ++i)
            frame(lastPosition = i * stepPx);
    });
}

void checkRows(const char *contender, const QImage &picture)
{
    const int top = -(lastPosition % rowHeightPx);
    Benchmark::printValue(scenario, contender, "all rows shown",
                          showsRows(picture, picture.rect(), top, rowHeightPx));
}

void printRowPaints(const char *contender, const char *name, int most)
{
    Benchmark::printValue(scenario, contender, name, QByteArray::number(most));
}

std::size_t heapInUse()
{
    return mallinfo2().uordblks;
}

void printMemory(const char *contender, std::size_t before)
{
    Benchmark::printValue(scenario, contender, "heap kB",
                          QByteArray::number(quint64((heapInUse() - before) / 1024)));
}

void runFloor()
{
    const QStringList texts = captions();
    QImage image(screenSize, QImage::Format_RGB32);
    measureFrames("QPainter", Benchmark::Role::Floor, [&](int position) {
        QPainter painter(&image);
        const int first = position / rowHeightPx;
        for (int row = first; row * rowHeightPx < position + screenSize.height(); ++row) {
            const QRect area(0, row * rowHeightPx - position, screenSize.width(), rowHeightPx);
            painter.fillRect(area, Qt::white);
            painter.drawText(area.adjusted(16, 0, -16, 0), Qt::AlignVCenter, texts.at(row));
            painter.fillRect(QRect(area.left(), area.bottom(), area.width(), 1), Qt::lightGray);
        }
    });
}

class CountingDelegate : public KELListDelegate
{
public:
    void paint(QPainter *painter, const QRectF &rect, const QModelIndex & /*index*/,
               const KELPartStyle &style, States /*states*/) override
    {
        painter->fillRect(rect, style.backgroundBrush);
        ++paints;
    }

    int paints = 0;
};

void countRowPaints(const char *contender, const char *name, KELList *list)
{
    CountingDelegate delegate;
    list->setDelegate(&delegate);
    paintPending();
    int most = 0;
    for (int i = 1; i <= countedFrames; ++i) {
        delegate.paints = 0;
        list->setPosition(lastPosition + i * stepPx);
        paintPending();
        most = std::max(most, delegate.paints);
    }
    printRowPaints(contender, name, most);
    list->setDelegate(nullptr);
}

void runParts()
{
    const char *const contender = "KELList";
    QStringListModel model(captions());
    const std::size_t before = heapInUse();
    KELScreen screen;
    screen.resize(screenSize);
    auto *page = new KELPage;
    auto *list = new KELList(page);
    list->setGeometry(QRectF(QPointF(), screenSize));
    list->setModel(&model);
    screen.push(page);
    screen.show();
    QCoreApplication::processEvents();
    measureFrames(contender, Benchmark::Role::Library, [&](int position) {
        list->setPosition(position);
        paintPending();
    });
    printMemory(contender, before);
    checkRows(contender, shownBy(screen));
    countRowPaints(contender, "most rows painted by a delegate", list);
    // Then no row is kept, as those without a delegate.
    list->partStyle()->backgroundBrush = QColor(255, 255, 255, 254);
    list->styleChanged();
    countRowPaints(contender, "most rows painted", list);
}

class TallRows : public QStyledItemDelegate
{
public:
    QSize sizeHint(const QStyleOptionViewItem & /*option*/,
                   const QModelIndex & /*index*/) const override
    {
        return {screenSize.width(), rowHeightPx};
    }
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        ++paints;
        QStyledItemDelegate::paint(painter, option, index);
    }

    mutable int paints = 0;
};

// Qt moves the pixels that stay in sight; where something lies above the list, it paints all.
// KELList alone shows how far it has come.
void runWidgets(const char *contender, bool isCovered)
{
    QStringListModel model(captions());
    const std::size_t before = heapInUse();
    TallRows delegate;
    QListView list;
    list.setFrameShape(QFrame::NoFrame);
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setUniformItemSizes(true);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list.setItemDelegate(&delegate);
    list.setModel(&model);
    list.resize(screenSize);
    list.show();
    QCoreApplication::processEvents();
    int most = 0;
    measureFrames(contender, Benchmark::Role::Reference, [&](int position) {
        delegate.paints = 0;
        list.verticalScrollBar()->setValue(position);
        if (isCovered)
            list.viewport()->update();
        paintPending();
        most = std::max(most, delegate.paints);
    });
    printMemory(contender, before);
    checkRows(contender, shownBy(list));
    printRowPaints(contender, "most rows painted", most);
}

void runQuick()
{
    const char *const contender = "Qt Quick Controls 2";
    const std::size_t before = heapInUse();
    QuickWindow window(screenSize,
                       "ListView { model: 10000; delegate: ItemDelegate { width: 800; height: 64; "
                       "text: 'Sensor ' + index } }");
    if (!window.isReady()) {
        Benchmark::leaveOut(scenario, contender, window.reason());
        return;
    }
    window.paintChanged();
    measureFrames(contender, Benchmark::Role::Reference, [&](int position) {
        window.set("contentY", position);
        window.paintChanged();
    });
    printMemory(contender, before);
    checkRows(contender, window.picture());
}

} // namespace

int main(int argc, char *argv[])
{
    QuickWindow::chooseSoftware();
    const QApplication app(argc, argv);
    chooseFont();
    runFloor();
    runParts();
    runWidgets("Qt Widgets", false);
    runWidgets("Qt Widgets, all painted", true);
    runQuick();
    return 0;
}
