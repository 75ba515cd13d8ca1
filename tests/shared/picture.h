// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PICTURE_H
#define PICTURE_H

#include <QtGui/QImage>
#include <QtWidgets/QGraphicsItem>

#include <functional>

namespace KelImage {

using Drawing = std::function<void(QPainter *)>;

// The background of all pictures.
inline const QColor paper(200, 220, 240);

// Calls draw on a picture of size, scaled, filled with paper.
QImage draw(const QSize &size, qreal scale, const Drawing &draw);
inline QImage blank(const QSize &size, qreal scale = 1)
{
    return draw(size, scale, [](QPainter *) {});
}

// Draws the item's paint() that way.
QImage paint(QGraphicsItem *item, const QSize &size, qreal scale = 1);

// Paints an item with its visible children, as a scene does, and leaves the painter as it was.
void paintTree(QPainter *painter, QGraphicsItem *item);
void paintChildren(QPainter *painter, QGraphicsItem *item);

// Empty when equal; otherwise says where the pictures differ, and names the picture that it saved:
// both, side by side and enlarged, and the pixels that differ.
QString difference(const QImage &actual, const QImage &expected);

// That of the item from what draw makes.
QString differenceFrom(const Drawing &draw, QGraphicsItem *item, const QSize &size,
                       qreal scale = 1);

// Paints the item into a picture 100 px larger than its bounding rectangle, on every side. Empty
// when no pixel outside the rectangle changed; otherwise says which.
QString pixelsOutside(QGraphicsItem *item, qreal scale = 1);
// The same for a control that may: saves no picture.
bool paintsOutside(QGraphicsItem *item, qreal scale = 1);

// The rectangle around all pixels of one colour.
QRect areaOf(const QImage &image, const QColor &colour);
// The rectangle around all pixels of another colour.
QRect inkOf(const QImage &image, const QColor &background = paper);

} // namespace KelImage

#endif
