// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "shrinker.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using namespace Monkey;

class Shrinker
{
public:
    Shrinker(Script script, const std::function<bool(const Script &)> &fails, int maxTries) :
        m_best(std::move(script)), m_fails(fails), m_triesLeft(maxTries)
    { }

    Script run()
    {
        std::size_t before = 0;
        do {
            before = m_best.size();
            dropSteps();
            unwrapReactions();
        } while (m_best.size() < before);
        simplifyNumbers();
        dropSteps();
        return m_best;
    }

private:
    // Keeps the candidate if it fails, too.
    bool accept(const Script &candidate)
    {
        if (m_triesLeft-- <= 0 || !m_fails(candidate))
            return false;
        m_best = candidate;
        return true;
    }

    void dropSteps()
    {
        for (std::size_t size = std::max<std::size_t>(m_best.size() / 2, 1); size > 0; size /= 2) {
            bool isShorter = true;
            while (isShorter && m_triesLeft > 0)
                isShorter = dropRuns(size);
        }
    }

    bool dropRuns(std::size_t size)
    {
        bool isShorter = false;
        // From the end: most of what follows the failure goes at once.
        for (std::size_t end = m_best.size(); end > 0;) {
            const std::size_t begin = end > size ? end - size : 0;
            Script candidate = m_best;
            candidate.erase(candidate.begin() + long(begin), candidate.begin() + long(end));
            isShorter = accept(candidate) || isShorter;
            end = begin;
        }
        return isShorter && size > 1;
    }

    // Is the step needed in a slot, or would it do as well on its own?
    void unwrapReactions()
    {
        for (std::size_t i = 0; i < m_best.size(); ++i) {
            if (m_best[i].reaction.empty())
                continue;
            Script candidate = m_best;
            candidate[i] = m_best[i].reaction.front();
            accept(candidate);
        }
    }

    static std::vector<double *> numbersOf(Step *step)
    {
        std::vector<double *> numbers;
        for (double &number : step->arguments)
            numbers.push_back(&number);
        for (Step &reaction : step->reaction) {
            const std::vector<double *> inner = numbersOf(&reaction);
            numbers.insert(numbers.end(), inner.begin(), inner.end());
        }
        return numbers;
    }

    void simplifyNumbers()
    {
        for (std::size_t i = 0; i < m_best.size(); ++i) {
            const std::size_t count = numbersOf(&m_best[i]).size();
            for (std::size_t k = 0; k < count; ++k)
                simplify(i, k);
        }
    }

    void simplify(std::size_t step, std::size_t index)
    {
        const double old = *numbersOf(&m_best[step])[index];
        const std::array<double, 5> simpler = {0, 1, 0.5, 10, std::round(old)};
        for (const double number : simpler) {
            const bool isSimpler = number != old && std::abs(number) <= std::abs(old)
                && (number == std::round(number) || old != std::round(old));
            if (!isSimpler && !std::isnan(old))
                continue;
            Script candidate = m_best;
            *numbersOf(&candidate[step])[index] = number;
            if (accept(candidate))
                return;
        }
    }

    Script m_best;
    const std::function<bool(const Script &)> &m_fails;
    int m_triesLeft;
};

} // namespace

Script Monkey::shrink(const Script &script, const std::function<bool(const Script &)> &fails,
                      int maxTries)
{
    return Shrinker(script, fails, maxTries).run();
}
