// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PUSHBUTTONPAGE_H
#define PUSHBUTTONPAGE_H

#include "cardpage.h"

class KELPushButton;

// KELPushButton: buttons to press, and six layouts in four states.
class PushButtonPage : public CardPage
{
    Q_OBJECT

public:
    PushButtonPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(PushButtonPage)

    void addLiveButtons();
    void addLayout(int layout);
    KELPushButton *newSample(int layout, int state) const;
};

#endif
