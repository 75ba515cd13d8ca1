// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef SHOWNPICTURE_H
#define SHOWNPICTURE_H

#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

/*
 * Whether contenders show the same: the text of each row, in one font.
 */

// All contenders, before there is any window.
inline void chooseFont()
{
    QFont font;
    font.setPixelSize(16);
    QApplication::setFont(font);
}

// What a window has on the screen; nothing is painted for it.
inline QImage shownBy(const QWidget &window)
{
    return window.screen()->grabWindow(window.winId()).toImage();
}

inline bool hasText(const QImage &picture, const QRect &place, bool isDark)
{
    constexpr int leastPixels = 40; // of the ink of a word
    constexpr int middleGrey = 128;
    int found = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x)
            found += (qGray(picture.pixel(x, y)) < middleGrey) == isDark ? 1 : 0;
    }
    return found >= leastPixels && found < place.width() * place.height() / 2;
}

// Whether rows of one height, the first of them at top, have text at their left, and at their right
// none. The first may be selected.
inline QByteArray showsRows(const QImage &picture, const QRect &area, int top, int rowHeight)
{
    constexpr int textWidth = 150;
    constexpr int lineHeight = 24;
    for (int y = top + (rowHeight - lineHeight) / 2; y + lineHeight <= area.bottom() + 1;
         y += rowHeight) {
        if (y < area.top())
            continue;
        const QRect text(area.left(), y, textWidth, lineHeight);
        const QRect empty(area.left() + textWidth, y, area.width() - textWidth - 20, lineHeight);
        const bool isSelected = qGray(picture.pixel(empty.center())) < 160;
        if (!picture.rect().contains(text) || !hasText(picture, text, !isSelected)
            || hasText(picture, empty, !isSelected))
            return "no";
    }
    return picture.isNull() ? "no" : "yes";
}

#endif
