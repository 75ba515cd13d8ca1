// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CHECKBOXPAGE_H
#define CHECKBOXPAGE_H

#include "page.h"

// KELCheckBox: all its looks in two themes, and switches to tap.
class CheckBoxPage : public Page
{
    Q_OBJECT

public:
    CheckBoxPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(CheckBoxPage)

    void addLooks(KELRoundRectControl *panel, const QString &title, bool isDark);
    void addLiveSwitches(KELRoundRectControl *panel);
};

#endif
