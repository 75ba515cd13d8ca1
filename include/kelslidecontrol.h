// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSLIDECONTROL_H
#define KELSLIDECONTROL_H

#include "kelroundrectcontrol.h"

class KELSlideControlPrivate;

/*!
 * \brief A horizontal slider: a groove with a round knob that the finger drags.
 *
 * \image html states-slide-control.png
 *
 * \code
 * auto *speed = new KELSlideControl;
 * speed->setMaximun(250);
 * speed->setboundRect(20, 20, 300, 40);
 * speed->setStep(5);
 * QObject::connect(speed, &KELSlideControl::valueChanged, [speed] { setSpeed(speed->value()); });
 * scene->addItem(speed);
 * \endcode
 *
 * \section slideuse Interaction
 * A press on the knob grabs it, and moving the pointer drags it; vertical movement is ignored. The
 * knob is 30 px across, and its whole bounding square counts as part of it. A press anywhere else
 * on the control jumps to that position: the value is set to minimum + (maximum - minimum) *
 * distance / (width - 30), where distance is how far the finger is from the left edge.
 * \code
 * press beside the knob, release ---> mousePress, valueChanged, mouseRelease, mouseClicked
 * press on the knob, drag, release -> mousePress, valueChanged for each move, mouseRelease
 * \endcode
 * A jump or a move of less than one step emits no valueChanged. A drag of at most 10 px also ends
 * with mouseClicked.
 *
 * Call setboundRect() before the slider is shown: the constructor leaves the knob at (0, 0),
 * outside the default rectangle. The control must be wider than 30 px.
 *
 * \section slidevalue Value and step
 * The value is a \c float between minimun() and maximun(), default 0 in a range of 0 to 100. With a
 * step() greater than 0 it moves in whole steps from the current value:
 * 1. A new value that is less than one step away from the current one is ignored, and no signal is
 *    emitted.
 * 2. Any other change is rounded to a whole number of steps, with halves rounded upward (2.5 to 3,
 *    -2.5 to -2).
 * 3. The result is clamped to the bounds.
 *
 * A bound can therefore be reached even if it is not a whole number of steps away. Steps are then
 * counted from the bound.
 *
 * \section slidelook Look
 * \c backgroundBrush fills the groove (4 px high). \c foregroundBrush fills the knob and the part
 * of the groove to the left of it. \c borderBrush draws a 2 px outline around the knob. The filled
 * part is drawn only while the value is within the bounds. A disabled slider draws the knob and the
 * filled part in RGB (110, 110, 110) and the outline in RGB (170, 170, 170), whatever the brushes
 * are.
 *
 * At the ends of the travel the outline of the knob extends 1 px beyond the rectangle, and in a
 * control less than 32 px high also above and below it. See \ref outside.
 *
 * \section slidecompat Compatibility notes
 * - maximun(), minimun() and their setters are spelled this way.
 * - A slider emits no mouseLongPress() and opens no menu on a long press. mouseClicked() is emitted
 *   even after more than 500 ms if the pointer has not moved by more than 10 px.
 * - In a control exactly 30 px wide a jump or a move can make the value NaN; in a narrower one the
 *   knob moves against the drag.
 * - The bounds are not checked. If the maximum is below the minimum, a value above the maximum
 *   becomes the maximum, any other value becomes the minimum.
 * - If the bounds are equal, the position of the knob is NaN. The knob vanishes, and presses at
 *   its height grab it at any position, until the bounds differ and the knob is placed again.
 * - A bound that is NaN limits nothing. A value of NaN is stored. If there is a step, the value
 *   then remains NaN, whatever is set, until the step is set to 0.
 * - Without a \c backgroundBrush the filled part is outlined with the painter's current pen, which
 *   in a scene is black and 1 px wide. Without a \c borderBrush the knob is outlined with the
 *   painter's current pen. In a scene, once the groove has been drawn, no pen is left, so there is
 *   no outline.
 * - In a parent control the groove is drawn in boundingRect(), which is offset by the corner of the
 *   parent's rectangle, while the knob and the pointer use the record's own rectangle. Use a parent
 *   whose rectangle begins at (0, 0). Pages below a title bar, pages with an outline and all but
 *   the first control of a KELSideMenu begin elsewhere; see \ref placing.
 *
 * \subsection slideplace Knob position
 * With f = (value - minimum) / (maximum - minimum), the left edge of the knob is set
 * | by                                       | to                                             |
 * |------------------------------------------|------------------------------------------------|
 * | setValue()                               | x + f * (width - 30)                           |
 * | setboundRect(const QRectF&)              | x + 15 + f * (width - 30)                      |
 * | setboundRect(qreal, qreal, qreal, qreal) | x + value / (maximum - minimum) * (width - 30) |
 *
 * where f and its product with (width - 30) are in single precision. With a minimum of 0, the
 * overload with four numbers agrees with setValue(): use that overload. With any other minimum, set
 * the bounds, the rectangle, the value and the step in that order, because only a call to
 * setValue() that is not ignored places the knob. setMaximun() and setMinimun() do not move it.
 * After setboundRect(const QRectF&) with the value at the maximum the knob extends 15 px beyond the
 * rectangle.
 */
class KELGDI_EXPORT KELSlideControl : public KELRoundRectControl
{
    Q_OBJECT
    //! The value. The default is 0.
    Q_PROPERTY(float value READ value WRITE setValue NOTIFY valueChanged)

public:
    //! Creates a slider with range 0 to 100, no step and value 0, as a child item of \a parent, or
    //! without a parent if it is null.
    explicit KELSlideControl(QGraphicsObject *parent = nullptr);
    //! Destroys the slider.
    ~KELSlideControl() override;

    //! Returns the value. The default is 0.
    float value() const;

    // Compat: the spelling, here and below.
    //! Returns the upper bound. The default is 100.
    float maximun() const;

    //! Returns the lower bound. The default is 0.
    float minimun() const;

    //! Returns the step width. 0 or less means that the value is continuous. The default is 0.
    float step() const;

    //! Sets the step width to \a step, which may be any number. The value is unchanged. NaN counts
    //! as 0. If the step is infinite, the value never changes.
    void setStep(float step);

    //! Sets the upper bound to \a maximum, which may be any number. A value above the old bound is
    //! clamped to the old (not the new) bound. Any other value is unchanged, even if it is outside
    //! the new bounds, until a call to setValue() that is not ignored. Does not move the knob,
    //! repaint the slider or emit a signal.
    void setMaximun(float maximum);

    //! Sets the lower bound to \a minimum, which may be any number. A value below the old bound is
    //! clamped to the old (not the new) bound. Any other value is unchanged, even if it is outside
    //! the new bounds, until a call to setValue() that is not ignored. Does not move the knob,
    //! repaint the slider or emit a signal.
    void setMinimun(float minimum);

    //! Stores \a rect (item px) and places the knob; see \ref slideplace. Neither repaints nor
    //! notifies the scene; see \ref geometry.
    void setboundRect(const QRectF &rect) override;

    //! Stores the rectangle \a x, \a y, \a w, \a h (item px) and places the knob according to a
    //! different rule; see \ref slideplace. Neither repaints nor notifies the scene.
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;

    //! Paints the slider with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    /*!
     * Applies the slider's defaults to the current record and returns it: a light grey groove, the
     * filled part and the knob in RGB (50, 173, 235), and a white outline around the knob. The
     * slider still owns the record.
     */
    KELRoundRectControlStyle *initStyle() override;

public Q_SLOTS:
    /*!
     * Sets the value to \a v by the rules of \ref slidevalue, moves the knob, repaints and emits
     * valueChanged(), even if the value is unchanged. Does nothing if \a v is less than one step
     * away.
     *
     * A two-way KELDataBind to a property whose setter also emits for an unchanged value needs a
     * step; otherwise it never settles.
     */
    void setValue(float v);

Q_SIGNALS:
    //! The value was set, by setValue() or by the pointer. During a drag it is emitted for every
    //! move of at least one step.
    void valueChanged();

protected:
    //! Handles the slider's own timer, which is never started: stops it and repaints. Ignores other
    //! timers, the long-press timer included.
    void timerEvent(QTimerEvent *event) override;
    //! Handles the press as the base class does, then grabs the knob or jumps.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    //! Handles the move as the base class does, then drags the knob if a press has grabbed it and
    //! the pointer has not been lost.
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;

private:
    Q_DISABLE_COPY(KELSlideControl)

    KELSlideControlPrivate *const d;
};

#endif
