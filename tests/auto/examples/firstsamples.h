// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FIRSTSAMPLES_H
#define FIRSTSAMPLES_H

#include <QtWidgets/QWidget>

class KELDialogBase;
class KELProcessBar;
class KELPushButton;
class KELRange;
class KELSlideControl;

// The code of docs/guide/firstscreen.md.
void showBrightness(QObject *machine, KELProcessBar *bar, KELRange *range);
void placeSlider(KELSlideControl *slider);
KELDialogBase *newDialog(QWidget *window, const QPixmap &body);
void centre(QWidget *dialog, const QWidget *window);
void fillWithGradient(KELPushButton *button);
void pairGlyphAndCaption(KELPushButton *button);

#endif
