// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CHECKBOXSTATES_H
#define CHECKBOXSTATES_H

#include "rows.h"

#include <kelcheckbox.h>

inline KELCheckBoxStyle *styleOf(const KELCheckBox &box)
{
    return static_cast<KELCheckBoxStyle *>(box.style());
}

// The three colours of a box in a state.
struct BoxState
{
    const char *name;
    bool on;
    bool enabled;
    QColor track;
    QColor knob;
    QColor outline;
};

inline const std::vector<BoxState> defaultStates = {
    {"off", false, true, QColor(200, 200, 200), QColor(0, 123, 185), QColor(255, 255, 255)},
    {"on", true, true, QColor(70, 193, 255, 185), QColor(0, 123, 185), QColor(255, 255, 255)},
    {"off and disabled", false, false, QColor(200, 200, 200, 85), QColor(130, 130, 130, 150),
     QColor(255, 255, 255, 125)},
    {"on and disabled", true, false, QColor(200, 200, 200, 80), QColor(130, 130, 130, 150),
     QColor(255, 255, 255, 125)},
};

// Those of a box after useOwnColours().
inline const std::vector<BoxState> ownStates = {
    {"off", false, true, QColor(90, 125, 196, 240), QColor(11, 122, 183, 201),
     QColor(4, 5, 6, 207)},
    {"on", true, true, QColor(81, 192, 253, 131), QColor(11, 122, 183, 201), QColor(4, 5, 6, 207)},
    {"off and disabled", false, false, QColor(90, 125, 196, 70), QColor(20, 55, 126, 150),
     QColor(4, 5, 6, 77)},
    {"on and disabled", true, false, QColor(90, 125, 196, 80), QColor(20, 55, 126, 150),
     QColor(4, 5, 6, 77)},
};

inline void useOwnColours(const KELCheckBox &box)
{
    styleOf(box)->backgroundBrush = QColor(90, 125, 196, 240);
    styleOf(box)->indicatorBrush = QColor(11, 122, 183, 201);
    styleOf(box)->borderBrush = QColor(4, 5, 6, 207);
}

inline void bringInto(KELCheckBox *box, const BoxState &state)
{
    box->setCheck(state.on);
    box->setEnabled(state.enabled);
}

#endif
