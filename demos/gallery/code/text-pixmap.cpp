// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELTextPixmap>
#include <QtGui/QBrush>
#include <QtGui/QFont>

QPixmap Code::newBadge()
{
    QFont font;
    font.setPixelSize(16);
    return KELTextPixmap(QStringLiteral("NEW"), QSize(96, 32), QColor(Qt::white),
                         QColor(0x0b, 0x62, 0xd6), font);
}
