// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef THEME_H
#define THEME_H

#include <QtGui/QFont>
#include <QtGui/QRgb>

class KELTheme;

// Colours, fonts and distances of the gallery.
namespace Theme {

// These follow the look that was chosen last.
extern QRgb canvas;
extern QRgb card;
extern QRgb line;
extern QRgb ink;
extern QRgb muted;
extern QRgb accent;
extern QRgb accentDark; // pressed
extern QRgb accentTint; // a ground for accentDark
extern QRgb warm;
extern QRgb leaf;
extern QRgb onAccent;
extern QRgb faint;
extern QRgb disabled;
extern QRgb bar;
extern QRgb barText;
extern QRgb barPressed;

void follow(const KELTheme &theme);

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
