// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Compiled, never run: tests/abi/abi reads in the debug information what is behind these pointers.

#include "kelclasses.h"

#define KEL_POINTER(Class) Class *public_##Class;
KEL_FOR_EACH_CLASS(KEL_POINTER)
