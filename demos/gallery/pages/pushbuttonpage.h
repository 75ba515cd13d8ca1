// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PUSHBUTTONPAGE_H
#define PUSHBUTTONPAGE_H

#include "page.h"

// KELPushButton: six layouts in four states, and buttons to press.
class PushButtonPage : public Page
{
    Q_OBJECT

public:
    PushButtonPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(PushButtonPage)

    void addTable(const QRectF &area);
    void addSample(const QRectF &rect, int layout, int state);
    void addLiveButtons(const QRectF &area);
};

#endif
