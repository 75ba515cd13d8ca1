// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HELPERSTAGE_H
#define HELPERSTAGE_H

#include "keltest.h"

#include <kelnonmodalhelper.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>

#include <algorithm>
#include <functional>

namespace HelperStage {

constexpr int hideDelayMs = 5;
constexpr int longPeriodMs = 600000; // ends in no test
constexpr int patienceMs = 60000;

using Source = KELNonModalhelper::TriggerSource;
inline const Source none = KELNonModalhelper::TriggerNone;
inline const Source parent = KELNonModalhelper::TriggerParent;
inline const Source screen = KELNonModalhelper::TriggerScreen;
inline const Source otherSource = Source(3);

inline QList<QAbstractEventDispatcher::TimerInfo> timersOf(QObject *object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object);
}

// The running period in ms, or -1.
inline int periodOf(KELNonModalhelper *helper)
{
    const auto timers = timersOf(helper);
    return timers.isEmpty() ? -1 : timers.constFirst().interval;
}

inline int remainingMs(KELNonModalhelper *helper)
{
    const auto timers = timersOf(helper);
    return timers.isEmpty()
        ? -1
        : QAbstractEventDispatcher::instance()->remainingTime(timers.constFirst().timerId);
}

// Waits until every hide scheduled so far has been carried out: timers of one length fire in the
// order in which they were started.
inline void letScheduledHidesRun()
{
    QEventLoop loop;
    QTimer::singleShot(hideDelayMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// The hides that are scheduled and not carried out yet.
inline int scheduledHides()
{
    int count = 0;
    const QObjectList children = QAbstractEventDispatcher::instance()->children();
    for (QObject *child : children) {
        const auto timers = timersOf(child);
        count += !timers.isEmpty() && timers.constFirst().interval == hideDelayMs
            && timers.constFirst().timerType == Qt::PreciseTimer;
    }
    return count;
}

inline void sendMouse(QObject *receiver, const QPointF &local, const QPointF &onScreen,
                      QEvent::Type type = QEvent::MouseButtonPress,
                      Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, local, local, onScreen, button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(receiver, &event);
}

// Without a title bar, and at a place where the window system leaves it.
class Window : public QWidget
{
public:
    explicit Window(const QRect &geometry, QWidget *parentWidget = nullptr,
                    Qt::WindowFlags flags = Qt::Window) :
        QWidget(parentWidget, flags | Qt::FramelessWindowHint)
    {
        setGeometry(geometry);
    }
};

// A window with a panel in it, which the helper watches.
struct PanelInWindow
{
    PanelInWindow() : window(QRect(20, 30, 400, 300)), panel(new QWidget(&window))
    {
        panel->setGeometry(panelRect);
        window.show();
    }

    void pressOutside() { sendMouse(&window, outside, outside); }
    void pressInside() { sendMouse(&window, inside, inside); }

    static constexpr QRect panelRect = QRect(100, 100, 120, 80);
    static constexpr QPoint inside = QPoint(150, 140);
    static constexpr QPoint outside = QPoint(50, 40);

    Window window;
    QPointer<QWidget> panel;
};

// Counts what happens to it.
class CountingWidget : public QWidget
{
public:
    using QWidget::QWidget;
    int shows = 0;
    int hides = 0;
    std::function<void()> whenShown;
    std::function<void()> whenHidden;

protected:
    void showEvent(QShowEvent * /*event*/) override
    {
        ++shows;
        if (whenShown)
            whenShown();
    }
    void hideEvent(QHideEvent * /*event*/) override
    {
        ++hides;
        if (whenHidden)
            whenHidden();
    }
};

// Takes note of every helper that is made while it lives.
class HelperWatch : public QObject
{
public:
    HelperWatch() { QCoreApplication::instance()->installEventFilter(this); }

    QList<QPointer<KELNonModalhelper>> made; // in the order of creation, with the destroyed ones

    KELNonModalhelper *last() const { return made.isEmpty() ? nullptr : made.constLast().data(); }

    int alive() const
    {
        return int(std::count_if(made.cbegin(), made.cend(),
                                 [](const QPointer<KELNonModalhelper> &helper) { return helper; }));
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // A helper gets its notifier as a child while it is constructed.
        if (event->type() == QEvent::ChildAdded) {
            auto *const helper = qobject_cast<KELNonModalhelper *>(watched);
            if (helper && !made.contains(helper))
                made.append(helper);
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace HelperStage

#endif
