// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLIST_H
#define KELLIST_H

#include "kelpart.h"

#include <QtCore/QModelIndex>
#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

class KELListPrivate;

/*!
 * \brief Draws the rows of a KELList in the application's way.
 *
 * \code
 * class TrendDelegate : public KELListDelegate
 * {
 * public:
 *     void paint(QPainter *painter, const QRectF &rect, const QModelIndex &index,
 *                const KELPartStyle &style, States states) override;
 * };
 * \endcode
 *
 * A list does not own its delegate. One delegate may serve several lists.
 */
class KELGDIPARTS_EXPORT KELListDelegate
{
public:
    //! What a row is, besides its data.
    enum State : int {
        Pressed = 1, //!< A finger is on the row.
        Selected = 2, //!< The row is the current one of a selectable list.
        Mirrored = 4 //!< The list is laid out from right to left.
    };
    Q_DECLARE_FLAGS(States, State)

    //! Does nothing. Before it is called, give each list of this delegate another one, or null.
    virtual ~KELListDelegate();

    /*!
     * Paints the row of \a index with \a painter into \a rect (item px). \a style is the style of
     * the list. Fill all of \a rect, paint nothing outside it, and leave the clip, transformation
     * and opacity of the painter as they were. The list keeps the pictures of its rows while it
     * moves; call KELPart::styleChanged() of the list if a row looks different for another reason
     * than its data. The delegate must not change or delete the list or the model.
     */
    virtual void paint(QPainter *painter, const QRectF &rect, const QModelIndex &index,
                       const KELPartStyle &style, States states)
        = 0;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KELListDelegate::States)

/*!
 * \brief A list of the rows of a model that a finger scrolls.
 *
 * \code
 * auto *list = new KELList;
 * list->setModel(&sensors);
 * QObject::connect(list, &KELList::clicked, [](const QModelIndex &index) { open(index.row()); });
 * layout->addItem(list);
 * \endcode
 *
 * The list shows column 0 of the top-level rows of a QAbstractItemModel. All rows have the same
 * height: KELPartStyle::rowHeight, at least KELTouch::leastSize(), and more if the font and the
 * margins need it. Nothing is kept for a row that is not in sight, so 100,000 rows cost no more
 * than 10, except with setSectionsShown().
 *
 * \section listrows Rows
 * Without a delegate a row looks like a KELRow:
 * | role               | what it shows                                                        |
 * | ------------------ | -------------------------------------------------------------------- |
 * | Qt::DisplayRole    | the caption                                                          |
 * | DetailRole         | the second line                                                      |
 * | ValueRole          | the value at the end                                                 |
 * | Qt::DecorationRole | a QPixmap, or a string with a glyph of the icon font                 |
 * | Qt::CheckStateRole | if valid, a switch, which is on for Qt::Checked; a tap sets it if the row has Qt::ItemIsUserCheckable |
 * | SectionRole        | the heading, above the first row of several that have the same        |
 *
 * A row without Qt::ItemIsEnabled looks disabled and takes no tap. QAbstractItemModel::data() must
 * not change or delete the list.
 *
 * \section listtouch Fingers, wheel and keys
 * A press that moves by more than KELPart::slopPx up or down follows the finger exactly. When it is
 * released while it moves, the list goes on, slows down, and springs back at its ends (QScroller).
 * A press that first moves sideways does nothing. A press while the list moves stops it and is no
 * tap. A tap on a row emits
 * \code
 * (setData() of a switch), currentRowChanged (if the list is selectable), clicked
 * \endcode
 * A notch of the wheel scrolls by half a row. The keys Up, Down, Home, End, Page up and Page down
 * move the current row of a selectable list and scroll any other list. Space, Return, Enter and
 * Select tap the current row of a selectable list.
 *
 * Without motion (KELMotion) the list stops where the finger leaves it. It also stops when it is
 * hidden.
 *
 * \section listmodel Changes of the model
 * The model may change, be reset or deleted at any time, also while the list moves or in a slot of
 * the list. If rows are inserted or removed above, the rows in sight stay where they are. The
 * current row moves with its row; if that row is removed, there is no current row.
 *
 * \section liststyle Style
 * backgroundBrush is the ground, pressedBrush that of a pressed row; selectedBrush and
 * selectedForegroundBrush are those of the current one. A heading is drawn with mutedBrush and
 * secondaryFont; it is half as high as a row, or as high as its font needs. While the list moves, a
 * scroll mark, 4 px wide, is drawn with mutedBrush at the end of the rows. The rows draw what
 * \ref rowstyle says.
 *
 * A slot connected to a signal of the list may delete the list, the model and the page. Before it
 * deletes the delegate, it must remove it from the list.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELList final : public KELPart
{
    Q_OBJECT
    //! How far the list is scrolled down, in item px. The default is 0.
    Q_PROPERTY(int position READ position WRITE setPosition NOTIFY positionChanged)
    //! The current row of a selectable list, or -1, the default.
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    //! Whether a tap makes a row the current one. The default is false.
    Q_PROPERTY(bool selectable READ isSelectable WRITE setSelectable)
    //! Whether headings are shown. The default is false.
    Q_PROPERTY(bool sectionsShown READ areSectionsShown WRITE setSectionsShown)
    //! What is shown in the middle of a list without rows. The default is empty.
    Q_PROPERTY(QString emptyText READ emptyText WRITE setEmptyText)

public:
    //! What a list reads besides Qt's own roles.
    enum Role : int {
        DetailRole = 0x4B00, //!< The second line, a string.
        ValueRole, //!< The value at the end, a string.
        SectionRole //!< The heading that the row belongs to, a string.
    };

    //! Creates a list without a model as a child item of \a parent, or without a parent if it is
    //! null.
    explicit KELList(QGraphicsItem *parent = nullptr);
    //! Destroys the list. The model and the delegate are left alone.
    ~KELList() override;

    //! Returns the model, or null, the default.
    QAbstractItemModel *model() const;
    //! Shows the rows of \a model from the first one on, without a current row. The application
    //! keeps ownership. With null, and after the model was deleted, the list is empty. Does nothing
    //! if \a model is the current one.
    void setModel(QAbstractItemModel *model);

    //! Draws rows with \a delegate, or as KELRow does if it is null, the default. The application
    //! keeps ownership; call this again before the delegate is deleted.
    void setDelegate(KELListDelegate *delegate);

    //! Returns how far the list is scrolled, in item px. It is negative, or more than the list
    //! allows, only while the list moves beyond its ends.
    int position() const;
    //! Returns the current row, or -1 if there is none.
    int currentRow() const;
    //! Returns whether a tap makes a row the current one.
    bool isSelectable() const;
    //! Sets whether taps and keys change the current row and whether it is shown. In a list that is
    //! not selectable, a current row may be set but is not shown.
    void setSelectable(bool selectable);
    //! Returns whether headings are shown.
    bool areSectionsShown() const;
    //! Shows or hides headings. To place them, the list reads SectionRole of all rows, now and
    //! after each change of the model: not meant for more than some thousand rows.
    void setSectionsShown(bool shown);
    //! Returns the text of a list without rows.
    QString emptyText() const;
    //! Sets what is shown in the middle of a list without rows, with mutedBrush.
    void setEmptyText(const QString &text);

    //! Returns whether the list moves by itself or follows a finger.
    bool isMoving() const;

    //! Returns the index of the row at \a pos (item px), or an invalid one if there is no row or a
    //! heading.
    QModelIndex indexAt(const QPointF &pos) const;
    //! Returns the place of \a row in item px, in sight or not; an empty one if there is no such
    //! row.
    QRectF rowRect(int row) const;

    //! Paints what is in sight with \a painter; \a option and \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;
    void styleChanged() override;

public Q_SLOTS:
    //! Scrolls to \a position (item px) at once, at most to the end, and stops a movement.
    void setPosition(int position);
    //! Makes \a row the current one; -1, and a row that does not exist, mean none. Does not scroll.
    void setCurrentRow(int row);
    //! Scrolls no further than it takes to show all of \a row. Does nothing if it does not exist.
    void scrollTo(int row);

Q_SIGNALS:
    //! The list was scrolled, by whatever means.
    void positionChanged();
    //! The current row is \a row now, or -1.
    void currentRowChanged(int row);
    //! The row of \a index was tapped, by finger or by key. Keep a QPersistentModelIndex, not
    //! \a index, if the model may change.
    void clicked(const QModelIndex &index);

protected:
    KELGDIPARTS_HIDDEN bool pressEvent(const QPointF &pos) override;
    KELGDIPARTS_HIDDEN void dragEvent(const QPointF &pos, bool isDrag) override;
    KELGDIPARTS_HIDDEN void releaseEvent(const QPointF &pos, bool isTap) override;
    KELGDIPARTS_HIDDEN void pressLostEvent() override;
    KELGDIPARTS_HIDDEN void wheelEvent(QGraphicsSceneWheelEvent *event) override;
    KELGDIPARTS_HIDDEN void keyPressEvent(QKeyEvent *event) override;
    KELGDIPARTS_HIDDEN void timerEvent(QTimerEvent *event) override;
    KELGDIPARTS_HIDDEN void resizeEvent(QGraphicsSceneResizeEvent *event) override;
    KELGDIPARTS_HIDDEN void changeEvent(QEvent *event) override;
    KELGDIPARTS_HIDDEN QVariant itemChange(GraphicsItemChange change,
                                           const QVariant &value) override;
    KELGDIPARTS_HIDDEN QSizeF sizeHint(Qt::SizeHint which,
                                       const QSizeF &constraint = QSizeF()) const override;

private:
    Q_DISABLE_COPY(KELList)
    friend class KELListPrivate;
    KELListPrivate *const d;
};

#endif
