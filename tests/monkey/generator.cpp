// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "generator.h"

#include "stage.h"

#include <array>
#include <limits>
#include <numeric>

namespace {

using namespace Monkey;

// splitmix64: the distributions of the standard library differ between its vendors.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) { }

    std::uint64_t next()
    {
        m_state += 0x9e3779b97f4a7c15U;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
        return mixed ^ (mixed >> 31U);
    }
    int below(int limit) { return int(next() % std::uint64_t(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    template <typename Container>
    double oneOf(const Container &values)
    {
        return values[std::size_t(below(int(values.size())))];
    }

private:
    std::uint64_t m_state;
};

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::array<double, 20> oddNumbers = {
    0,        1,        -1,   0.5,   -0.5,   2,
    99,       100,      101,  1e-9,  1e5,    -1e5,
    1e9,      -1e9,     1e38, 1e300, -1e300, std::numeric_limits<double>::quiet_NaN(),
    infinity, -infinity};
constexpr std::array<double, 16> oddWholes = {
    -1, 0, 1, 2, 3, 5, 42, 99, 100, 101, 0x1084, 0x2021, 65535, -2147483648.0, 2147483647.0, -100};
constexpr std::array<double, 12> times = {0, 1, 4, 5, 6, 50, 300, 499, 500, 501, 1000, 3000};

double draw(const Argument &argument, Random *random)
{
    switch (argument.kind) {
    case Kind::Below:
        return random->below(argument.limit);
    case Kind::Place:
        return random->chance(85) ? random->below(21) / 20.0 : random->below(46) / 10.0 - 0.5;
    case Kind::Position:
        return random->chance(95) ? random->below(argument.limit / 5) * 5
                                  : random->oneOf(oddNumbers);
    case Kind::Length:
        if (random->chance(5))
            return random->oneOf(oddNumbers);
        return random->chance(75) ? 10 + random->below(10) * 5 : 80 + random->below(10) * 5;
    case Kind::Number:
        return random->chance(50) ? random->below(200) - 50 : random->oneOf(oddNumbers);
    case Kind::Whole:
        return random->chance(50) ? random->below(6) : random->oneOf(oddWholes);
    case Kind::Time:
        return random->oneOf(times);
    case Kind::Button:
        return random->chance(85) ? 0 : random->below(argument.limit);
    }
    return 0;
}

class Generator
{
public:
    Generator(std::uint64_t seed, int steps) : m_random(seed), m_steps(steps) { }

    Script run()
    {
        populate();
        while (int(m_script.size()) < m_steps) {
            if (m_random.chance(35))
                addGesture();
            else
                addAny(Reach::OutermostLoop);
            if (m_random.chance(35))
                add("turn");
        }
        return m_script;
    }

private:
    Step drawn(int verb)
    {
        Step step;
        step.verb = verb;
        for (const Argument &argument : step.kind().arguments)
            step.arguments.push_back(draw(argument, &m_random));
        if (verb == verbNamed("on"))
            step.reaction.push_back(drawnReaction(step.arguments.front()));
        return step;
    }

    // Often one that deletes something, and often one that is about the sender.
    Step drawnReaction(double sender)
    {
        Step step = drawn(m_random.chance(25) ? verbNamed("delete") : drawVerb(Reach::Anywhere));
        if (m_random.chance(50) && step.arguments.size() > 1)
            step.arguments.front() = sender;
        return step;
    }

    // One that may be used where reach says.
    int drawVerb(Reach reach)
    {
        static const int total = std::accumulate(
            verbs().begin(), verbs().end(), 0,
            [](int sum, const Verb &verb) { return sum + verb.weight; });
        while (true) {
            int left = m_random.below(total);
            int verb = 0;
            while (left >= verbs()[std::size_t(verb)].weight)
                left -= verbs()[std::size_t(verb++)].weight;
            const bool isReaction = verb == verbNamed("on") && reach == Reach::Anywhere;
            if (verbs()[std::size_t(verb)].reach <= reach && !isReaction)
                return verb;
        }
    }

    void addAny(Reach reach) { m_script.push_back(drawn(drawVerb(reach))); }

    // The first arguments are as given, the others are drawn.
    void add(const char *name, std::initializer_list<double> arguments = {})
    {
        Step step = drawn(verbNamed(name));
        std::size_t index = 0;
        for (const double argument : arguments)
            step.arguments.at(index++) = argument;
        m_script.push_back(step);
    }

    void populate()
    {
        for (int view = 1; view < Stage::viewCount; ++view) {
            if (m_random.chance(25))
                add("view", {double(view)});
        }
        for (int item = 0; item < Stage::itemCount; ++item) {
            if (item < radioBoxes)
                add("make", {double(item), 2});
            else if (m_random.chance(80))
                add("make", {double(item)});
        }
        for (int item = 0; item < Stage::itemCount; ++item)
            add("equip", {double(item)});
        for (int item = 0; item < radioBoxes; ++item)
            add("join", {double(item), double(item % 4 / 3), double(item % 3)});
        for (int slot = 0; slot < slotCount; ++slot)
            add("on");
        add("turn");
    }

    void addGesture()
    {
        const double item = m_random.below(Stage::itemCount);
        const double button = m_random.chance(90) ? 0 : m_random.below(3);
        if (m_random.chance(50))
            add("letgo");
        switch (m_random.below(5)) {
        case 0:
            add("press", {item, 0.5, 0.5, button});
            fill();
            add("release", {button});
            break;
        case 1:
            add("tap", {item, 0.5, 0.5});
            if (m_random.chance(60)) // for example on the list of a combo box
                add("tap", {item, 0.5, m_random.below(6) + 0.5});
            break;
        case 2:
            addTouch(item);
            break;
        case 3:
            add("press", {item, 0.5, 0.5, 0});
            add("elapse", {500});
            fill();
            add("release", {0});
            break;
        default:
            add("press", {item, 0.5, 0.5, button});
            add("move", {item});
            fill();
            add("move", {item});
            add("release", {button});
            break;
        }
    }

    void addTouch(double item)
    {
        add("touch", {0, item});
        fill();
        if (m_random.chance(50)) {
            add("touch", {1});
            fill();
            if (m_random.chance(50))
                add("slide", {1});
            if (m_random.chance(70))
                add("lift", {1});
        }
        if (m_random.chance(15))
            add("cancel");
        else if (m_random.chance(85))
            add("lift", {0});
    }

    // Something that happens during a gesture.
    void fill()
    {
        if (m_random.chance(30))
            add("turn");
        if (m_random.chance(35))
            addAny(Reach::OutermostLoop);
    }

    static constexpr int radioBoxes = 4; // three in the first group, one in the second

    static constexpr int slotCount = 16;

    Random m_random;
    const int m_steps;
    Script m_script;
};

} // namespace

Script Monkey::makeChunk(std::uint64_t seed, std::uint64_t number, int steps)
{
    const std::uint64_t chunkSeed = Random(seed).next() ^ Random(~number).next();
    return Generator(chunkSeed, steps).run();
}
