// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindthings.h"

#include <QtCore/QDebug>

#include <algorithm>

bool isSame(const QVariant &a, const QVariant &b)
{
    return a.userType() == b.userType() && a == b;
}

bool isSame(const Calls &a, const Calls &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Call &x, const Call &y) {
        return x.object == y.object && qstrcmp(x.function, y.function) == 0
            && isSame(x.value, y.value);
    });
}

QString inWords(const QVariant &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

bool Thing::record(const char *setter)
{
    constexpr int endless = 2000;
    if (m_calls->size() >= endless)
        return false;
    m_calls->append({setter, m_number, QVariant()});
    return true;
}
