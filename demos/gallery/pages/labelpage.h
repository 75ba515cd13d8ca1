// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LABELPAGE_H
#define LABELPAGE_H

#include "cardpage.h"

class KELLabel;

// KELLabel: what it shows, and which presses it takes.
class LabelPage : public CardPage
{
    Q_OBJECT

public:
    LabelPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(LabelPage)

    void addLiveLabels();
    void addCaptions();
    void addPictures();
};

#endif
