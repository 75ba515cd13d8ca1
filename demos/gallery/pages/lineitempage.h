// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LINEITEMPAGE_H
#define LINEITEMPAGE_H

#include "cardpage.h"

// KELLineItem: separators between live entries, widths, directions and brushes.
class LineItemPage : public CardPage
{
    Q_OBJECT

public:
    LineItemPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(LineItemPage)

    void addMenu();
    void addLines(const QString &caption, const QStringList &names,
                  const QVector<KELRoundRectControl *> &lines);
    void addDirections();
};

#endif
