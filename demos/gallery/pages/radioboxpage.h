// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef RADIOBOXPAGE_H
#define RADIOBOXPAGE_H

#include "page.h"

class KELRadioBoxGroup;

// KELRadioBox and KELRadioBoxGroup: a group of four, a box on its own, and selection by program.
class RadioBoxPage : public Page
{
    Q_OBJECT

public:
    RadioBoxPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(RadioBoxPage)

    void addGroup(KELRoundRectControl *panel);
    void addIdCard(KELRoundRectControl *panel);
    void addLoner(KELRoundRectControl *panel);
    void addSelectButtons(const QRectF &area);

    KELRadioBoxGroup *m_group;
};

#endif
