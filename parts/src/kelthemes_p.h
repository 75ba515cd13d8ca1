// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELTHEMES_P_H
#define KELTHEMES_P_H

#include <QtCore/qglobal.h>

QT_BEGIN_NAMESPACE
class QGraphicsScene;
QT_END_NAMESPACE

/*
 * All themes that there are. A scene tells nobody what is added to it, so a part without a parent
 * item does.
 */
namespace KELThemes {

void partEntered(const QGraphicsScene *scene);

} // namespace KELThemes

#endif
