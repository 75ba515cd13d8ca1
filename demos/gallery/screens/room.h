// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ROOM_H
#define ROOM_H

#include <QtCore/QBasicTimer>
#include <QtCore/QObject>
#include <QtCore/QVector>

/*
 * A room with a thermostat, and a heating that takes its time: a minute of the room passes in each
 * second while someone looks.
 */
class Room : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double target READ target WRITE setTarget NOTIFY changed)
    Q_PROPERTY(bool schedule READ isScheduled WRITE setScheduled NOTIFY changed)
    Q_PROPERTY(bool boost READ isBoosted WRITE setBoosted NOTIFY changed)

public:
    enum Mode : int { Off, Heat, Cool, Auto };
    enum Activity : int { Resting, Heating, Cooling };

    explicit Room(QObject *parent = nullptr);

    void start();
    void stop();
    // Lets a minute of the room pass.
    void tick();

    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    // What it is to be, in degrees Celsius, from 5 to 30 in steps of 0.5.
    double target() const { return m_target; }
    void setTarget(double celsius);
    // What the thermostat aims at now: the target, or more while it is boosted.
    double goal() const;
    double celsius() const { return m_celsius; }
    int humidity() const { return m_humidity; }
    Activity activity() const;

    bool isScheduled() const { return m_isScheduled; }
    void setScheduled(bool scheduled);
    bool isBoosted() const { return m_boostMinutes > 0; }
    void setBoosted(bool boosted);
    int boostMinutes() const { return m_boostMinutes; }
    int holidayDays() const { return m_holidayDays; }
    void setHolidayDays(int days);
    // One value for each quarter of an hour of the last 24 hours.
    const QVector<double> &history() const { return m_history; }

    enum : int { leastCelsius = 5, mostCelsius = 30, historySize = 96 };

Q_SIGNALS:
    void changed();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    Q_DISABLE_COPY(Room)

    QBasicTimer m_timer;
    Mode m_mode = Heat;
    double m_target = 22;
    double m_celsius = 21.5;
    int m_humidity = 46;
    bool m_isScheduled = true;
    int m_boostMinutes = 0;
    int m_holidayDays = 0;
    int m_minutes = 0;
    QVector<double> m_history;
};

#endif
