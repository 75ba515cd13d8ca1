// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ROUNDRECTPAGE_H
#define ROUNDRECTPAGE_H

#include "cardpage.h"

class Tile;

// KELRoundRectControl: what the pointer makes it emit, and what the style record draws.
class RoundRectPage : public CardPage
{
    Q_OBJECT

public:
    RoundRectPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(RoundRectPage)

    void addTiles();
    Tile *newTile(const QString &text, const QString &objectName);
    void addMenu(Tile *tile);
};

#endif
