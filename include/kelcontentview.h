// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELCONTENTVIEW_H
#define KELCONTENTVIEW_H

#include "kelgdicontrol_global.h"

#include <QtWidgets/QGraphicsView>

class KELContentViewPrivate;
class KELRoundRectControl;

/*!
 * \brief A frameless, transparent view that shows one control and everything on it.
 *
 * The view owns a scene. setContent() puts a control into it and gives the view that control's size.
 * When the view is resized, by a layout for example, the scene rectangle becomes the view's own rectangle
 * and is fitted into the view. The content keeps its size, then: it does not grow with the view.
 *
 * \section viewscale Scale
 * A view that was fitted shows its content smaller than it is. On each side the frame takes
 * frameWidth(), which is 1 px with Qt's style Fusion and 2 px with Windows, and
 * QGraphicsView::fitInView() leaves 2 px more. With 1 px a side of n px is shown in n - 6 px, and
 * the smaller of both scales counts: 0.98 at 400 x 300, 0.85 at 100 x 40. Without the frame it is
 * 0.987 and 0.9. For one widget px an item px take the frame away and undo the scale after each
 * resize, the one when the view is shown included:
 * \code
 * class ExactView : public KELContentView
 * {
 * public:
 *     explicit ExactView(QWidget *parent) : KELContentView(parent)
 *     {
 *         setFrameShape(QFrame::NoFrame);
 *     }
 *
 * protected:
 *     void resizeEvent(QResizeEvent *event) override
 *     {
 *         KELContentView::resizeEvent(event);
 *         resetTransform();
 *     }
 * };
 * \endcode
 *
 * \section viewscene Scene
 * The scene uses QGraphicsScene::NoIndex, because KELRoundRectControl::setboundRect() changes a
 * rectangle without telling the scene. Without an index <tt>scene()->items()</tt> is not sorted,
 * whatever order it is asked for. Ask for the items of a rectangle or at a point:
 * <tt>scene()->items(rect)</tt> and <tt>scene()->items(pos)</tt> list the visible ones from the
 * topmost down. The same holds for the views that are derived from this one, for the view of a
 * KELDialogBase and for KELSideMenu.
 *
 * \note The constructor replaces the window flags by Qt::FramelessWindowHint: a view without a parent
 * is a frameless window, a view with a parent is an ordinary child widget. Without a compositor a
 * translucent top-level window shows black (or stale) pixels where nothing is drawn.
 *
 * \note The view's style sheet, "background: transparent;", is inherited by its child widgets: a QMenu with
 * the view as parent needs a background of its own.
 */
class KELGDI_EXPORT KELContentView : public QGraphicsView
{
    Q_OBJECT

public:
    //! Creates an empty view inside \a parent, or a frameless window when \a parent is null.
    explicit KELContentView(QWidget *parent = nullptr);

    //! Destroys the view, its scene and every item in it, the content included.
    ~KELContentView() override;

    /*!
     * Returns the control given to setContent() last.
     *
     * Null before the first setContent(), and again once that control is deleted by somebody else.
     */
    KELRoundRectControl *content() const;

    /*!
     * Shows \a control and resizes the view to int(width) x int(height) of its rect().
     *
     * The scene takes ownership of \a control and everything that was in the scene before is deleted,
     * the previous content included. The control that is shown already, or one that sits somewhere
     * in this scene, is kept: it is taken out of the scene before the rest is deleted.
     *
     * Place the control (KELRoundRectControl::setboundRect()) before this call: its size is read here.
     * \par Slots
     * Slots that run meanwhile, of items that are deleted here, of \a control, of the item that it was on or of the
     * scene, may call setContent() again, or delete controls: the control given last is shown, and one that it
     * replaced before it was ever shown is deleted. They may delete the view or its scene, too: the control is deleted
     * then, as it would have been with the scene, unless a slot has given it another parent item or scene. Signals
     * of \a control, of the item that it was on and of the scene come when Qt has done what they report; of an item
     * that is dead by then QGraphicsScene::focusItemChanged() gets null.
     *
     * \par
     * Qt itself does not survive the deletion of the view or its scene in what it calls in the middle of its own
     * work: in event handlers of items (focus, mouse grab and activation are taken away from old items and given to
     * new ones), in events of the view and in slots of QGraphicsScene::sceneRectChanged(), both when the view is
     * resized at the end. There, use deleteLater(). Nor may a slot call this while somebody else than this view
     * deletes the content.
     *
     * A width or height that is not finite counts as 0.
     *
     * \a control must not be null; a null pointer is ignored.
     */
    void setContent(KELRoundRectControl *control);

    //! Gives the keyboard focus of the scene to \a item (reason Qt::OtherFocusReason); null clears it.
    void setFocusItem(QGraphicsItem *item);

protected:
    //! Makes the scene rectangle (0, 0, width(), height()) and fits it into the view.
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(KELContentView)

    KELContentViewPrivate *const d;
};

#endif
