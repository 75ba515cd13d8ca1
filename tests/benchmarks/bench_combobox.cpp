// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

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

// A combo box in a shown view.
class Stage
{
public:
    Stage()
    {
        m_scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        m_box->setboundRect(20, 20, 160, 40);
        m_scene.addItem(m_box);
        m_view.setScene(&m_scene);
        m_view.setSceneRect(0, 0, 800, 480);
        m_view.resize(800, 480);
        m_view.show();
        paint();
    }

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
        paint();
        take("clear while open", clear, report);
    }

private:
    Q_DISABLE_COPY(Stage)

    void take(const char *name, const Step &step, const Report &report)
    {
        report(name, step);
        paint();
    }

    void paint()
    {
        QCoreApplication::processEvents();
        m_view.viewport()->repaint();
    }

    KELPushButton *button() const
    {
        return qobject_cast<KELPushButton *>(m_box->childItems().first()->toGraphicsObject());
    }

    QGraphicsScene m_scene;
    QGraphicsView m_view;
    KELComboBox *const m_box = new KELComboBox;
};

void measureWith(int count)
{
    Stage stage;
    stage.run(count, [count](const char *name, const Step &step) {
        const auto role = count == 100 ? Benchmark::Role::Reference : Benchmark::Role::Other;
        Benchmark::measureOnce(QByteArray("combo box, ") + name,
                               QByteArray::number(count) + " entries", role, count, step);
    });
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    Stage().run(100, [](const char *, const Step &step) { step(); }); // warm-up
    for (const int count : {100, 1000, 10000})
        measureWith(count);
    return 0;
}
