// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_PLAYER_H
#define MONKEY_PLAYER_H

#include "script.h"

#include <functional>
#include <string>

namespace Monkey {

// Creates the application object, on a clock of its own, unless it exists. It lives until quit().
void start();
void quit();

// Plays the script on a new stage. Returns what failed, or an empty string. onStep is told each
// step before it runs.
std::string play(const Script &script, const std::function<void(int)> &onStep = {});

} // namespace Monkey

#endif
