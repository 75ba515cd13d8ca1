// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelnonmodalhelper.h"

#include "kelapplicationnotify.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QTimerEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace {

constexpr int defaultTimeoutMs = 3000;
constexpr int hideDelayMs = 5;

// Popups, tool windows, tool tips and splash screens.
bool isPopup(Qt::WindowFlags flags)
{
    return (flags & Qt::Popup) == Qt::Popup;
}

bool isPopupOrWithoutFocus(Qt::WindowFlags flags)
{
    return flags.testFlag(Qt::WindowDoesNotAcceptFocus) || isPopup(flags);
}

bool isInPopupOrWithoutFocus(const QWidget *widget)
{
    if (isPopupOrWithoutFocus(widget->windowFlags()))
        return true;
    const QWidget *const native = widget->nativeParentWidget();
    if (native != nullptr && native->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus))
        return true;
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (isPopup(parent->windowFlags()))
            return true;
    }
    return false;
}

bool isReceiverIgnored(const QObject *receiver)
{
    if (const auto *window = qobject_cast<const QWindow *>(receiver))
        return isPopupOrWithoutFocus(window->flags());
    if (receiver && receiver->isWidgetType())
        return isInPopupOrWithoutFocus(static_cast<const QWidget *>(receiver));
    return true;
}

} // namespace

class KELNonModalhelperPrivate
{
public:
    explicit KELNonModalhelperPrivate(KELNonModalhelper *helper) : q(helper) { }

    void handlePress(const QObject *receiver, const QMouseEvent *event);
    void scheduleHide();
    void hide();
    void startTimer() { timer.start(timeout, Qt::PreciseTimer, q); }

    static QPointer<KELNonModalhelper> shownHelper(const QWidget *widget);

    static QList<QPointer<KELNonModalhelper>> NonModals; // made by the static show()

    KELNonModalhelper *const q;
    KELApplicationNotify *notify = nullptr;
    QPointer<QWidget> widget;
    KELNonModalhelper::TriggerSource triggerSource = KELNonModalhelper::TriggerParent;
    QBasicTimer timer;
    bool timeEnabled = false;
    int timeout = 0;
    bool ignoreOnce = false;
    bool pending = false; // a hide is scheduled
};

QList<QPointer<KELNonModalhelper>> KELNonModalhelperPrivate::NonModals;

void KELNonModalhelperPrivate::handlePress(const QObject *receiver, const QMouseEvent *event)
{
    if (pending || !widget)
        return;
    if (!widget->isVisible()) {
        // Compat: the period runs for a hidden widget too
        if (triggerSource != KELNonModalhelper::TriggerNone)
            q->startTime();
        return;
    }
    if (isReceiverIgnored(receiver) || triggerSource == KELNonModalhelper::TriggerNone)
        return;

    bool isOutside = false;
    if (triggerSource == KELNonModalhelper::TriggerParent)
        isOutside = receiver == widget->parent()
            && !widget->geometry().contains(event->localPos().toPoint());
    else if (triggerSource == KELNonModalhelper::TriggerScreen)
        isOutside = !widget->geometry().contains(event->screenPos().toPoint());

    if (isOutside)
        scheduleHide();
    else
        q->startTime();
}

void KELNonModalhelperPrivate::scheduleHide()
{
    // Qt delivers a press to the native window and to the widget: handle it once.
    pending = true;
    QTimer::singleShot(hideDelayMs, Qt::PreciseTimer, q, [this] { hide(); });
}

void KELNonModalhelperPrivate::hide()
{
    if (ignoreOnce || !widget) {
        ignoreOnce = false;
        pending = false;
        return;
    }
    const QPointer<KELNonModalhelper> alive(q);
    timer.stop();
    widget->hide();
    // Compat: also when the widget was hidden already
    if (alive)
        Q_EMIT q->triggered();
    if (alive)
        pending = false;
}

QPointer<KELNonModalhelper> KELNonModalhelperPrivate::shownHelper(const QWidget *widget)
{
    const auto found = std::find_if(NonModals.cbegin(), NonModals.cend(),
                                    [widget](const QPointer<KELNonModalhelper> &helper) {
                                        return !helper.isNull() && helper->d->widget == widget;
                                    });
    return found == NonModals.cend() ? nullptr : *found;
}

KELNonModalhelper::KELNonModalhelper(QWidget *widget) : d(new KELNonModalhelperPrivate(this))
{
    d->widget = widget;
    d->notify = new KELApplicationNotify(this, QEvent::MouseButtonPress);
    connect(
        d->notify, &KELApplicationNotify::notify, d->notify,
        [this](QObject *receiver, QEvent *event) {
            // Applications may emit notify() themselves, with any event.
            if (event->type() == QEvent::MouseButtonPress)
                d->handlePress(receiver, static_cast<QMouseEvent *>(event));
        },
        Qt::DirectConnection);
    if (QCoreApplication *app = QCoreApplication::instance())
        app->installEventFilter(d->notify);
}

KELNonModalhelper::~KELNonModalhelper()
{
    KELNonModalhelperPrivate::NonModals.removeOne(this);
    // The helper may outlive the application object.
    if (QCoreApplication *app = QCoreApplication::instance())
        app->removeEventFilter(d->notify);
    d->timer.stop();
    delete d;
}

void KELNonModalhelper::setTriggerSource(TriggerSource source)
{
    d->triggerSource = source;
}

KELNonModalhelper::TriggerSource KELNonModalhelper::triggerSource() const
{
    return d->triggerSource;
}

void KELNonModalhelper::enableTime(int ms)
{
    d->timeEnabled = true;
    d->timeout = ms < 1 ? defaultTimeoutMs : ms;
    if (d->widget && !d->widget->isHidden())
        d->startTimer();
}

void KELNonModalhelper::stopTime()
{
    // Compat: the period stays enabled, and starts at the next show
    d->timer.stop();
}

bool KELNonModalhelper::isTimeEnable() const
{
    return d->timeEnabled;
}

void KELNonModalhelper::startTime()
{
    if (d->timeEnabled)
        d->startTimer();
}

void KELNonModalhelper::ignoreOnce()
{
    d->ignoreOnce = true;
}

void KELNonModalhelper::show()
{
    if (!d->widget)
        return;
    const QPointer<KELNonModalhelper> alive(this);
    d->widget->show();
    if (alive)
        startTime();
}

void KELNonModalhelper::show(QWidget *widget, TriggerSource source, bool enableTimer, int ms)
{
    if (!widget)
        return;
    QPointer<KELNonModalhelper> helper = KELNonModalhelperPrivate::shownHelper(widget);
    const bool isNew = helper.isNull() || widget->isHidden();
    if (isNew) {
        const QPointer<QWidget> aliveWidget(widget);
        delete helper;
        if (!aliveWidget)
            return;
        helper = new KELNonModalhelper(widget);
        connect(helper, &KELNonModalhelper::triggered, helper, &QObject::deleteLater);
        connect(widget, &QObject::destroyed, helper, [helper] { delete helper; });
        helper->setTriggerSource(source);
    }
    if (enableTimer)
        helper->enableTime(ms);
    else
        helper->stopTime();
    if (!isNew)
        return;
    // Registered before the widget is shown: its show event may call this again.
    KELNonModalhelperPrivate::NonModals.append(helper);
    helper->show();
}

void KELNonModalhelper::timerEvent(QTimerEvent *event)
{
    QObject::timerEvent(event);
    if (event->timerId() != d->timer.timerId())
        return;
    d->timer.stop();
    if (!d->widget || d->widget->isHidden())
        return;
    const QPointer<KELNonModalhelper> alive(this);
    d->widget->hide();
    if (alive)
        Q_EMIT triggered();
}
