// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_VIRTUALTIME_H
#define MONKEY_VIRTUALTIME_H

#include <QtCore/QAbstractAnimation>
#include <QtCore/QAbstractEventDispatcher>

#include <functional>
#include <memory>
#include <vector>

namespace Monkey {

/*
 * An event dispatcher whose clock stands still until advance() is called, so that a script gives
 * the same result on a fast and on a slow machine, and nobody waits. Animations follow its clock.
 *
 * Install it before the application object is created.
 */
class VirtualTime : public QAbstractEventDispatcher
{
public:
    VirtualTime();
    ~VirtualTime() override;

    // Fires the timers that are due, in their order.
    void advance(int ms);
    qint64 nowMs() const { return m_nowMs; }

    // Called when a nested event loop would sleep.
    std::function<void()> onIdle;
    // After the application object has been created.
    void driveAnimations();

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override;
    void registerTimer(int timerId, int interval, Qt::TimerType type, QObject *object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject *object) override;
    QList<TimerInfo> registeredTimers(QObject *object) const override;
    int remainingTime(int timerId) override;
    void registerSocketNotifier(QSocketNotifier * /*notifier*/) override { }
    void unregisterSocketNotifier(QSocketNotifier * /*notifier*/) override { }
    void wakeUp() override { }
    void interrupt() override { }
    void flush() override { }

private:
    struct Timer
    {
        int id;
        int interval;
        Qt::TimerType type;
        QObject *object;
        qint64 dueMs;
    };
    class Animations;

    bool fireNext();

    std::vector<Timer> m_timers;
    qint64 m_nowMs = 0;
    std::unique_ptr<QAnimationDriver> m_animations;
};

} // namespace Monkey

#endif
