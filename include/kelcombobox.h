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
 * \brief An entry of a KELComboBox: a push button without background and outline, with a label on it.
 *
 * Entries are made by KELComboBox::addItem(). The look is that of the button, style(), and of its label.
 */
class KELGDI_EXPORT KELComboBoxItem : public KELPushButton
{
    Q_OBJECT

public:
    //! Creates an entry without value and text, as a child item of \a parent.
    explicit KELComboBoxItem(QGraphicsObject *parent = nullptr);

    //! Destroys the entry; its combo box forgets it, see KELComboBox::removeItem().
    ~KELComboBoxItem() override;

    //! Returns the text. Default null.
    QString display() const;

    //! Sets the text and repaints it. A combo box that shows it as selected keeps the old text until the entry
    //! is selected again.
    void setDisplay(QString display);

    //! Returns the value. Default an invalid QVariant.
    QVariant value() const;

    //! Sets the value; nothing else happens.
    void setValue(QVariant value);

    //! Sets the rectangle of the entry (item px) and gives its label the same size.
    void setboundRect(const QRectF &rect) override;

    //! Sets the rectangle of the entry (item px) and gives its label the same size.
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;

    //! Takes background and outline from the button's record and returns it. For constructors only.
    KELPushButtonStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELComboBoxItem)
    friend class KELComboBox;
    friend class KELComboBoxPrivate;

    KELComboBoxItemPrivate *const d;
};

/*!
 * \brief A drop-down list: shows the selected entry; a tap opens the list below it, another one picks an entry.
 *
 * \image html combo-box.png
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
 * A composite: the control itself paints nothing. A KELPushButton covers it, with one KELLabel for the text
 * and one for the arrow on it; a third KELLabel below the control is the list, with a KELComboBoxItem, 30
 * px high, for each entry. All are child items, which may be styled, but not deleted.
 *
 * \section comboboxopen Opening and closing
 * A click on the button opens the list and puts the control at z-value 1, also when it was higher: leave its
 * neighbours below 1. It closes, and gets its earlier z-value back, by a click on the button, when an entry is
 * selected, and by a press outside button and list: in the scene, in another one, on any widget or window of the
 * application, by mouse or touch. The z-value is given back as an int: cut towards zero, the lowest or highest int
 * where it does not fit, 0 when it is not a number. While the list is open the combo box filters the events of the
 * application object.
 *
 * The list is neither kept inside the scene nor inside the view: give it room below the control.
 *
 * While the control is hidden no press closes the list.
 *
 * Place a combo box with setboundRect(), leave its pos() at (0, 0) and do not turn or scale it. A press that
 * reaches a control in the scene is compared with the list by its position within that control; after setPos(),
 * of the combo box or of the other control, that is another place than in the scene, and then the list may close
 * on a press on the button, which opens it again, or on an entry, which is not selected. The same
 * holds for combo boxes inside an item that was moved by setPos(), such as a KELNavigationTable:
 * \ref placing says what to do instead.
 *
 * \section comboboxentries Entries
 * Entries may be added and removed at any time, also while the list is open. Entries behind a removed one
 * stay where they are, and the list becomes one entry shorter all the same: the last entry then hangs out
 * of the list, where a press closes it. After removals call clearItem() and fill the list anew.
 *
 * \section comboboxlife Lifetime
 * The combo box owns its entries. It and its entries may be deleted in any slot of their signals, an entry
 * also in its own mouseClicked(). The one exception is Qt's: in visibleChanged() of a child item, sent while the
 * list is shown or hidden, no item of the combo box may be deleted; use deleteLater() there. An entry that was taken
 * out with removeItem() belongs to the list's item until it is given another parent item; it can still be clicked,
 * but selects nothing.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELComboBox : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a combo box without entries, with the rectangle of a new control, as a child item of \a parent.
    explicit KELComboBox(QGraphicsObject *parent = nullptr);

    //! Destroys the combo box and its entries. No signal is emitted.
    ~KELComboBox() override;

    //! Appends an entry with \a value that shows \a display or, when that is empty, the value as a string.
    //! The entry is as wide as the control now is, less 1 px.
    void addItem(QVariant value, QString display);

    /*!
     * Takes \a item out of the entries. It is neither deleted nor hidden: delete it, or give it another parent.
     *
     * When it is the selected one, nothing is selected afterwards and the text becomes empty; otherwise the
     * selected entry stays. selectItemChanged() is not emitted. Does nothing when \a item is no entry. A
     * deleted entry is taken out in the same way.
     */
    void removeItem(KELComboBoxItem *item);

    //! Deletes all entries; what a slot adds meanwhile stays. selectItemChanged() is not emitted. The list gets its
    //! new size at the end.
    void clearItem();

    /*!
     * Selects the entry at \a index, closes the list, shows the text of the entry and emits
     * selectItemChanged().
     *
     * For the selected entry only the text is fetched again: the list stays as it is and no signal is
     * emitted. Any other index that is no entry's is ignored.
     */
    void setSelectIndex(int index);

    //! Returns the index of the selected entry; -1, the default, when none is selected.
    int selectIndex() const;

    //! Returns the selected entry, or null.
    KELComboBoxItem *selectedItem() const;

    //! Returns the entries from the top down.
    QList<KELComboBoxItem *> items() const;

    //! Appends an entry for each key of \a e. Value and text are the name of the key, not its number.
    void bindEnum(QMetaEnum e);

    /*!
     * Sets the rectangle (item px) to \a rect and lays out button, labels and list. They are at least 80 px
     * wide, the control is as wide as \a rect. Entries keep their width.
     */
    void setboundRect(const QRectF &rect) override;

    /*!
     * Sets the rectangle (item px) and lays out button, labels and list. Control and parts are at least 60 px
     * wide. Entries keep their width.
     */
    void setboundRect(qreal x, qreal y, qreal w, qreal h) override;

    //! Paints nothing: the child items do.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Takes background and outline from the record and returns it. For constructors only.
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
