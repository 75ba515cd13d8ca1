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
    //! The fill of the knob. With Qt::NoBrush the knob is not drawn. The default in a check box is
    //! RGB (0, 123, 185). The colour of the knob also determines that of the track while the box is
    //! on; see \ref checkboxcolours. Gradients are limited; see \ref stylebrushes.
    QBrush indicatorBrush = QBrush();
};

/*!
 * \brief An on/off switch: a track with a knob on the left when off and on the right when on.
 *
 * \image html states-check-box.png
 *
 * \code
 * auto *heating = new KELCheckBox;
 * heating->setboundRect(20, 20, 82, 32);
 * heating->setCheck(true);
 * QObject::connect(heating, &KELCheckBox::checkChanged,
 *                  [heating] { setHeating(heating->isCheck()); });
 * scene->addItem(heating);
 * \endcode
 *
 * A press with the left button or a finger toggles the switch at once, without waiting for the
 * release. Each press of a double click toggles. A tap emits
 * \code
 * mousePress, checked or unchecked, checkChanged, mouseRelease, mouseClicked
 * \endcode
 * Other buttons are not accepted by default. If the application accepts them, they press the box
 * but do not toggle it. setCheck() and the property \c check change the state without a press.
 *
 * \section checkboxgeometry Geometry
 * The track is 30 px high, vertically centred, and at most 80 px wide. In a wider control it is
 * centred; in a narrower one it spans the whole width. The outline extends beyond the track by half
 * of its width: with the default width, a track with its outline fits into a control of 82 x 32 px;
 * see \ref outside. The knob is 24 px square and has the same corner radii as the track.
 *
 * \section checkboxcolours Colours
 * The colours are computed from the record on every paint. In the table, "+ 70" and "- 70" after a
 * colour mean that 70 is added to, or subtracted from, its red, green and blue components.
 * | part    | box           | colour                                |
 * |---------|---------------|---------------------------------------|
 * | knob    | enabled       | \c indicatorBrush                     |
 * | knob    | disabled      | \c backgroundBrush - 70, alpha 150    |
 * | track   | off           | \c backgroundBrush                    |
 * | track   | off, disabled | \c backgroundBrush, alpha - 170       |
 * | track   | on            | knob + 70, alpha - 70                 |
 * | track   | on, disabled  | disabled knob + 70, alpha - 70        |
 * | outline | enabled       | \c borderBrush                        |
 * | outline | disabled      | \c borderBrush, alpha - 130           |
 *
 * Choose a knob colour with red, green and blue components of at most 185 and an alpha of 70 or
 * more. If the box is ever disabled, also choose a track colour with red, green and blue components
 * of 70 or more and an alpha of 170 or more, and an outline colour with an alpha of 130 or more.
 * For other colours see \ref checkboxcompat.
 *
 * A part whose brush is Qt::NoBrush is not drawn, except as noted in \ref checkboxcompat. The
 * record's caption, pixmap and glyph are not drawn.
 *
 * \section checkboxcompat Compatibility notes
 * - The knob is 1.5 times \c borderWidth away from the top and from the left end, but always 3 px
 *   from the right end. The two ends look alike only with the default width of 2.
 * - The computed colours are not clamped to 0 to 255. A component outside this range makes the
 *   colour invalid: Qt paints black, and prints the warning "QColor::setRgb: RGB parameters out of
 *   range" on every paint.
 * - Without \c backgroundBrush or without an outline the track is still drawn, with the painter's
 *   current brush or pen. In a scene there is no brush, and the pen is black and 1 px wide.
 * - Without \c backgroundBrush the colour of the disabled knob is computed from black and is
 *   therefore invalid.
 * - Without \c indicatorBrush the track of a box that is on is RGBA (70, 70, 70, 185).
 */
class KELGDI_EXPORT KELCheckBox : public KELRoundRectControl
{
    Q_OBJECT
    //! Whether the switch is on. The default is false.
    Q_PROPERTY(bool check READ isCheck WRITE setCheck NOTIFY checkChanged)

public:
    //! Creates a check box that is off, as a child item of \a parent, or without a parent if it is
    //! null.
    explicit KELCheckBox(QGraphicsObject *parent = nullptr);
    //! Destroys the check box.
    ~KELCheckBox() override;

    /*!
     * Fills \a option, which must be a newly created record, with what the check box shows in its
     * current state; see \ref checkboxcolours. \a styleOption is not used. Pixmap, glyph and
     * \c iconSize are not copied, and the pressed state stays false. \a option must not be null.
     */
    void initStyleOption(KELCheckBoxStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    //! Paints the check box with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Emits checked() or unchecked(), then checkChanged(). The state is taken from the record;
    //! \a check is not used.
    void onCheckedEvent(bool check) override;

    /*!
     * Creates the check box's record, a KELCheckBoxStyle: the current look, but with the track in
     * RGB (200, 200, 200), the knob in RGB (0, 123, 185), a white 2 px outline and corner radii of
     * 15 px. For constructors only; see KELRoundRectControl::initStyle().
     */
    KELRoundRectControlStyle *initStyle() override;

Q_SIGNALS:
    //! The switch was turned on.
    void checked();
    //! The switch was turned off.
    void unchecked();
    //! The switch was turned on or off. Emitted right after checked() or unchecked().
    void checkChanged();

protected:
    //! Handles the press as the base class does, then toggles if \a event is a press of the left
    //! button.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

private:
    Q_DISABLE_COPY(KELCheckBox)

    KELCheckBoxPrivate *const d;
};

#endif
