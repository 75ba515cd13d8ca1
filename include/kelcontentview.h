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
 * It scales the content down a little, to fit: by 0.9625 for a control of 500 x 160 in a window of
 * its own, so outlines and text are blurred. \ref viewscale has the recipe for a view that shows it
 * pixel for pixel; the parts have one, KELScreen. The window is translucent: where there is no
 * compositor, it is black wherever nothing is drawn, unless it has a background brush.
 *
 * \code
 * auto *panel = new KELRoundRectControl;
 * panel->setboundRect(0, 0, 400, 300);
 * auto *view = new KELContentView(window);
 * view->setContent(panel);
 * view->move(20, 20);
 * \endcode
 *
 * The view owns a scene, and the scene owns the content. setContent() puts a control into the scene
 * and resizes the view to that control. When the view is resized, by a layout for example, the
 * scene rectangle becomes the view's own rectangle and is fitted into the view. The content keeps
 * its size: it does not grow with the view.
 *
 * A view without a parent is a frameless window; a view with a parent is an ordinary child widget.
 *
 * \section viewscale Scale
 * A fitted view shows its content scaled down. On each side the frame takes frameWidth(), which is
 * 1 px with Qt's Fusion style and 2 px with the Windows style, and QGraphicsView::fitInView()
 * leaves another 2 px. With a 1 px frame, a side of n px is scaled to n - 6 px, and the smaller of
 * the two scales applies: 0.98 at 400 x 300, 0.85 at 100 x 40. Without the frame, the scales are
 * 0.987 and 0.9. To show one item px as one widget px, remove the frame and reset the scale after
 * each resize, including the one that takes place when the view is shown:
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
 * rectangle without notifying the scene. Without an index <tt>scene()->items()</tt> is not sorted,
 * whatever order you request. Query the items in a rectangle or at a point instead:
 * <tt>scene()->items(rect)</tt> and <tt>scene()->items(pos)</tt> return the visible ones, topmost
 * first. The same applies to derived views, to the view of a KELDialogBase and to KELSideMenu.
 *
 * \section contentviewcompat Compatibility notes
 * - The constructor replaces the window flags with Qt::FramelessWindowHint. Without a compositor a
 *   translucent top-level window shows black (or stale) pixels where nothing is drawn.
 * - Child widgets inherit the view's style sheet, "background: transparent;". A QMenu whose parent
 *   is the view needs a background of its own.
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
     * Returns the control last passed to setContent().
     *
     * Returns null before the first call to setContent(), and after other code has deleted that
     * control.
     */
    KELRoundRectControl *content() const;

    /*!
     * Shows \a control and resizes the view to int(width) x int(height) of its rect().
     *
     * Set the control's rectangle with KELRoundRectControl::setboundRect() before this call, which
     * reads its size. A width or height that is not finite counts as 0. A null \a control is
     * ignored.
     *
     * The scene takes ownership of \a control. Everything that was in the scene is deleted, the
     * previous content included. If \a control is already the content, or is elsewhere in this
     * scene, it survives: it is removed from the scene before the rest is deleted.
     *
     * \par Slots
     * Slots connected to the signals of items that are deleted here, of \a control, of its previous
     * parent item and of the scene run during the call. They may call setContent() again or delete
     * controls. The control passed last is shown; one that it replaced before it was ever shown is
     * deleted. Slots may also delete the view or its scene. The control is then deleted, as it
     * would have been with the scene, unless a slot has given it another parent item or scene.
     *
     * \par
     * Signals of \a control, of its previous parent item and of the scene are emitted after Qt has
     * completed the change that they report. QGraphicsScene::focusItemChanged() passes null for an
     * item that no longer exists by then.
     *
     * \par
     * Qt may crash if the view or its scene is deleted by code that Qt calls while it is still
     * using them: by event handlers of items (focus, mouse grab and activation move from old items
     * to new ones) and, when the view is resized at the end, by event handlers of the view and
     * slots connected to QGraphicsScene::sceneRectChanged(). Use deleteLater() there. A slot must
     * not call this function while code other than this view is deleting the content.
     */
    void setContent(KELRoundRectControl *control);

    //! Gives the keyboard focus of the scene to \a item (reason Qt::OtherFocusReason). Null clears
    //! it.
    void setFocusItem(QGraphicsItem *item);

protected:
    //! Sets the scene rectangle to (0, 0, width(), height()) and fits it into the view.
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(KELContentView)

    KELContentViewPrivate *const d;
};

#endif
