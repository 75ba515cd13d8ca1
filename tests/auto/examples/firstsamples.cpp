// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "firstsamples.h"

#include <KELDialogBase>
#include <KELProcessBar>
#include <KELPushButton>
#include <KELRange>
#include <KELSlideControl>
#include <KELValues>
#include <QtGui/QLinearGradient>

void showBrightness(QObject *machine, KELProcessBar *bar, KELRange *range)
{
    KELValues::show(machine, "brightness", bar, "percent"); // the bar follows the machine
    KELValues::edit(machine, "brightness", range, "value"); // and the finger changes it
}

void placeSlider(KELSlideControl *slider)
{
    slider->setMinimun(20); // the bounds,
    slider->setMaximun(120);
    slider->setboundRect(0, 0, 300, 48); // the rectangle: four numbers, not a QRectF,
    slider->setValue(45); // the value,
    slider->setStep(5); // the step
}

KELDialogBase *newDialog(QWidget *window, const QPixmap &body)
{
    auto *dialog = new KELDialogBase(window);
    dialog->setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint); // above the window, not in it
    dialog->setBackgroundPixmap(body); // before the controls
    centre(dialog, window);
    return dialog;
}

void centre(QWidget *dialog, const QWidget *window)
{
    dialog->move(window->mapToGlobal(window->rect().center() - dialog->rect().center()));
}

void fillWithGradient(KELPushButton *button)
{
    const QRectF rect = button->boundingRect();
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft()); // from the top to the bottom
    gradient.setColorAt(0, QColor(0x57, 0x8f, 0xf7));
    gradient.setColorAt(1, QColor(0x0b, 0x62, 0xd6));
    button->style()->backgroundBrush = gradient;
}

void pairGlyphAndCaption(KELPushButton *button)
{
    button->setboundRect(0, 0, 80, 64);
    auto *style = static_cast<KELPushButtonStyle *>(button->style());
    style->iconSize = 24;
    style->font.setPixelSize(13);
    style->iconMargins = QMarginsF(8, 10, 8, 3); // 10 px above the glyph,
    style->margins = QMarginsF(2, 3, 2, 10); // 3 + 3 px between them, 10 px below the caption
}
