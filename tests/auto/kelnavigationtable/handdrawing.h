// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HANDDRAWING_H
#define HANDDRAWING_H

#include <kelnavigationtable.h>

#include <QtCore/QStringList>
#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

#include <cmath>

// A navigation table drawn by hand, step by step. It shares no code with
// the library, so that a mistake there shows up as a difference.
class HandDrawing
{
public:
    KELNavigationTableStyle table = KELNavigationTableStyle();
    QRectF rect; // where the table is
    QSizeF sizeOfTabs; // the size of the table when its tabs were laid
    QList<KELNavigationTableItemStyle> pages;
    int selected = 0;
    QString iconFamily;

    void draw(QPainter *painter) const
    {
        const double titleHeight = table.showTitle ? double(table.titleHeight) : 0;
        const double tabHeight = pages.size() > 1 ? double(table.tabHeight) : 0;
        const QRectF title(rect.x(), rect.y(), rect.width(), titleHeight);
        const QRectF content(rect.x(), rect.y() + titleHeight, rect.width(),
                             rect.height() - titleHeight - tabHeight);
        painter->setBrushOrigin(rect.topLeft());
        if (table.showTitle)
            fill(painter, title, table.titleBackgroundBrush);
        fill(painter, content, table.backgroundBrush);
        painter->setBrush(Qt::NoBrush);
        if (table.showTitle && table.titleForegroundBrush.style() != Qt::NoBrush)
            drawTitle(painter, title);
        if (!table.pixmap.isNull())
            drawPixmap(painter, content);
        for (int i = 0; pages.size() > 1 && i < pages.size(); ++i)
            drawTab(painter, pages.at(i), tab(i), i == selected);
    }

    QRectF tab(int index) const
    {
        const float width = float(sizeOfTabs.width()) / float(pages.size());
        return QRectF(double(float(index) * width), sizeOfTabs.height() - double(table.tabHeight),
                      double(width), double(table.tabHeight));
    }

    static QString elided(const QString &text, double width, const QFont &font)
    {
        QString result;
        const QFontMetrics metrics(font);
        for (const QString &line : text.split(QLatin1Char('\n'))) {
            if (line.isEmpty())
                continue;
            if (!result.isEmpty())
                result += QLatin1Char('\n');
            result += metrics.elidedText(line, Qt::ElideRight, int(width), Qt::TextShowMnemonic);
        }
        return result;
    }

private:
    static void fill(QPainter *painter, const QRectF &area, const QBrush &brush)
    {
        if (brush.style() == Qt::NoBrush)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(brush);
        painter->drawRoundedRect(area, 0, 0);
    }

    void drawTitle(QPainter *painter, const QRectF &title) const
    {
        QPen pen(table.titleForegroundBrush, 1.0);
        pen.setStyle(Qt::SolidLine);
        pen.setCapStyle(Qt::SquareCap);
        pen.setJoinStyle(Qt::BevelJoin);
        painter->setPen(pen);
        painter->setFont(table.font);
        const QRectF area(title.x() - 30, title.y(), title.width() + 60, title.height());
        painter->drawText(area, table.textFlags,
                          table.trimText ? elided(table.title, title.width() - 60, table.font)
                                         : table.title);
    }

    void drawPixmap(QPainter *painter, const QRectF &area) const
    {
        painter->drawPixmap(int(std::lround(area.x())), int(std::lround(area.y())),
                            int(std::lround(area.width())), int(std::lround(area.height())),
                            table.pixmap);
    }

    void drawTab(QPainter *painter, const KELNavigationTableItemStyle &page, const QRectF &h,
                 bool isSelected) const
    {
        painter->setBrushOrigin(h.topLeft());
        fill(painter, h, isSelected ? page.buttonBackground : page.backgroundBrush);
        if (page.buttonForeground.style() == Qt::NoBrush)
            return;
        painter->setPen(QPen(page.buttonForeground, 1.0));
        const double left = page.margins.left();
        const double right = page.margins.right();
        const double top = page.margins.top();
        const double bottom = page.margins.bottom();
        const QString caption = elided(page.text, h.width(), table.font);
        if (page.icon.isNull()) {
            painter->setFont(table.font);
            painter->drawText(QRectF(h.x() + left, h.y() + top, h.width() - right - left,
                                     h.height() - bottom - top),
                              table.textFlags, caption);
            return;
        }
        const double f = QFontMetrics(page.font).height();
        const double k = page.text.isEmpty() ? f : f + top + bottom;
        QFont iconFont(iconFamily);
        iconFont.setPixelSize(page.iconSize);
        painter->setFont(iconFont);
        painter->drawText(QRectF(h.x(), h.y(), h.width(), h.height() - k), table.textFlags,
                          QString(1, page.icon.getIcon()));
        if (page.text.isEmpty())
            return;
        painter->setFont(table.font);
        painter->drawText(QRectF(h.x() + left, h.y() + h.height() - k + top,
                                 h.width() - right - left,
                                 (h.height() - bottom) - (h.height() - k + top)),
                          table.textFlags, caption);
    }
};

#endif
