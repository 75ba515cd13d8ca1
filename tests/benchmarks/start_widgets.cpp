// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "firstframe.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

namespace {

class Window : public QWidget
{
public:
    Window()
    {
        for (int i = 0; i < FirstFrame::count; ++i)
            (new QPushButton(QString::number(i), this))->setGeometry(FirstFrame::placeOf(i));
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        FirstFrame::end("Qt Widgets, 100 push buttons", Benchmark::Role::Other);
    }

private:
    Q_DISABLE_COPY(Window)
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    Window window;
    window.resize(FirstFrame::size);
    window.show();
    return QApplication::exec();
}
