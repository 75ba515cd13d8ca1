// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_SHRINKER_H
#define MONKEY_SHRINKER_H

#include "script.h"

#include <functional>

namespace Monkey {

// A shorter script that still fails: steps are left out (delta debugging), then numbers are made
// simpler. Gives up after maxTries calls of fails().
Script shrink(const Script &script, const std::function<bool(const Script &)> &fails,
              int maxTries = 2500);

} // namespace Monkey

#endif
