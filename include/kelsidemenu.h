// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELSIDEMENU_H
#define KELSIDEMENU_H

#include "kelgdicontrol_global.h"

#include <QtWidgets/QGraphicsView>

class KELRoundRectControl;
class KELSideMenuPrivate;

/*!
 * \brief A frameless, transparent view that lines up controls in a row or a column, with a thin line
 * between them.
 *
 * \image html side-menu.png
 *
 * \code
 * auto *menu = new KELSideMenu(window);
 * menu->setOrientation(KELSideMenu::Vertical);
 * menu->setSpace(2);
 * for (KELPushButton *button : buttons)
 *     menu->addItem(button);
 * \endcode
 *
 * Set orientation, space and border width first, then add the controls: the menu grows with each, and
 * what has been added is never moved.
 *
 * \section sidemenulayout Layout
 * Along the menu a control begins one space behind everything before it: that is at the sum of the extents (width or
 * height of the boundingRect()) of all items in the scene and one space for each of them.
 * All items count, child items of controls and the separators too: a control with child items, such as a
 * KELComboBox, pushes the next ones further by the extents of its child items. The scene belongs to the menu; an
 * item that the application adds to it counts as well.
 *
 * Across the menu every control begins at 0. The first control makes the menu as thick as itself and two border
 * widths; a later one that leaves less than one border width of room does so, too. The menu never becomes thinner
 * by itself.
 *
 * A view without a parent is a frameless window, a view with a parent an ordinary child widget. When it is
 * resized, the scene is fitted into it as a whole; QGraphicsView::fitInView() leaves 2 px on each side. The
 * scene uses QGraphicsScene::NoIndex: <tt>scene()->items()</tt> is not sorted, see \ref viewscene.
 *
 * \warning The menu places controls by their rectangles. A KELRadioBox or a KELSlideControl on the
 * second control or a later one is drawn beside its place: \ref placing has the way out.
 *
 * GUI thread only.
 */
class KELGDI_EXPORT KELSideMenu : public QGraphicsView
{
    Q_OBJECT

public:
    //! The direction of a menu. Other values count as Vertical.
    enum OrientationMode : int {
        Horizontal = 0, //!< From left to right.
        Vertical = 1 //!< From top to bottom.
    };

    //! Creates an empty menu inside \a parent, or a frameless window when \a parent is null.
    explicit KELSideMenu(QWidget *parent = nullptr);

    //! Destroys the menu with its separators and all controls in its scene.
    ~KELSideMenu() override;

    //! Sets the direction for controls added later. Default Horizontal.
    void setOrientation(KELSideMenu::OrientationMode orientation);

    //! Returns the direction.
    OrientationMode orientation() const;

    //! Sets the outline width (item px) that controls added later get, which is also the margin of the
    //! menu. Default 2.
    void setBorderWidth(float width);

    //! Returns the outline width of controls added later, in item px.
    float borderWidth() const;

    /*!
     * Sets the space before controls added later, in item px, and so the width of the white line in it; 0
     * or less makes no line. Default 0.5.
     *
     * Resizes the view to the length that its items would have with this space, and 2 px more; an empty
     * menu becomes 2 - \a space px long. Nothing that was added is moved.
     */
    void setSpace(float space);

    //! Returns the space before controls added later, in item px.
    float space() const;

    /*!
     * Appends \a control, with the size it has, and a separator before it, and resizes the view.
     *
     * The scene of the menu takes ownership. The border width of the menu is written to the style of the
     * control. The first control gets the border once along the menu and twice across it, all others twice
     * in both directions. Null and a control that is in the menu already are ignored.
     *
     * Slots that run meanwhile may delete the menu, its scene or the control; but not the menu in a slot of
     * QGraphicsScene::sceneRectChanged() or in its own events, as Qt resizes it then: use deleteLater() there.
     */
    void addItem(KELRoundRectControl *control);

protected:
    //! Makes the scene rectangle (0, 0, width, height) of the new size and fits it into the view.
    void resizeEvent(QResizeEvent *event) override;

private:
    Q_DISABLE_COPY(KELSideMenu)

    KELSideMenuPrivate *const d;
};

#endif
