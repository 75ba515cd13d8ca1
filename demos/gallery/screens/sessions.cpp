// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "sessions.h"

#include "chargepoint.h"
#include "screenkit.h"

#include <KELList>
#include <QtWidgets/QGraphicsLinearLayout>

Sessions::Sessions(KELTheme *theme, const ChargePoint *point) : FinishedScreen(theme)
{
    for (const ChargePoint::Session &session : point->sessions()) {
        auto *row = new QStandardItem(session.begin.toString(QStringLiteral("yyyy-MM-dd HH:mm")));
        row->setData(tr("%1 kWh").arg(session.kilowattHours, 0, 'f', 1), KELList::DetailRole);
        row->setData(tr("%1 EUR").arg(session.cost, 0, 'f', 2), KELList::ValueRole);
        m_rows.appendRow(row);
    }
}

void Sessions::build(QGraphicsWidget *content)
{
    QGraphicsLinearLayout *column = Kit::newColumn(content);
    Kit::addTitleLine(column, *theme(), tr("Details"), QString());
    auto *list = new KELList;
    list->setObjectName(QStringLiteral("sessions"));
    list->setModel(&m_rows);
    column->addItem(list);
}
