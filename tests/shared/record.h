// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef RECORD_H
#define RECORD_H

#include <kelroundrectcontrol.h>

// The fields of the base in a record, also in a derived one.
namespace Record {

// Those of a new plain control.
KELRoundRectControlStyle defaults();

// Gives each field a value that no control has by default, except the menu.
void fill(KELRoundRectControlStyle *record);

// Empty when equal; otherwise names the fields that differ, with both values.
QString difference(const KELRoundRectControlStyle &actual,
                   const KELRoundRectControlStyle &expected);

} // namespace Record

#endif
