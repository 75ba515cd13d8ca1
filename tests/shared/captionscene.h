// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CAPTIONSCENE_H
#define CAPTIONSCENE_H

#include "picture.h"

#include <kelroundrectcontrol.h>

class KELLabel;

int screenDotsPerInch();

// Everything that a caption may depend on.
struct CaptionScene
{
    CaptionScene();

    KELRoundRectControlStyle style;
    QFont painterFont = QFont(QStringLiteral("DejaVu Serif"), 15);
    Qt::LayoutDirection direction = Qt::LayoutDirectionAuto;
    int dotsPerInch = screenDotsPerInch(); // so that fonts are not resolved anew
    qreal scale = 1;
    qreal angle = 0;
    QSize pictureSize = QSize(300, 200);
    QColor background = KelImage::paper;
};

QImage picture(const CaptionScene &scene, const KelImage::Drawing &draw);

// The caption in the scene: by hand, and by a label to which the scene was applied.
QImage drawnByHand(const CaptionScene &scene);
void apply(const CaptionScene &scene, KELLabel *label);
QImage painted(const CaptionScene &scene, KELLabel *label);

#endif
