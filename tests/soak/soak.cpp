// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

/*
 * Repeats what applications do, and says what that leaves behind. See scripts/soak.sh --help.
 */

#include "census.h"
#include "filtercount.h"
#include "scenario.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr double bytesLimit = 4; // a round
constexpr int leastWarmUp = 100;
constexpr int mostWarmUp = 2000;

int warningCount = 0;

void countWarnings(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    // Offscreen, whenever a popup opens.
    if (type == QtDebugMsg || text.startsWith(QLatin1String("This plugin does not support ")))
        return;
    ++warningCount;
    std::fprintf(stderr, "%s\n", qPrintable(text));
}

Scenarios allScenarios()
{
    Scenarios all;
    for (const auto &list :
         {comboBoxScenarios(), dialogScenarios(), panelScenarios(), popupScenarios(),
          menuScenarios(), bindingScenarios(), controlScenarios()})
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

struct Result
{
    double bytesPerRound(int rounds) const { return double(after.bytes - before.bytes) / rounds; }
    bool isWithinLimits(int rounds) const
    {
        return bytesPerRound(rounds) <= bytesLimit && after.objects == before.objects
            && after.filters == before.filters && after.timers == before.timers
            && after.connections == before.connections && after.windows == before.windows
            && after.items == before.items && warnings == 0;
    }

    Census before;
    Census after;
    double seconds = 0;
    int warnings = 0;
};

Result run(const ScenarioEntry &entry, int rounds)
{
    Result result;
    warningCount = 0;
    const std::unique_ptr<Scenario> scenario = entry.create();
    const int filtersAtFirst = applicationFilterCount();
    const int warmUp = qBound(leastWarmUp, rounds / 10, mostWarmUp);
    for (int i = 0; i < warmUp; ++i)
        scenario->round();
    // Everything is painted again after a census. From the second time on its look is kept.
    for (int i = 0; i < 3; ++i) {
        Census::take();
        scenario->round();
    }
    result.before = Census::take();
    result.before = Census::take(); // with one in memory, as the last one is taken
    result.before.filters = filtersAtFirst; // also what the first round leaves
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < rounds; ++i)
        scenario->round();
    result.seconds = double(clock.elapsed()) / 1000;
    result.after = Census::take();
    result.warnings = warningCount;
    return result;
}

void printHead()
{
    std::puts("| what | rounds | seconds | bytes a round | RSS, KiB | objects | filters | timers "
              "| connections | windows | items | warnings |\n"
              "|------|-------:|--------:|--------------:|---------:|--------:|--------:|-------:"
              "|------------:|--------:|------:|---------:|");
}

void print(const ScenarioEntry &entry, const Result &result, int rounds)
{
    const Census &before = result.before;
    const Census &after = result.after;
    std::printf("| %s | %d | %.1f | %.3f | %+lld | %+d | %+d | %+d | %+d | %+d | %+d | %d |%s\n",
                entry.text, rounds, result.seconds, result.bytesPerRound(rounds),
                (after.rss - before.rss) / 1024, after.objects - before.objects,
                after.filters - before.filters, after.timers - before.timers,
                after.connections - before.connections, after.windows - before.windows,
                after.items - before.items, result.warnings,
                result.isWithinLimits(rounds) ? "" : " **too much**");
    for (auto it = after.classes.cbegin(); it != after.classes.cend(); ++it) {
        const int more = it.value() - before.classes.value(it.key());
        if (more != 0)
            std::fprintf(stderr, "soak: %s: %+d %s\n", entry.name, more, it.key().constData());
    }
    std::fflush(stdout);
}

// True for an empty list, for a name, and for a family: "combobox" stands for "combobox-open" too.
bool isAskedFor(const ScenarioEntry &entry, const QStringList &names)
{
    const QString name = QString::fromLatin1(entry.name);
    return names.isEmpty() || std::any_of(names.begin(), names.end(), [&](const QString &asked) {
               return name == asked || name.startsWith(asked + QLatin1Char('-'));
           });
}

int fail(const char *text)
{
    std::fprintf(stderr, "soak: %s\n", text);
    return 2;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_HASH_SEED", "0"); // the same memory in every run
    // A thread's cache of freed blocks counts as allocated. It can only be switched off from
    // outside.
    if (!qEnvironmentVariableIsSet("GLIBC_TUNABLES")) {
        qputenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=0");
        execv("/proc/self/exe", argv);
    }
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(countWarnings);

    QCommandLineParser parser;
    const QCommandLineOption roundsOption(QStringLiteral("rounds"),
                                          QStringLiteral("Rounds of each."), QStringLiteral("N"),
                                          QStringLiteral("50000"));
    const QCommandLineOption listOption(QStringLiteral("list"), QStringLiteral("Print the names."));
    parser.addOptions({roundsOption, listOption});
    parser.process(app);
    if (parser.isSet(listOption)) {
        for (const ScenarioEntry &entry : allScenarios())
            std::printf("%-20s %s\n", entry.name, entry.text);
        return 0;
    }
    const int rounds = parser.value(roundsOption).toInt();
    if (rounds < 1)
        return fail("--rounds needs a number greater than 0");

    Scenarios asked;
    for (const ScenarioEntry &entry : allScenarios()) {
        if (isAskedFor(entry, parser.positionalArguments()))
            asked.push_back(entry);
    }
    for (const QString &name : parser.positionalArguments()) {
        if (std::none_of(asked.begin(), asked.end(),
                         [&](const ScenarioEntry &entry) { return isAskedFor(entry, {name}); }))
            return fail("no such scenario (see --list)");
    }
    bool isGood = true;
    printHead();
    for (const ScenarioEntry &entry : asked) {
        const Result result = run(entry, rounds);
        print(entry, result, rounds);
        isGood = isGood && result.isWithinLimits(rounds);
    }
    return isGood ? 0 : 1;
}
