// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ICONFONTPAGE_H
#define ICONFONTPAGE_H

#include "page.h"

#include <QtCore/QVector>

class KELPushButton;

// KELIconFont: every glyph that the installed font has.
class IconFontPage : public Page
{
    Q_OBJECT

public:
    IconFontPage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(IconFontPage)

    void explainMissingFont();
    void addTurnButtons(const QRectF &area);
    void addCells(const QRectF &area);
    void turnTo(int leaf);

    QVector<ushort> m_codes;
    QVector<KELPushButton *> m_cells;
    KELPushButton *m_back = nullptr;
    KELPushButton *m_forth = nullptr;
    KELRoundRectControl *m_position = nullptr;
    int m_first = 0; // index of the code in the first cell
};

#endif
