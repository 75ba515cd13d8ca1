// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_RUN_H
#define MONKEY_RUN_H

#include "childprocess.h"
#include "script.h"

namespace Monkey {

// Plays a script alone, in a child process.
Outcome playAlone(const Script &script, bool isQuiet);

struct RandomRun
{
    std::uint64_t seed = 1;
    std::uint64_t firstChunk = 0;
    std::uint64_t steps = 30000;
    int seconds = 0; // 0: as long as it takes
};

// Plays chunks in a child process until one fails; the outcome names it.
Outcome playChunks(const RandomRun &run, bool isQuiet = false);

} // namespace Monkey

#endif
