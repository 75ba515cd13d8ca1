// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef FILTERCOUNT_H
#define FILTERCOUNT_H

// How many living objects filter the events of the application object. Qt does not tell: the
// program that links kel_filter_count replaces the two functions of QObject that install and remove
// them.
int applicationFilterCount();

#endif
