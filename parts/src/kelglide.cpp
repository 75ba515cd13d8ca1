// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelglide_p.h"

#include "kelmotion.h"

#include <QtCore/QPointer>

KELGlide::KELGlide(QObject *parent) : QAbstractAnimation(parent)
{
    // The last thing that Qt does, so that a slot may delete the glide.
    connect(this, &QAbstractAnimation::finished, this, &KELGlide::arrived);
}

void KELGlide::setValue(qreal value)
{
    stop();
    m_from = m_to = m_value = value;
}

void KELGlide::glideTo(qreal target, int ms)
{
    stop();
    m_from = m_value;
    m_to = target;
    m_ms = ms;
    if (KELMotion::isEnabled() && ms > 0) {
        start();
        return;
    }
    arrive();
}

void KELGlide::finish()
{
    if (state() == Stopped)
        return;
    stop();
    arrive();
}

void KELGlide::arrive()
{
    const QPointer<KELGlide> self(this);
    updateCurrentTime(m_ms);
    if (self && state() == Stopped)
        Q_EMIT arrived();
}

void KELGlide::updateCurrentTime(int currentMs)
{
    const bool isThere = currentMs >= m_ms;
    const qreal left = isThere ? 0 : 1 - qreal(currentMs) / m_ms;
    m_value = m_to - (m_to - m_from) * left * left * left;
    Q_EMIT moved();
}
