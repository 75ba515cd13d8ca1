// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELComboBox>
#include <QtCore/QMetaEnum>

KELComboBox *Code::newComboBox(const QMetaEnum &values)
{
    auto *box = new KELComboBox;
    box->setboundRect(0, 0, 200, 48); // geometry first, then the entries
    box->bindEnum(values);
    return box;
}
