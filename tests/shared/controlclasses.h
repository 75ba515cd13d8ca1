// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef CONTROLCLASSES_H
#define CONTROLCLASSES_H

#include "kelclasses.h"

#include <type_traits>
#include <vector>

template <typename Class>
struct ClassTag
{
    using Type = Class;
};

template <typename Class, typename Visitor>
void visitControl(const Visitor &visit)
{
    if constexpr (std::is_base_of_v<KELRoundRectControl, Class>)
        visit(ClassTag<Class>());
}

// Calls visit(ClassTag<Class>()) for each public control, the base among them: a test that makes
// its rows with it has those of a new control, too.
template <typename Visitor>
void forEachControl(const Visitor &visit)
{
#define KEL_VISIT(Class) visitControl<Class>(visit);
    KEL_FOR_EACH_CLASS(KEL_VISIT)
#undef KEL_VISIT
}

#endif
