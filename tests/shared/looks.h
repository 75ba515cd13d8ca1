// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LOOKS_H
#define LOOKS_H

#include "rows.h"

#include <kelroundrectcontrol.h>

#include <functional>

// A change of a record.
using Look = std::function<void(KELRoundRectControlStyle &)>;

struct NamedLook
{
    const char *name;
    Look apply;
};

// What an application may make of a new control that is painted as the base; the first one leaves
// it as it is: addRows({{"look", namesOf(looks())}}), lookOfRow()(*control.style()).
const std::vector<NamedLook> &looks();
inline const Look &lookOfRow()
{
    return looks().at(fetch<size_t>("look")).apply;
}

#endif
