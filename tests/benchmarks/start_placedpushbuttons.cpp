// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "firstframe.h"
#include "handdrawing.h"

#include <KELPushButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QGraphicsView>

namespace {

class View : public QGraphicsView
{
public:
    View() = default;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QGraphicsView::paintEvent(event);
        FirstFrame::end("KELGdiControl, 100 push buttons placed with setPos()",
                        Benchmark::Role::Library);
    }

private:
    Q_DISABLE_COPY(View)
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    QGraphicsScene scene(QRectF(QPointF(), FirstFrame::size));
    for (int i = 0; i < FirstFrame::count; ++i) {
        auto *const button = new KELPushButton;
        const QRectF place = FirstFrame::placeOf(i);
        button->setboundRect(QRectF(QPointF(), place.size()));
        button->setPos(place.topLeft());
        button->setText(QString::number(i));
        button->style()->xRadius = button->style()->yRadius = HandDrawing::cornerPx;
        scene.addItem(button);
    }
    View view;
    view.setScene(&scene);
    view.setFrameStyle(QFrame::NoFrame);
    view.resize(FirstFrame::size);
    view.show();
    return QApplication::exec();
}
