// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCHECKBOX_H
#define KELCHECKBOX_H

#include "kelroundrectcontrol.h"

class KELCheckBoxPrivate;

/*!
 * \brief The style record of a check box.
 */
struct KELGDI_EXPORT KELCheckBoxStyle : public KELRoundRectControlStyle
{
    //! The fill of the knob; a brush of style Qt::NoBrush draws none. Default of a check box: RGB
    //! (0, 123, 185). Its colour also makes the track of a switched-on box, see \ref checkboxcolours.
    //! Gradients are limited, see \ref stylebrushes.
    QBrush indicatorBrush = QBrush();
};

/*!
 * \brief An on/off switch: a track with a knob that sits on the left when off and on the right when on.
 *
 * \image html check-box.png
 *
 * A press with the left button, or of a finger, toggles the switch at once: it does not wait for the release,
 * and each press of a double click toggles. A tap therefore gives
 * \code
 * mousePress, checked or unchecked, checkChanged, mouseRelease, mouseClicked
 * \endcode
 * Other buttons are not accepted by default; where the application accepts them they press but do not toggle.
 * setCheck(), or the property \c check, switches without a press.
 *
 * \section checkboxgeometry Geometry
 * The track is 30 px high around the vertical middle and at most 80 px wide: a wider control has it in its
 * middle, a narrower one over its whole width. Half of its outline lies around it, so that a control of 82 x 32 px
 * holds it whole with the default width; see \ref outside. The knob is 24 px square; its corners have the radii of
 * the track. It is 1.5 times \c borderWidth away from the top and from the left end, and always 3 px from the right
 * end: so the two ends look alike with the default width of 2 only.
 *
 * \section checkboxcolours Colours
 * The look is computed from the record at every paint. "c + 70" is a colour with 70 added to red, green and blue.
 * | part    | off               | off, disabled                        | on                      | on, disabled            |
 * |---------|-------------------|--------------------------------------|-------------------------|-------------------------|
 * | knob    | \c indicatorBrush | \c backgroundBrush - 70, alpha 150   | \c indicatorBrush       | as off, disabled        |
 * | track   | \c backgroundBrush | \c backgroundBrush, alpha - 170     | this knob + 70, alpha - 70 | this knob + 70, alpha - 70 |
 * | outline | \c borderBrush    | \c borderBrush, alpha - 130          | \c borderBrush          | as off, disabled        |
 *
 * The sums are not limited to 0 to 255. One that is outside gives an invalid colour, which Qt paints black, and
 * the warning "QColor::setRgb: RGB parameters out of range" at every paint. Choose a knob whose red, green and blue
 * are at most 185 and whose alpha is at least 70; and, where the box is disabled at times, a track whose red, green
 * and blue are at least 70 and whose alpha is at least 170, and an outline whose alpha is at least 130.
 *
 * A part whose brush is of style Qt::NoBrush is left out, with exceptions. Without \c backgroundBrush or without an
 * outline the track is drawn all the same, with the brush or the pen that the painter has already, in a scene no
 * brush and a black pen of 1 px. Without \c backgroundBrush the disabled knob is computed from black, and so
 * invalid; without \c indicatorBrush the track of a box that is on is RGBA (70, 70, 70, 185). Caption, pixmap
 * and glyph of the record are not drawn.
 */
class KELGDI_EXPORT KELCheckBox : public KELRoundRectControl
{
    Q_OBJECT
    //! Whether the switch is on. Default false.
    Q_PROPERTY(bool check READ isCheck WRITE setCheck NOTIFY checkChanged)

public:
    //! Creates a check box that is off, as a child item of \a parent, or without parent when it is null.
    explicit KELCheckBox(QGraphicsObject *parent = nullptr);
    //! Destroys the check box.
    ~KELCheckBox() override;

    /*!
     * Fills \a option, a fresh record, with what the check box shows in its present state, see
     * \ref checkboxcolours; \a styleOption is not read. Pixmap, glyph and \c iconSize are not taken over, and the
     * pressed state stays false. \a option must not be null.
     */
    void initStyleOption(KELCheckBoxStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    //! Paints the check box with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

Q_SIGNALS:
    //! The switch was turned on.
    void checked();
    //! The switch was turned off.
    void unchecked();
    //! The switch was turned on or off. Comes right after checked() or unchecked().
    void checkChanged();

protected:
    //! Presses as the base does, then toggles if \a event tells of the left button.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

public:
    //! Emits checked() or unchecked(), then checkChanged(). The state is that of the record; \a check is not read.
    void onCheckedEvent(bool check) override;

    /*!
     * Makes the check box's record, a KELCheckBoxStyle: the present look, track RGB (200, 200, 200), knob RGB
     * (0, 123, 185), outline white and 2 px, radii 15 px. For constructors only, see
     * KELRoundRectControl::initStyle().
     */
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELCheckBox)

    KELCheckBoxPrivate *const d;
};

#endif
