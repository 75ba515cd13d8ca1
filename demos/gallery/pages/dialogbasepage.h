// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef DIALOGBASEPAGE_H
#define DIALOGBASEPAGE_H

#include "cardpage.h"

#include <QtCore/QPointer>

class KELLabel;
class PinDialog;

// KELDialogBase: a keypad for a PIN that shakes its head.
class DialogBasePage : public CardPage
{
    Q_OBJECT

public:
    DialogBasePage(const PageHost &host, const QRectF &area);
    ~DialogBasePage() override;

    void attached() override;

private:
    Q_DISABLE_COPY(DialogBasePage)

    void dim(bool isDimmed);
    void report(const QString &what, const QString &state);

    KELLabel *m_state;
    KELRoundRectControl *m_shade = nullptr;
    QPointer<PinDialog> m_dialog;
};

#endif
