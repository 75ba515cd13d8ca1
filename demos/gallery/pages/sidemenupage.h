// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SIDEMENUPAGE_H
#define SIDEMENUPAGE_H

#include "page.h"

#include <KELSideMenu>
#include <QtCore/QPointer>

// KELSideMenu: a column and a row of buttons, both with separators.
class SideMenuPage : public Page
{
    Q_OBJECT

public:
    SideMenuPage(const PageHost &host, const QRectF &area);
    ~SideMenuPage() override;

    void attached() override;

private:
    Q_DISABLE_COPY(SideMenuPage)

    KELSideMenu *makeMenu(const KELRoundRectControl *frame,
                          KELSideMenu::OrientationMode orientation, const QString &name);
    void addEntry(KELSideMenu *menu, const QSizeF &size, const QString &text, ushort icon);

    KELRoundRectControl *m_columnFrame;
    KELRoundRectControl *m_rowFrame;
    KELRoundRectControl *m_state;
    QPointer<KELSideMenu> m_column;
    QPointer<KELSideMenu> m_row;
};

#endif
