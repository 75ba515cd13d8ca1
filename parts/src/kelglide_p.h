// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELGLIDE_P_H
#define KELGLIDE_P_H

#include <QtCore/QBasicTimer>
#include <QtCore/QElapsedTimer>

/*
 * A number that glides to another one, slower towards the end: a page, a knob.
 *
 * It moves only while KELMotion allows; otherwise it arrives at once, inside glideTo(). Its owner
 * gives it the timer events, and looks at value() and isMoving() after each function that changes
 * them. Whoever hides what moves calls finish().
 */
class KELGlide
{
public:
    qreal value() const { return m_value; }
    // The share of the time that is left: 1 when it starts, 0 when it has arrived.
    qreal timeLeft() const { return m_left; }
    bool isMoving() const { return m_timer.isActive(); }

    void setValue(qreal value); // at once
    void glideTo(qreal target, int ms, QObject *owner);
    void stop() { m_timer.stop(); } // where it is
    void finish(); // arrives now, if it is on its way
    // Returns false if the timer is another one.
    bool tick(int timerId);
    void showAt(qint64 elapsedMs);

private:
    QBasicTimer m_timer;
    QElapsedTimer m_clock;
    qreal m_from = 0;
    qreal m_to = 0;
    qreal m_value = 0;
    qreal m_left = 0;
    int m_ms = 0;
};

#endif
