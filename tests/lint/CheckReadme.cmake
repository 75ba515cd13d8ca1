# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DREADME=... -DEXAMPLE=... -P CheckReadme.cmake
#
# The program in the README is the example that the build compiles.

file(READ ${README} readme)
file(READ ${EXAMPLE} example)
string(FIND "${readme}" "```cpp\n" begin)
math(EXPR begin "${begin} + 7")
string(SUBSTRING "${readme}" ${begin} -1 readme)
string(FIND "${readme}" "```" end)
string(SUBSTRING "${readme}" 0 ${end} readme)
string(REGEX REPLACE "^(//[^\n]*\n)+\n" "" example "${example}")
if(NOT readme STREQUAL example)
    message(FATAL_ERROR "the README's program is not ${EXAMPLE}")
endif()
