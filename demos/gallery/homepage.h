// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HOMEPAGE_H
#define HOMEPAGE_H

#include "page.h"
#include "screens/finishedscreen.h"

#include <QtGui/QStandardItemModel>

// The list of all pages, with the look and the language of the gallery on top.
class HomePage : public FinishedScreen
{
    Q_OBJECT

public:
    // The look, and the language where there are translations.
    static int rowsAbovePages();

    explicit HomePage(const PageHost &host);

Q_SIGNALS:
    void chosen(int page);
    void nextLookAsked();
    void nextLanguageAsked();

protected:
    void build(QGraphicsWidget *content) override;

private:
    Q_DISABLE_COPY(HomePage)
    void fill();
    QStandardItem *addRow(const QString &section, const QString &caption, ushort icon, int page);
    void choose(const QModelIndex &index);

    const PageHost m_host;
    QStandardItemModel m_rows;
    int m_position = 0;
};

#endif
