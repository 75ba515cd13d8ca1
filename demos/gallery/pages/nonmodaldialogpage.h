// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef NONMODALDIALOGPAGE_H
#define NONMODALDIALOGPAGE_H

#include "cardpage.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>

class KELNonModalDialog;
class KELProcessBar;
class KELPushButton;

// KELNonModalDialog: a panel that closes by itself, and two panels of which one shows at a time.
class NonModalDialogPage : public CardPage
{
    Q_OBJECT

public:
    NonModalDialogPage(const PageHost &host, const QRectF &area);
    ~NonModalDialogPage() override;

    void attached() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(NonModalDialogPage)

    KELPushButton *addOpener(const QString &about, const QString &text, const QString &objectName);
    KELNonModalDialog *makePanel(const QString &title, KELRoundRectControl *content);
    void makeSettings();
    void makeSteps();
    void connectOpener(KELPushButton *opener, const QVector<KELNonModalDialog *> &panels);
    void showBelow(const KELRoundRectControl *opener, KELNonModalDialog *panel);
    void place(const KELRoundRectControl *opener, KELNonModalDialog *panel) const;
    void restartCountdown();
    void showCountdown();

    KELPushButton *m_settingsOpener = nullptr;
    KELPushButton *m_stepsOpener = nullptr;
    QPointer<KELNonModalDialog> m_settings;
    QObject *m_settingsViewport = nullptr; // sends events also while the panel is being deleted
    QPointer<KELNonModalDialog> m_firstStep;
    QPointer<KELNonModalDialog> m_secondStep;
    QPointer<KELProcessBar> m_bar;
    QDeadlineTimer m_deadline;
    QTimer m_ticks;
};

#endif
