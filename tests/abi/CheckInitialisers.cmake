# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DNM=... -DLIBRARY=... -DEXPECTED=<source>,... -P CheckInitialisers.cmake
#
# Loading the library runs the constructors of these sources' static objects, and of no others.

string(REPLACE "," ";" expected "${EXPECTED}")

execute_process(COMMAND ${NM} ${LIBRARY} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " _GLOBAL__sub_I_[^\n]+" found "${symbols}")
list(TRANSFORM found REPLACE "^ _GLOBAL__sub_I_" "")
list(SORT found)
if(NOT "${found}" STREQUAL "${expected}")
    message(FATAL_ERROR "static objects are constructed by: ${found}\nexpected: ${expected}")
endif()
