// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "paintcount.h"

#include "original.h"

#include <QtGui/QPainter>

namespace {

int count = 0;

} // namespace

void QPainter::drawRoundedRect(const QRectF &rect, qreal xRadius, qreal yRadius, Qt::SizeMode mode)
{
    using Function = void (QPainter::*)(const QRectF &, qreal, qreal, Qt::SizeMode);
    static const auto draw = original<Function>(
        "_ZN8QPainter15drawRoundedRectERK6QRectFddN2Qt8SizeModeE");
    ++count;
    (this->*draw)(rect, xRadius, yRadius, mode);
}

void QPainter::drawEllipse(const QRectF &rect)
{
    using Function = void (QPainter::*)(const QRectF &);
    static const auto draw = original<Function>("_ZN8QPainter11drawEllipseERK6QRectF");
    ++count;
    (this->*draw)(rect);
}

int shapesDrawn()
{
    return count;
}
