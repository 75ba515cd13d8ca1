// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SLIDERANDBAR_H
#define SLIDERANDBAR_H

#include "cardpage.h"

class KELProcessBar;
class KELPushButton;
class KELSlideControl;

// A slider and a bar that follow each other, and buttons that set the bar.
struct SliderAndBar
{
    KELSlideControl *slider;
    KELProcessBar *bar;
    QVector<KELPushButton *> setters;

    QVector<CardPage::Sample> buttons() const;
};

// With bar as the bar. Their value is remembered, and their signals are logged.
SliderAndBar newSliderAndBar(const PageHost &host, KELProcessBar *bar);

#endif
