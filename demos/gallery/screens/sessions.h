// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SESSIONS_H
#define SESSIONS_H

#include "finishedscreen.h"

#include <QtGui/QStandardItemModel>

class ChargePoint;

// What was charged before.
class Sessions : public FinishedScreen
{
    Q_OBJECT

public:
    Sessions(KELTheme *theme, const ChargePoint *point);

protected:
    void build(QGraphicsWidget *content) override;

private:
    Q_DISABLE_COPY(Sessions)

    QStandardItemModel m_rows;
};

#endif
