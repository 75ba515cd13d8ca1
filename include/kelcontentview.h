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
 * A view without a parent is a frameless window, a view with a parent an ordinary child widget.
 *
 * \section viewscale Scale
 * A fitted view shows its content scaled down. On each side the frame takes frameWidth(), which is
 * 1 px with Qt's style Fusion and 2 px with Windows, and QGraphicsView::fitInView() leaves 2 px
 * more. With 1 px a side of n px is shown in n - 6 px, and the smaller of both scales applies: 0.98
 * at 400 x 300, 0.85 at 100 x 40. Without the frame it is 0.987 and 0.9. For one widget px per item
 * px remove the frame and reset the scale after each resize, including the one when the view is
 * shown:
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
 * whatever order you request. Ask for the items in a rectangle or at a point:
 * <tt>scene()->items(rect)</tt> and <tt>scene()->items(pos)</tt> list the visible ones from the
 * topmost down. The same holds for derived views, for the view of a KELDialogBase and for
 * KELSideMenu.
 *
 * \section contentviewcompat Compatibility notes
 * - The constructor replaces the window flags by Qt::FramelessWindowHint. Without a compositor a
 *   translucent top-level window shows black (or stale) pixels where nothing is drawn.
 * - Child widgets inherit the view's style sheet, "background: transparent;". A QMenu with the view
 *   as parent needs a background of its own.
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
     * Null before the first setContent(), and after other code has deleted that control.
     */
    KELRoundRectControl *content() const;

    /*!
     * Shows \a control and resizes the view to int(width) x int(height) of its rect().
     *
     * Place the control (KELRoundRectControl::setboundRect()) before this call: its size is read
     * here. A width or height that is not finite counts as 0. \a control must not be null; a null
     * pointer is ignored.
     *
     * The scene takes ownership of \a control. Everything that was in the scene is deleted, the
     * previous content included. If \a control is already the content, or is elsewhere in this
     * scene, it survives: it is removed from the scene before the rest is deleted.
     *
     * \par Slots
     * Slots of items that are deleted here, of \a control, of its previous parent item and of the
     * scene run meanwhile. They may call setContent() again or delete controls. The control passed
     * last is shown; one that it replaced before it was ever shown is deleted. Slots may also
     * delete the view or its scene. The control is then deleted, as it would have been with the
     * scene, unless a slot has given it another parent item or scene.
     *
     * \par
     * Signals of \a control, of its previous parent item and of the scene are emitted after Qt has
     * done what they report. For an item that is dead by then QGraphicsScene::focusItemChanged()
     * gets null.
     *
     * \par
     * Qt does not survive the deletion of the view or its scene in code that it calls in the middle
     * of its own work: in event handlers of items (focus, mouse grab and activation move from old
     * items to new ones), in events of the view and in slots of QGraphicsScene::sceneRectChanged(),
     * both when the view is resized at the end. Use deleteLater() there. A slot must not call this
     * function while code other than this view deletes the content.
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
