// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sheets.h"

const std::vector<Sheet> &sheets()
{
    static const std::vector<Sheet> all = {
        {"row", fillRows},       {"range", fillRanges},         {"list", fillLists},
        {"picker", fillPickers}, {"pindialog", fillPinDialogs}, {"controls", fillControls},
        {"layout", fillLayouts}};
    return all;
}
