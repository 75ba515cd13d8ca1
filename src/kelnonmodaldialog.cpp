// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "kelnonmodaldialog.h"

#include <QtCore/QMutexLocker>

class KELNonModalDialogPrivate
{
public:
    explicit KELNonModalDialogPrivate(QWidget *dialog) : helper(new KELNonModalhelper(dialog)) { }
    ~KELNonModalDialogPrivate() { delete helper; }

    KELNonModalhelper *const helper;

private:
    Q_DISABLE_COPY(KELNonModalDialogPrivate)
};

QMutex KELNonModalDialog::g_modalLock; // NOLINT(cert-err58-cpp)
QList<QPointer<KELNonModalDialog>> KELNonModalDialog::g_nonModalDialogs;

KELNonModalDialog::KELNonModalDialog(QWidget *parent) :
    KELContentView(parent), d(new KELNonModalDialogPrivate(this))
{
    d->helper->setTriggerSource(KELNonModalhelper::TriggerScreen);
    connect(d->helper, &KELNonModalhelper::triggered, this, &KELNonModalDialog::disappeared);
    const QMutexLocker locker(&g_modalLock);
    g_nonModalDialogs.append(this);
}

KELNonModalDialog::~KELNonModalDialog()
{
    {
        const QMutexLocker locker(&g_modalLock);
        g_nonModalDialogs.removeOne(this);
    }
    delete d;
}

void KELNonModalDialog::showOne(KELNonModalDialog *dialog)
{
    // Hide events run application code, which may call activeDialog(): do not hold the lock.
    QList<QPointer<KELNonModalDialog>> dialogs;
    {
        const QMutexLocker locker(&g_modalLock);
        dialogs = g_nonModalDialogs;
    }
    const QPointer<KELNonModalDialog> shown(dialog);
    for (const QPointer<KELNonModalDialog> &other : qAsConst(dialogs)) {
        if (other && other != dialog && other->isVisible())
            other->hide();
    }
    if (shown)
        shown->show();
}

KELNonModalDialog *KELNonModalDialog::activeDialog()
{
    const QMutexLocker locker(&g_modalLock);
    for (const QPointer<KELNonModalDialog> &dialog : qAsConst(g_nonModalDialogs)) {
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

void KELNonModalDialog::setTriggerSource(KELNonModalhelper::TriggerSource source)
{
    d->helper->setTriggerSource(source);
}

KELNonModalhelper::TriggerSource KELNonModalDialog::triggerSource() const
{
    return d->helper->triggerSource();
}

void KELNonModalDialog::enableTime(int ms)
{
    d->helper->enableTime(ms);
}

void KELNonModalDialog::ignoreOnce()
{
    d->helper->ignoreOnce();
}

void KELNonModalDialog::showEvent(QShowEvent *event)
{
    QGraphicsView::showEvent(event);
    d->helper->startTime();
}
