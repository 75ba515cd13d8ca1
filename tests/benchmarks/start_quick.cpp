// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "firstframe.h"

#include <QtCore/QTemporaryFile>
#include <QtQuick/QQuickView>

int main(int argc, char *argv[])
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    const QGuiApplication app(argc, argv);
    QTemporaryFile file(QStringLiteral("XXXXXX.qml"));
    if (!file.open())
        return 1;
    file.write("import QtQuick 2.15\nimport QtQuick.Controls 2.15\n"
               "Grid { columns: 10; Repeater { model: 100;\n"
               "Button { width: 100; height: 30; text: index } } }");
    file.close();

    constexpr const char *contender = "Qt Quick Controls 2, 100 buttons";
    QQuickView view(QUrl::fromLocalFile(file.fileName()));
    if (view.status() != QQuickView::Ready) {
        Benchmark::leaveOut(FirstFrame::scenario, contender,
                            "Qt Quick Controls 2 is not installed");
        return 0;
    }
    QObject::connect(
        &view, &QQuickWindow::frameSwapped, qGuiApp,
        [] { FirstFrame::end(contender, Benchmark::Role::Other); }, Qt::QueuedConnection);
    view.show();
    return QGuiApplication::exec();
}
