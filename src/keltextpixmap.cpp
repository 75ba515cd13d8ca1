// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltextpixmap.h"

#include "kelpainting_p.h"

#include <QtGui/QBrush>
#include <QtGui/QPainter>

KELTextPixmap::KELTextPixmap(const QString &text, const QSize &size, const QBrush &textBrush,
                             const QBrush &backgroundBrush, const QFont &font) :
    QPixmap(size)
{
    if (isNull())
        return;

    // Compat: only the colour of a background brush is used, never its gradient or pattern
    fill(backgroundBrush == QBrush(Qt::NoBrush) ? QColor(0, 0, 0, 0) : backgroundBrush.color());

    QPainter painter(this);
    painter.setFont(font);
    painter.setPen(KELPainting::captionPen(textBrush));
    painter.drawText(QRectF(0, 0, size.width(), size.height()), KELPainting::centredWordWrap, text);
}

KELTextPixmap::~KELTextPixmap() = default;
