// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "theme.h"

#include <KELTheme>
#include <QtGui/QFontDatabase>

namespace Theme {

QRgb canvas;
QRgb card;
QRgb line;
QRgb ink;
QRgb muted;
QRgb accent;
QRgb accentDark;
QRgb accentTint;
QRgb warm;
QRgb leaf;
QRgb onAccent;
QRgb faint;
QRgb disabled;
QRgb bar;
QRgb barText;
QRgb barPressed;

} // namespace Theme

void Theme::follow(const KELTheme &theme)
{
    const auto rgb = [&theme](KELTheme::Role role) { return theme.color(role).rgb(); };
    canvas = rgb(KELTheme::Background);
    card = bar = rgb(KELTheme::Surface);
    accentTint = disabled = barPressed = rgb(KELTheme::Raised);
    line = rgb(KELTheme::Line);
    ink = barText = rgb(KELTheme::Text);
    muted = rgb(KELTheme::Muted);
    accent = accentDark = rgb(KELTheme::Accent);
    onAccent = rgb(KELTheme::OnAccent);
    warm = rgb(KELTheme::Warning);
    leaf = rgb(KELTheme::Good);
    faint = rgb(KELTheme::Disabled);
}

QFont Theme::font(int pixelSize, bool bold)
{
    QFont font;
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    return font;
}

QFont Theme::monospaced(int pixelSize)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(pixelSize);
    return font;
}
