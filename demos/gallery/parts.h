// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PARTS_H
#define PARTS_H

#include "theme.h"

#include <KELPushButton>
#include <KELRoundRectControl>
#include <QtCore/QVector>

// Ready-made controls in the gallery's look. Every rectangle is relative to the parent's.
namespace Parts {

// A caption without a box; the pointer goes through it.
KELRoundRectControl *addLabel(QGraphicsObject *parent, const QRectF &rect, const QString &text,
                              const QFont &font, QRgb colour = Theme::ink,
                              int flags = Qt::AlignLeft | Qt::AlignVCenter);

// A white box with a thin outline; the pointer goes through it.
KELRoundRectControl *addCard(QGraphicsObject *parent, const QRectF &rect);

// The same with a rectangle of its own that begins at (0, 0): line items, radio boxes and sliders
// need such a parent.
KELRoundRectControl *addPanel(QGraphicsObject *parent, const QRectF &rect);

// The same in dark, for what is white by default.
KELRoundRectControl *addDarkPanel(QGraphicsObject *parent, const QRectF &rect);

// A few words about a sample, in small print.
KELRoundRectControl *addNote(QGraphicsObject *parent, const QRectF &rect, const QString &text,
                             QRgb colour = Theme::muted, int flags = Qt::AlignCenter);

KELPushButton *addButton(QGraphicsObject *parent, const QRectF &rect, const QString &text);

// Gives a button the gallery's look in all its states.
void dress(KELPushButton *button);

// The same for the one button that a page is about.
void dressAsPrimary(KELPushButton *button);

// Cuts rect into columns x rows cells with gaps between them, row by row.
QVector<QRectF> grid(const QRectF &rect, int columns, int rows, qreal gap = Theme::gap);

// How many cells of at least minimum fit into length; at least one, at most wanted.
int fitting(qreal length, qreal minimum, int wanted, qreal gap = Theme::gap);

// A small landscape to show pixmaps with.
QPixmap landscape(const QSize &size);

} // namespace Parts

#endif
