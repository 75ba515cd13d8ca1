// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELGLIDE_P_H
#define KELGLIDE_P_H

#include <QtCore/QAbstractAnimation>

/*
 * A number that glides to another one, slower towards the end: a page, a knob.
 *
 * It moves only while KELMotion allows; otherwise it arrives at once, inside glideTo(). Whoever
 * hides what moves calls finish(). arrived() is the last thing that each function does: a slot may
 * delete the glide. One that is connected to moved() must not.
 */
class KELGlide : public QAbstractAnimation
{
    Q_OBJECT

public:
    explicit KELGlide(QObject *parent);

    qreal value() const { return m_value; }
    qreal target() const { return m_to; }
    void setValue(qreal value); // at once, without a signal
    void glideTo(qreal target, int ms);
    void finish(); // arrives now, if it is on its way
    int duration() const override { return m_ms; }

Q_SIGNALS:
    void moved(); // value() is another one
    void arrived();

protected:
    void updateCurrentTime(int currentMs) override;

private:
    void arrive();

    qreal m_from = 0;
    qreal m_to = 0;
    qreal m_value = 0;
    int m_ms = 0;
};

#endif
