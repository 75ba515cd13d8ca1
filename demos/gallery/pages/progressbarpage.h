// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PROGRESSBARPAGE_H
#define PROGRESSBARPAGE_H

#include "cardpage.h"

// KELProcessBar: one that follows a slider, values, and colours.
class ProgressBarPage : public CardPage
{
    Q_OBJECT

public:
    ProgressBarPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(ProgressBarPage)
};

#endif
