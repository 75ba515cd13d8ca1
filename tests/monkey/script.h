// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_SCRIPT_H
#define MONKEY_SCRIPT_H

#include <string>
#include <vector>

namespace Monkey {

class Stage;
struct Step;

// What an argument means. The generator draws it accordingly, the shrinker simplifies it.
enum class Kind {
    Below, // a whole number from 0 up to, and not including, the limit
    Place, // a share of the width or height of an item; mostly from 0 to 1
    Position, // item px, mostly inside the view
    Length, // item px, mostly those of a usual control
    Number, // anything, also NaN and the infinities
    Whole, // any int
    Time, // ms
    Button // the left one, mostly
};

struct Argument
{
    const char *name;
    Kind kind;
    int limit;
};

// Where a verb may be used.
enum class Reach {
    Anywhere,
    NotInSlots, // events: they arrive at the event loop, also at that of an open menu
    OutermostLoop // what no slot may do
};

struct Verb
{
    const char *name;
    int weight; // how often the generator draws it
    Reach reach;
    std::vector<Argument> arguments;
    void (*run)(Stage &stage, const Step &step);
};

const std::vector<Verb> &verbs();
int verbNamed(const std::string &name); // or -1

// One line of a script: a verb, its arguments and, for "on", the step that a slot carries out.
struct Step
{
    int verb = -1;
    std::vector<double> arguments;
    std::vector<Step> reaction; // none or one

    const Verb &kind() const { return verbs().at(std::size_t(verb)); }
    double number(int index) const;
    int whole(int index) const; // 0 for NaN, limited to the range of int
    bool flag(int index) const { return whole(index) != 0; }
};

using Script = std::vector<Step>;

std::string toText(const Step &step);
std::string toText(const Script &script);
// Appends to *script. Lines that are empty or begin with # mean nothing. On an error it returns
// false and says in *error which line is wrong.
bool fromText(const std::string &text, Script *script, std::string *error);

} // namespace Monkey

#endif
