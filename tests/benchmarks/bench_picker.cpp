// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "benchmark.h"
#include "quickwindow.h"
#include "shownpicture.h"

#include <KELPicker>
#include <KELScreen>
#include <QtCore/QStringListModel>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyledItemDelegate>

/*
 * A choice of 1,000 entries is opened and painted: for the first time, and again.
 */
namespace {

constexpr int entryCount = 1000;
constexpr QSize screenSize(800, 480);
constexpr QRect fieldPlace(20, 20, 300, 64);
constexpr int rowHeightPx = 64;
constexpr int shownRows = 6; // as many as have room below the field
constexpr QRect listPlace(20, 84, 300, shownRows *rowHeightPx);
const QByteArray firstScenario = "picker of 1,000 entries, opened first";
const QByteArray againScenario = "picker of 1,000 entries, opened again";

QStringList entries()
{
    QStringList texts;
    for (int row = 0; row < entryCount; ++row)
        texts.append(QStringLiteral("Entry %1").arg(row));
    return texts;
}

// Until what is open is on the screen.
void paintOpened()
{
    QCoreApplication::processEvents();
}

// Calls open(), picture(), which is what is on the screen where the list is, and close().
template <typename Open, typename Picture, typename Close>
void measureOpening(const char *contender, Benchmark::Role role, Open open, Picture picture,
                    Close close)
{
    Benchmark::measureOnce(firstScenario, contender, role, 1, open);
    const QImage shown = picture();
    const QRect whole(QPoint(), listPlace.size());
    Benchmark::printValue(firstScenario, contender, "all rows shown",
                          showsRows(shown, whole, 0, rowHeightPx));
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

// Whether what is behind the list is darker than light.
void checkDimmed(const char *contender, const QImage &picture, bool isDimmed)
{
    constexpr int light = 230;
    const bool isDark = qGray(picture.pixel(listPlace.topRight() + QPoint(100, 100))) < light;
    Benchmark::printValue(firstScenario, contender, "dimmed or not as said",
                          isDark == isDimmed ? "yes" : "no");
}

void runParts()
{
    KELScreen screen;
    screen.resize(screenSize);
    auto *page = new KELPage;
    auto *picker = new KELPicker(page);
    QStringListModel model(entries());
    picker->setModel(&model);
    picker->setCurrentIndex(0);
    picker->setGeometry(fieldPlace);
    screen.push(page);
    screen.show();
    QCoreApplication::processEvents();
    const char *const contender = "KELPicker";
    measureOpening(
        contender, Benchmark::Role::Library,
        [&] {
            picker->open();
            paintOpened();
        },
        [&] {
            const QImage shown = shownBy(screen);
            checkDimmed(contender, shown, true);
            return shown.copy(listPlace);
        },
        [&] {
            picker->close();
            QCoreApplication::processEvents();
        });
}

class TallRows : public QStyledItemDelegate
{
public:
    QSize sizeHint(const QStyleOptionViewItem & /*option*/,
                   const QModelIndex & /*index*/) const override
    {
        return {listPlace.width(), rowHeightPx};
    }
};

// With rows of one height, which Qt does not measure one by one.
void runWidgets()
{
    TallRows delegate;
    QWidget window;
    window.resize(screenSize);
    QComboBox box(&window);
    box.setGeometry(fieldPlace);
    box.addItems(entries());
    box.setMaxVisibleItems(shownRows);
    box.setItemDelegate(&delegate);
    qobject_cast<QListView *>(box.view())->setUniformItemSizes(true);
    window.show();
    QCoreApplication::processEvents();
    measureOpening(
        "Qt Widgets", Benchmark::Role::Reference,
        [&] {
            box.showPopup();
            paintOpened();
        },
        [&] {
            const QWidget &popup = *box.view()->window();
            return shownBy(popup).copy(
                QRect(box.view()->mapTo(&popup, QPoint()), listPlace.size()));
        },
        [&] {
            box.hidePopup();
            QCoreApplication::processEvents();
        });
}

// KELPicker darkens what is behind its list.
void runQuick(const char *contender, bool isDimmed)
{
    const QByteArray list = "popup: Popup { y: 64; width: 300; height: 384; padding: 0; enter: "
                            "null; exit: null; modal: "
        + QByteArray(isDimmed ? "true" : "false")
        + "; contentItem: ListView { clip: true; model: box.delegateModel; currentIndex: "
          "box.highlightedIndex } } ";
    QuickWindow window(
        screenSize,
        "Item { function open() { box.popup.open() } function close() { box.popup.close() } "
        "ComboBox { id: box; x: 20; y: 20; width: 300; height: 64; "
            + list
            + "model: { var texts = []; for (var i = 0; i < 1000; ++i) texts.push('Entry ' + i); "
              "return texts } delegate: ItemDelegate { width: 300; height: 64; text: modelData; "
              "highlighted: box.highlightedIndex === index } } }");
    if (!window.isReady()) {
        Benchmark::leaveOut(firstScenario, contender, window.reason());
        return;
    }
    window.paintChanged();
    measureOpening(
        contender, isDimmed ? Benchmark::Role::Reference : Benchmark::Role::Other,
        [&] {
            window.call("open");
            window.paintChanged();
        },
        [&] {
            checkDimmed(contender, window.picture(), isDimmed);
            return window.picture().copy(listPlace);
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
    chooseFont();
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    runParts();
    runWidgets();
    runQuick("Qt Quick Controls 2", true);
    runQuick("Qt Quick Controls 2, nothing dimmed", false);
    return 0;
}
