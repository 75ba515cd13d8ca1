// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CHARGEPOINT_H
#define CHARGEPOINT_H

#include <QtCore/QBasicTimer>
#include <QtCore/QDateTime>
#include <QtCore/QObject>
#include <QtCore/QVector>

/*
 * A charge point with a car at it. A minute of charging passes in each second while someone looks.
 */
class ChargePoint : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int percent READ percent NOTIFY changed)
    Q_PROPERTY(int limit READ limit WRITE setLimit NOTIFY changed)
    Q_PROPERTY(bool locked READ isLocked WRITE setLocked NOTIFY changed)
    Q_PROPERTY(bool nightOnly READ isNightOnly WRITE setNightOnly NOTIFY changed)

public:
    enum State : int { Stopped, Charging, Waiting, Done };

    // now is the time of the charge point.
    explicit ChargePoint(const QDateTime &now = QDateTime::currentDateTime(),
                         QObject *parent = nullptr);

    void start();
    void stop();
    // Lets a minute pass.
    void tick();

    State state() const;
    void setCharging(bool charging);
    int percent() const;
    // Up to what percent it charges, from 20 to 100.
    int limit() const { return m_limit; }
    void setLimit(int percent);
    bool isLocked() const { return m_isLocked; }
    void setLocked(bool locked);
    // Waits by day.
    bool isNightOnly() const { return m_isNightOnly; }
    void setNightOnly(bool nightOnly);
    double kilowatts() const;
    double kilowattHours() const { return m_kilowattHours; }
    int minutes() const { return m_minutes; }
    double cost() const;
    QDateTime now() const { return m_now; }
    QDateTime readyAt() const;
    const QVector<double> &powers() const { return m_powers; } // kW, of the last minutes

    enum : int { leastLimit = 20, mostLimit = 100, keptPowers = 60 };
    static double tariff();

    struct Session
    {
        QDateTime begin;
        double kilowattHours;
        double cost;
    };
    // The newest first; the one that goes on is not among them.
    const QVector<Session> &sessions() const { return m_sessions; }

Q_SIGNALS:
    void changed();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    Q_DISABLE_COPY(ChargePoint)
    bool isNight() const;
    void finish(bool isDone);

    QBasicTimer m_timer;
    QDateTime m_now;
    QDateTime m_begin;
    double m_charge = 64; // percent
    int m_limit = 80;
    bool m_isCharging = true;
    bool m_isDone = false; // and not stopped by hand
    bool m_isLocked = true;
    bool m_isNightOnly = false;
    double m_kilowattHours = 18.6;
    int m_minutes = 52;
    QVector<double> m_powers;
    QVector<Session> m_sessions;
};

#endif
