// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELRADIOBOX_H
#define KELRADIOBOX_H

#include "kelroundrectcontrol.h"

class KELRadioBoxGroupPrivate;
class KELRadioBoxPrivate;

/*!
 * \brief A round option button, with a dot when it is checked.
 *
 * \image html radio-box.png
 *
 * On its own a radio box toggles with every press of the left button or a finger, as a check box does, and a
 * tap gives
 * \code
 * mousePress, checked or unchecked, checkChanged, mouseRelease, mouseClicked
 * \endcode
 * In a KELRadioBoxGroup one box of several is checked, and the checked one does not react to the pointer.
 *
 * The circle is 25 px across, in the middle of the rectangle; its outline reaches half of \c borderWidth beyond,
 * so a control of 27 x 27 px holds it with the default width; see \ref outside. The dot is 19 px across. The
 * outline is drawn with \c borderBrush, the circle is filled with \c backgroundBrush and the dot with
 * \c foregroundBrush; a width of 0 draws an outline of one device pixel, a width that is negative or not finite
 * none. There is no disabled look and no caption: put a KELLabel beside the box.
 *
 * Inside a parent control the circle is placed by the record's rectangle as it stands, while boundingRect()
 * is moved by the corner of the parent's rectangle: give such a parent a rectangle that begins at
 * (0, 0). Pages below a title bar, pages with an outline and all but the first control of a
 * KELSideMenu have another one: \ref placing has the way out.
 */
class KELGDI_EXPORT KELRadioBox : public KELRoundRectControl
{
    Q_OBJECT
    //! Whether the box is checked. Default false.
    Q_PROPERTY(bool check READ isCheck WRITE setCheck NOTIFY checkChanged)

public:
    //! Creates an unchecked radio box as a child item of \a parent, or without parent when it is null.
    explicit KELRadioBox(QGraphicsObject *parent = nullptr);
    //! Takes the box out of its group, without a signal of the group, and destroys it.
    ~KELRadioBox() override;

    /*!
     * Puts four fields of the record back to the defaults of a radio box and returns the record: no
     * background, outline white and 2 px, foreground RGB (50, 173, 235).
     *
     * To change one of the four for good, edit the record through KELRoundRectControl::style():
     * \code
     * box->KELRoundRectControl::style()->borderBrush = QColor(60, 60, 60);
     * \endcode
     * or keep the pointer that this function returned once. The box owns the record. Never null.
     */
    KELRoundRectControlStyle *style();

    //! Paints the radio box with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

Q_SIGNALS:
    //! The box was checked.
    void checked();
    //! The box was unchecked.
    void unchecked();
    //! The box was checked or unchecked. Comes right after checked() or unchecked().
    void checkChanged();

protected:
    //! Presses as the base does, then toggles if \a event tells of the left button.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

public:
    //! Emits checked() if \a check is true, else unchecked(), then checkChanged().
    void onCheckedEvent(bool check) override;

private:
    Q_DISABLE_COPY(KELRadioBox)
};

/*!
 * \brief Makes radio boxes exclude each other: the box whose id is the group's is the checked one.
 *
 * \code
 * auto *group = new KELRadioBoxGroup(scene);
 * group->addRadioBox(slow, 0); // the group starts with id 0: this box is checked at once
 * group->addRadioBox(fast, 1);
 * QObject::connect(group, &KELRadioBoxGroup::idChanged, [group] { setSpeed(group->id()); });
 * \endcode
 *
 * \section radiotap A tap
 * A press on a box that is not checked gives, in this order,
 * \code
 * new box mousePress, new box checked, old box unchecked, old box checkChanged, idChanged, new box checkChanged
 * \endcode
 * where slots connected to the new box's checked() before it was added run before the old box is
 * unchecked. The new box takes no more pointer input from then on, and Qt takes the pointer from it: neither
 * mouseRelease() nor mouseClicked() follows. A tap on the checked box goes to what lies below it.
 *
 * Checking a box by program, with KELRoundRectControl::setCheck() or its property \c check, selects it as a tap does.
 * Do not uncheck the selected box by program: no box is checked then, the box still takes no pointer input, and
 * setId() with its id does nothing. Select another one instead.
 *
 * The group switches that by setAcceptHoverEvents(), setAcceptTouchEvents(), the flag ItemIsSelectable and
 * setAcceptedMouseButtons(), off for the box that is selected and on (left button only) for the one that was.
 *
 * \section radiobind Bindings
 * A two-way KELDataBind of the property \c id with a property of another object comes to rest, also
 * when that one emits for every value; it may select the box with id 1, if there is one, in place
 * of any other but 0. It runs until the stack ends when the opposite of what was carried comes
 * back, as from a converter whose ConvertBack() does not undo Convert(), and there are boxes with
 * the ids 0 and 1.
 *
 * Do not bind a box to its own group or to another box of the group: \c id with \c check of such a
 * box undoes selections or leaves no box checked; \c check of two boxes with each other, or \c id
 * with \c check of two boxes, can run until the stack ends. Connect to idChanged() instead.
 *
 * \section radiolife Lifetime
 * The group does not own the boxes. Group and boxes may be destroyed in any order and in any slot of their signals. A
 * box that is destroyed leaves the group without a signal and frees its ids; if it was the selected one,
 * id() stays as it is with no box checked, until setId() selects another one or a box is added under that id.
 * Boxes that outlive the group stay as they are, the checked one without pointer input. A box belongs to one group.
 *
 * When a slot of the old box's unchecked() or checkChanged() selects a third box, the later wish counts: the
 * earlier one is given up, its box is unchecked if it was checked already, and idChanged() comes once. When a
 * slot of the new box's signals selects a third box, both selections are made, one inside the other, and
 * idChanged() comes twice, with the third id.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELRadioBoxGroup : public QObject
{
    Q_OBJECT
    // kept: a bool, which only says whether the id is not 0
    //! Whether id() is not 0; writing selects id 0 or 1. For the number use id() and setId().
    Q_PROPERTY(bool id READ id WRITE setId NOTIFY idChanged)

public:
    //! Creates an empty group with id 0, as a child of \a parent.
    explicit KELRadioBoxGroup(QObject *parent = nullptr);
    //! Destroys the group. The boxes stay.
    ~KELRadioBoxGroup() override;

    //! Returns the id of the selected box. Default 0, also when there is no such box.
    int id() const;

    /*!
     * Adds \a box under \a id, any number. If that is the group's present id, the box is checked, with its
     * signals but without idChanged(), and takes no more pointer input; otherwise the box keeps the state it has.
     * Null is ignored.
     *
     * If there is a box with that id already, nothing changes and this debug message is written (for id 3):
     * <tt>waring : id 3 is already exist</tt>. A box that is added again under another id has both;
     * however it is selected, id() is the one given last. There is no way to take a living box out.
     */
    void addRadioBox(KELRadioBox *box, int id);

public Q_SLOTS:
    //! Selects the box with id \a idin: the old box becomes unchecked and takes pointer input again, the new one is
    //! checked and takes none; emits idChanged() last. Does nothing when \a idin is the present id or that of no box.
    void setId(int idin);

Q_SIGNALS:
    //! Another box was selected. Comes after the signals of both boxes, except for checkChanged() of a box that was
    //! tapped, see \ref radiotap.
    void idChanged();

private:
    Q_DISABLE_COPY(KELRadioBoxGroup)

    KELRadioBoxGroupPrivate *const d;
};

#endif
