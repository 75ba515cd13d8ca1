// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SLIDECONTROLPAGE_H
#define SLIDECONTROLPAGE_H

#include "cardpage.h"

// KELSlideControl: one that a bar follows, bounds, steps and looks.
class SlideControlPage : public CardPage
{
    Q_OBJECT

public:
    SlideControlPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(SlideControlPage)

    void addSlider(int index);
};

#endif
