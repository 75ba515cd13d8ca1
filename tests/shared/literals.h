// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LITERALS_H
#define LITERALS_H

#include <QtCore/QString>

// u"text"_s is a QString.
inline QString operator""_s(const char16_t *text, size_t length)
{
    return QString(reinterpret_cast<const QChar *>(text), int(length));
}

#endif
