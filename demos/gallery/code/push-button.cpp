// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELPushButton>

KELPushButton *Code::newPushButton()
{
    auto *button = new KELPushButton;
    button->setboundRect(0, 0, 200, 56); // geometry first, then add it to a scene
    button->setText(QStringLiteral("Press me"));
    button->style()->xRadius = button->style()->yRadius = 12;
    QObject::connect(button, &KELPushButton::mouseClicked, button, [button] {
        const int clicks = button->property("clicks").toInt() + 1;
        button->setProperty("clicks", clicks);
        button->setText(QStringLiteral("Pressed %1 times").arg(clicks));
    });
    return button;
}
