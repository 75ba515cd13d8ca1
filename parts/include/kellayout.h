// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELLAYOUT_H
#define KELLAYOUT_H

#include "kelgdiparts_global.h"

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QGraphicsGridLayout;
class QGraphicsItem;
class QGraphicsLayout;
class QGraphicsLayoutItem;
class QGraphicsLinearLayout;
class QGraphicsWidget;
class QString;
QT_END_NAMESPACE

class KELLabel;
class KELRoundRectControl;

/*!
 * \brief Puts controls into the layouts of Qt: QGraphicsLinearLayout, QGraphicsGridLayout and
 * QGraphicsAnchorLayout.
 *
 * \code
 * auto *page = new QGraphicsWidget;
 * auto *grid = new QGraphicsGridLayout(page);
 * KELLayout::add(grid, display, 0, 0, 1, 4);
 * for (const char *key : {"7", "8", "9", "/", "4", "5", "6", "*", "1", "2", "3", "-"}) {
 *     auto *button = new KELPushButton;
 *     button->setText(QString::fromLatin1(key));
 *     KELLayout::addCell(grid, button, 4);
 * }
 * page->setGeometry(0, 0, 480, 272);
 * scene->addItem(page);
 * \endcode
 *
 * A control is not a layout item: KELLayout gives it one, its adapter. A part (KELPart) and any
 * other QGraphicsWidget need none; add them to the layout themselves. In an anchor layout, and
 * wherever Qt asks for a layout item, item() stands for the control:
 * \code
 * anchors->addCornerAnchors(KELLayout::item(stop), Qt::BottomRightCorner, //
 *                           anchors, Qt::BottomRightCorner);
 * grid->setAlignment(KELLayout::item(switchBox), Qt::AlignRight);
 * KELLayout::item(display)->setMinimumHeight(80);
 * \endcode
 *
 * The layout makes the control a child item of its widget, as it does with any item. A control that
 * is hidden takes no room, and one in a layout of a widget from right to left is mirrored with it;
 * what it draws is not.
 *
 * \section layoutplace Where a control is placed
 * The geometry of an adapter is the one that the layout gives, with edges at whole item px. All
 * that a control draws, and all that reacts to a press, lies within it, whatever the control's
 * parents are:
 * - The rectangle of a control begins at (0, 0), and pos() is the corner of the geometry.
 * - A combo box keeps its scenePos() at (0, 0): that is where its list expects it. Its rectangle is
 *   moved instead. It is placed anew each time its list opens or closes, so that the widget with
 *   the layout may be moved in between. Its entries become as wide as the box. Its list is no
 *   matter of the layout.
 * - A slider and a check box are narrower than the geometry by half of their outline on both sides,
 *   which is where the outline goes. The knob of the slider is at the value, whatever the bounds
 *   are; a value outside the bounds shows it at the end. No value changes, and no valueChanged() is
 *   emitted.
 * - A line goes through the middle of the geometry, from end to end: across, or down if its
 *   rectangle was higher than wide when its adapter was made.
 * - The pages of a KELNavigationTable and its tabs follow its size. A page that is wrapped in
 *   another item does not.
 *
 * This holds while the parents neither rotate nor scale the control. A control whose size is below
 * the minimum in \ref layoutsizes draws outside; see \ref outside.
 *
 * \section layouton Layouts on controls
 * setLayout() puts a layout on a control: a card, a panel, a page of a KELNavigationTable. Radio
 * boxes, sliders, lines and combo boxes in it need no further care, wherever the rectangle of that
 * control begins.
 *
 * \section layoutsizes Sizes
 * In item px, rounded up to whole numbers. \e touch is KELTouch::leastSize(), \e line the height of
 * a line of the control's font, \e border its \c borderWidth. \e Content is the larger of caption
 * (in full), glyph (\c iconSize) and pixmap, plus the margins and two borders; of a push button, it
 * is its picture above its caption with their margins, plus two borders. A number in the record
 * that is negative or not finite counts as 0.
 *
 * | control | minimum | preferred | grows |
 * |---|---|---|---|
 * | KELPushButton | touch x (touch, or the content without pixmap, if higher) | content; with a caption alone plus a line across, 1/2 down | both ways |
 * | KELCheckBox | as preferred | (80 + border) x (30 + border), at least touch | no |
 * | KELRadioBox | as preferred | 25 + border, at least touch | no |
 * | KELSlideControl | 2 s x s, where s is touch, at least 32 | 4 s x s | across |
 * | KELProcessBar | "100%" in the application's font + 30 x 30 | 4 touch, at least the minimum, x 30 | across |
 * | KELComboBox | (80, at least touch) x preferred | longest entry + a line + 33 x (line + 3, at least touch) | across |
 * | KELLineItem | 0 x border, at least 1 | as minimum | lengthwise |
 * | KELNavigationTable | touch for each page x (bars + touch), and layouts on the pages | layouts on the pages, at least the minimum | both ways |
 * | KELLabel and others | 2 lines, at most the content, x content without pixmap | content, of a label at least one line high | both ways |
 *
 * A control with the flag ItemIsSelectable is meant to be tapped: its minimum is at least touch x
 * touch, whatever its class. A control with a layout on it is at least as large as that layout
 * asks. The maximum is that of Qt (QWIDGETSIZE_MAX) where the control grows, else the preferred
 * size. Sizes and policies that the application sets on the adapter win, as on any layout item. A
 * caption that wraps (Qt::TextWordWrap) and is not elided has a height for its width: set a policy
 * with QSizePolicy::setHeightForWidth(true) on its adapter.
 *
 * A control does not notify anyone when its caption, font or style changes. Call updateHints()
 * afterwards.
 *
 * \section layoutlife Lifetime
 * A control has one adapter, whatever asks for it. Adding it to another layout takes it out of the
 * first. A control that dies takes its adapter along and so leaves its layout. A layout that dies
 * deletes the adapters in it, not the controls: they stay where they are, child items of the
 * widget. An adapter that was taken out of its layout stays with the control.
 *
 * Layouts, controls and widgets may be deleted in any slot of the library, and a layout may be
 * activated there, also while a control in it is pressed or a list is open. A layout moves
 * controls, for which Qt emits xChanged(), yChanged() and geometryChanged(): slots of these delete
 * with QObject::deleteLater().
 *
 * The scene is told before a rectangle changes, and repainted, with any index and any cache mode.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELLayout
{
public:
    //! Returns the adapter of \a control, which is made if it has none yet; null for null. It is
    //! deleted with the control or with the layout that it is in, whichever comes first. A geometry
    //! with a number that is not finite is ignored.
    static QGraphicsLayoutItem *item(KELRoundRectControl *control);

    //! Appends \a control to \a layout. \a stretch is its stretch factor; a negative one counts as
    //! 0. Does nothing if either is null.
    static void add(QGraphicsLinearLayout *layout, KELRoundRectControl *control, int stretch = 0);

    //! Adds \a control to \a layout at \a row and \a column. It covers \a rowSpan rows and
    //! \a columnSpan columns. Does nothing if either is null, if a place is negative or a span is
    //! below 1.
    static void add(QGraphicsGridLayout *layout, KELRoundRectControl *control, int row, int column,
                    int rowSpan = 1, int columnSpan = 1);

    //! Adds \a control to the first free cell among the first \a columns columns of \a layout, row
    //! by row, and gives the row and all these columns the stretch factor 1: the cells of a keypad
    //! have the same size. Does nothing if either is null or \a columns is below 1.
    static void addCell(QGraphicsGridLayout *layout, KELRoundRectControl *control, int columns);

    //! Adds a row to \a layout: a new label with \a caption, aligned to the left, in column 0, and
    //! \a control in column 1. If \a control is null, the label covers both columns, as a heading.
    //! Returns the label, which is a child item of the layout's widget once there is one; null if
    //! \a layout is null.
    static KELLabel *addRow(QGraphicsGridLayout *layout, const QString &caption,
                            KELRoundRectControl *control);

    /*!
     * Puts \a layout on \a control and returns the widget that has it: a child item of \a control
     * that covers the boundingRect(), draws nothing and lets presses through. A second call returns
     * the same widget, and Qt deletes the previous layout. \a layout may be null. Returns null if
     * \a control is null; then \a layout is left alone.
     *
     * The widget follows the rectangle when the control is laid out or shown, and when
     * updateHints() is called. It has the layout direction of the next QGraphicsWidget around the
     * control, if there is one. The layout's margins are those of Qt; see
     * QGraphicsLayout::setContentsMargins().
     */
    static QGraphicsWidget *setLayout(KELRoundRectControl *control, QGraphicsLayout *layout);

    //! Reads the sizes of \a item and of all items below it anew, and has their layouts arranged by
    //! the next iteration of the event loop. Call it after a caption, a font, a style, the bounds
    //! of a slider or KELTouch::leastSize() has changed, and after a control with a layout on it
    //! was given another rectangle. Null is ignored.
    static void updateHints(QGraphicsItem *item);

    KELLayout() = delete;
};

#endif
