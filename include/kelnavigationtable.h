// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELNAVIGATIONTABLE_H
#define KELNAVIGATIONTABLE_H

#include "kelroundrectcontrol.h"

class KELNavigationTableItemPrivate;
class KELNavigationTablePrivate;

/*!
 * \brief The style record of a navigation table.
 */
struct KELGDI_EXPORT KELNavigationTableStyle : public KELRoundRectControlStyle
{
    //! The text of the title bar. The default is "KELRoundRectControlStyle".
    QString title = QString();
    //! The fill of the title bar. With Qt::NoBrush the bar is not filled. Gradients are limited;
    //! see \ref stylebrushes. The default is RGBA (40, 40, 40, 160).
    QBrush titleBackgroundBrush = QBrush();
    //! The brush of the 1 px pen for the title. With Qt::NoBrush the title is not drawn. Gradients
    //! are limited; see \ref stylebrushes. The default is white.
    QBrush titleForegroundBrush = QBrush();
    //! The height of the title bar in item px. The default is 35.
    float titleHeight;
    //! The height of the tab strip in item px. The default is 80.
    float tabHeight;
    //! Whether there is a title bar. Pages that are added while there is one begin below it. The
    //! default is false.
    bool showTitle;
};

/*!
 * \brief The style record of a page, from which the table draws its tab.
 *
 * \c text, \c icon and \c iconSize are those of the tab; \c backgroundBrush is the fill of the tab
 * while another page is shown; \c margins are those of the tab's caption.
 */
struct KELGDI_EXPORT KELNavigationTableItemStyle : public KELRoundRectControlStyle
{
    //! The fill of the tab while the page is shown. Gradients are limited; see \ref stylebrushes.
    //! The default is RGBA (0, 0, 0, 210).
    QBrush buttonBackground = QBrush();
    //! The brush of the 1 px pen for the glyph and the caption of the tab. With Qt::NoBrush neither
    //! is drawn. Gradients are limited; see \ref stylebrushes. The default is white.
    QBrush buttonForeground = QBrush();
};

/*!
 * \brief A page of a KELNavigationTable: an empty control that holds other controls as child items.
 *
 * \code
 * auto *page = new KELNavigationTableItem;
 * page->setText(tr("Settings"));
 * page->style()->icon = KELIconFont(0xf013);
 * table->addItem(page);
 * \endcode
 *
 * The table paints the tab. After setText() or any other change to the page's look, call update()
 * on the table to show it.
 *
 * \section pagecompat Compatibility notes
 * If the table has a title bar or the page has an outline, the rectangle of the page does not begin
 * at (0, 0). A KELRadioBox or a KELSlideControl on it is then drawn out of place; see \ref placing.
 */
class KELGDI_EXPORT KELNavigationTableItem : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a page as a child item of \a parent.
    explicit KELNavigationTableItem(QGraphicsObject *parent = nullptr);

    //! Destroys the page and all controls on it, and removes the page from its table.
    ~KELNavigationTableItem() override;

    //! Sets the fill of the tab while the page is shown. Does not repaint the table.
    void setButtonBackground(const QBrush &brush);

    //! Sets the brush for the glyph and the caption of the tab. Does not repaint the table.
    void setButtonForeground(const QBrush &brush);

    //! Paints nothing: the table paints the tab, and the controls on the page paint themselves.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Creates the page's record, a KELNavigationTableItemStyle: the current look without a
    //! background or outline, and with margins of 3 px. For constructors only; see
    //! KELRoundRectControl::initStyle().
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELNavigationTableItem)
    friend class KELNavigationTable;
    friend class KELNavigationTablePrivate;

    KELNavigationTableItemPrivate *const d;
};

/*!
 * \brief Pages with a strip of tabs at the bottom and an optional title bar; one page is shown at a
 * time.
 *
 * \image html states-navigation-table.png
 *
 * \code
 * auto *table = new KELNavigationTable;
 * table->setboundRect(0, 0, 800, 480);
 * table->addItem(homePage);
 * table->addItem(settingsPage);
 * scene->addItem(table);
 * \endcode
 *
 * The tabs have equal widths, computed in single precision, and appear once there are two pages. A
 * press with the left button or a finger on a tab shows its page at once.
 *
 * \section tablegeometry Geometry
 * Set the rectangle, and \c showTitle, \c titleHeight and \c tabHeight of the style, before adding
 * pages. A page is placed when it is added, and the tabs are laid out each time a page is added or
 * deleted; later changes to these values do not move them.
 *
 * A page fills the width of the table and the height between the title bar and the tabs. The
 * outline width of the page moves its left and top edges inwards.
 *
 * Make the rectangle of the table begin at (0, 0); see \ref tablecompat. To place the table
 * elsewhere, put it into a KELContentView of its own, as a child widget, and move that view. Use
 * setPos() only for a table without a KELComboBox, which would lose presses on its entries; see
 * \ref placing.
 *
 * \section tablelook Look
 * The background (RGBA 20, 15, 55, 200) and the pixmap fill the content area. The table uses its
 * \c font and \c textFlags for the title and the tabs. It uses \c icon, \c iconSize, \c text and
 * \c margins of each page, and the page's \c font only for the line height of the caption. The
 * captions of tabs are always elided; the table's \c trimText applies to the title. The table's
 * outline, corner radii, \c text and \c icon are not drawn.
 *
 * \section tablelife Lifetime
 * The table owns its pages, which are its child items. A page leaves the table when
 * - other code deletes it;
 * - it is no longer a descendant of the table, whether it was moved by itself or with the item that
 *   wraps it;
 * - it is removed from the scene.
 *
 * The tabs are then laid out again. If the page was the one shown, none is shown until another is
 * selected or added. If it came before the one shown, selectIndex() decreases by one; no signal is
 * emitted.
 *
 * A page may be given another parent item within the table, for example a child item of the table
 * that animates it. It remains the same page, is shown and hidden as before, and is deleted with
 * that item. Add the wrapping item to the table before you move the page into it.
 *
 * The table and its pages may be deleted in any slot. There is one exception, because of Qt: slots
 * connected to signals of an item on a page that are emitted while the page is being shown, hidden
 * or added must not delete them. Use deleteLater() there.
 *
 * GUI thread only.
 *
 * \section tablecompat Compatibility notes
 * - Presses are not reported: the table emits mouseRelease() and mouseDoubleClicked(), but neither
 *   mousePress() nor mouseClicked().
 * - The tabs are at the bottom of (0, 0, width, height), wherever the rectangle is. Title bar,
 *   background and pages follow the rectangle.
 * - A page leaves the table at once, with one exception: inside a wrapper that is a QGraphicsItem
 *   but not a QGraphicsObject, it leaves when the table is next queried, changed, pressed or
 *   painted, because such an item does not report that it has been moved.
 */
class KELGDI_EXPORT KELNavigationTable : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates an empty 440 x 310 px table as a child item of \a parent.
    explicit KELNavigationTable(QGraphicsObject *parent = nullptr);

    //! Destroys the table and its pages.
    ~KELNavigationTable() override;

    /*!
     * Appends \a item as a page and takes ownership of it. It is shown if no other page is,
     * otherwise hidden.
     *
     * A page of another table, or a page in another scene, is removed from there first. Null, a
     * page of this table and a page that contains the table are ignored.
     *
     * Qt's signals for a change of parent are emitted after the page has its new parent:
     * childrenChanged() of the old parent and of the table, visibleChanged() and enabledChanged()
     * of the page if these states changed, and parentChanged() of the page.
     */
    void addItem(KELNavigationTableItem *item);

    //! Shows the page at \a index and hides the current one. Ignores the current index and an index
    //! without a page. Emits no signal.
    void setSelectIndex(int index);

    //! Returns the page that is shown, or null.
    KELNavigationTableItem *selectItem() const;

    //! Returns the index of the page that is shown, or -1 (the default) if there is none.
    int selectIndex() const;

    /*!
     * Fills \a option, which must be a newly created record, with what the table shows.
     * \a styleOption is not used. \c titleHeight is 0 without a title bar; \c tabHeight is 0 if
     * there are fewer than two pages. \a option must not be null.
     */
    void initStyleOption(KELNavigationTableStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    //! Paints the title bar, the background and the tabs with \a painter. \a styleOption and
    //! \a widget are not used.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Creates the table's record, a KELNavigationTableStyle with its defaults. For constructors
    //! only; see KELRoundRectControl::initStyle().
    KELRoundRectControlStyle *initStyle() override;

protected:
    //! Shows the page whose tab is pressed, with any mouse button that the table accepts.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

    //! Consumes presses, releases and double clicks of any button but the left one on items that
    //! have the table as their scene event filter. \a watched is not used. The table does not
    //! install itself as a filter.
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELNavigationTable)
    friend class KELNavigationTableItem;

    KELNavigationTablePrivate *const d;
};

#endif
