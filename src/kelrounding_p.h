// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELROUNDING_P_H
#define KELROUNDING_P_H

#include <QtCore/QRect>
#include <QtCore/QRectF>
#include <QtCore/QtNumeric>

#include <cmath>
#include <limits>

// How numbers of applications become whole ones, each named after its rule. All accept any number.
// In what becomes an int or a QRect, one beyond the range becomes the nearest in it, NaN becomes 0.
namespace KELRounding {

struct Range
{
    qreal min;
    qreal max;
};

constexpr Range anyInt = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
// Far beyond any screen, and small enough that x + width cannot overflow an int.
constexpr Range screenPx = {1 - (1 << 30), (1 << 30) - 1};
// Text layout counts in 1/64 px, in an int, and subtracts the width of the ellipsis.
constexpr Range textWidthPx = {-16777216, 33554431};

inline qreal bounded(qreal value, const Range &range)
{
    return qIsNaN(value) ? 0 : qBound(range.min, value, range.max);
}

// 2.7 to 2, -2.7 to -2.
inline int towardsZero(qreal value, const Range &range = screenPx)
{
    return int(bounded(value, range));
}

// 2.5 to 3, -2.5 to -2. Each number by itself, unlike QRectF::toRect().
inline QRect halvesUp(const QRectF &rect)
{
    const auto rounded = [](qreal value) { return qRound(bounded(value, screenPx)); };
    return {rounded(rect.x()), rounded(rect.y()), rounded(rect.width()), rounded(rect.height())};
}

// 2.5 to 3, -2.5 to -2. NaN and infinity stay as they are: a float needs no clamping. From 2^23 on
// every float is whole, and may not fit an int.
inline float halvesUp(float value)
{
    return qAbs(value) < 8388608.0F ? float(qRound(value)) : value;
}

// 2.5 to 3, -2.5 to -3. Each number by itself.
inline QRect halvesAwayFromZero(const QRectF &rect)
{
    const auto rounded = [](qreal value) { return towardsZero(std::round(value)); };
    return {rounded(rect.x()), rounded(rect.y()), rounded(rect.width()), rounded(rect.height())};
}

} // namespace KELRounding

#endif
