// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "run.h"

#include "generator.h"
#include "player.h"

#include <chrono>

using namespace Monkey;

Outcome Monkey::playAlone(const Script &script, bool isQuiet)
{
    return inChildProcess(
        [&script](Progress *progress) {
            return play(script, [progress](int) { ++progress->steps; });
        },
        isQuiet);
}

Outcome Monkey::playChunks(const RandomRun &run, bool isQuiet)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + std::chrono::seconds(run.seconds);
    return inChildProcess(
        [&run, end](Progress *progress) -> std::string {
            std::uint64_t left = run.steps;
            for (std::uint64_t chunk = run.firstChunk; left > 0; ++chunk) {
                if (run.seconds > 0 && Clock::now() > end)
                    break;
                progress->chunk = chunk;
                const Script script = makeChunk(run.seed, chunk);
                const std::string failure = play(script, [progress](int) { ++progress->steps; });
                if (!failure.empty())
                    return failure;
                left -= std::min<std::uint64_t>(left, stepsPerChunk);
            }
            return {};
        },
        isQuiet);
}
