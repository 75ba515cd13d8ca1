// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "pushbuttonscreen.h"

int main(int argc, char *argv[])
{
    const QApplication app(argc, argv);
    const PushButtonScreen screen(
        "KELGdiControl, 100 push buttons",
        [](KELPushButton *button, const QRectF &place) { button->setboundRect(place); });
    return QApplication::exec();
}
