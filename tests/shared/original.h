// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#ifndef ORIGINAL_H
#define ORIGINAL_H

#include <cstring>
#include <dlfcn.h>

// The member function of Qt that one of the program stands in for. A pointer to a member function
// that is not virtual begins with the address, on the processors that this runs on.
template <typename Function>
Function original(const char *symbol)
{
    Function function = nullptr;
    void *const address = dlsym(RTLD_NEXT, symbol);
    std::memcpy(&function, &address, sizeof address);
    return function;
}

#endif
