// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DIALOGSTAGE_H
#define DIALOGSTAGE_H

#include "hand.h"
#include "keltest.h"
#include "signallog.h"

#include <kelnonmodaldialog.h>
#include <kelroundrectcontrol.h>

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <memory>

using Helper = KELNonModalhelper;

constexpr int patienceMs = 60000;
constexpr int longPeriodMs = 3600000; // ends in no test

// Until a hide that was scheduled by a press, 5 ms, has been carried out: comes after every timer
// that was started before and is shorter, however slow the machine is.
inline void waitForTheHide()
{
    QEventLoop loop;
    QTimer::singleShot(20, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// Finds the helper of a panel while it is constructed: a helper gets its notifier as a child then.
class HelperFinder
{
public:
    HelperFinder() { QCoreApplication::instance()->installEventFilter(&m_filter); }

    QPointer<Helper> helper() const { return m_filter.helper; }

private:
    class Filter : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::ChildAdded && !helper)
                helper = qobject_cast<Helper *>(watched);
            return QObject::eventFilter(watched, event);
        }
        QPointer<Helper> helper;
    } m_filter;
};

// Another window of the application, that covers a corner of the screen and counts its presses.
class Ground : public QWidget
{
public:
    explicit Ground(const QRect &place = QRect(0, 0, 250, 150))
    {
        setWindowFlags(Qt::FramelessWindowHint);
        setGeometry(place);
    }

    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
};

// A panel beside the ground, that notes when it is shown and hidden.
class Panel : public HelperFinder, public KELNonModalDialog
{
public:
    explicit Panel(const QString &name = QString(), QStringList *log = nullptr,
                   QWidget *parent = nullptr) :
        KELNonModalDialog(parent), m_name(name), m_log(log)
    {
        auto *control = new KELRoundRectControl;
        control->setboundRect(0, 0, 200, 100);
        setContent(control);
        move(300, 200);
    }

    // The period that runs, in milliseconds, or -1.
    int period() const { return timer().interval; }
    void endPeriod()
    {
        QVERIFY(period() > 0);
        QTimerEvent event(timer().timerId);
        QCoreApplication::sendEvent(helper(), &event);
    }

    std::function<void()> onShow = [] {};
    std::function<void()> onHide = [] {};

protected:
    void showEvent(QShowEvent *event) override
    {
        note(u"show"_s);
        KELNonModalDialog::showEvent(event);
        onShow();
    }
    void hideEvent(QHideEvent *event) override
    {
        note(u"hide"_s);
        KELNonModalDialog::hideEvent(event);
        onHide();
    }

private:
    QAbstractEventDispatcher::TimerInfo timer() const
    {
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(helper());
        return timers.size() == 1 ? timers.constFirst()
                                  : QAbstractEventDispatcher::TimerInfo(-1, -1, Qt::CoarseTimer);
    }
    void note(const QString &what)
    {
        if (m_log)
            m_log->append(what + QLatin1Char(' ') + m_name);
    }

    const QString m_name;
    QStringList *const m_log;
};

inline void showAndWait(QWidget *window)
{
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
}

// The ground and a panel, both on the screen.
class DialogStage
{
public:
    explicit DialogStage(Input input = Input::Touch) : panel(new Panel), hand(input)
    {
        showAndWait(&ground);
        showAndWait(panel);
        log.listenTo(panel);
    }
    ~DialogStage() { delete panel; }

    void tapOutside() { hand.tap(&ground, ground.rect().center()); }
    void tapInside() { hand.tap(panel, panel->rect().center()); }
    // Sent, so that no time passes.
    void pressOutside()
    {
        const QPoint pos = ground.rect().center();
        QMouseEvent press(QEvent::MouseButtonPress, pos, pos, Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&ground, &press);
    }
    int disappeared() const { return log.count(u"disappeared"_s); }

    Ground ground;
    const QPointer<Panel> panel;
    WindowHand hand;
    SignalLog log;

private:
    Q_DISABLE_COPY(DialogStage)
};

#endif
