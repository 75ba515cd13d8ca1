// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELMOTION_H
#define KELMOTION_H

#include "kelgdiparts_global.h"

/*!
 * \brief The one place that switches the motion of all parts on and off.
 *
 * \code
 * KELMotion::setEnabled(false); // pages, knobs and lists arrive at once
 * \endcode
 *
 * Parts animate only while something moves and only while they are visible. Without motion they
 * arrive at the end of a movement at once. A list still follows the finger.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELMotion
{
public:
    //! Switches motion on or off for all parts, from their next movement. A movement that is under
    //! way ends as it began. The default is true.
    static void setEnabled(bool enabled);

    //! Returns whether parts move.
    static bool isEnabled();

    //! How long movements take.
    enum Duration : int {
        slideMs = 180, //!< A page that slides, in ms.
        switchMs = 120 //!< The knob of a switch, in ms.
    };

    KELMotion() = delete;
};

#endif
