// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELSlideControl>

KELSlideControl *Code::newSlider()
{
    auto *slider = new KELSlideControl;
    slider->setMinimun(0); // the bounds first,
    slider->setMaximun(100);
    slider->setboundRect(0, 0, 240, 48); // then the rectangle,
    slider->setValue(35); // then the value
    return slider;
}
