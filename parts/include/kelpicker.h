// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELPICKER_H
#define KELPICKER_H

#include "kelrow.h"

#include <QtCore/QStringList>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QModelIndex;
QT_END_NAMESPACE

class KELPickerPrivate;

/*!
 * \brief A row that shows one entry of a model, and opens a list of all entries to choose another.
 *
 * \code
 * auto *picker = new KELPicker(page);
 * picker->setCaption(QObject::tr("Lock after"));
 * picker->setItems({"1 minute", "5 minutes", "1 hour"});
 * picker->setCurrentIndex(1);
 * QObject::connect(picker, &KELPicker::activated, model, &Model::setLockTime);
 * layout->addItem(picker);
 * \endcode
 *
 * The entries are the top-level rows of a QAbstractItemModel: column 0, Qt::DisplayRole. The row
 * shows the current entry as its value, before an arrow. Do not call KELRow::setValue() and
 * KELRow::setEnd() of a picker; caption, detail, glyph, card and style are those of every KELRow.
 *
 * \section pickerlist The list
 * A tap on the row opens a KELList of the entries, in the colours of the picker, above everything
 * in the first view of the scene, which is dimmed with black of 30 %. The list is made when it
 * opens. The current entry is marked and scrolled to. The list opens below the row, above it if
 * there is room only there, otherwise where there is more room; if that is less than
 * KELTouch::leastSize(), it may take the whole height of the view. It is as wide as the row, and
 * never leaves the view. A picker does not open without entries or without a view, nor while it is
 * hidden or disabled.
 *
 * While the list is open, nothing else in the view gets presses, keys or shortcuts. It closes
 * - when an entry is tapped, which makes that the current one;
 * - by a press beside it, which goes nowhere else;
 * - by the keys Escape, Back and Cancel;
 * - when the picker is hidden, disabled, moved, resized, removed or deleted;
 * - when the view shows another part of the scene, because it was resized or turned;
 * - when the model is replaced or deleted, or has no entries any more.
 *
 * \section pickersignals Signals
 * \code
 * entry tapped ------------------> currentIndexChanged, currentTextChanged, activated
 * the current entry tapped ------> activated
 * setCurrentIndex() -------------> currentIndexChanged, currentTextChanged
 * rows inserted or removed above > currentIndexChanged
 * the current entry removed -----> currentIndexChanged, currentTextChanged
 * its text changed --------------> currentTextChanged
 * \endcode
 * The list is closed before the first signal. A tap on the row, and a key that stands for it, emit
 * KELRow::clicked(), too: to the slots of the application when the list has opened.
 *
 * \section pickermodel The model
 * The picker does not own a model that it is given. The current entry stays the same one when
 * entries are inserted, moved or removed. There is no current entry after it was removed, and after
 * the model was reset or deleted. QAbstractItemModel::data(), rowCount(), index() and flags() must
 * not change or delete the picker. The user cannot choose an entry without Qt::ItemIsEnabled. A
 * model whose QObject::parent() is the picker is deleted when it is replaced.
 *
 * \section pickerkeys Keys
 * | key                                  | closed                     | open                    |
 * | ------------------------------------ | -------------------------- | ----------------------- |
 * | space, enter, return, select         | opens the list             | makes the mark current  |
 * | down, up                             | next or previous entry     | moves the mark          |
 * | alt with down                        | opens the list             | moves the mark          |
 * | escape, back, cancel                 | goes on to the parent item | closes the list         |
 *
 * A key that chooses another entry emits the same as a tap. Other keys go to the KELList while it
 * is open.
 */
class KELGDIPARTS_EXPORT KELPicker final : public KELRow
{
    Q_OBJECT
    //! The row of the current entry, or -1 for none. The default is -1.
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    //! The text of the current entry. Empty without one.
    Q_PROPERTY(QString currentText READ currentText NOTIFY currentTextChanged)
    //! What is shown without a current entry. The default is empty.
    Q_PROPERTY(QString placeholder READ placeholder WRITE setPlaceholder)
    //! Whether the list is open. The default is false.
    Q_PROPERTY(bool open READ isOpen)

public:
    //! Creates a picker without a model as a child item of \a parent, or without a parent if it is
    //! null.
    explicit KELPicker(QGraphicsItem *parent = nullptr);
    //! Destroys the picker, its list and the model of setItems().
    ~KELPicker() override;

    //! Returns the model, or null.
    QAbstractItemModel *model() const;
    //! Shows the entries of \a model, which may be null. At first there is no current entry. Does
    //! nothing if it is the current model.
    void setModel(QAbstractItemModel *model);
    //! Shows \a items, in a model that the picker owns. At first there is no current entry.
    void setItems(const QStringList &items);

    //! Returns the row of the current entry, or -1.
    int currentIndex() const;

    //! Returns the text of the current entry, empty without one.
    QString currentText() const;

    //! Returns what is shown without a current entry.
    QString placeholder() const;
    //! Shows \a placeholder while there is no current entry.
    void setPlaceholder(const QString &placeholder);

    //! Returns whether the list is open.
    bool isOpen() const;

public Q_SLOTS:
    //! Makes row \a index the current entry. A row that does not exist counts as -1, none.
    void setCurrentIndex(int index);
    //! Opens the list. Does nothing if it is open or cannot be opened.
    void open();
    //! Closes the list without choosing. Does nothing if it is closed.
    void close();

Q_SIGNALS:
    //! The current entry is now row \a index: another entry, or the same one in another row. -1 if
    //! there is none.
    void currentIndexChanged(int index);
    //! The text of the current entry is now \a text. Emitted after currentIndexChanged().
    void currentTextChanged(const QString &text);
    //! The user has chosen row \a index, by tap or key. Emitted after the other signals.
    void activated(int index);

protected:
    KELGDIPARTS_HIDDEN void keyPressEvent(QKeyEvent *event) override;
    KELGDIPARTS_HIDDEN void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    KELGDIPARTS_HIDDEN bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;
    KELGDIPARTS_HIDDEN QVariant itemChange(GraphicsItemChange change,
                                           const QVariant &value) override;

private Q_SLOTS:
    KELGDIPARTS_HIDDEN void followModel();
    KELGDIPARTS_HIDDEN void choose(const QModelIndex &index);

private:
    Q_DISABLE_COPY(KELPicker)
    friend class KELPickerPrivate;
    KELPickerPrivate *const d;
};

#endif
