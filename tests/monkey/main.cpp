// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "generator.h"
#include "player.h"
#include "run.h"
#include "shrinker.h"

#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/resource.h>

namespace {

using namespace Monkey;

constexpr const char *usage = R"(Usage: monkey [option]...

Uses scenes with all controls at random, and checks what the reference promises. A run that fails is
shrunk to a short script, which is printed and saved.

  --seed N       the seed of the run, default 1
  --steps N      how many steps, default 30000
  --seconds N    stop after that time
  --chunk N      play only this chunk (300 steps) of the seed, print it if it fails, and shrink it
  --print N      print this chunk of the seed
  --script FILE  play this script instead
  --shrink       shrink the script of --script, if it fails
  --verbs        list the verbs of scripts, with their arguments
)";

constexpr int longestSeconds = 1000000;

struct Options
{
    RandomRun run;
    std::string script;
    bool isOneChunk = false;
    bool isPrinted = false;
    bool isShrunk = false;
};

void listVerbs()
{
    for (const Verb &verb : verbs()) {
        std::printf("%s", verb.name);
        for (const Argument &argument : verb.arguments)
            std::printf(" %s", argument.name);
        std::printf("%s\n", verb.name == std::string("on") ? " STEP" : "");
    }
}

bool readNumber(const char *word, std::uint64_t *number)
{
    char *end = nullptr;
    *number = std::strtoull(word, &end, 10);
    return std::isdigit(static_cast<unsigned char>(*word)) && *end == '\0';
}

bool readOptions(int count, char **words, Options *options)
{
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        std::uint64_t number = 0;
        if (word == "--shrink") {
            options->isShrunk = true;
            continue;
        }
        if (i + 1 >= count)
            return false;
        const char *const value = words[++i];
        if (word == "--script") {
            options->script = value;
            continue;
        }
        if (!readNumber(value, &number))
            return false;
        if (word == "--seed") {
            options->run.seed = number;
        } else if (word == "--steps" && number > 0) {
            options->run.steps = number;
        } else if (word == "--seconds" && number <= longestSeconds) {
            options->run.seconds = int(number);
        } else if (word == "--chunk") {
            options->run.firstChunk = number;
            options->isOneChunk = true;
        } else if (word == "--print") {
            options->run.firstChunk = number;
            options->isPrinted = true;
        } else {
            return false;
        }
    }
    return true;
}

int report(const Script &script, const std::string &failure, const std::string &name)
{
    start(); // once for all the children that play a candidate
    std::printf("Shrinking %zu steps ...\n", script.size());
    const Script shortest = shrink(script, [&failure](const Script &candidate) {
        return playAlone(candidate, true).failure == failure;
    });
    quit();
    const std::string text = "# " + failure + "\n" + toText(shortest);
    std::ofstream(name) << text;
    std::printf("\n%s\nSaved as %s. Copy it to tests/monkey/scripts to make it a row of "
                "tst_monkey.\n",
                text.c_str(), name.c_str());
    return 1;
}

int playScript(const Options &options)
{
    const std::ifstream file(options.script);
    std::stringstream text;
    text << file.rdbuf();
    Script script;
    std::string error;
    if (!file || !fromText(text.str(), &script, &error)) {
        std::fprintf(stderr, "monkey: %s: %s\n", options.script.c_str(), error.c_str());
        return 2;
    }
    const Outcome outcome = playAlone(script, false);
    if (outcome.failure.empty()) {
        std::printf("%zu steps, no failure\n", script.size());
        return 0;
    }
    std::printf("FAILED: %s\n", outcome.failure.c_str());
    return options.isShrunk ? report(script, outcome.failure, options.script + ".short") : 1;
}

double peakMemoryMb()
{
    rusage used = {};
    getrusage(RUSAGE_CHILDREN, &used);
    return double(used.ru_maxrss) / 1024;
}

// Leaks are found at the end of the process: halves the run until one chunk is left.
std::uint64_t leakingChunk(RandomRun run, std::uint64_t last)
{
    run.seconds = 0;
    while (run.firstChunk < last) {
        const std::uint64_t half = (last - run.firstChunk + 1) / 2;
        run.steps = half * stepsPerChunk;
        if (playChunks(run, true).failure.empty())
            run.firstChunk += half;
        else
            last = run.firstChunk + half - 1;
    }
    return last;
}

int playAtRandom(const Options &options)
{
    const auto begin = std::chrono::steady_clock::now();
    RandomRun run = options.run;
    if (options.isOneChunk)
        run.steps = 1;
    Outcome outcome = playChunks(run);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::printf("%llu steps in %.1f s, %.0f a second, %.0f MB\n",
                static_cast<unsigned long long>(outcome.steps), seconds.count(),
                double(outcome.steps) / seconds.count(), peakMemoryMb());
    if (outcome.failure.empty())
        return 0;
    if (outcome.failure == memoryLeaks)
        outcome.chunk = leakingChunk(run, outcome.chunk);
    const auto seed = static_cast<unsigned long long>(run.seed);
    const auto chunk = static_cast<unsigned long long>(outcome.chunk);
    std::printf("FAILED: %s\nReplay: monkey --seed %llu --chunk %llu\n", outcome.failure.c_str(),
                seed, chunk);
    const Script script = makeChunk(run.seed, outcome.chunk);
    const std::string alone = playAlone(script, true).failure;
    if (alone != outcome.failure) {
        std::printf("Alone the chunk ends otherwise (%s).\n",
                    alone.empty() ? "no failure" : alone.c_str());
        if (alone.empty())
            return 1;
    }
    return report(script, alone,
                  "monkey-" + std::to_string(seed) + "-" + std::to_string(chunk) + ".txt");
}

} // namespace

int main(int argc, char *argv[])
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const std::string first = argc > 1 ? argv[1] : "";
    Options options;
    if (first == "-h" || first == "--help") {
        std::printf("%s", usage);
        return 0;
    }
    if (first == "--verbs") {
        listVerbs();
        return 0;
    }
    if (!readOptions(argc, argv, &options)) {
        std::fprintf(stderr, "%s", usage);
        return 2;
    }
    if (options.isPrinted) {
        std::printf("%s", toText(makeChunk(options.run.seed, options.run.firstChunk)).c_str());
        return 0;
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    return options.script.empty() ? playAtRandom(options) : playScript(options);
}
