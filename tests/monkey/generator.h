// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_GENERATOR_H
#define MONKEY_GENERATOR_H

#include "script.h"

#include <cstdint>

namespace Monkey {

constexpr int stepsPerChunk = 300;

// A long run is many scripts, each on a stage of its own: the same for the same seed and number, on
// every machine.
Script makeChunk(std::uint64_t seed, std::uint64_t number, int steps = stepsPerChunk);

} // namespace Monkey

#endif
