// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELRoundRectControl>

KELRoundRectControl *Code::newCard()
{
    auto *card = new KELRoundRectControl;
    card->setboundRect(0, 0, 240, 64);
    card->setText(QStringLiteral("23.5 °C"));
    card->style()->xRadius = card->style()->yRadius = 12;
    card->style()->borderWidth = 1;
    card->style()->font.setPixelSize(22);
    card->setAcceptedMouseButtons(Qt::NoButton); // presses go to what lies below
    return card;
}
