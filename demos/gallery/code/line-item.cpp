// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELLineItem>

KELLineItem *Code::newSeparator()
{
    auto *line = new KELLineItem;
    line->setLine({0, 0}, {200, 0}); // from, to: item px
    line->style()->borderBrush = QColor(0x80, 0x88, 0x94);
    line->style()->borderWidth = 1;
    line->setAcceptedMouseButtons(Qt::NoButton);
    return line;
}
