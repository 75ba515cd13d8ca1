// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "bindthings.h"

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

bool Thing::record(const char *setter)
{
    constexpr int endless = 2000;
    if (m_calls->size() >= endless)
        return false;
    m_calls->append({setter, m_number, QVariant()});
    return true;
}

void Gauge::setCount(int count)
{
    set("count", &m_count, count, [this]() { Q_EMIT countChanged(m_count); });
}

void Gauge::setLevel(double level)
{
    set("level", &m_level, level, [this]() { Q_EMIT levelChanged(); });
}

void Gauge::setLow(int low)
{
    set("low", &m_low, low, [this]() { Q_EMIT rangeChanged(m_low, m_high); });
}

void Gauge::setHigh(int high)
{
    set("high", &m_high, high, [this]() { Q_EMIT rangeChanged(m_low, m_high); });
}

void Gauge::setSerial(int serial)
{
    set("serial", &m_serial, serial, []() {});
}

void Store::setName(const QString &name)
{
    set("name", &m_name, name, [this]() { Q_EMIT nameChanged(m_name); });
}

void Store::setGrade(Grade grade)
{
    set("grade", &m_grade, grade, [this]() { Q_EMIT gradeChanged(); });
}

void Panel::setText(const QString &text)
{
    set("text", &m_text, text, [this]() { Q_EMIT textChanged(); });
}

void Panel::setNumber(int number)
{
    set("number", &m_number, qBound(-50, number, 50), [this]() { Q_EMIT numberChanged(m_number); });
}

void Panel::setFlag(bool flag)
{
    set("flag", &m_flag, flag, [this]() { Q_EMIT flagChanged(); });
}

void Panel::setRate(double rate)
{
    set("rate", &m_rate, rate, []() {});
}

void Panel::setAny(const QVariant &any)
{
    if (!record("any") || isSame(m_any, any))
        return;
    m_any = any;
    Q_EMIT anyChanged();
}
