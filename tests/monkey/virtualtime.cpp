// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "virtualtime.h"

#include "windowsystem.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

extern uint qGlobalPostedEventsCount();

namespace Monkey {

class VirtualTime::Animations : public QAnimationDriver
{
public:
    explicit Animations(const VirtualTime *time) : m_time(time) { }
    qint64 elapsed() const override { return m_time->nowMs(); }

private:
    const VirtualTime *const m_time;
};

VirtualTime::VirtualTime() = default;

VirtualTime::~VirtualTime() = default;

void VirtualTime::driveAnimations()
{
    m_animations = std::make_unique<Animations>(this);
    m_animations->install();
}

void VirtualTime::advance(int ms)
{
    constexpr int frameMs = 50;
    constexpr int maxFirings = 1000; // a timer of 0 ms that is never stopped
    const qint64 endMs = m_nowMs + ms;
    int firings = 0;
    while (m_nowMs < endMs) {
        m_nowMs = qMin(m_nowMs + frameMs, endMs);
        while (firings++ < maxFirings && fireNext()) { }
        if (m_animations && m_animations->isRunning())
            m_animations->advance();
    }
}

bool VirtualTime::fireNext()
{
    const auto next = std::min_element(
        m_timers.begin(), m_timers.end(),
        [](const Timer &one, const Timer &other) { return one.dueMs < other.dueMs; });
    if (next == m_timers.end() || next->dueMs > m_nowMs)
        return false;
    next->dueMs = m_nowMs + qMax(next->interval, 1);
    QTimerEvent event(next->id);
    QCoreApplication::sendEvent(next->object, &event);
    return true;
}

bool VirtualTime::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    Q_EMIT awake();
    // An object that waits for an outer event loop to delete it stays posted.
    const uint postedBefore = qGlobalPostedEventsCount();
    QCoreApplication::sendPostedEvents();
    const bool hadEvents = qGlobalPostedEventsCount() != postedBefore;
    const bool hadWindowEvents = QWindowSystemInterface::sendWindowSystemEvents(flags);
    const bool hadTimer = fireNext();
    if (hadEvents || hadWindowEvents || hadTimer)
        return true;
    if ((flags & QEventLoop::WaitForMoreEvents) != 0) {
        Q_EMIT aboutToBlock();
        if (onIdle)
            onIdle();
    }
    return false;
}

bool VirtualTime::hasPendingEvents()
{
    return qGlobalPostedEventsCount() != 0;
}

void VirtualTime::registerTimer(int timerId, int interval, Qt::TimerType type, QObject *object)
{
    m_timers.push_back({timerId, interval, type, object, m_nowMs + interval});
}

bool VirtualTime::unregisterTimer(int timerId)
{
    const auto found = std::find_if(m_timers.begin(), m_timers.end(),
                                    [timerId](const Timer &timer) { return timer.id == timerId; });
    if (found == m_timers.end())
        return false;
    m_timers.erase(found);
    return true;
}

bool VirtualTime::unregisterTimers(QObject *object)
{
    const auto first = std::remove_if(
        m_timers.begin(), m_timers.end(),
        [object](const Timer &timer) { return timer.object == object; });
    const bool found = first != m_timers.end();
    m_timers.erase(first, m_timers.end());
    return found;
}

QList<QAbstractEventDispatcher::TimerInfo> VirtualTime::registeredTimers(QObject *object) const
{
    QList<TimerInfo> infos;
    for (const Timer &timer : m_timers) {
        if (timer.object == object)
            infos.append(TimerInfo(timer.id, timer.interval, timer.type));
    }
    return infos;
}

int VirtualTime::remainingTime(int timerId)
{
    for (const Timer &timer : m_timers) {
        if (timer.id == timerId)
            return int(qMax<qint64>(timer.dueMs - m_nowMs, 0));
    }
    return -1;
}

} // namespace Monkey
