// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELFONTWATCH_P_H
#define KELFONTWATCH_P_H

#include <QtCore/QStringList>

QT_BEGIN_NAMESPACE
class QFont;
QT_END_NAMESPACE

// What the look of a text depends on besides its font.
namespace KELFontWatch {

// Counts the changes of the installed fonts.
int generation();

// The substitutes that QFont::insertSubstitution() registered for the font.
QStringList substitutesOf(const QFont &font);

} // namespace KELFontWatch

#endif
