// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCOMBOBOX_H
#define KELCOMBOBOX_H

#include "kelpushbutton.h"

#include <QtCore/QList>
#include <QtCore/QVariant>

QT_BEGIN_NAMESPACE
class QMetaEnum;
QT_END_NAMESPACE

class KELComboBoxItemPrivate;
class KELComboBoxPrivate;

/*!
 * \brief An entry of a KELComboBox: a push button without a background or outline, with a label on
 * it.
 *
 * KELComboBox::addItem() creates the entries. Style the button with style() and the state functions
 * of KELPushButton:
 * \code
 * combo->addItem(100, QObject::tr("Slow"));
 * KELComboBoxItem *entry = combo->items().constLast();
 * entry->setIsMouseDownTemplate([](KELPushButtonStyle &look) {
 *     look.backgroundBrush = QColor(0, 120, 215);
 * });
 * \endcode
 *
 * The combo box owns its entries.
 */
class KELGDI_EXPORT KELComboBoxItem : public KELPushButton
{
    Q_OBJECT

public:
    //! Creates an entry without a value or text, as a child item of \a parent.
    explicit KELComboBoxItem(QGraphicsObject *parent = nullptr);

    //! Destroys the entry and removes it from its combo box; see KELComboBox::removeItem().
    ~KELComboBoxItem() override;

    //! Returns the text. The default is null.
    QString display() const;

    //! Sets the text and repaints the entry's label. A combo box in which the entry is selected
    //! keeps showing the old text until the entry is selected again.
    void setDisplay(QString display);

    //! Returns the value. The default is an invalid QVariant.
    QVariant value() const;

    //! Sets the value and does nothing else.
    void setValue(QVariant value);

    //! Sets the rectangle of the entry (item px) and gives its label the same size.
    void setboundRect(const QRectF &rect) override;

    //! Sets the rectangle of the entry (item px) and gives its label the same size.
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;

    //! Removes the background and the outline from the button's record and returns the record. For
    //! constructors only.
    KELPushButtonStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELComboBoxItem)
    friend class KELComboBox;
    friend class KELComboBoxPrivate;

    KELComboBoxItemPrivate *const d;
};

/*!
 * \brief A drop-down list: a tap opens the list below the control, and a tap on an entry selects
 * it.
 *
 * \image html states-combo-box.png
 *
 * \code
 * auto *speed = new KELComboBox;
 * speed->setboundRect(20, 20, 160, 40);
 * speed->addItem(100, tr("Slow"));
 * speed->addItem(250, tr("Fast"));
 * speed->setSelectIndex(0);
 * scene->addItem(speed);
 * \endcode
 *
 * Place a combo box with setboundRect(), leave its pos() at (0, 0), and do not rotate or scale it;
 * \ref comboboxcompat explains why.
 *
 * A combo box is a composite and paints nothing itself. A KELPushButton covers it, with one
 * KELLabel for the text and one for the arrow. A third KELLabel below the control is the list, with
 * one KELComboBoxItem, 30 px high, for each entry. All are child items. You may style them, but
 * must not delete them.
 *
 * \section comboboxopen Opening and closing
 * A click on the button opens the list. It closes
 * - on a click on the button;
 * - when an entry is selected;
 * - on a press outside the button and the list, by mouse or touch: in the same scene, in another
 *   one, or on any widget or window of the application.
 *
 * A tap emits
 * \code
 * on the button ---------> button: mousePress, mouseRelease, mouseClicked
 * on an entry -----------> entry: mousePress, mouseRelease, mouseClicked,
 *                          combo box: selectItemChanged
 * on the selected entry -> entry: mousePress, mouseRelease, mouseClicked; the list stays open
 * \endcode
 *
 * While the list is open the control has z-value 1, and the combo box filters the events of the
 * application object. Keep the z-values of neighbouring items below 1. The list is not clamped to
 * the scene or view; leave room below the control.
 *
 * \section comboboxentries Entries
 * Entries may be added and removed at any time, even while the list is open. Removing an entry
 * may leave a gap in the list. To close it, call clearItem() and add the remaining entries again.
 *
 * \section comboboxlife Lifetime
 * The combo box owns its entries. The combo box and its entries may be deleted in any slot
 * connected to their signals, and an entry even in a slot connected to its own mouseClicked().
 * There is one exception, because of Qt: a slot connected to visibleChanged() of a child item,
 * which is emitted while the list is being shown or hidden, must not delete any item of the combo
 * box. Use deleteLater() there.
 *
 * GUI thread only.
 *
 * \section comboboxcompat Compatibility notes
 * - Opening the list sets the control's z-value to 1 even if it was higher. Closing restores it as
 *   an int: truncated towards zero, clamped to the range of int, 0 for NaN.
 * - While the control is hidden, no press closes the list.
 * - If a press reaches a control in the scene, the combo box compares the rectangle of its list
 *   with the position of the press in the coordinates of that control. If the combo box or that
 *   control has been moved with setPos(), these are not scene coordinates. A press on the button
 *   may then close the list, so that the click opens it again, or a press on an entry may close the
 *   list without selecting the entry. The same applies to a combo box inside an item that has been
 *   moved with setPos(), such as a KELNavigationTable; see \ref placing.
 * - Entries below a removed one keep their position, although the list becomes one entry shorter.
 *   The last entry then extends beyond the list, and a press there closes the list.
 * - An entry that was removed with removeItem() remains a child item of the list until it is given
 *   another parent item. It can still be clicked, but a click selects nothing.
 * - The two overloads of setboundRect() have different minimum widths.
 */
class KELGDI_EXPORT KELComboBox : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates an empty combo box with the default rectangle of a control, as a child item of
    //! \a parent.
    explicit KELComboBox(QGraphicsObject *parent = nullptr);

    //! Destroys the combo box and its entries. No signal is emitted.
    ~KELComboBox() override;

    //! Appends an entry with \a value that shows \a display or, if that is empty, the value as a
    //! string. The entry is 1 px narrower than the control currently is.
    void addItem(QVariant value, QString display);

    /*!
     * Removes \a item from the entries without deleting or hiding it. Delete it yourself, or give
     * it another parent item.
     *
     * If it is the selected entry, nothing is selected afterwards and the text becomes empty.
     * Otherwise the selected entry stays selected. selectItemChanged() is not emitted. Does nothing
     * if \a item is not an entry. A deleted entry is removed in the same way.
     */
    void removeItem(KELComboBoxItem *item);

    //! Deletes all entries, except any that a slot adds during the call, and then resizes the list.
    //! selectItemChanged() is not emitted.
    void clearItem();

    /*!
     * Selects the entry at \a index, closes the list, shows the text of the entry and emits
     * selectItemChanged().
     *
     * If the entry is already selected, only the displayed text is updated: an open list stays
     * open, and no signal is emitted. An index without an entry is ignored.
     */
    void setSelectIndex(int index);

    //! Returns the index of the selected entry, or -1 (the default) if none is selected.
    int selectIndex() const;

    //! Returns the selected entry, or null.
    KELComboBoxItem *selectedItem() const;

    //! Returns the entries from the top down.
    QList<KELComboBoxItem *> items() const;

    //! Appends an entry for each key of \a e. Both the value and the text are the name of the key,
    //! not its number.
    void bindEnum(QMetaEnum e);

    /*!
     * Sets the rectangle (item px) to \a rect and lays out the button, the labels and the list for
     * a width of at least 80 px. The control itself is as wide as \a rect. Entries keep their
     * width.
     */
    void setboundRect(const QRectF &rect) override;

    /*!
     * Sets the rectangle (item px) and lays out the button, the labels and the list. Both the
     * control and this layout are at least 60 px wide. Entries keep their width.
     */
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;

    //! Paints nothing; the child items paint themselves.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Removes the background and the outline from the record and returns the record. For
    //! constructors only.
    KELRoundRectControlStyle *initStyle() override;

Q_SIGNALS:
    //! Another entry was selected, by setSelectIndex() or by a tap. The list is closed.
    void selectItemChanged();

private:
    Q_DISABLE_COPY(KELComboBox)
    friend class KELComboBoxItem;

    KELComboBoxPrivate *const d;
};

#endif
