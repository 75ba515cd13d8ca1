// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SLIDERANDBAR_H
#define SLIDERANDBAR_H

#include "theme.h"

#include <QtCore/QRectF>

QT_BEGIN_NAMESPACE
class QGraphicsObject;
QT_END_NAMESPACE
struct PageHost;

namespace Parts {

constexpr qreal sliderAndBarHeight = 2 * Theme::touch + Theme::gap;

// A slider and a progress bar that drive each other, and buttons that set the bar. Lower than three
// rows of Theme::touch, slider and bar share the first one. The value is the same wherever they are
// shown.
void addSliderAndBar(const PageHost &host, QGraphicsObject *parent, const QRectF &rect);

} // namespace Parts

#endif
