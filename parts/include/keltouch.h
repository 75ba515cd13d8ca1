// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELTOUCH_H
#define KELTOUCH_H

#include "kelgdiparts_global.h"

/*!
 * \brief The least size of what a finger is meant to hit.
 *
 * \code
 * KELTouch::setPixelsPerMillimetre(800 / 154.0); // the panel does not report its size
 * \endcode
 *
 * Parts and KELLayout ask for the size when they compute their size hints: set it before the first
 * screen is built.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELTouch
{
public:
    //! Returns the least width and height of a touch target in item px, rounded up to a whole
    //! number: leastMillimetres() on a screen of pixelsPerMillimetre().
    static qreal leastSize();

    //! Returns the least size in mm. The default is 9.
    static qreal leastMillimetres();
    //! Sets the least size to \a millimetres. A value that is not finite or below 0 counts as 0,
    //! one above 100 as 100.
    static void setLeastMillimetres(qreal millimetres);

    //! Returns the resolution. The default is that of the primary screen, or 135 dpi (5.3 px/mm) if
    //! the screen reports less than 50 dpi or more than 500 dpi, or if there is none.
    static qreal pixelsPerMillimetre();
    //! Sets the resolution to \a pixels for each mm. 0, a negative value and one that is not finite
    //! restore the default; one above 100 counts as 100.
    static void setPixelsPerMillimetre(qreal pixels);

    KELTouch() = delete;
};

#endif
