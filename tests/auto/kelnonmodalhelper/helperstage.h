// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HELPERSTAGE_H
#define HELPERSTAGE_H

#include "keltest.h"
#include "rows.h"
#include "signallog.h"

#include <kelnonmodalhelper.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>

#include <algorithm>

constexpr int hideDelayMs = 5;
constexpr int longPeriodMs = 600000; // ends in no test
constexpr int markedPeriodMs = longPeriodMs + 1;
constexpr int patienceMs = 60000;

using Helper = KELNonModalhelper;
using Source = Helper::TriggerSource;
inline const std::vector<Named> sources = {{"TriggerNone", Helper::TriggerNone},
                                           {"TriggerParent", Helper::TriggerParent},
                                           {"TriggerScreen", Helper::TriggerScreen},
                                           {"a value without a name", 3}};

inline QList<QAbstractEventDispatcher::TimerInfo> timersOf(QObject *object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object);
}

// The running period in ms, or -1; its timer.
inline int periodOf(Helper *helper)
{
    const auto timers = timersOf(helper);
    return timers.isEmpty() ? -1 : timers.constFirst().interval;
}

inline int timerOf(Helper *helper)
{
    return timersOf(helper).constFirst().timerId;
}

// Waits until every hide scheduled so far has been carried out: timers of one length fire in the
// order in which they were started.
inline void letScheduledHidesRun()
{
    QEventLoop loop;
    QTimer::singleShot(hideDelayMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

inline void sendDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The hides that are scheduled and not carried out yet.
inline int scheduledHides()
{
    const QObjectList children = QAbstractEventDispatcher::instance()->children();
    return int(std::count_if(children.cbegin(), children.cend(), [](QObject *child) {
        const auto timers = timersOf(child);
        return !timers.isEmpty() && timers.constFirst().interval == hideDelayMs
            && timers.constFirst().timerType == Qt::PreciseTimer;
    }));
}

inline void sendMouse(QObject *receiver, const QPointF &local, const QPointF &onScreen,
                      QEvent::Type type = QEvent::MouseButtonPress)
{
    QMouseEvent event(type, local, local, onScreen, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
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

// Counts what happens to it.
class CountingWidget : public QWidget
{
public:
    using QWidget::QWidget;
    int shows = 0;
    int hides = 0;
    std::function<void()> whenShown = [] {};
    std::function<void()> whenHidden = [] {};

protected:
    void showEvent(QShowEvent * /*event*/) override
    {
        ++shows;
        whenShown();
    }
    void hideEvent(QHideEvent * /*event*/) override
    {
        ++hides;
        whenHidden();
    }
};

// Takes note of every helper that is made while it lives.
class HelperWatch : public QObject
{
public:
    HelperWatch() { QCoreApplication::instance()->installEventFilter(this); }

    QList<QPointer<Helper>> made; // in the order of creation, with the destroyed ones

    Helper *last() const { return made.isEmpty() ? nullptr : made.constLast().data(); }
    int alive() const { return int(made.size() - made.count(QPointer<Helper>())); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // A helper gets its notifier as a child while it is constructed.
        auto *const helper = qobject_cast<Helper *>(watched);
        if (event->type() == QEvent::ChildAdded && helper && !made.contains(helper))
            made.append(helper);
        return QObject::eventFilter(watched, event);
    }
};

enum class Maker { Application, StaticShow, Nobody };
inline const std::vector<Named> makers = {{"own helper", int(Maker::Application)},
                                          {"helper of the static show()", int(Maker::StaticShow)}};

// A panel in a page in a window, and its helper.
class HelperStage
{
public:
    // With a period, one that begins at once.
    explicit HelperStage(Maker maker = Maker::Application, int periodMs = 0) :
        window(new Window(QRect(20, 30, 400, 300))),
        page(new QWidget(window)),
        panel(new CountingWidget(page))
    {
        // A failed row may have left one.
        if (scheduledHides() > 0)
            letScheduledHidesRun();
        page->setGeometry(0, 0, 400, 300);
        panel->setGeometry(100, 100, 120, 80);
        window->show();
        panel->shows = 0;
        if (maker == Maker::StaticShow) {
            show(Helper::TriggerParent, periodMs > 0, periodMs);
        } else if (maker == Maker::Application) {
            helper = new Helper(panel);
            log.listenTo(helper);
            if (periodMs > 0)
                helper->enableTime(periodMs);
        }
    }

    ~HelperStage()
    {
        log.stop();
        delete helper;
        delete panel;
        delete window;
    }

    // The static one; its helper is that of the stage from now on.
    void show(Source source, bool isTimed = false, int ms = 0)
    {
        const QPointer<Helper> before = helper;
        Helper::show(panel, source, isTimed, ms);
        helper = watch.last();
        if (helper && helper != before)
            log.listenTo(helper);
    }

    void pressInside() { sendMouse(page, inside, inside); }
    void pressOutside()
    {
        if (page)
            sendMouse(page, outside, outside);
    }
    // With all that follows.
    void tapOutside()
    {
        pressOutside();
        letScheduledHidesRun();
        sendDeferredDeletes();
    }

    int period() const { return periodOf(helper); }
    // Begins a period of another length than the next one has, so that a restart is seen: none
    // begins while the panel is hidden.
    void markPeriod()
    {
        helper->enableTime(markedPeriodMs);
        panel->hide();
        helper->enableTime(longPeriodMs);
        panel->show();
        QCOMPARE(period(), markedPeriodMs);
    }
    void endPeriod()
    {
        QTimerEvent event(timerOf(helper));
        QCoreApplication::sendEvent(helper, &event);
    }
    int triggered() const { return log.count(u"triggered"_s); }

    static constexpr QPoint inside = QPoint(150, 140);
    static constexpr QPoint outside = QPoint(50, 40);

    HelperWatch watch;
    const QPointer<Window> window;
    const QPointer<QWidget> page;
    const QPointer<CountingWidget> panel;
    QPointer<Helper> helper;
    SignalLog log;

private:
    Q_DISABLE_COPY(HelperStage)
};

#endif
