// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef PAINTCOUNT_H
#define PAINTCOUNT_H

// How many rounded rectangles and ellipses painters have drawn: fewer than without kept looks by
// those that were given back.
int shapesDrawn();

#endif
