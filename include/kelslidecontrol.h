// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSLIDECONTROL_H
#define KELSLIDECONTROL_H

#include "kelroundrectcontrol.h"

class KELSlideControlPrivate;

/*!
 * \brief A horizontal slider: a groove with a round knob that the finger drags.
 *
 * \image html slide-control.png
 *
 * \section slideuse In use
 * A press on the knob (30 px across, the corners of its square included) takes hold of it, and moves drag it;
 * vertical motion does not count. A press anywhere else on the control jumps to that place: there the value is
 * where the finger is, counted from the left edge over the travel of the knob, which is the width less 30 px.
 *
 * Set the rectangle with setboundRect() before the slider is shown: the constructor leaves the knob at (0, 0),
 * outside the default rectangle. The control must be wider than 30 px. At exactly 30 px a jump or a move can make the
 * value not a number; below, dragging runs backwards.
 *
 * A slider fires no mouseLongPress() and opens no menu by a long press, and mouseClicked() comes also after
 * more than 500 ms if the pointer has not moved by more than 10 px.
 *
 * \section slidevalue Value and step
 * The value is a \c float between minimun() and maximun(). With a step() greater than 0 it moves in whole
 * steps, counted from the present value: a new value less than one step away is ignored without a signal, any other
 * is rounded to whole steps, halves upward (2.5 to 3, -2.5 to -2), and then limited to the bounds. So a bound can be
 * reached although it is not a whole number of steps away, and steps count from there afterwards.
 *
 * The bounds are not checked. When the maximum is below the minimum, a value above the maximum becomes the
 * maximum, any other value becomes the minimum. When both are equal, the place of the knob is not a number: the knob
 * vanishes, and presses at its height take hold of it wherever they are, until the bounds differ and the knob is
 * placed again. A bound that is not a number limits nothing. A value that is not a number is stored as it is; with a
 * step it then stays, whatever is set, until the step is 0.
 *
 * \section slideplace The knob's place
 * With f = (value - minimum) / (maximum - minimum), the left side of the knob is put
 * | by                                       | at                                             |
 * |------------------------------------------|------------------------------------------------|
 * | setValue()                               | x + f * (width - 30)                           |
 * | setboundRect(const QRectF&)              | x + 15 + f * (width - 30)                      |
 * | setboundRect(qreal, qreal, qreal, qreal) | x + value / (maximum - minimum) * (width - 30) |
 *
 * where f and its product with the travel are single precision. With a minimum of 0 the form with four numbers
 * agrees with setValue(): use that form. With another minimum set bounds, rectangle, value and step in this order,
 * because only a setValue() that passes the step places the knob. setMaximun() and setMinimun() do not move it.
 *
 * In a parent control the groove is drawn in boundingRect(), which is moved by the corner of the parent's
 * rectangle, while knob and pointer follow the record's rectangle: give such a parent a rectangle that begins at
 * (0, 0). Pages below a title bar, pages with an outline and all but the first control of a
 * KELSideMenu have another one: \ref placing has the way out.
 *
 * \section slidelook Look
 * \c backgroundBrush fills the groove (4 px high), \c foregroundBrush its part left of the knob and the knob,
 * \c borderBrush outlines the knob with 2 px. A disabled slider has a knob and a filled part of RGB (110, 110, 110)
 * and an outline of RGB (170, 170, 170), whatever the brushes are. The filled part is drawn only while the value is
 * within the bounds. Without a \c backgroundBrush the filled part is outlined, and without a \c borderBrush the knob
 * is, with the pen that the painter has: in a scene a black one of 1 px in the first case; in the second, none if
 * there is a groove.
 *
 * At the ends of the travel the outline of the knob reaches 1 px beyond the rectangle, and in a control less
 * than 32 px high above and below it; after setboundRect(const QRectF&) with the value at the maximum, the knob
 * itself lies 15 px beyond. See \ref outside.
 */
class KELGDI_EXPORT KELSlideControl : public KELRoundRectControl
{
    Q_OBJECT
    //! The value, default 0.
    Q_PROPERTY(float value READ value WRITE setValue NOTIFY valueChanged)

public:
    //! Creates a slider from 0 to 100 without step, at 0, as a child item of \a parent, or without parent
    //! when it is null.
    explicit KELSlideControl(QGraphicsObject *parent = nullptr);
    //! Destroys the slider.
    ~KELSlideControl() override;

    //! Returns the value. Default 0.
    float value() const;

    // kept: spelled so, here and below
    //! Returns the upper bound. Default 100.
    float maximun() const;

    //! Returns the lower bound. Default 0.
    float minimun() const;

    //! Returns the width of a step; 0 or less means that the value moves freely. Default 0.
    float step() const;

    //! Sets the width of a step, any number; the value stays. A step that is not a number counts as 0, with an
    //! infinite one the value stays for good.
    void setStep(float step);

    //! Sets the upper bound to \a maximum, any number. A value above the old (not the new) upper bound becomes the
    //! old one; otherwise it stays, also outside the new bounds, until a setValue() that passes the step. Neither
    //! moves the knob nor repaints nor emits.
    void setMaximun(float maximum);

    //! Sets the lower bound to \a minimum, any number. A value below the old (not the new) lower bound becomes the
    //! old one; otherwise it stays, also outside the new bounds, until a setValue() that passes the step. Neither
    //! moves the knob nor repaints nor emits.
    void setMinimun(float minimum);

    //! Stores \a rect (item px) and places the knob, see \ref slideplace. Neither repaints nor tells the scene:
    //! see \ref geometry.
    void setboundRect(const QRectF &rect) override;

    //! Stores the rectangle \a x, \a y, \a w, \a h (item px) and places the knob, differently: see
    //! \ref slideplace. Neither repaints nor tells the scene.
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;

    //! Paints the slider with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

public Q_SLOTS:
    //! Sets the value to \a v by the rules of \ref slidevalue, moves the knob, repaints and emits valueChanged(),
    //! also when the value is what it was. A \a v less than one step away does nothing at all. A
    //! two-way KELDataBind to a property whose setter emits for the value that it has, too, needs a
    //! step, or never comes to rest.
    void setValue(float v);

Q_SIGNALS:
    //! The value was set, by setValue() or by the pointer. During a drag this comes with every move that
    //! passes the step.
    void valueChanged();

protected:
    //! Serves the slider's own timer, which is never started, by stopping it and repainting. Other timers, the
    //! one for the long press included, are ignored.
    void timerEvent(QTimerEvent *event) override;
    //! Presses as the base does, then takes hold of the knob or jumps.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    //! Moves as the base does, then drags the knob if a press took hold of it and the pointer was not lost.
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;

public:
    /*!
     * Gives the present record the look of a slider and returns it: groove light grey, filled part and knob RGB
     * (50, 173, 235), outline of the knob white. The slider goes on owning the record.
     */
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELSlideControl)

    KELSlideControlPrivate *const d;
};

#endif
