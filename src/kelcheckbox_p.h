// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCHECKBOX_P_H
#define KELCHECKBOX_P_H

#include "kelcheckbox.h"
#include "kelroundrectcontrol_p.h"

class KELCheckBoxPrivate
{
public:
    explicit KELCheckBoxPrivate(KELRoundRectControlStyle *style) : ownStyle(style) { }

    KELOwnStyle<KELCheckBoxStyle> ownStyle;
    // Compat: no function of the class sets it, only the tests do
    int layoutMode = 0;
};

#endif
