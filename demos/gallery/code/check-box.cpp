// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELCheckBox>

KELCheckBox *Code::newSwitch()
{
    auto *box = new KELCheckBox;
    box->setboundRect(0, 0, 80, 38);
    QObject::connect(box, &KELCheckBox::checkChanged, box, [box] {
        // box->isCheck() is the new state
    });
    return box;
}
