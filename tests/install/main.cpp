// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// An application as users write it: draws a button without a screen and looks whether it is there.

#include <KELPushButton>

#include <QtCore/QDebug>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsScene>

static_assert(__cplusplus == 201103L,
              "C++11, as this program is built, is all that the library asks for");

#if KELGDI_VERSION < KELGDI_VERSION_CHECK(1, 0, 0)
#  error "the headers do not tell their version"
#endif

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);

    QGraphicsScene scene;
    auto *button = new KELPushButton;
    button->setboundRect(10, 10, 180, 60);
    button->setText(QStringLiteral("Hello"));
    scene.addItem(button);

    QImage image(200, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter, image.rect(), image.rect());
    painter.end();

    int dark = 0;
    for (int y = 20; y < 60; ++y) {
        for (int x = 20; x < 180; ++x)
            dark += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    const bool outlined = image.pixel(100, 11) == QColor(Qt::black).rgb();
    const bool blankOutside = image.pixel(5, 5) == QColor(Qt::white).rgb();
    if (dark < 20 || !outlined || !blankOutside) {
        qWarning() << "the button is not drawn: dark" << dark << "outlined" << outlined;
        return 1;
    }
    return 0;
}
