// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef KELMOTION_H
#define KELMOTION_H

#include "kelgdiparts_global.h"

/*!
 * \brief Switches the animations of all parts on and off.
 *
 * \code
 * KELMotion::setEnabled(false); // pages, knobs and lists arrive at once
 * \endcode
 *
 * Parts are animated only while something moves and they are visible. Without motion they arrive at
 * the end of a movement at once. A list still follows the finger.
 *
 * GUI thread only.
 */
class KELGDIPARTS_EXPORT KELMotion
{
public:
    //! Switches motion on or off for all parts, from their next movement on. A movement that has
    //! begun goes on to its end. The default is true.
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
