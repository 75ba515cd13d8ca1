// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef NAVIGATIONTABLEPAGE_H
#define NAVIGATIONTABLEPAGE_H

#include "page.h"

class KELNavigationTable;

// KELNavigationTable: the same three pages below a title bar and without one.
class NavigationTablePage : public Page
{
    Q_OBJECT

public:
    NavigationTablePage(const PageHost &host, const QRectF &area);

private:
    Q_DISABLE_COPY(NavigationTablePage)

    KELNavigationTable *addTable(const QRectF &rect, const QString &name, bool showTitle);
    KELRoundRectControl *addTablePage(KELNavigationTable *table, const QString &caption,
                                      ushort icon);
    void addLightPage(KELNavigationTable *table);
    void addSoundPage(KELNavigationTable *table);
    void addAlarmPage(KELNavigationTable *table);
    void reportSwitching(KELNavigationTable *table, const QString &name);
};

#endif
