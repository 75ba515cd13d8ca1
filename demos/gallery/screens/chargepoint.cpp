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
    m_powers.append(power);
    if (m_powers.size() > keptPowers)
        m_powers.removeFirst();
    Q_EMIT changed();
}

ChargePoint::State ChargePoint::state() const
{
    if (percent() >= m_limit)
        return Done;
    if (!m_isCharging)
        return Stopped;
    return m_isNightOnly && !isNight() ? Waiting : Charging;
}

void ChargePoint::setCharging(bool charging)
{
    if (charging == m_isCharging)
        return;
    m_isCharging = charging;
    if (charging) {
        m_begin = m_now;
        m_kilowattHours = 0;
        m_minutes = 0;
    } else {
        m_sessions.prepend({m_begin, m_kilowattHours, cost()});
    }
    Q_EMIT changed();
}

int ChargePoint::percent() const
{
    return int(m_charge);
}

void ChargePoint::setLimit(int percent)
{
    const int wanted = qBound<int>(leastLimit, percent, mostLimit);
    if (wanted == m_limit)
        return;
    m_limit = wanted;
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
    if (state() != Charging)
        return 0;
    const double ramp = qMin(1.0, (m_minutes + 1.0) / rampMinutes);
    const double slow = m_charge <= slowFromPercent
        ? 1
        : qMax(leastShare, (100 - m_charge) / (100 - slowFromPercent));
    return mostKilowatts * ramp * slow;
}

double ChargePoint::cost() const
{
    return m_kilowattHours * pricePerKilowattHour;
}

// At the power of now.
QDateTime ChargePoint::readyAt() const
{
    const double power = kilowatts();
    if (power <= 0)
        return {};
    const double energy = (m_limit - m_charge) / 100 * batteryKilowattHours;
    return m_now.addSecs(qint64(3600 * energy / power));
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

bool ChargePoint::isNight() const
{
    const int hour = m_now.time().hour();
    return hour >= nightFromHour || hour < nightToHour;
}
