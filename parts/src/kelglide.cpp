// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelglide_p.h"

#include "kelmotion.h"

namespace {

constexpr int frameMs = 16;

} // namespace

void KELGlide::setValue(qreal value)
{
    m_timer.stop();
    m_to = m_value = value;
    m_left = 0;
}

void KELGlide::glideTo(qreal target, int ms, QObject *owner)
{
    m_from = m_value;
    m_to = target;
    m_left = 1;
    m_ms = ms;
    if (!KELMotion::isEnabled() || ms <= 0) {
        setValue(target);
        return;
    }
    m_clock.start();
    m_timer.start(frameMs, owner);
}

void KELGlide::finish()
{
    if (isMoving())
        setValue(m_to);
}

bool KELGlide::tick(int timerId)
{
    if (timerId != m_timer.timerId())
        return false;
    showAt(m_clock.elapsed());
    return true;
}

void KELGlide::showAt(qint64 elapsedMs)
{
    if (elapsedMs >= m_ms) {
        setValue(m_to);
        return;
    }
    m_left = 1 - qreal(elapsedMs) / m_ms;
    m_value = m_to - (m_to - m_from) * m_left * m_left * m_left;
}
