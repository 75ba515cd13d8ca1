// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef NONMODALHELPERPAGE_H
#define NONMODALHELPERPAGE_H

#include "cardpage.h"

#include <QtCore/QPointer>

class KELContentView;
class KELRadioBoxGroup;

// KELNonModalhelper: any widget as a popup, here a small view inside the gallery's window.
class NonModalHelperPage : public CardPage
{
    Q_OBJECT

public:
    NonModalHelperPage(const PageHost &host, const QRectF &area);
    ~NonModalHelperPage() override;

    void attached() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(NonModalHelperPage)

    void addOpener();
    void addTimeouts();
    void placePopup();
    void showPopup();

    KELRadioBoxGroup *const m_timeouts;
    QPointer<KELContentView> m_popup;
    bool m_wasVisible = false; // when the opener was pressed
};

#endif
