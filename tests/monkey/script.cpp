// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "script.h"

#include "verbs.h"

#include <QtCore/QByteArray>
#include <QtCore/QLocale>

#include <cmath>
#include <limits>
#include <sstream>

namespace {

using namespace Monkey;

std::string numberText(double number)
{
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest).toStdString();
}

bool readNumber(const std::string &word, double *number)
{
    bool ok = false;
    *number = QByteArray::fromStdString(word).toDouble(&ok);
    return ok;
}

// Reads a step from words, beginning with *next.
bool readStep(const std::vector<std::string> &words, std::size_t *next, Step *step)
{
    if (*next >= words.size())
        return false;
    step->verb = verbNamed(words[(*next)++]);
    if (step->verb < 0)
        return false;
    for (std::size_t i = 0; i < step->kind().arguments.size(); ++i) {
        double number = 0;
        if (*next >= words.size() || !readNumber(words[(*next)++], &number))
            return false;
        step->arguments.push_back(number);
    }
    if (step->verb != verbNamed("on"))
        return true;
    step->reaction.emplace_back();
    return readStep(words, next, &step->reaction.front());
}

} // namespace

const std::vector<Verb> &Monkey::verbs()
{
    static const std::vector<Verb> all = [] {
        std::vector<Verb> list;
        addPointerVerbs(&list);
        addItemVerbs(&list);
        addStyleVerbs(&list);
        addControlVerbs(&list);
        addWindowVerbs(&list);
        addBindingVerbs(&list);
        return list;
    }();
    return all;
}

int Monkey::verbNamed(const std::string &name)
{
    for (std::size_t i = 0; i < verbs().size(); ++i) {
        if (name == verbs()[i].name)
            return int(i);
    }
    return -1;
}

double Step::number(int index) const
{
    return index < int(arguments.size()) ? arguments[std::size_t(index)] : 0;
}

int Step::whole(int index) const
{
    const double value = number(index);
    if (std::isnan(value))
        return 0;
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return int(value);
}

std::string Monkey::toText(const Step &step)
{
    std::string text = step.kind().name;
    for (const double argument : step.arguments)
        text += ' ' + numberText(argument);
    for (const Step &reaction : step.reaction)
        text += ' ' + toText(reaction);
    return text;
}

std::string Monkey::toText(const Script &script)
{
    std::string text;
    for (const Step &step : script)
        text += toText(step) + '\n';
    return text;
}

bool Monkey::fromText(const std::string &text, Script *script, std::string *error)
{
    std::istringstream lines(text);
    std::string line;
    for (int lineNumber = 1; std::getline(lines, line); ++lineNumber) {
        std::istringstream stream(line);
        std::vector<std::string> words;
        for (std::string word; stream >> word;)
            words.push_back(word);
        if (words.empty() || words.front().front() == '#')
            continue;
        Step step;
        std::size_t next = 0;
        if (!readStep(words, &next, &step) || next != words.size()) {
            *error = "line " + std::to_string(lineNumber) + " is no step: " + line;
            return false;
        }
        script->push_back(step);
    }
    return true;
}
