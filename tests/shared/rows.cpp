// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "rows.h"

void addRows(const std::vector<Column> &columns,
             const std::function<bool(const std::vector<int> &)> &isMeant)
{
    for (const Column &column : columns) {
        if (column.values.empty())
            qFatal("The column '%s' has no values", column.name);
        QTest::addColumn<int>(column.name);
    }
    std::vector<size_t> places(columns.size(), 0);
    for (bool isDone = columns.empty(); !isDone;) {
        QStringList name;
        std::vector<int> values;
        for (size_t i = 0; i < columns.size(); ++i) {
            const Named &named = columns[i].values[places[i]];
            name.append(QString::fromUtf8(named.name));
            values.push_back(named.value);
        }
        if (isMeant(values)) {
            QTestData &row = QTest::newRow(qPrintable(name.join(QLatin1String(", "))));
            for (const int value : values)
                row << value;
        }

        // The last column changes first.
        size_t i = columns.size();
        while (i > 0 && ++places[i - 1] == columns[i - 1].values.size())
            places[--i] = 0;
        isDone = i == 0;
    }
}

void addRows(const std::vector<Column> &columns)
{
    addRows(columns, [](const std::vector<int> & /*values*/) { return true; });
}
