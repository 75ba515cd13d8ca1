// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Compiled, never run, as interface.cpp is.

#include "kelpartclasses.h"

#define KEL_POINTER(Class) Class *public_##Class;
KEL_FOR_EACH_PART_CLASS(KEL_POINTER)
