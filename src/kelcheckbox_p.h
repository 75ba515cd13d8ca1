// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCHECKBOX_P_H
#define KELCHECKBOX_P_H

class KELCheckBoxPrivate
{
public:
    // kept: no function of the class sets it, only the tests do
    int layoutMode = 0;
};

#endif
