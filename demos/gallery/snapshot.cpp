// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "snapshot.h"

#include "pageregistry.h"
#include "window.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImage>

bool saveScreenshot(Window *window, const QString &path)
{
    QImage image(window->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    window->QWidget::render(&image); // QGraphicsView::render() leaves the child widgets out
    // Encoded first: the PNG library would report a failed write itself.
    QBuffer png;
    QFile file(path);
    return image.save(&png, "PNG") && file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(png.data()) == png.size() && file.flush();
}

QString saveAllScreenshots(Window *window, const QString &directory)
{
    const std::vector<PageEntry> &pages = galleryPages();
    for (size_t i = 0; i < pages.size(); ++i) {
        window->showPage(int(i));
        const QString path = QDir(directory).filePath(QLatin1String(pages[i].name)
                                                      + QLatin1String(".png"));
        if (!saveScreenshot(window, path))
            return path;
    }
    return QString();
}
