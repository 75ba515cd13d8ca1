// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BENCHMARK_H
#define BENCHMARK_H

#include <QtCore/QByteArray>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#ifdef KEL_HAVE_CALLGRIND
#  include <valgrind/callgrind.h>
#else
#  define CALLGRIND_ZERO_STATS
#  define CALLGRIND_TOGGLE_COLLECT
#  define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

/*
 * What every benchmark program shares.
 *
 * A scenario is something that several contenders do, each in its own way. A contender is measured between client
 * requests to callgrind, which leaves one dump a contender, and by the clock, which counts only outside
 * callgrind. For each one the program prints a line of five fields with tabs between them, which the script
 * "benchmarks" reads:
 *
 *     scenario, contender, role, number of repetitions, nanoseconds of all of them
 *
 * or, instead of the last two fields, the reason why there is nothing to measure.
 *
 * Instruction counts are linear in the number of repetitions: few are enough.
 */
namespace Benchmark {

// What the other contenders of a scenario are compared with.
enum class Role { Floor, Reference, Other };

inline const char *nameOf(Role role)
{
    switch (role) {
    case Role::Floor:
        return "floor";
    case Role::Reference:
        return "reference";
    case Role::Other:
        break;
    }
    return "other";
}

// The number after --repetitions, or usual.
inline int repetitions(int argc, char *argv[], int usual)
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], "--repetitions") == 0)
            return std::atoi(argv[i + 1]);
    }
    return usual;
}

// Measures run(), which does something repetitions times.
template <typename Run>
void measureOnce(const QByteArray &scenario, const QByteArray &contender, Role role,
                 int repetitions, Run run)
{
    const QByteArray name = scenario + '\t' + contender;
    const auto start = std::chrono::steady_clock::now();
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    run();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.constData());
    const std::chrono::nanoseconds time = std::chrono::steady_clock::now() - start;
    std::printf("%s\t%s\t%d\t%lld\n", name.constData(), nameOf(role), repetitions,
                static_cast<long long>(time.count()));
    std::fflush(stdout);
}

// Calls run(first, last), which repeats what is measured for each number from first to before last.
template <typename Run>
void measure(const QByteArray &scenario, const QByteArray &contender, Role role, int repetitions,
             Run run)
{
    constexpr int warmUp = 100; // caches are filled and symbols are bound afterwards
    run(0, warmUp);
    measureOnce(scenario, contender, role, repetitions,
                [&run, repetitions] { run(warmUp, warmUp + repetitions); });
}

// A line for a contender that cannot run here.
inline void leaveOut(const QByteArray &scenario, const QByteArray &contender, const char *reason)
{
    std::printf("%s\t%s\t%s\t%s\n", scenario.constData(), contender.constData(),
                nameOf(Role::Other), reason);
}

} // namespace Benchmark

#endif
