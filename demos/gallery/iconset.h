// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ICONSET_H
#define ICONSET_H

#include <KELIconFont>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QRawFont>

// The icon font of this run, and which glyphs it really has.
class IconSet
{
public:
    // What keeps the file from being a font, in words; empty when nothing does. Needs no GUI.
    static QString problemWith(const QString &path);

    // The file of Debian's fonts-font-awesome, or empty.
    static QString defaultPath();

    // Makes the font the library's icon font. Returns false when Qt cannot read it.
    bool install(const QString &path);

    bool isInstalled() const;
    QString path() const;

    bool has(ushort codePoint) const;
    // The glyph, or a null one when the font lacks it.
    KELIconFont glyph(ushort codePoint) const;
    // All code points with something to see: the private use area, or everything when that is
    // empty.
    QVector<ushort> codePoints() const;

private:
    QVector<ushort> visibleIn(ushort first, ushort last) const;

    QString m_path;
    QRawFont m_font;
};

// Code points of Font Awesome 4 that the gallery uses itself.
namespace Icon {
constexpr ushort star = 0xf005;
constexpr ushort home = 0xf015;
constexpr ushort lock = 0xf023;
constexpr ushort flag = 0xf024;
constexpr ushort speaker = 0xf028;
constexpr ushort tag = 0xf02b;
constexpr ushort font = 0xf031;
constexpr ushort left = 0xf053;
constexpr ushort right = 0xf054;
constexpr ushort minus = 0xf068;
constexpr ushort comment = 0xf075;
constexpr ushort up = 0xf077;
constexpr ushort down = 0xf078;
constexpr ushort link = 0xf0c1;
constexpr ushort bars = 0xf0c9;
constexpr ushort columns = 0xf0db;
constexpr ushort bolt = 0xf0e7;
constexpr ushort bulb = 0xf0eb;
constexpr ushort bell = 0xf0f3;
constexpr ushort pointer = 0xf0a6;
constexpr ushort squareOutline = 0xf096;
constexpr ushort tasks = 0xf0ae;
constexpr ushort openBelow = 0xf150;
constexpr ushort dotInCircle = 0xf192;
constexpr ushort sliders = 0xf1de;
constexpr ushort toggle = 0xf205;
constexpr ushort clone = 0xf24d;
constexpr ushort window = 0xf2d0;
} // namespace Icon

#endif
