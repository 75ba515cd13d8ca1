// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef BENCHMARK_H
#define BENCHMARK_H

#include <QtCore/QByteArray>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <sys/resource.h>

#ifdef KEL_HAVE_CALLGRIND
#  include <valgrind/callgrind.h>
#else
#  define RUNNING_ON_VALGRIND 0
#  define CALLGRIND_ZERO_STATS
#  define CALLGRIND_TOGGLE_COLLECT
#  define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

/*
 * What every benchmark program shares.
 *
 * A scenario is something that several contenders do, each in its own way. A contender is measured
 * between client requests to callgrind, which leaves one dump a contender, and by the clock, which
 * counts only outside callgrind. The programs print lines of fields with tabs between them, which
 * the script "benchmarks" reads:
 *
 *     measured, scenario, contender, role, number of repetitions, nanoseconds of all of them
 *     value, scenario, contender, name, value
 *     left out, scenario, contender, reason
 *
 * A program whose name starts with start_ is one contender as a whole, from its first instruction
 * on.
 */
namespace Benchmark {

// What the other contenders of a scenario are compared with (the best of several references), the
// library, and the others.
enum class Role { Floor, Reference, Library, Other };

inline const char *nameOf(Role role)
{
    switch (role) {
    case Role::Floor:
        return "floor";
    case Role::Reference:
        return "reference";
    case Role::Library:
        return "library";
    case Role::Other:
        break;
    }
    return "other";
}

inline bool isQuick = false;

inline void readArguments(int argc, char *argv[])
{
    isQuick = argc > 1 && std::strcmp(argv[1], "--quick") == 0;
}

// usual by the clock; instruction counts are linear in the number of repetitions, so that few are
// enough.
inline int repetitions(int usual)
{
    constexpr int fewer = 100;
    return RUNNING_ON_VALGRIND ? std::max(1, usual / fewer) : usual;
}

// With KEL_NO_KEPT_LOOKS set the library is a contender of its own, with which the usual one is
// compared.
inline bool isKeepingLooks()
{
    return !qEnvironmentVariableIsSet("KEL_NO_KEPT_LOOKS");
}

inline QByteArray libraryName()
{
    return isKeepingLooks() ? "KELGdiControl" : "KELGdiControl, no looks kept";
}

inline Role libraryRole()
{
    return isKeepingLooks() ? Role::Library : Role::Reference;
}

// With --quick only the library is measured, and what it is compared with; without looks that are
// kept, only the library.
inline bool isWanted(Role role)
{
    return isKeepingLooks() ? !isQuick || role != Role::Other : role == Role::Reference;
}

// Those that the system gave the process without reading a file.
inline qint64 pageFaults()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_minflt;
}

inline void print(const char *kind, const QByteArray &scenario, const QByteArray &contender,
                  const QByteArray &rest)
{
    std::printf("%s\t%s\t%s\t%s\n", kind, scenario.constData(), contender.constData(),
                rest.constData());
    std::fflush(stdout);
}

inline void printMeasured(const QByteArray &scenario, const QByteArray &contender, Role role,
                          int repetitions, std::chrono::nanoseconds time)
{
    CALLGRIND_DUMP_STATS_AT((scenario + '\t' + contender).constData());
    print("measured", scenario, contender,
          nameOf(role) + ('\t' + QByteArray::number(repetitions)) + '\t'
              + QByteArray::number(qint64(time.count())));
}

// Something about a contender that is no amount of work: bytes, a number of things, yes or no.
inline void printValue(const QByteArray &scenario, const QByteArray &contender,
                       const QByteArray &name, const QByteArray &value)
{
    print("value", scenario, contender, name + '\t' + value);
}

// A line for a contender that cannot run here.
inline void leaveOut(const QByteArray &scenario, const QByteArray &contender,
                     const QByteArray &reason)
{
    if (isWanted(Role::Other))
        print("left out", scenario, contender, reason);
}

// Counts, while it lives, what is measured. Nothing else is counted.
class Meter
{
public:
    Meter() { CALLGRIND_ZERO_STATS; }

    template <typename Run>
    void measure(Run run)
    {
        const auto start = std::chrono::steady_clock::now();
        CALLGRIND_TOGGLE_COLLECT;
        run();
        CALLGRIND_TOGGLE_COLLECT;
        m_time += std::chrono::steady_clock::now() - start;
    }

    void report(const QByteArray &scenario, const QByteArray &contender, Role role,
                int repetitions) const
    {
        printMeasured(scenario, contender, role, repetitions, m_time);
    }

private:
    Q_DISABLE_COPY(Meter)

    std::chrono::nanoseconds m_time{0};
};

// Measures run(), which does something repetitions times.
template <typename Run>
void measureOnce(const QByteArray &scenario, const QByteArray &contender, Role role,
                 int repetitions, Run run)
{
    Meter meter;
    meter.measure(run);
    meter.report(scenario, contender, role, repetitions);
}

// Calls run(first, last), which repeats what is measured for each number from first to before last.
template <typename Run>
void measure(const QByteArray &scenario, const QByteArray &contender, Role role, int usual, Run run)
{
    constexpr int warmUp = 10; // caches are filled and symbols are bound afterwards
    const int count = repetitions(usual);
    run(0, warmUp);
    measureOnce(scenario, contender, role, count, [&run, count] { run(warmUp, warmUp + count); });
}

// What the process has done since its first instruction.
inline void reportProcess(const QByteArray &scenario, const QByteArray &contender, Role role)
{
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    printMeasured(scenario, contender, role, 1,
                  std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec));
}

} // namespace Benchmark

#endif
