// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "code.h"

#include <KELProcessBar>

KELProcessBar *Code::newProgressBar()
{
    auto *bar = new KELProcessBar;
    bar->setboundRect(0, 0, 240, 30); // 30 px high is what it paints
    bar->setValue(35); // percent
    return bar;
}
