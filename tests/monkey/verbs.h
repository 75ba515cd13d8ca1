// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef MONKEY_VERBS_H
#define MONKEY_VERBS_H

#include "script.h"

// The verbs, one function for each source file.
namespace Monkey {

void addPointerVerbs(std::vector<Verb> *list);
void addItemVerbs(std::vector<Verb> *list);
void addStyleVerbs(std::vector<Verb> *list);
void addControlVerbs(std::vector<Verb> *list);
void addWindowVerbs(std::vector<Verb> *list);
void addBindingVerbs(std::vector<Verb> *list);

} // namespace Monkey

#endif
