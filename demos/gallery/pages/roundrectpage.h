// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ROUNDRECTPAGE_H
#define ROUNDRECTPAGE_H

#include "page.h"

class Tile;

// KELRoundRectControl: what the style record draws, and what the pointer makes it emit.
class RoundRectPage : public Page
{
    Q_OBJECT

public:
    RoundRectPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(RoundRectPage)

    void addSamples(const QRectF &area);
    void addTiles(const QRectF &area);
    Tile *addTile(const QRectF &rect, const QString &text, const QString &objectName);
    void addMenu(Tile *tile);
};

#endif
