// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_FILTERCOUNT_H
#define MONKEY_FILTERCOUNT_H

namespace Monkey {

// How many living objects filter the events of the application object. Qt does not tell: the
// program that includes this replaces the two functions of QObject that install and remove them.
int applicationFilters();

} // namespace Monkey

#endif
