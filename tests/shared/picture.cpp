// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "picture.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QPainter>
#include <QtTest/QtTest>
#include <QtWidgets/QStyleOptionGraphicsItem>

namespace {

QString saved(const QImage &image, const char *what)
{
    const QString row = QString::fromUtf8(QTest::currentDataTag())
                            .replace(QRegularExpression(QStringLiteral("\\W+")),
                                     QStringLiteral("-"));
    const QString name = QStringLiteral("%1_%2_%3.png")
                             .arg(QString::fromLatin1(QTest::currentTestFunction()), row,
                                  QString::fromLatin1(what));
    image.save(name);
    return name;
}

// Small pictures become large enough to count their pixels.
QImage enlarged(const QImage &image)
{
    constexpr int wantedPx = 600;
    const int factor = qMax(1, wantedPx / qMax(1, qMax(image.width(), image.height())));
    return image.scaled(image.size() * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QImage sideBySide(const QList<QImage> &images)
{
    constexpr int gapPx = 10;
    QSize size(-gapPx, 0);
    for (const QImage &image : images)
        size = QSize(size.width() + gapPx + image.width(), qMax(size.height(), image.height()));
    QImage all(size, QImage::Format_RGB32);
    all.fill(Qt::black);
    QPainter painter(&all);
    int x = 0;
    for (const QImage &image : images) {
        painter.drawImage(x, 0, image);
        x += image.width() + gapPx;
    }
    return all;
}

// Calls found for each pixel that is not the same.
void forEachDifference(const QImage &actual, const QImage &expected,
                       const std::function<void(int x, int y)> &found)
{
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y))
                found(x, y);
        }
    }
}

template <typename Test>
QRect areaWhere(const QImage &image, const Test &isMeant)
{
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    QRect area;
    for (int y = 0; y < pixels.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(pixels.constScanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            if (isMeant(line[x]))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

// An item in a picture that is larger than it.
struct Surroundings
{
    QImage painted;
    QRect allowed; // where it may paint
    QRect outside; // around what it painted elsewhere
};

Surroundings surroundingsOf(QGraphicsItem *item, qreal scale)
{
    constexpr qreal marginPx = 100;
    const QRectF bounds = item->boundingRect();
    const QRectF canvas = bounds.adjusted(-marginPx, -marginPx, marginPx, marginPx);
    const auto render = [&](bool withItem) {
        return KelImage::draw(canvas.size().toSize(), scale, [&](QPainter *painter) {
            painter->translate(-canvas.topLeft());
            if (withItem) {
                QStyleOptionGraphicsItem option;
                item->paint(painter, &option, nullptr);
            }
        });
    };
    Surroundings result;
    result.painted = render(true);
    result.allowed = QRectF(marginPx * scale, marginPx * scale, bounds.width() * scale,
                            bounds.height() * scale)
                         .toAlignedRect();
    forEachDifference(result.painted, render(false), [&](int x, int y) {
        if (!result.allowed.contains(x, y))
            result.outside |= QRect(x, y, 1, 1);
    });
    return result;
}

} // namespace

QImage KelImage::draw(const QSize &size, qreal scale, const Drawing &draw)
{
    QImage image(QSize(qRound(size.width() * scale), qRound(size.height() * scale)),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(paper);
    QPainter painter(&image);
    painter.scale(scale, scale);
    draw(&painter);
    return image;
}

QImage KelImage::paint(QGraphicsItem *item, const QSize &size, qreal scale)
{
    return draw(size, scale, [item](QPainter *painter) {
        QStyleOptionGraphicsItem option;
        item->paint(painter, &option, nullptr);
    });
}

void KelImage::paintTree(QPainter *painter, QGraphicsItem *item)
{
    const QStyleOptionGraphicsItem option;
    painter->save();
    item->paint(painter, &option, nullptr);
    painter->restore();
    paintChildren(painter, item);
}

void KelImage::paintChildren(QPainter *painter, QGraphicsItem *item)
{
    const QList<QGraphicsItem *> children = item->childItems();
    for (QGraphicsItem *child : children) {
        if (!child->isVisible())
            continue;
        painter->save();
        painter->translate(child->pos());
        paintTree(painter, child);
        painter->restore();
    }
}

QString KelImage::difference(const QImage &actual, const QImage &expected)
{
    if (actual == expected)
        return QString();
    if (actual.size() != expected.size()) {
        return QStringLiteral("the sizes differ; see %1")
            .arg(saved(sideBySide({enlarged(actual), enlarged(expected)}), "different"));
    }
    QImage marked(actual.size(), QImage::Format_RGB32);
    marked.fill(Qt::white);
    int count = 0;
    QRect area;
    forEachDifference(actual, expected, [&](int x, int y) {
        ++count;
        area |= QRect(x, y, 1, 1);
        marked.setPixelColor(x, y, Qt::red);
    });
    const QImage all = sideBySide({enlarged(actual), enlarged(expected), enlarged(marked)});
    return QStringLiteral("%1 pixels differ, in (%2, %3) to (%4, %5); see %6")
        .arg(QString::number(count), QString::number(area.left()), QString::number(area.top()),
             QString::number(area.right()), QString::number(area.bottom()),
             saved(all, "actual-expected-difference"));
}

QString KelImage::differenceFrom(const Drawing &draw, QGraphicsItem *item, const QSize &size,
                                 qreal scale)
{
    return difference(paint(item, size, scale), KelImage::draw(size, scale, draw));
}

QString KelImage::pixelsOutside(QGraphicsItem *item, qreal scale)
{
    const Surroundings around = surroundingsOf(item, scale);
    if (around.outside.isNull())
        return QString();
    const auto text = [](const QRect &rect) {
        return QStringLiteral("(%1, %2) to (%3, %4)")
            .arg(rect.left())
            .arg(rect.top())
            .arg(rect.right())
            .arg(rect.bottom());
    };
    return QStringLiteral("pixels in %1 lie outside %2; see %3")
        .arg(text(around.outside), text(around.allowed), saved(around.painted, "outside"));
}

bool KelImage::paintsOutside(QGraphicsItem *item, qreal scale)
{
    return !surroundingsOf(item, scale).outside.isNull();
}

QRect KelImage::areaOf(const QImage &image, const QColor &colour)
{
    return areaWhere(image, [rgba = colour.rgba()](QRgb pixel) { return pixel == rgba; });
}

QRect KelImage::inkOf(const QImage &image, const QColor &background)
{
    return areaWhere(image, [rgba = background.rgba()](QRgb pixel) { return pixel != rgba; });
}
