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
 * \image html states-radio-box.png
 *
 * \code
 * auto *box = new KELRadioBox;
 * box->setboundRect(20, 20, 40, 40);
 * QObject::connect(box, &KELRadioBox::checkChanged, [box] { setEco(box->isCheck()); });
 * scene->addItem(box);
 * \endcode
 *
 * A radio box without a group toggles with every press of the left button or a finger, as a check
 * box does. A tap emits
 * \code
 * mousePress, checked or unchecked, checkChanged, mouseRelease, mouseClicked
 * \endcode
 * In a KELRadioBoxGroup only one of several boxes is checked, and the checked one does not react to
 * the pointer.
 *
 * The circle is 25 px across and centred in the rectangle; the dot is 19 px across. The outline
 * extends half of \c borderWidth beyond the circle: with the default width, the box fits into a
 * control of 27 x 27 px; see \ref outside. \c borderBrush draws the outline, \c backgroundBrush
 * fills the circle, \c foregroundBrush fills the dot. A width of 0 draws an outline of one device
 * pixel; with a negative or non-finite width no outline is drawn. There is no disabled look and no
 * caption: put a KELLabel beside the box.
 *
 * \section radioboxcompat Compatibility notes
 * - style() resets four fields of the record each time it is called.
 * - Inside a parent control the circle is positioned according to the record's own rectangle, while
 *   boundingRect() is offset by the corner of the parent's rectangle. Use a parent whose rectangle
 *   begins at (0, 0). Pages below a title bar, pages with an outline and all but the first control
 *   of a KELSideMenu begin elsewhere; see \ref placing.
 */
class KELGDI_EXPORT KELRadioBox : public KELRoundRectControl
{
    Q_OBJECT
    //! Whether the box is checked. The default is false.
    Q_PROPERTY(bool check READ isCheck WRITE setCheck NOTIFY checkChanged)

public:
    //! Creates an unchecked radio box as a child item of \a parent, or without a parent if it is
    //! null.
    explicit KELRadioBox(QGraphicsObject *parent = nullptr);
    //! Removes the box from its group and destroys it. The group emits no signal.
    ~KELRadioBox() override;

    /*!
     * Resets four fields of the record to the defaults of a radio box and returns the record: no
     * background, a white 2 px outline and the foreground RGB (50, 173, 235).
     *
     * To change one of the four permanently, edit the record through KELRoundRectControl::style():
     * \code
     * box->KELRoundRectControl::style()->borderBrush = QColor(60, 60, 60);
     * \endcode
     * or store the pointer from a single call to this function. Never null. The box owns the
     * record.
     */
    KELRoundRectControlStyle *style();

    //! Paints the radio box with \a painter; \a styleOption and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Emits checked() if \a check is true, otherwise unchecked(), then checkChanged().
    void onCheckedEvent(bool check) override;

Q_SIGNALS:
    //! The box was checked.
    void checked();
    //! The box was unchecked.
    void unchecked();
    //! The box was checked or unchecked. Emitted right after checked() or unchecked().
    void checkChanged();

protected:
    //! Handles the press as the base class does, then toggles if \a event is a press of the left
    //! button.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

private:
    Q_DISABLE_COPY(KELRadioBox)
};

/*!
 * \brief Makes radio boxes exclusive: the box with the group's id is the checked one.
 *
 * \code
 * auto *group = new KELRadioBoxGroup(scene);
 * group->addRadioBox(slow, 0); // the group starts with id 0: this box is checked at once
 * group->addRadioBox(fast, 1);
 * QObject::connect(group, &KELRadioBoxGroup::idChanged, [group] { setSpeed(group->id()); });
 * \endcode
 *
 * \section radiotap A tap
 * A press on an unchecked box emits, in this order,
 * \code
 * new box mousePress, new box checked, old box unchecked, old box checkChanged,
 * idChanged, new box checkChanged
 * \endcode
 * From then on the new box accepts no pointer input, and Qt takes the pointer from it: neither
 * mouseRelease() nor mouseClicked() follows. A tap on the checked box goes to the item below it.
 *
 * KELRoundRectControl::setCheck(true) and the property \c check select a box as a tap does. Do not
 * uncheck the selected box from code: if you do, no box is checked, the box still accepts no
 * pointer input, and setId() with its id does nothing. Select another box instead.
 *
 * The group turns pointer input on and off with setAcceptHoverEvents(), setAcceptTouchEvents(), the
 * flag ItemIsSelectable and setAcceptedMouseButtons(): off for the selected box, on (left button
 * only) for the previously selected one.
 *
 * \section radiobind Bindings
 * Do not bind a box to its own group or to another box of the group; connect to idChanged()
 * instead. Binding \c id to the \c check property of such a box undoes selections or leaves no box
 * checked. Binding one box's \c check to another's, or \c id to the \c check of two boxes, can
 * recurse until the stack overflows.
 *
 * A two-way KELDataBind between the property \c id and a property of another object settles, even
 * if that property emits for every value. Because \c id is a bool, the binding may select the box
 * with id 1, if there is one, in place of a box with any other id except 0. It recurses until the
 * stack overflows if the opposite of the value that it sends comes back, as from a converter whose
 * ConvertBack() does not undo Convert(), and there are boxes with the ids 0 and 1.
 *
 * \section radiolife Lifetime
 * The group does not own the boxes. The group and the boxes may be destroyed in any order and in
 * any slot connected to their signals. A destroyed box leaves the group without a signal and frees
 * its ids. If it was the selected one, id() is unchanged and no box is checked until setId()
 * selects another one or a box is added under that id. Boxes that outlive the group keep their
 * state; the checked one still accepts no pointer input. A box belongs to one group.
 *
 * GUI thread only.
 *
 * \section radiogroupcompat Compatibility notes
 * - The property \c id is a bool. It reads as true when id() is not 0, and writing it selects id 0
 *   or 1.
 * - Slots that were connected to the new box's checked() before the box was added run before the
 *   old box is unchecked.
 * - If a slot connected to the old box's unchecked() or checkChanged() selects a third box, the
 *   later selection wins. The earlier one is abandoned: its box is unchecked if it was already
 *   checked, and idChanged() is emitted once.
 * - If a slot connected to the new box's signals selects a third box, both selections are made,
 *   nested, and idChanged() is emitted twice, with the third id both times.
 */
class KELGDI_EXPORT KELRadioBoxGroup : public QObject
{
    Q_OBJECT
    // Compat: a bool, which only reports whether the id is not 0.
    //! True if id() is not 0; writing selects id 0 or 1. For the number use id() and setId().
    Q_PROPERTY(bool id READ id WRITE setId NOTIFY idChanged)

public:
    //! Creates an empty group with id 0, as a child of \a parent.
    explicit KELRadioBoxGroup(QObject *parent = nullptr);
    //! Destroys the group. The boxes are not destroyed.
    ~KELRadioBoxGroup() override;

    //! Returns the id of the selected box. The default is 0, even if no box has that id.
    int id() const;

    /*!
     * Adds \a box with the id \a id, which may be any number. If it is the group's current id, the
     * box is checked and emits its signals, but idChanged() is not emitted, and the box no longer
     * accepts pointer input. Otherwise the box keeps its state. Null is ignored.
     *
     * If a box already has that id, nothing changes, and this debug message is printed (here for id
     * 3): <tt>waring : id 3 is already exist</tt>. A box that is added again under another id has
     * both ids; however it is selected, id() returns the one given last. A box cannot be removed
     * from a group except by destroying it.
     */
    void addRadioBox(KELRadioBox *box, int id);

public Q_SLOTS:
    //! Selects the box with id \a idin. The old box is unchecked and accepts pointer input again,
    //! the new one is checked and accepts none. Emits idChanged() last. Does nothing if \a idin is
    //! the current id or no box has it.
    void setId(int idin);

Q_SIGNALS:
    //! Another box was selected. Emitted after the signals of both boxes, except for checkChanged()
    //! of a box that was tapped; see \ref radiotap.
    void idChanged();

private:
    Q_DISABLE_COPY(KELRadioBoxGroup)

    KELRadioBoxGroupPrivate *const d;
};

#endif
