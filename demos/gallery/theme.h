// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef THEME_H
#define THEME_H

#include <QtGui/QFont>
#include <QtGui/QRgb>

// Colours, fonts and distances of the gallery.
namespace Theme {

constexpr QRgb canvas = 0xfff2f5f9;
constexpr QRgb card = 0xffffffff;
constexpr QRgb line = 0xffcfd8e3;
constexpr QRgb ink = 0xff17212e;
constexpr QRgb muted = 0xff556373;
constexpr QRgb accent = 0xff0b63ce;
constexpr QRgb accentDark = 0xff084a9c;
constexpr QRgb accentTint = 0xffe1edfc;
constexpr QRgb warm = 0xfff08a3c;
constexpr QRgb leaf = 0xff1d8a5b;
constexpr QRgb onAccent = 0xffffffff;
constexpr QRgb faint = 0xff9aa7b5;
constexpr QRgb disabled = 0xffe7ebf0;
constexpr QRgb bar = 0xff14202e;
constexpr QRgb barText = 0xffc9d4e1;
constexpr QRgb barPressed = 0xff2a3b50;
constexpr QRgb logPaper = 0xff0c151f;
constexpr QRgb logText = 0xffb5e0c6;
constexpr QRgb logHint = 0xff8596a8;

constexpr qreal gap = 8;
constexpr qreal pageMargin = 16;
constexpr qreal touch = 48; // the smallest button
constexpr qreal radius = 8;

constexpr qreal notePx = 20; // the height of a line in small print

constexpr int smallPx = 13;
constexpr int bodyPx = 15;
constexpr int titlePx = 20;

QFont font(int pixelSize, bool bold = false);
QFont monospaced(int pixelSize);

} // namespace Theme

#endif
