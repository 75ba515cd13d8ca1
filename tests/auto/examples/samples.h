// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SAMPLES_H
#define SAMPLES_H

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QPoint;
class QWidget;
QT_END_NAMESPACE

class KELContentView;
class KELNavigationTable;
class KELRoundRectControl;
class KELSideMenu;

// What docs/guide/placing.md shows.
KELNavigationTable *newSettings();
KELContentView *newExactView(KELRoundRectControl *content, QWidget *window, const QPoint &pos);
KELSideMenu *newMenuRows(QWidget *window);

#endif
