// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CHECKBOXPAGE_H
#define CHECKBOXPAGE_H

#include "cardpage.h"

class KELCheckBox;

// KELCheckBox: switches to tap, in the colours of the theme and in others.
class CheckBoxPage : public CardPage
{
    Q_OBJECT

public:
    CheckBoxPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(CheckBoxPage)

    Sample newSwitch(qreal width, bool isCheckedAtFirst);
    void addLooks(const QString &caption, bool isDressed);
};

#endif
