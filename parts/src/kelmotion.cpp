// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelmotion.h"

namespace {

bool motionIsEnabled = true;

} // namespace

void KELMotion::setEnabled(bool enabled)
{
    motionIsEnabled = enabled;
}

bool KELMotion::isEnabled()
{
    return motionIsEnabled;
}
