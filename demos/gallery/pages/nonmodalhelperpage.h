// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef NONMODALHELPERPAGE_H
#define NONMODALHELPERPAGE_H

#include "page.h"

#include <QtCore/QPointer>

class KELRadioBoxGroup;

// KELNonModalhelper: any widget as a popup, here a small view inside the gallery's window.
class NonModalHelperPage : public Page
{
    Q_OBJECT

public:
    NonModalHelperPage(const PageHost &host, const QRectF &area);
    ~NonModalHelperPage() override;

    void attached() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(NonModalHelperPage)

    void addTimeouts(KELRoundRectControl *panel);
    void addOpener(const QRectF &rect);
    void showPopup();

    KELRadioBoxGroup *const m_timeouts;
    KELRoundRectControl *m_frame;
    QPointer<KELContentView> m_popup;
    bool m_wasVisible = false; // when the opener was pressed
};

#endif
