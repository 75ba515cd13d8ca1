// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELLabel>

KELLabel *Code::newLabel()
{
    auto *label = new KELLabel;
    label->setboundRect(0, 0, 200, 32);
    label->setText(QStringLiteral("Living room"));
    label->style()->font.setPixelSize(22);
    label->style()->textFlags = Qt::AlignLeft | Qt::AlignVCenter;
    label->setAcceptedMouseButtons(Qt::NoButton); // a caption takes no presses
    return label;
}
