// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPROCESSBAR_H
#define KELPROCESSBAR_H

#include "kelroundrectcontrol.h"

class KELProcessBarPrivate;

/*!
 * \brief A progress bar: a pill with a fill from the left and the percentage in its middle.
 *
 * \image html progress-bar.png
 *
 * The bar is as wide as the control, 30 px high and in the vertical middle; a lower control draws outside
 * its rectangle, see \ref outside. Of the style record these fields count: \c backgroundBrush fills the bar,
 * \c borderBrush the part that is done, \c foregroundBrush draws the number, \c xRadius and \c yRadius round the
 * ends. The number is drawn in the font the painter has, which is the application's font, or the view's when
 * the control is not cached; \c font and the other fields are not used.
 *
 * The bar shows what it is given: it does not limit the value to 0 to 100. The fill is value * width / 100 px
 * wide, cut to a whole number towards zero. A negative value shows its number without a fill, one above 100 its
 * number with a full bar.
 *
 * The round ends are made with a clip that replaces the painter's own and is left there. That shows where the
 * view does not protect its painter (QGraphicsView::DontSavePainterState) and the control is not cached, and in a
 * parent that clips its children while the control is not cached: the bar is not cut off there.
 *
 * For what a press on the bar does see \ref passive.
 */
// kept: named so, for a progress bar
class KELGDI_EXPORT KELProcessBar : public KELRoundRectControl
{
    Q_OBJECT
    // kept: a bool, which only says whether the bar has started
    //! Whether value() is not 0; writing sets the value to 0 or 1. For the number use value() and setValue().
    Q_PROPERTY(bool value READ value WRITE setValue NOTIFY valueChanged)

public:
    //! Creates a progress bar at 0, as a child item of \a parent, or without parent when it is null.
    explicit KELProcessBar(QGraphicsObject *parent = nullptr);
    //! Destroys the progress bar.
    ~KELProcessBar() override;

    //! Returns the value, in percent. Default 0. Any number, see setValue().
    int value() const;

    //! Paints the progress bar with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    /*!
     * Gives the present record the look of a progress bar and returns it: rectangle (0, 0, 100, 30),
     * background RGB (69, 69, 69), fill (\c borderBrush) RGB (67, 110, 238), number white, radii 15 px. The
     * bar goes on owning the record.
     */
    KELRoundRectControlStyle *initStyle() override;

public Q_SLOTS:
    //! Sets the value to \a v percent, any number: repaints, emits valueChanged() and, when \a v is exactly 100,
    //! completed(). Does nothing when \a v is the present value.
    void setValue(int v);

Q_SIGNALS:
    //! The value changed.
    void valueChanged();
    //! The value has become 100. Comes right after valueChanged(), unless a slot of that changed the value again.
    void completed();

private:
    Q_DISABLE_COPY(KELProcessBar)

    KELProcessBarPrivate *const d;
};

#endif
