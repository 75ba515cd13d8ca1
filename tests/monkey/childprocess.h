// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_CHILDPROCESS_H
#define MONKEY_CHILDPROCESS_H

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

namespace Monkey {

// What a child process writes and its parent reads, also after a crash.
struct Progress
{
    std::atomic<std::uint64_t> steps; // all that it has played
    std::atomic<std::uint64_t> chunk; // the one that it plays
};

constexpr const char *memoryLeaks = "memory leaks"; // a failure

struct Outcome
{
    std::string failure; // empty when all went well
    std::uint64_t steps = 0;
    std::uint64_t chunk = 0;
};

// Runs work, which returns a failure or an empty string, in a child process: a crash, a step that
// takes more than a minute and a memory leak are failures, too. With isQuiet what it prints is
// thrown away.
Outcome inChildProcess(const std::function<std::string(Progress *)> &work, bool isQuiet);

} // namespace Monkey

#endif
