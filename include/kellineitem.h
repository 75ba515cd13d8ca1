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
 * \image html anatomy-line-item.png
 *
 * \code
 * auto *line = new KELLineItem(panel);
 * line->setLine(QPointF(0, 40), QPointF(200, 40));
 * line->style()->borderBrush = QColor(Qt::white);
 * line->style()->borderWidth = 1;
 * \endcode
 *
 * A line uses two fields of the style record: \c borderBrush (default black) and \c borderWidth
 * (default 0.5 px). It is drawn without antialiasing. The ends are square and extend beyond each
 * point by half of the width. With Qt::NoBrush nothing is drawn. A width of 0 draws a line of one
 * device pixel at any scale; a negative or non-finite width draws nothing.
 *
 * The line accepts presses in its rectangle; see \ref passive.
 *
 * \section lineitemcompat Compatibility notes
 * - The control's rectangle is the box around the two points. A horizontal line therefore has
 *   height 0 and its whole width lies outside the rectangle. For a line more than 2 device px wide,
 *   enlarge the rectangle with setboundRect() after setLine(), or switch the cache off with
 *   <tt>setCacheMode(QGraphicsItem::NoCache)</tt>; see \ref outside.
 * - setboundRect() does not move the line.
 * - In a parent control the rectangle is offset by the corner of the parent's rectangle, as for
 *   every control, but the line is not. Use a parent whose rectangle begins at (0, 0), or see
 *   \ref placing.
 */
class KELGDI_EXPORT KELLineItem : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a line from (0, 0) to (0, 0), as a child item of \a parent, or without a parent if
    //! it is null. The rectangle is the base class's (100, 100, 100, 30) until setLine() is called.
    explicit KELLineItem(QGraphicsObject *parent = nullptr);
    //! Destroys the line.
    ~KELLineItem() override;

    /*!
     * Sets the line from \a p1 to \a p2 (item px, any values), then sets the rectangle to the box
     * around both points with the virtual setboundRect(qreal, qreal, qreal, qreal). If a coordinate
     * is not finite, nothing is drawn. Neither repaints nor notifies the scene; see \ref geometry.
     */
    void setLine(const QPointF &p1, const QPointF &p2);

    //! Paints the line with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Returns the current record unchanged: a line has the defaults of the base class. The line
    //! still owns the record.
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELLineItem)

    KELLineItemPrivate *const d;
};

#endif
