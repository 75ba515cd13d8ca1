// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LINEITEMPAGE_H
#define LINEITEMPAGE_H

#include "page.h"

// KELLineItem: separators in a menu, widths, directions and brushes.
class LineItemPage : public Page
{
    Q_OBJECT

public:
    LineItemPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(LineItemPage)

    KELRoundRectControl *addSample(const QRectF &cell, const QString &caption);
    void fillMenu(KELRoundRectControl *panel);
};

#endif
