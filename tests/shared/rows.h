// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ROWS_H
#define ROWS_H

#include <QtTest/QtTest>

#include <functional>
#include <type_traits>
#include <vector>

struct Named
{
    const char *name;
    int value;
};

struct Column
{
    const char *name;
    std::vector<Named> values;
};

// Adds a data row for each combination: addRows({{"input", inputs}, {"way", deletionWays}}). A test
// reads a column with fetch<Input>("input").
void addRows(const std::vector<Column> &columns);

// The names of cases, each with its place among them: cases[fetch<size_t>("case")] is that of a
// row.
template <typename Cases>
std::vector<Named> namesOf(const Cases &cases)
{
    std::vector<Named> names;
    for (const auto &one : cases)
        names.push_back({one.name, int(names.size())});
    return names;
}

// The value of a column of the current row. Enumerators, bool and size_t are read from a column of
// int.
template <typename Value>
Value fetch(const char *column)
{
    constexpr bool isPlace = std::is_same_v<Value, size_t>;
    if constexpr (std::is_enum_v<Value> || std::is_same_v<Value, bool> || isPlace)
        return Value(*static_cast<const int *>(QTest::qData(column, qMetaTypeId<int>())));
    else
        return *static_cast<const Value *>(QTest::qData(column, qMetaTypeId<Value>()));
}

// The same without meaningless combinations: isMeant() says whether to keep one.
void addRows(const std::vector<Column> &columns,
             const std::function<bool(const std::vector<int> &)> &isMeant);

#endif
