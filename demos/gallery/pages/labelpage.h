// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LABELPAGE_H
#define LABELPAGE_H

#include "page.h"

// KELLabel: the default look, what the style record makes of it, and three labels to touch.
class LabelPage : public Page
{
    Q_OBJECT

public:
    LabelPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(LabelPage)

    void addSamples(const QRectF &area);
    void addLiveLabels(const QRectF &area);
};

#endif
