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
    //! The text of the title bar. Default "KELRoundRectControlStyle".
    QString title = QString();
    //! The fill of the title bar; a brush of style Qt::NoBrush draws none. Gradients are limited, see
    //! \ref stylebrushes. Default RGBA (40, 40, 40, 160).
    QBrush titleBackgroundBrush = QBrush();
    //! The brush of the 1 px pen for the title; Qt::NoBrush draws none. Gradients are limited,
    //! see \ref stylebrushes. Default white.
    QBrush titleForegroundBrush = QBrush();
    //! The height of the title bar in item px. Default 35.
    float titleHeight;
    //! The height of the strip of tabs in item px. Default 80.
    float tabHeight;
    //! Whether there is a title bar. Pages added afterwards begin below it. Default false.
    bool showTitle;
};

/*!
 * \brief The style record of a page; the tab of the page is drawn from it.
 *
 * \c text, \c icon and \c iconSize are those of the tab, \c backgroundBrush is the fill of the tab while
 * another page is shown, \c margins are those of the caption.
 */
struct KELGDI_EXPORT KELNavigationTableItemStyle : public KELRoundRectControlStyle
{
    //! The fill of the tab while the page is shown. Gradients are limited, see \ref stylebrushes. Default RGBA
    //! (0, 0, 0, 210).
    QBrush buttonBackground = QBrush();
    //! The brush of the 1 px pen for glyph and caption of the tab; Qt::NoBrush draws neither. Gradients are
    //! limited, see \ref stylebrushes. Default white.
    QBrush buttonForeground = QBrush();
};

/*!
 * \brief A page of a KELNavigationTable: an empty control to put other controls on, as child items.
 *
 * \code
 * auto *page = new KELNavigationTableItem;
 * page->setText(tr("Settings"));
 * page->style()->icon = KELIconFont(0xf013);
 * table->addItem(page);
 * \endcode
 *
 * The tab is part of the table's picture. After setText() or another change of the page's look it
 * shows what it showed before until update() of the table.
 *
 * \warning With a title bar, or an outline of the page, the rectangle of a page does not begin at
 * (0, 0), and a KELRadioBox or a KELSlideControl on it is drawn beside its place: \ref placing has
 * the way out.
 */
class KELGDI_EXPORT KELNavigationTableItem : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a page as a child item of \a parent.
    explicit KELNavigationTableItem(QGraphicsObject *parent = nullptr);

    //! Destroys the page with all controls on it; its table forgets it.
    ~KELNavigationTableItem() override;

    //! Sets the fill of the tab while the page is shown. Does not repaint the table.
    void setButtonBackground(const QBrush &brush);

    //! Sets the brush for glyph and caption of the tab. Does not repaint the table.
    void setButtonForeground(const QBrush &brush);

    //! Paints nothing: the table paints the tab, the controls on the page paint themselves.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Makes the page's record, a KELNavigationTableItemStyle: the present look without background and outline,
    //! margins 3 px. For constructors only, see KELRoundRectControl::initStyle().
    KELRoundRectControlStyle *initStyle() override;

private:
    Q_DISABLE_COPY(KELNavigationTableItem)
    friend class KELNavigationTable;
    friend class KELNavigationTablePrivate;

    KELNavigationTableItemPrivate *const d;
};

/*!
 * \brief Pages of which one is shown, with a strip of tabs at the bottom and, if wanted, a title bar on top.
 *
 * \image html navigation-table.png
 *
 * \code
 * auto *table = new KELNavigationTable;
 * table->setboundRect(0, 0, 800, 480);
 * table->addItem(homePage);
 * table->addItem(settingsPage);
 * scene->addItem(table);
 * \endcode
 *
 * The tabs have equal widths, computed in single precision, and are shown from two pages on. A press with
 * the left button, or of a finger, on a tab shows its page at once. The press itself is not reported: the
 * table emits mouseRelease() and mouseDoubleClicked(), but neither mousePress() nor mouseClicked().
 *
 * \section tablegeometry Geometry
 * Set the rectangle, and \c showTitle, \c titleHeight and \c tabHeight of the style, before adding pages:
 * pages are placed when they are added, tabs when the last page was added or deleted; later changes do not
 * move them. Let the rectangle begin at (0, 0): the tabs are at the bottom of (0, 0, width,
 * height), wherever the rectangle is, while title bar, background and pages go with it. To have the
 * table elsewhere, give it a KELContentView of its own, as a child widget, and move that. setPos()
 * is for a table without a KELComboBox, which would lose presses on its entries: see \ref placing.
 *
 * A page is as high as what title bar and tabs leave, and as wide as the table; an outline width of the page
 * moves its left and top edge inwards.
 *
 * \section tablelook Look
 * Background (RGBA 20, 15, 55, 200) and pixmap fill the content; outline, corner radii, \c text and \c icon of the
 * table are not drawn. Title and tabs are drawn in the \c font and with the \c textFlags of the table; of a page count
 * \c icon, \c iconSize, \c text and \c margins, and its \c font for the height of the caption's line. The captions
 * of tabs are always elided, \c trimText of the table is for the title.
 *
 * \section tablelife Lifetime
 * The table owns its pages, which are its child items. A page may get another parent item within the table, for
 * example a child item of the table that animates it: it stays the page it is, is shown and hidden as before, and is
 * deleted with that item. The wrapper must be in the table first. A page that is deleted by somebody else, that is no
 * descendant of the table any more, alone or with what it is wrapped in, or that is taken out of the scene leaves the
 * table: the tabs are laid out anew, and when it was the one shown none is shown, until another is selected or added.
 * It leaves at once; but with a QGraphicsItem that is no QGraphicsObject it leaves when the table is next asked,
 * changed, pressed or painted, as such an item does not tell that it is moved.
 *
 * The table and its pages may be deleted in any slot, with the one exception that is Qt's: not in signals of an item
 * on a page, sent while the page is shown, hidden or added; use deleteLater() there.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELNavigationTable : public KELRoundRectControl
{
    Q_OBJECT

public:
    //! Creates a table without pages, of 440 x 310 px, as a child item of \a parent.
    explicit KELNavigationTable(QGraphicsObject *parent = nullptr);

    //! Destroys the table and its pages.
    ~KELNavigationTable() override;

    /*!
     * Appends \a item as a page and takes ownership of it. It is shown when no other page is, otherwise hidden.
     *
     * A page of another table, or an item in another scene, is taken out there first. Null, a page of this
     * table and an item that contains the table are ignored.
     *
     * What Qt signals of a new parent comes when the page has it: childrenChanged() of the old parent and of the
     * table, visibleChanged() and enabledChanged() of the page if they are so, parentChanged() of the page.
     */
    void addItem(KELNavigationTableItem *item);

    //! Shows the page at \a index and hides the other. Ignores the present index and one that is no page's. No
    //! signal is emitted.
    void setSelectIndex(int index);

    //! Returns the page that is shown, or null.
    KELNavigationTableItem *selectItem() const;

    //! Returns the index of the page that is shown; -1, the default, when none is.
    int selectIndex() const;

    /*!
     * Fills \a option, a fresh record, with what the table shows; \a styleOption is not read. Without title bar
     * \c titleHeight is 0, with less than two pages \c tabHeight is 0. \a option must not be null.
     */
    void initStyleOption(KELNavigationTableStyle *option,
                         const QStyleOptionGraphicsItem *styleOption) const;

    //! Paints title bar, background and tabs with \a painter; \a styleOption and \a widget are not read.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *styleOption,
               QWidget *widget = nullptr) override;

    //! Makes the table's record, a KELNavigationTableStyle with its defaults. For constructors only, see
    //! KELRoundRectControl::initStyle().
    KELRoundRectControlStyle *initStyle() override;

protected:
    //! Shows the page whose tab is pressed. Any button that reaches the table does.
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;

    //! Swallows presses, releases and double clicks by another button than the left one on items that have the
    //! table as their scene event filter; \a watched is not read. The table itself watches none.
    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(KELNavigationTable)
    friend class KELNavigationTableItem;

    KELNavigationTablePrivate *const d;
};

#endif
