// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PROGRESSBARPAGE_H
#define PROGRESSBARPAGE_H

#include "page.h"

// KELProcessBar: what it shows of several values, and one that a slider drives.
class ProgressBarPage : public Page
{
    Q_OBJECT

public:
    ProgressBarPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(ProgressBarPage)

    void addSample(const QRectF &cell, int value);
    void addTallSample(const QRectF &cell);
};

#endif
