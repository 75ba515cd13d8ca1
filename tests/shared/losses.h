// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef LOSSES_H
#define LOSSES_H

#include "stage.h"

// A way of taking the pointer from the item of a stage while it is pressed, and what makes the item
// usable again.
struct Loss
{
    const char *name;
    std::function<void(ItemStage &)> lose;
    std::function<void(ItemStage &)> restore;
};

// Those that touch the item alone, and so need no grab to be lost.
const std::vector<Loss> &itemLosses();
// These and all others: addRows({{"loss", lossNames()}}), losses().at(fetch<size_t>("loss")).
const std::vector<Loss> &losses();
std::vector<Named> lossNames();

#endif
