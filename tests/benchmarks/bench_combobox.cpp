// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bareitem.h"
#include "benchmark.h"

#include <KELComboBox>
#include <KELPushButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

#include <functional>

namespace {

using Step = std::function<void()>;
using Report = std::function<void(const char *name, const Step &step)>;

// An item in a shown view.
class Stage
{
public:
    explicit Stage(QGraphicsItem *item)
    {
        m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        m_scene.addItem(item);
        m_view.setScene(&m_scene);
        m_view.setSceneRect(0, 0, 800, 480);
        m_view.resize(800, 480);
        m_view.show();
        paint();
    }

    void paint()
    {
        QCoreApplication::processEvents();
        m_view.viewport()->repaint();
    }

private:
    Q_DISABLE_COPY(Stage)

    QGraphicsScene m_scene;
    QGraphicsView m_view;
};

class ComboBox
{
public:
    ComboBox() { m_box->setboundRect(20, 20, 160, 40); }

    // What a frame costs does not depend on the number of entries: it is not part of a step.
    void run(int count, const Report &report)
    {
        const Step fill = [this, count] {
            for (int i = 0; i < count; ++i)
                m_box->addItem(i, QString());
        };
        const Step click = [this] { Q_EMIT button()->mouseClicked(); };
        const Step clear = [this] { m_box->clearItem(); };

        take("fill", fill, report);
        take("open", click, report);
        take("close", click, report);
        take(
            "select each one",
            [this, count] {
                for (int i = 0; i < count; ++i)
                    m_box->setSelectIndex(i);
            },
            report);
        take("clear", clear, report);
        fill();
        click();
        m_stage.paint();
        take("clear while open", clear, report);
    }

private:
    Q_DISABLE_COPY(ComboBox)

    void take(const char *name, const Step &step, const Report &report)
    {
        report(name, step);
        m_stage.paint();
    }

    KELPushButton *button() const
    {
        return qobject_cast<KELPushButton *>(m_box->childItems().first()->toGraphicsObject());
    }

    KELComboBox *const m_box = new KELComboBox;
    Stage m_stage{m_box};
};

void measureWith(int count)
{
    ComboBox().run(count, [count](const char *name, const Step &step) {
        Benchmark::measureOnce(
            QByteArray("combo box, ") + name, QByteArray::number(count) + " entries",
            count == 100 ? Benchmark::Role::Reference : Benchmark::Role::Library, count, step);
    });
}

// What the items of the entries cost without a combo box: each has one for itself and one for its
// text.
void measureBareItems()
{
    constexpr int count = 1000;
    auto *const list = new BareItem;
    const Stage stage(list);
    list->hide();
    Benchmark::measureOnce("combo box, fill", "bare items", Benchmark::Role::Floor, count, [list] {
        for (int i = 0; i < count; ++i) {
            auto *const entry = new BareItem(list);
            entry->setRect(QRectF(0.5, 30 * i, 159, 30));
            auto *const label = new BareItem(entry);
            label->setRect(QRectF(0, 0, 159, 30));
            label->setText(QString::number(i));
        }
    });
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    ComboBox().run(100, [](const char *, const Step &step) { step(); }); // warm-up
    measureBareItems();
    for (const int count : {100, 1000, 10000})
        measureWith(count);
    return 0;
}
