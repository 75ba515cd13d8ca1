// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ROWS_H
#define ROWS_H

#include <QtTest/QtTest>

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

// The value of a column of the current row. An enumerator, a number or a bool may come from an int.
template <typename Value>
Value fetch(const char *column)
{
    if constexpr (std::is_enum_v<Value> || std::is_same_v<Value, bool>)
        return Value(*static_cast<const int *>(QTest::qData(column, qMetaTypeId<int>())));
    else
        return *static_cast<const Value *>(QTest::qData(column, qMetaTypeId<Value>()));
}

#endif
