// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "parts.h"

#include <QtGui/QLinearGradient>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace {

void drawHill(QPainter *painter, const QSizeF &size, qreal left, qreal peak, QRgb colour)
{
    QPainterPath hill(QPointF(size.width() * (left - 0.5), size.height()));
    hill.quadTo(QPointF(size.width() * left, size.height() * peak),
                QPointF(size.width() * (left + 0.7), size.height()));
    painter->fillPath(hill, QColor(colour));
}

void dressAsCard(KELRoundRectControlStyle *style)
{
    style->backgroundBrush = QColor(Theme::card);
    style->borderBrush = QColor(Theme::line);
    style->borderWidth = 1;
    style->xRadius = style->yRadius = Theme::radius;
    style->foregroundBrush = QColor(Theme::ink);
    style->font = Theme::font(Theme::bodyPx);
}

} // namespace

KELRoundRectControl *Parts::addLabel(QGraphicsObject *parent, const QRectF &rect,
                                     const QString &text, const QFont &font, QRgb colour, int flags)
{
    auto *label = new KELRoundRectControl(parent);
    label->setboundRect(rect);
    label->setAcceptedMouseButtons(Qt::NoButton);
    KELRoundRectControlStyle *style = label->style();
    style->backgroundBrush = QBrush(Qt::NoBrush);
    style->borderBrush = QBrush(Qt::NoBrush);
    style->foregroundBrush = QColor(colour);
    style->text = text;
    style->font = font;
    style->textFlags = flags;
    return label;
}

KELRoundRectControl *Parts::addCard(QGraphicsObject *parent, const QRectF &rect)
{
    auto *card = new KELRoundRectControl(parent);
    card->setboundRect(rect);
    card->setAcceptedMouseButtons(Qt::NoButton);
    dressAsCard(card->style());
    return card;
}

KELRoundRectControl *Parts::addPanel(QGraphicsObject *parent, const QRectF &rect)
{
    const QPointF corner = parent->boundingRect().topLeft();
    KELRoundRectControl *panel = addCard(parent, {-corner, rect.size()});
    panel->setPos(corner + rect.topLeft());
    return panel;
}

KELRoundRectControl *Parts::addDarkPanel(QGraphicsObject *parent, const QRectF &rect)
{
    KELRoundRectControl *panel = addPanel(parent, rect);
    panel->style()->backgroundBrush = QColor(Theme::bar);
    panel->style()->borderBrush = QBrush(Qt::NoBrush);
    return panel;
}

KELRoundRectControl *Parts::addNote(QGraphicsObject *parent, const QRectF &rect,
                                    const QString &text, QRgb colour, int flags)
{
    return addLabel(parent, rect, text, Theme::font(Theme::smallPx), colour, flags);
}

KELPushButton *Parts::addButton(QGraphicsObject *parent, const QRectF &rect, const QString &text)
{
    auto *button = new KELPushButton(parent);
    button->setboundRect(rect);
    button->style()->text = text;
    dress(button);
    return button;
}

void Parts::dress(KELPushButton *button)
{
    KELRoundRectControlStyle *style = button->style();
    dressAsCard(style);
    style->iconSize = 20;
    button->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Theme::accentDark);
        look.borderBrush = QColor(Theme::accentDark);
        look.foregroundBrush = QColor(Theme::onAccent);
    });
    button->setIsCheckedTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Theme::accentTint);
        look.borderBrush = QColor(Theme::accent);
        look.borderWidth = 2;
        look.foregroundBrush = QColor(Theme::accentDark);
    });
    button->setIsDisableTemplate([](KELPushButtonStyle &look) {
        look.backgroundBrush = QColor(Theme::disabled);
        look.borderBrush = QColor(Theme::disabled);
        look.foregroundBrush = QColor(Theme::faint);
    });
}

void Parts::dressAsPrimary(KELPushButton *button)
{
    dress(button);
    button->style()->backgroundBrush = QColor(Theme::accent);
    button->style()->borderBrush = QColor(Theme::accent);
    button->style()->foregroundBrush = QColor(Theme::onAccent);
    button->style()->font = Theme::font(18, true);
}

QVector<QRectF> Parts::grid(const QRectF &rect, int columns, int rows, qreal gap)
{
    // Whole pixels keep the outlines sharp; what is left over goes to single cells.
    const auto start = [gap](qreal length, int index, int count) {
        return qreal(qRound(index * (length + gap) / count));
    };
    const auto extent = [&](qreal length, int index, int count) {
        return qMax(0.0, start(length, index + 1, count) - start(length, index, count) - gap);
    };
    QVector<QRectF> cells;
    cells.reserve(columns * rows);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            cells.append(QRectF(rect.x() + start(rect.width(), column, columns),
                                rect.y() + start(rect.height(), row, rows),
                                extent(rect.width(), column, columns),
                                extent(rect.height(), row, rows)));
        }
    }
    return cells;
}

int Parts::fitting(qreal length, qreal minimum, int wanted, qreal gap)
{
    return qBound(1, int((length + gap) / (minimum + gap)), wanted);
}

QPixmap Parts::landscape(const QSize &size)
{
    QPixmap pixmap(size);
    if (pixmap.isNull())
        return pixmap;
    const QSizeF area(size);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, area.height());
    sky.setColorAt(0, QColor(0x4f, 0x9d, 0xe8));
    sky.setColorAt(1, QColor(0xe4, 0xf1, 0xfb));
    painter.fillRect(pixmap.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xff, 0xd1, 0x5c));
    const qreal sun = area.height() * 0.16;
    painter.drawEllipse(QPointF(area.width() * 0.74, area.height() * 0.3), sun, sun);
    drawHill(&painter, area, 0.72, -0.02, 0xff5fae7b);
    drawHill(&painter, area, 0.3, 0.1, 0xff2f855a);
    return pixmap;
}
