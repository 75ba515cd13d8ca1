// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef RADIOBOXPAGE_H
#define RADIOBOXPAGE_H

#include "cardpage.h"

class KELRadioBoxGroup;

// KELRadioBox and KELRadioBoxGroup: a group of four, selection by program, a box on its own.
class RadioBoxPage : public CardPage
{
    Q_OBJECT

public:
    RadioBoxPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(RadioBoxPage)

    void addGroup();
    void addSelectButtons();
    void addLoner();

    KELRadioBoxGroup *m_group;
};

#endif
