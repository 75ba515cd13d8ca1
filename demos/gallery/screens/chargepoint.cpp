// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "chargepoint.h"

#include <QtCore/QTimerEvent>

namespace {

constexpr int minuteMs = 1000; // of charging
constexpr double batteryKilowattHours = 60;
constexpr double mostKilowatts = 22;
constexpr int rampMinutes = 4;
constexpr double slowFromPercent = 80; // from here on a battery takes less and less
constexpr double leastShare = 0.2;
constexpr double pricePerKilowattHour = 0.42;
constexpr int nightFromHour = 22;
constexpr int nightToHour = 6;
constexpr int minutesADay = 24 * 60;

// In kW: it begins slowly, and ends slowly.
double powerAt(double percent, int minutes)
{
    const double ramp = qMin(1.0, (minutes + 1.0) / rampMinutes);
    const double slow = percent <= slowFromPercent
        ? 1
        : qMax(leastShare, (100 - percent) / (100 - slowFromPercent));
    return mostKilowatts * ramp * slow;
}

} // namespace

ChargePoint::ChargePoint(const QDateTime &now, QObject *parent) :
    QObject(parent), m_now(now), m_begin(now)
{
    m_begin = now.addSecs(-60 * m_minutes);
    for (int minute = 0; minute < m_minutes; ++minute)
        m_powers.append(mostKilowatts * qMin(1.0, (minute + 1.0) / rampMinutes)
                        * (1 - 0.02 * (minute % 5)));
    for (int day = 1; day <= 20; ++day) {
        const double energy = 8 + (day * 7) % 23;
        m_sessions.append({now.addDays(-day), energy, energy * pricePerKilowattHour});
    }
}

void ChargePoint::start()
{
    m_timer.start(minuteMs, Qt::CoarseTimer, this);
}

void ChargePoint::stop()
{
    m_timer.stop();
}

void ChargePoint::tick()
{
    m_now = m_now.addSecs(60);
    const double power = kilowatts();
    if (state() == Charging) {
        const double energy = power / 60;
        m_kilowattHours += energy;
        m_charge = qMin<double>(m_limit, m_charge + 100 * energy / batteryKilowattHours);
        ++m_minutes;
    }
    if (m_isCharging && percent() >= m_limit)
        finish(true);
    m_powers.append(power);
    if (m_powers.size() > keptPowers)
        m_powers.removeFirst();
    Q_EMIT changed();
}

ChargePoint::State ChargePoint::state() const
{
    if (!m_isCharging)
        return m_isDone ? Done : Stopped;
    return m_isNightOnly && !isNight() ? Waiting : Charging;
}

void ChargePoint::setCharging(bool charging)
{
    if (charging == m_isCharging || (charging && percent() >= m_limit))
        return;
    if (charging) {
        m_isCharging = true;
        m_isDone = false;
        m_begin = m_now;
        m_kilowattHours = 0;
        m_minutes = 0;
    } else {
        finish(false);
    }
    Q_EMIT changed();
}

int ChargePoint::percent() const
{
    return int(m_charge);
}

void ChargePoint::setLimit(int limit)
{
    const int wanted = qBound<int>(leastLimit, limit, mostLimit);
    if (wanted == m_limit)
        return;
    m_limit = wanted;
    if (m_isCharging && percent() >= m_limit)
        finish(true);
    else if (percent() < m_limit)
        m_isDone = false; // it goes on when someone starts it
    Q_EMIT changed();
}

void ChargePoint::setLocked(bool locked)
{
    if (locked == m_isLocked)
        return;
    m_isLocked = locked;
    Q_EMIT changed();
}

void ChargePoint::setNightOnly(bool nightOnly)
{
    if (nightOnly == m_isNightOnly)
        return;
    m_isNightOnly = nightOnly;
    Q_EMIT changed();
}

double ChargePoint::kilowatts() const
{
    return state() == Charging ? powerAt(m_charge, m_minutes) : 0;
}

double ChargePoint::cost() const
{
    return m_kilowattHours * pricePerKilowattHour;
}

QDateTime ChargePoint::readyAt() const
{
    if (state() != Charging)
        return {};
    double charge = m_charge;
    int minutes = 0;
    while (charge < m_limit && minutes < minutesADay) {
        charge += 100 * powerAt(charge, m_minutes + minutes) / 60 / batteryKilowattHours;
        ++minutes;
    }
    return m_now.addSecs(60 * minutes);
}

double ChargePoint::tariff()
{
    return pricePerKilowattHour;
}

void ChargePoint::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_timer.timerId())
        tick();
}

void ChargePoint::finish(bool isDone)
{
    m_isCharging = false;
    m_isDone = isDone;
    m_sessions.prepend({m_begin, m_kilowattHours, cost()});
}

bool ChargePoint::isNight() const
{
    const int hour = m_now.time().hour();
    return hour >= nightFromHour || hour < nightToHour;
}
