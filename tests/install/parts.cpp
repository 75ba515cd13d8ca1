// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// An application with a part of its own and a control: draws the part without a screen and looks
// whether it is there.

#include <KELPart>
#include <KELPushButton>

#include <QtCore/QDebug>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>

static_assert(__cplusplus == 201103L,
              "C++11, as this program is built, is all that the library asks for");

namespace {

class Lamp : public KELPart
{
public:
    void paint(QPainter *painter, const QStyleOptionGraphicsItem * /*option*/,
               QWidget * /*widget*/) override
    {
        painter->fillRect(rect(), partStyle()->accentBrush);
    }
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);

    QGraphicsScene scene;
    auto *button = new KELPushButton;
    button->setboundRect(10, 10, 80, 60);
    scene.addItem(button);
    auto *lamp = new Lamp;
    lamp->setGeometry(QRectF(110, 10, 80, 60));
    lamp->partStyle()->accentBrush = QColor(Qt::red);
    lamp->styleChanged();
    scene.addItem(lamp);

    QImage image(200, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter, image.rect(), image.rect());
    painter.end();

    const QRgb inside = image.pixel(150, 40);
    const QRgb outside = image.pixel(105, 40);
    if (inside != QColor(Qt::red).rgb() || outside != QColor(Qt::white).rgb()) {
        qWarning() << "the part is not drawn:" << QColor(inside) << QColor(outside);
        return 1;
    }
    return 0;
}
