// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "room.h"

#include <QtCore/QTimerEvent>
#include <QtCore/QtMath>

namespace {

constexpr int minuteMs = 1000; // of the room
constexpr int historyMinutes = 15;
constexpr int wholeBoostMinutes = 30;
constexpr double boostCelsius = 24;
constexpr double step = 0.5;
constexpr double heatingPerMinute = 0.05;
constexpr double lossPerMinute = 0.002; // of the difference to the air outside
constexpr double outsideCelsius = 12;
constexpr double slack = 0.1; // so near to the goal nothing is done

} // namespace

Room::Room(QObject *parent) : QObject(parent)
{
    // A night, a morning and a day.
    for (int i = 0; i < historySize; ++i)
        m_history.append(20.8 - 1.6 * qCos(2 * M_PI * (i - 14) / historySize));
    m_celsius = m_history.last() + 0.4;
}

void Room::start()
{
    m_timer.start(minuteMs, Qt::CoarseTimer, this);
}

void Room::stop()
{
    m_timer.stop();
}

void Room::tick()
{
    const Activity now = activity();
    const double change = now == Heating ? heatingPerMinute
        : now == Cooling                 ? -heatingPerMinute
                                         : 0;
    m_celsius += change - lossPerMinute * (m_celsius - outsideCelsius);
    m_boostMinutes = qMax(0, m_boostMinutes - 1);
    if (++m_minutes % historyMinutes == 0) {
        m_history.removeFirst();
        m_history.append(m_celsius);
    }
    Q_EMIT changed();
}

void Room::setMode(Mode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    Q_EMIT changed();
}

void Room::setTarget(double celsius)
{
    const double wanted = qBound<double>(leastCelsius, qRound(celsius / step) * step, mostCelsius);
    if (qFuzzyCompare(wanted, m_target))
        return;
    m_target = wanted;
    Q_EMIT changed();
}

double Room::goal() const
{
    return isBoosted() ? qMax(boostCelsius, m_target) : m_target;
}

Room::Activity Room::activity() const
{
    const bool mayHeat = m_mode == Heat || m_mode == Auto;
    const bool mayCool = m_mode == Cool || m_mode == Auto;
    if (mayHeat && m_celsius < goal() - slack)
        return Heating;
    return mayCool && m_celsius > goal() + slack ? Cooling : Resting;
}

void Room::setScheduled(bool scheduled)
{
    if (scheduled == m_isScheduled)
        return;
    m_isScheduled = scheduled;
    Q_EMIT changed();
}

void Room::setBoosted(bool boosted)
{
    if (boosted == isBoosted())
        return;
    m_boostMinutes = boosted ? wholeBoostMinutes : 0;
    Q_EMIT changed();
}

void Room::setHolidayDays(int days)
{
    if (days == m_holidayDays)
        return;
    m_holidayDays = days;
    Q_EMIT changed();
}

void Room::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        tick();
}
