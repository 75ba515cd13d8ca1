// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pushbuttonscreen.h"

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    const PushButtonScreen screen("KELGdiControl, 100 push buttons placed with setPos()",
                                  [](KELPushButton *button, const QRectF &place) {
                                      button->setboundRect(QRectF(QPointF(), place.size()));
                                      button->setPos(place.topLeft());
                                  });
    return QApplication::exec();
}
