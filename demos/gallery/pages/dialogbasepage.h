// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DIALOGBASEPAGE_H
#define DIALOGBASEPAGE_H

#include "page.h"

#include <QtCore/QPointer>

class PinDialog;

// KELDialogBase: a keypad for a PIN that shakes its head.
class DialogBasePage : public Page
{
    Q_OBJECT

public:
    DialogBasePage(const PageHost &host, const QRectF &area);
    ~DialogBasePage() override;

    void attached() override;

private:
    Q_DISABLE_COPY(DialogBasePage)

    void report(const QString &what, const QString &state);

    KELRoundRectControl *m_state;
    QPointer<PinDialog> m_dialog;
};

#endif
