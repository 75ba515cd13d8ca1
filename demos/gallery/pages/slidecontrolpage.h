// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SLIDECONTROLPAGE_H
#define SLIDECONTROLPAGE_H

#include "page.h"

// KELSlideControl: bounds, steps and looks, and one that drives a progress bar.
class SlideControlPage : public Page
{
    Q_OBJECT

public:
    SlideControlPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(SlideControlPage)

    void addSample(const QRectF &cell, int index);
};

#endif
