// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSIDEMENU_H
#define KELSIDEMENU_H

#include "kelgdicontrol_global.h"

#include <QtWidgets/QGraphicsView>

class KELRoundRectControl;
class KELSideMenuPrivate;

/*!
 * \brief A frameless, transparent view that arranges controls in a row or a column, with a thin
 * line between them.
 *
 * \image html anatomy-side-menu.png
 *
 * \code
 * auto *menu = new KELSideMenu(window);
 * menu->setOrientation(KELSideMenu::Vertical);
 * menu->setSpace(2);
 * for (KELPushButton *button : buttons)
 *     menu->addItem(button);
 * \endcode
 *
 * Set the orientation, the space and the border width first, then add the controls. The menu grows
 * with each control and never moves the ones already added.
 *
 * \section sidemenulayout Layout
 * Along the menu, a control begins at the sum of the extents (width or height of the
 * boundingRect()) of all items in the scene plus one space for each of them. Across the menu, every
 * control begins at 0.
 *
 * The first control makes the menu as thick as itself plus two border widths. So does any later
 * control that would leave less than one border width of room across the menu. The menu never
 * becomes thinner by itself.
 *
 * A view without a parent is a frameless window; a view with a parent is an ordinary child widget.
 * When the view is resized, the whole scene is fitted into it; QGraphicsView::fitInView() leaves
 * 2 px on each side.
 *
 * The menu owns its scene, and the scene owns the controls. The scene uses QGraphicsScene::NoIndex:
 * <tt>scene()->items()</tt> is not sorted; see \ref viewscene.
 *
 * GUI thread only.
 *
 * \section sidemenucompat Compatibility notes
 * - All items in the scene affect the position of the next control: separators, items that the
 *   application adds, and child items. A control with child items, such as a KELComboBox, pushes
 *   the next ones further by the extents of its child items.
 * - The first control adds the border width once along the menu and twice across it; all others add
 *   it twice in both directions.
 * - The menu places controls by their rectangles. A KELRadioBox or a KELSlideControl on the second
 *   or a later control is drawn out of place; see \ref placing.
 */
class KELGDI_EXPORT KELSideMenu : public QGraphicsView
{
    Q_OBJECT

public:
    //! The direction of a menu. Other values act as Vertical.
    enum OrientationMode : int {
        Horizontal = 0, //!< From left to right.
        Vertical = 1 //!< From top to bottom.
    };

    //! Creates an empty menu inside \a parent, or a frameless window when \a parent is null.
    explicit KELSideMenu(QWidget *parent = nullptr);

    //! Destroys the menu, its separators and all controls in its scene.
    ~KELSideMenu() override;

    //! Sets the direction for controls added from now on. The default is Horizontal.
    void setOrientation(KELSideMenu::OrientationMode orientation);

    //! Returns the direction.
    OrientationMode orientation() const;

    //! Sets the outline width (item px) of controls added from now on, which is also the margin of
    //! the menu. The default is 2.
    void setBorderWidth(float width);

    //! Returns the outline width for added controls, in item px.
    float borderWidth() const;

    /*!
     * Sets the space, in item px, before controls added from now on. It is also the width of the
     * white line in that space; 0 or less draws no line. The default is 0.5.
     *
     * Resizes the view to the length that its items would have with this space, plus 2 px. An empty
     * menu becomes 2 - \a space px long. Controls already added do not move.
     */
    void setSpace(float space);

    //! Returns the space before added controls, in item px.
    float space() const;

    /*!
     * Appends \a control, at its current size and with a separator before it, and resizes the view.
     *
     * The scene of the menu takes ownership. The menu writes its border width to the control's
     * style; see \ref sidemenucompat for how the border affects the size of the menu. Null and a
     * control that is already in the menu are ignored.
     *
     * Slots that run during the call may delete the menu, its scene or the control. The exceptions
     * are slots connected to QGraphicsScene::sceneRectChanged() and the menu's own event handlers:
     * they must not delete the menu, because Qt is resizing it at that point. Use deleteLater()
     * there.
     */
    void addItem(KELRoundRectControl *control);

protected:
    //! Sets the scene rectangle to (0, 0, width, height) of the new size and fits it into the view.
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(KELSideMenu)

    KELSideMenuPrivate *const d;
};

#endif
