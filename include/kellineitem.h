// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLINEITEM_H
#define KELLINEITEM_H

#include "kelroundrectcontrol.h"

#include <QtCore/QPointF>

class KELLineItemPrivate;

/*!
 * \brief A straight line, for example between the entries of a menu.
 *
 * \image html line-item.png
 *
 * Of the style record only \c borderBrush and \c borderWidth count (defaults: black, 0.5 px). The line is
 * drawn without antialiasing, with square ends that reach half its width beyond each point. A brush of style
 * Qt::NoBrush draws nothing; a width of 0 draws a line of one device pixel whatever the scale is, a width
 * that is negative or not finite draws nothing.
 *
 * The control's rectangle is the box around the two points, so a horizontal line has height 0 and lies outside
 * with its whole width. Where it is to be more than 2 device px wide, enlarge the rectangle with setboundRect()
 * after setLine(), or switch the cache off with setCacheMode(QGraphicsItem::NoCache): see \ref outside. The
 * line itself does not follow setboundRect(). In a parent control the rectangle is shifted by the corner of the
 * parent's rectangle as every control's is, but the line is not; give such a parent a rectangle that begins at
 * (0, 0).
 *
 * Pointer events follow the rectangle; see \ref passive for what a press does.
 */
class KELGDI_EXPORT KELLineItem : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a line from (0, 0) to (0, 0), as a child item of \a parent, or without parent when it is null.
    //! The rectangle is the base's (100, 100, 100, 30) until setLine() is called.
    explicit KELLineItem(QGraphicsObject *parent = nullptr);
    //! Destroys the line.
    ~KELLineItem() override;

    /*!
     * Sets the line from \a p1 to \a p2, in item px, any values, and then the rectangle to the box around
     * them with the virtual setboundRect(qreal, qreal, qreal, qreal). A point with a coordinate that is not finite
     * draws nothing. Neither repaints nor tells the scene: see \ref geometry.
     */
    void setLine(const QPointF &p1, const QPointF &p2);

    //! Paints the line with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Returns the present record as it is: a line has the base's defaults. The line goes on owning it.
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELLineItem)

    KELLineItemPrivate *const d;
};

#endif
