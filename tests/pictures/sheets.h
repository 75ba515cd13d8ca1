// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SHEETS_H
#define SHEETS_H

#include "picturebook.h"

struct Sheet
{
    const char *name;
    void (*fill)(PictureBook *book);
};

// All of them, in sheets.cpp.
const std::vector<Sheet> &sheets();

void fillRows(PictureBook *book);
void fillRanges(PictureBook *book);
void fillLists(PictureBook *book);
void fillPickers(PictureBook *book);
void fillPinDialogs(PictureBook *book);
void fillControls(PictureBook *book);
void fillLayouts(PictureBook *book);

#endif
