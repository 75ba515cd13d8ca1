// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelglide_p.h"

#include "kelmotion.h"

#include <QtCore/QPointer>

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
    updateCurrentTime(ms);
}

void KELGlide::finish()
{
    if (state() == Stopped)
        return;
    stop();
    updateCurrentTime(m_ms);
}

void KELGlide::updateCurrentTime(int currentMs)
{
    const bool isThere = currentMs >= m_ms;
    const qreal left = isThere ? 0 : 1 - qreal(currentMs) / m_ms;
    m_value = m_to - (m_to - m_from) * left * left * left;
    const QPointer<KELGlide> self(this);
    Q_EMIT moved();
    if (self && isThere && m_value == m_to)
        Q_EMIT arrived();
}
