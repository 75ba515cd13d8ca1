// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELKINETIC_P_H
#define KELKINETIC_P_H

#include "kelglide_p.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>

/*
 * What moves a list: it follows a finger to the pixel, and goes on by itself when the finger lets
 * go.
 *
 * Qt's QScroller does the second part. It is given a straight drag of the finger's last speed: so
 * nothing of its own slop and smoothing is in the first part.
 */
class KELKinetic : public QObject
{
public:
    // Whom it moves. Positions grow downwards, from 0 to the greatest.
    class Client
    {
    public:
        virtual int position() const = 0;
        virtual int greatestPosition() const = 0;
        virtual int extent() const = 0;
        virtual void moveTo(int position) = 0;
        virtual void rested() = 0;

    protected:
        ~Client() = default;
    };

    explicit KELKinetic(Client *client);
    // Instead of delete: Qt may be in the middle of a movement.
    void dispose();

    bool isGliding() const;
    void stop(); // where it is, or at the end that it is beyond

    void grab(qreal finger);
    void follow(qreal finger);
    void letGo();
    // What is in sight has another position, but is where it was.
    void shift(int by);

protected:
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    struct Sample
    {
        qint64 ms;
        qreal finger;
    };

    qreal speed() const; // of the finger, in px for each ms
    void glideBack();
    void moveBack();
    void tellRest();

    Client *m_client;
    KELGlide m_back; // how far it is beyond its end
    QElapsedTimer m_clock;
    Sample m_samples[4] = {};
    int m_sampleCount = 0;
    qreal m_origin = 0; // the position if the finger were at 0
    int m_end = 0;
    bool m_isInEvent = false;
    int m_shift = 0; // from the positions of the scroller
};

#endif
