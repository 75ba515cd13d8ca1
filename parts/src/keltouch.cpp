// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "keltouch.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <cmath>

namespace {

constexpr qreal mmPerInch = 25.4;
constexpr qreal usualDpi = 135;
constexpr qreal leastDpi = 50;
constexpr qreal greatestDpi = 500;
constexpr qreal greatestPixelsPerMm = 100;
constexpr qreal greatestMm = 100;

qreal leastMm = 9;
qreal pixelsPerMm = 0; // 0: ask the screen

qreal pixelsPerMmOfScreen()
{
    const QScreen *screen = qGuiApp ? qGuiApp->primaryScreen() : nullptr;
    const qreal dpi = screen ? screen->physicalDotsPerInch() : usualDpi;
    return (dpi >= leastDpi && dpi <= greatestDpi ? dpi : usualDpi) / mmPerInch;
}

} // namespace

qreal KELTouch::leastSize()
{
    return std::ceil(leastMm * pixelsPerMillimetre());
}

qreal KELTouch::leastMillimetres()
{
    return leastMm;
}

void KELTouch::setLeastMillimetres(qreal millimetres)
{
    leastMm = std::isfinite(millimetres) ? qBound(0.0, millimetres, greatestMm) : 0;
}

qreal KELTouch::pixelsPerMillimetre()
{
    return pixelsPerMm > 0 ? pixelsPerMm : pixelsPerMmOfScreen();
}

void KELTouch::setPixelsPerMillimetre(qreal pixels)
{
    pixelsPerMm = std::isfinite(pixels) && pixels > 0 ? qMin(pixels, greatestPixelsPerMm) : 0;
}
