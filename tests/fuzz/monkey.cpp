// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "fuzzbytes.h"
#include "fuzztargets.h"

#include <player.h>
#include <script.h>

#include <cstdio>

namespace {

constexpr int mostSteps = 60;

double argument(const Monkey::Argument &wanted, FuzzBytes *in)
{
    switch (wanted.kind) {
    case Monkey::Kind::Below:
    case Monkey::Kind::Button:
        return quint16(in->word()) % wanted.limit;
    case Monkey::Kind::Place:
        return in->byte() / 200.0 - 0.1;
    case Monkey::Kind::Position:
    case Monkey::Kind::Length:
    case Monkey::Kind::Number:
        return in->number();
    case Monkey::Kind::Whole:
        return in->integer();
    case Monkey::Kind::Time:
        return in->byte() * 10;
    }
    return 0;
}

Monkey::Step readStep(FuzzBytes *in, Monkey::Reach reach)
{
    const auto &verbs = Monkey::verbs();
    static const int on = Monkey::verbNamed("on");
    const auto isUsable = [&](int verb) {
        return verbs[std::size_t(verb)].reach <= reach
            && (verb != on || reach != Monkey::Reach::Anywhere);
    };
    Monkey::Step step;
    step.verb = in->below(int(verbs.size()));
    while (!isUsable(step.verb))
        step.verb = (step.verb + 1) % int(verbs.size());
    for (const Monkey::Argument &wanted : step.kind().arguments)
        step.arguments.push_back(argument(wanted, in));
    if (step.verb == on)
        step.reaction.push_back(readStep(in, Monkey::Reach::Anywhere));
    return step;
}

} // namespace

// A finding also becomes a script: what is printed is a file for tests/monkey/scripts.
QString KelFuzz::monkey(const QByteArray &bytes)
{
    FuzzBytes in(bytes);
    Monkey::Script script;
    while (!in.isAtEnd() && int(script.size()) < mostSteps)
        script.push_back(readStep(&in, Monkey::Reach::OutermostLoop));
    if (qEnvironmentVariableIsSet("KEL_FUZZ_TRACE"))
        std::fputs(Monkey::toText(script).c_str(), stderr);
    const std::string failure = Monkey::play(script);
    return failure.empty() ? QString()
                           : QString::fromStdString("# " + failure + "\n" + Monkey::toText(script));
}
