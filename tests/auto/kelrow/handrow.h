// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef HANDROW_H
#define HANDROW_H

#include "keltest.h"

#include <keliconfont.h>
#include <kelrow.h>

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <cmath>

// A row drawn step by step with the numbers of the reference. Everything is placed from left to
// right and mirrored at the end.
class HandRow
{
public:
    QSizeF size{400, 64};
    KELPartStyle style;
    QString caption;
    QString detail;
    QString value;
    QString glyph;
    QPixmap picture;
    KELRow::End end = KELRow::NoEnd;
    bool isOn = false;
    bool isEnabled = true;
    bool isPressed = false;
    bool isSelected = false;
    bool isFocusShown = false;
    bool hasSeparator = true;
    KELRow::Card card = KELRow::NoCard;
    bool isMirrored = false;
    qreal knob = -1; // as isOn says

    void draw(QPainter *painter) const
    {
        if (card == KELRow::NoCard)
            painter->fillRect(QRectF(QPointF(), size), ground());
        else
            drawCard(painter);
        if (hasSeparator && card != KELRow::CardBottom && card != KELRow::WholeCard)
            painter->fillRect(QRectF(0, size.height() - 1, size.width(), 1), style.borderBrush);
        drawContent(painter);
        if (!isFocusShown)
            return;
        const QBrush ring = looksSelected() ? style.selectedForegroundBrush : style.accentBrush;
        painter->setPen(QPen(ring, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter->setBrush(Qt::NoBrush);
        painter->setRenderHint(QPainter::Antialiasing, card != KELRow::NoCard);
        const QRectF inside(1, 1, size.width() - 2, size.height() - 2);
        if (card == KELRow::NoCard)
            painter->drawRect(inside);
        else
            painter->drawRoundedRect(inside, 12, 12);
    }

private:
    bool looksSelected() const { return isSelected && isEnabled && !isPressed; }

    QBrush ground() const
    {
        if (isPressed)
            return style.pressedBrush;
        return looksSelected() ? style.selectedBrush : style.backgroundBrush;
    }

    // The card is drawn as a whole, and the row shows what lies in it.
    void drawCard(QPainter *painter) const
    {
        qreal top = -100;
        qreal bottom = size.height() + 100;
        if (card == KELRow::CardTop || card == KELRow::WholeCard)
            top = 0;
        if (card == KELRow::CardBottom || card == KELRow::WholeCard)
            bottom = size.height();
        painter->save();
        painter->setClipRect(QRectF(QPointF(), size));
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(style.borderBrush, 1));
        painter->setBrush(ground());
        painter->drawRoundedRect(QRectF(0.5, top + 0.5, size.width() - 1, bottom - top - 1), 12,
                                 12);
        painter->restore();
    }

    QBrush ink(const QBrush &usual) const
    {
        if (!isEnabled)
            return style.disabledBrush;
        return looksSelected() ? style.selectedForegroundBrush : usual;
    }

    // Where a box goes that is x px from the start of the row.
    QRectF placed(qreal x, const QSizeF &box) const
    {
        const qreal top = std::floor((size.height() - box.height()) / 2);
        return QRectF(QPointF(isMirrored ? size.width() - x - box.width() : x, top), box);
    }

    static qreal heightOf(const QFont &font) { return QFontMetricsF(font).height(); }
    static qreal widthOf(const QString &text, const QFont &font)
    {
        QTextLayout layout(text, font);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        layout.endLayout();
        return line.isValid() ? line.naturalTextWidth() : 0;
    }

    // One line with its top at y, from start px to end px of the row.
    void drawLine(QPainter *painter, const QString &text, const QFont &font, const QBrush &brush,
                  qreal start, qreal finish, qreal y) const
    {
        const QString shown = QFontMetricsF(font).elidedText(text, Qt::ElideRight, finish - start);
        const qreal x = isMirrored ? size.width() - start - widthOf(shown, font) : start;
        painter->setFont(font);
        painter->setPen(QPen(brush, 1));
        const QPointF baseline(std::floor(x + 0.5),
                               std::floor(y + 0.5) + QFontMetricsF(font).ascent());
        painter->drawText(baseline, shown);
    }

    void drawContent(QPainter *painter) const
    {
        qreal start = 16;
        const bool hasIcon = !picture.isNull() || !glyph.isEmpty();
        if (hasIcon && style.iconSize <= size.width() - 32) {
            drawIcon(painter, placed(start, QSizeF(style.iconSize, style.iconSize)));
            start += style.iconSize + 16;
        }
        qreal finish = size.width() - 16;
        const QSizeF mark = sizeOfMark();
        if (!mark.isEmpty() && mark.width() <= finish - start) {
            drawMark(painter, placed(finish - mark.width(), mark));
            finish -= mark.width() + 16;
        }
        if (!value.isEmpty())
            finish = drawValue(painter, start, finish);
        drawLines(painter, start, finish);
    }

    // Returns where the room for the other lines ends.
    qreal drawValue(QPainter *painter, qreal start, qreal finish) const
    {
        const qreal room = finish - start;
        const qreal most = qMax(room / 2, room - 16 - widthOf(caption, style.font));
        const QString shown = QFontMetricsF(style.font).elidedText(value, Qt::ElideRight, most);
        const qreal width = widthOf(shown, style.font);
        if (shown.isEmpty())
            return finish;
        const qreal top = std::floor((size.height() - heightOf(style.font)) / 2);
        drawLine(painter, shown, style.font, ink(style.mutedBrush), finish - width, finish + 0.01,
                 top);
        return finish - width - 16;
    }

    void drawLines(QPainter *painter, qreal start, qreal finish) const
    {
        const qreal first = caption.isEmpty() ? 0 : heightOf(style.font);
        const qreal second = detail.isEmpty() ? 0 : heightOf(style.secondaryFont);
        const qreal between = first > 0 && second > 0 ? 4 : 0;
        const qreal top = std::floor((size.height() - first - between - second) / 2);
        drawLine(painter, caption, style.font, ink(style.foregroundBrush), start, finish, top);
        drawLine(painter, detail, style.secondaryFont, ink(style.mutedBrush), start, finish,
                 top + first + between);
    }

    void drawIcon(QPainter *painter, const QRectF &box) const
    {
        if (!picture.isNull()) {
            painter->setRenderHint(QPainter::SmoothPixmapTransform);
            painter->setOpacity(isEnabled ? 1 : 0.5);
            QRectF inside(box.topLeft(),
                          QSizeF(picture.size()).scaled(24, 24, Qt::KeepAspectRatio));
            if (picture.width() <= 24 && picture.height() <= 24)
                inside.setSize(picture.size());
            inside.moveCenter(box.center());
            painter->drawPixmap(inside, picture, picture.rect());
            painter->setOpacity(1);
            return;
        }
        QFont font(KELIconFont::fontFamily(), -1, -1, false);
        font.setPixelSize(style.iconSize);
        painter->setFont(font);
        painter->setPen(QPen(ink(style.accentBrush), 1));
        const qreal x = box.center().x() - widthOf(glyph, font) / 2;
        const qreal y = box.center().y() - heightOf(font) / 2;
        painter->drawText(
            QPointF(std::floor(x + 0.5), std::floor(y + 0.5) + QFontMetricsF(font).ascent()),
            glyph);
    }

    QSizeF sizeOfMark() const
    {
        switch (end) {
        case KELRow::Switch:
            return QSizeF(56, 32);
        case KELRow::Radio:
            return QSizeF(24, 24);
        case KELRow::Arrow:
            return QSizeF(8, 12);
        default:
            return QSizeF();
        }
    }

    void drawMark(QPainter *painter, const QRectF &box) const
    {
        painter->setRenderHint(QPainter::Antialiasing);
        if (end == KELRow::Switch)
            drawSwitch(painter, box);
        else if (end == KELRow::Radio)
            drawRadio(painter, box);
        else
            drawArrow(painter, box);
        painter->setRenderHint(QPainter::Antialiasing, false);
    }

    void drawSwitch(QPainter *painter, const QRectF &box) const
    {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isOn ? ink(style.accentBrush) : style.trackBrush);
        painter->drawRoundedRect(box, 16, 16);
        const QBrush on = looksSelected() ? style.selectedBrush : style.accentForegroundBrush;
        painter->setBrush(isOn ? on : isEnabled ? style.knobBrush : style.disabledBrush);
        const qreal way = knob < 0 ? (isOn ? 1 : 0) : knob;
        const qreal fromLeft = 4 + 24 * (isMirrored ? 1 - way : way);
        painter->drawEllipse(QRectF(box.x() + fromLeft, box.y() + 4, 24, 24));
    }

    void drawRadio(QPainter *painter, const QRectF &box) const
    {
        painter->setPen(QPen(ink(isOn ? style.accentBrush : style.mutedBrush), 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(QRectF(box.x() + 1, box.y() + 1, 22, 22));
        if (!isOn)
            return;
        painter->setPen(Qt::NoPen);
        painter->setBrush(ink(style.accentBrush));
        painter->drawEllipse(QRectF(box.x() + 6, box.y() + 6, 12, 12));
    }

    void drawArrow(QPainter *painter, const QRectF &box) const
    {
        QPainterPath path;
        path.moveTo(isMirrored ? box.right() - 1 : box.left() + 1, box.top() + 1);
        path.lineTo(isMirrored ? box.left() + 1 : box.right() - 1, box.top() + 6);
        path.lineTo(isMirrored ? box.right() - 1 : box.left() + 1, box.top() + 11);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(ink(style.mutedBrush), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(path);
    }
};

// A row that shows the same.
inline KELRow *newRow(const HandRow &like)
{
    auto *row = new KELRow;
    *row->partStyle() = like.style;
    row->setCaption(like.caption);
    row->setDetail(like.detail);
    row->setValue(like.value);
    if (!like.glyph.isEmpty())
        row->setGlyph(KELIconFont(like.glyph.at(0).unicode()));
    row->setPicture(like.picture);
    row->setEnd(like.end);
    row->setChecked(like.isOn);
    row->setEnabled(like.isEnabled);
    row->setSeparator(like.hasSeparator);
    row->setCard(like.card);
    row->setLayoutDirection(like.isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    row->setMinimumSize(0, 0);
    row->resize(like.size);
    return row;
}

#endif
