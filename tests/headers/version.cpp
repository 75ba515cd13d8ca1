// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

// Compiled, never run: the version is that of the project, and can be compared in the preprocessor.

#include <kellabel.h>

#if KELGDI_VERSION < KELGDI_VERSION_CHECK(1, 0, 0) \
    || KELGDI_VERSION >= KELGDI_VERSION_CHECK(2, 0, 0)
#  error "not a version 1"
#endif

constexpr bool areEqual(const char *left, const char *right)
{
    return *left == *right && (*left == '\0' || areEqual(left + 1, right + 1));
}

static_assert(KELGDI_VERSION_CHECK(1, 2, 3) == 0x010203, "a byte each");
static_assert(KELGDI_VERSION_CHECK(1, 0, 255) < KELGDI_VERSION_CHECK(1, 1, 0), "in their order");
static_assert(KELGDI_VERSION == KEL_EXPECTED_NUMBER, "the number is that of the project");
static_assert(areEqual(KELGDI_VERSION_STR, KEL_EXPECTED_VERSION), "so is the string");
