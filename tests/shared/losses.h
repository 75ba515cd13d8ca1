// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LOSSES_H
#define LOSSES_H

#include "stage.h"

// A way of taking the pointer from the control of a stage while it is pressed, and what makes the
// control usable again.
struct Loss
{
    const char *name;
    std::function<void(ControlStage &)> lose;
    std::function<void(ControlStage &)> restore;
};

// Those that touch the control alone, and so need no grab to be lost.
const std::vector<Loss> &itemLosses();
// These and all others: addRows({{"loss", lossNames()}}), losses().at(fetch<size_t>("loss")).
const std::vector<Loss> &losses();
std::vector<Named> lossNames();

#endif
