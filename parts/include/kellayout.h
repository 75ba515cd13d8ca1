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
 * An adapter has the geometry that the layout gives it, with its edges at whole item px. All that a
 * control draws, and all that reacts to a press, lies within it, whatever the parents of the
 * control are:
 * - The rectangle of a control begins at (0, 0), and pos() is the corner of the geometry.
 * - A combo box has its scenePos() at (0, 0), where its list needs it; its rectangle is where the
 *   geometry is. It is placed anew whenever its list opens or closes, so the widget with the layout
 *   may be moved in between. Its entries become as wide as the box. The layout does not place the
 *   list itself, which opens below the geometry.
 * - A slider is narrower than the geometry by 1 px on both sides, a check box by half of its
 *   outline: that is where their outlines are drawn. The knob of a slider is at its value, whatever
 *   the bounds are; a value beyond a bound shows it at that end. A layout changes no value and
 *   emits no valueChanged().
 * - A line goes through the middle of the geometry from end to end: across, or down if its
 *   rectangle was higher than wide when it got its adapter.
 * - The pages and the tabs of a KELNavigationTable follow its size. A page that is wrapped in
 *   another item does not.
 *
 * This holds unless the geometry is smaller than the minimum in \ref layoutsizes; see
 * \ref outside. An outline thinner than 1 px is drawn 1 px wide and may go beyond the geometry by
 * half of that. The parents of a combo box must neither rotate nor scale it.
 *
 * \section layouton Layouts on controls
 * setLayout() puts a layout on a control: a card, a panel, a page of a KELNavigationTable. Radio
 * boxes, sliders, lines and combo boxes in it need no further care, wherever the rectangle of that
 * control begins.
 *
 * \section layoutsizes Sizes
 * In item px, rounded up to whole numbers. \e t is KELTouch::leastSize(), \e l the height of a line
 * in the control's font, \e b its \c borderWidth. \e Content is the largest of the caption (in
 * full), the glyph (\c iconSize) and the pixmap, plus the margins and two borders. The content of a
 * push button is its picture above its caption, with the margins of both, plus two borders; with a
 * caption alone, it is a line wider and half a line higher than the caption. Policies are those of
 * QSizePolicy: Preferred, Expanding, Fixed. A measure in the record that is negative or not a
 * number counts as 0.
 *
 * | control            | minimum                      | preferred               | policy        |
 * |--------------------|------------------------------|-------------------------|---------------|
 * | KELPushButton      | t x height without pixmap    | content                 | Pref. x Pref. |
 * | KELCheckBox        | as preferred                 | 80 + b x 30 + b         | Fixed x Fixed |
 * | KELRadioBox        | as preferred                 | 25 + b x 25 + b         | Fixed x Fixed |
 * | KELSlideControl    | 2 s x s, s = t, at least 32  | 4 s x s                 | Exp. x Fixed  |
 * | KELProcessBar      | "100%" + 30 x 30             | 4 t x 30                | Exp. x Fixed  |
 * | KELComboBox        | 80 x as preferred            | entry + l + 33 x l + 3  | Pref. x Fixed |
 * | KELLineItem        | as preferred                 | b x b, at least 1       | Exp. x Fixed  |
 * | KELNavigationTable | t for each page x t + bars   | layouts on pages + bars | Exp. x Exp.   |
 * | KELLabel, others   | at most 2 l x without pixmap | content                 | Pref. x Pref. |
 *
 * Of a combo box, the longest entry counts. "100%" is measured in the application's font. A line
 * that goes down has the policy Fixed x Expanding. A table is at least as large as the layouts on
 * its pages need. A label is at least one line high.
 *
 * The preferred size is at least the minimum, and the maximum is that of Qt. Push buttons, check
 * boxes, radio boxes, sliders, combo boxes and all controls with the flag ItemIsSelectable are
 * meant to be tapped: they are at least t wide and t high. A control with a layout on it is at
 * least as large as that layout asks for. Sizes and policies that the application sets on an
 * adapter win, as on any layout item. A caption that wraps and is not elided has a height for its
 * width once the policy of the adapter says so (QSizePolicy::setHeightForWidth()).
 *
 * A control does not tell its layout when its caption, font or style changes: call updateHints().
 *
 * \section layoutlife Lifetime
 * A control has at most one adapter, which item() returns. Adding it to another layout takes it out
 * of the first. A control that dies takes its adapter along and so leaves its layout.
 * A layout that dies deletes the adapters in it, but not the controls: they stay where they are, as
 * child items of the widget. An adapter that was taken out of its layout stays with the control.
 *
 * Layouts, controls and widgets may be deleted in any slot of the library, and a layout may be
 * activated there, also while a control in it is pressed or its list is open. When a layout moves
 * things, Qt emits xChanged(), yChanged(), geometryChanged() and childrenChanged(): slots connected
 * to these delete with QObject::deleteLater().
 *
 * The scene is told before a rectangle changes, so it may have any index, and is repainted, in any
 * cache mode.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELLayout
{
public:
    //! Returns the adapter of \a control, which is made if there is none yet; null for null. It is
    //! deleted with the control or with the layout that it is in, whichever comes first. It ignores
    //! a geometry with a number that is not finite.
    static QGraphicsLayoutItem *item(KELRoundRectControl *control);

    //! Appends \a control to \a layout. \a stretch is its stretch factor; a negative one counts as
    //! 0. In a row the control is centred vertically if it does not grow. Does nothing if either is
    //! null.
    static void add(QGraphicsLinearLayout *layout, KELRoundRectControl *control, int stretch = 0);

    //! Adds \a control to \a layout at \a row and \a column. It covers \a rowSpan rows and
    //! \a columnSpan columns, and is centred vertically if it does not grow. Does nothing if either
    //! is null, if a place is negative or a span is below 1.
    static void add(QGraphicsGridLayout *layout, KELRoundRectControl *control, int row, int column,
                    int rowSpan = 1, int columnSpan = 1);

    //! Adds \a control to the first free cell in the first \a columns columns of \a layout, row by
    //! row. The row and these columns get the stretch factor 1, and the adapter the policy
    //! QSizePolicy::Ignored both ways, so that cells have the same size, whatever their captions
    //! are. Does nothing if either is null or \a columns is below 1.
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
     * the same widget, and Qt deletes the previous layout. \a layout may be null. If \a control is
     * null, nothing happens and null is returned.
     *
     * The widget follows the rectangle when the control is laid out or shown, and when
     * updateHints() is called. It has the layout direction of the next QGraphicsWidget around the
     * control, if there is one. The layout's margins are those of Qt; see
     * QGraphicsLayout::setContentsMargins().
     */
    static QGraphicsWidget *setLayout(KELRoundRectControl *control, QGraphicsLayout *layout);

    //! Has the sizes of \a item and of all items below it read anew, and their layouts arranged in
    //! the next iteration of the event loop. Call it after a change of a caption, a font, a style,
    //! the bounds of a slider or KELTouch::leastSize(), and when a control with a layout on it,
    //! which is not itself in a layout, was given another rectangle. Null is ignored.
    static void updateHints(QGraphicsItem *item);

    KELLayout() = delete;
};

#endif
