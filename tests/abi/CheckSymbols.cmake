# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DNM=... -DREADELF=... -DLIBRARY=... -DCLASSES=<class>,... -P CheckSymbols.cmake
#
# The library has its soname and exports its public classes and nothing else: no helper of its own, and no template
# of another library that the compiler put into it.

execute_process(COMMAND ${READELF} -d ${LIBRARY} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "\\(SONAME\\)[^\n]*\\[libKELGdiControl\\.so\\.1\\]")
    message(FATAL_ERROR "the soname is not libKELGdiControl.so.1:\n${dynamic}")
endif()

execute_process(COMMAND ${NM} -DC --defined-only ${LIBRARY} OUTPUT_VARIABLE symbols
    COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," symbols "${symbols}")
string(STRIP "${symbols}" symbols)
string(REPLACE "\n" ";" symbols "${symbols}")
list(LENGTH symbols count)
if(count LESS 50)
    message(FATAL_ERROR "only ${count} symbols are exported")
endif()
string(REPLACE "," "|" classes "${CLASSES}")
set(foreign)
foreach(symbol IN LISTS symbols)
    if(NOT symbol MATCHES
        "^[0-9a-f]+ [A-Zu] ((vtable|typeinfo|typeinfo name) for |non-virtual thunk to )?(${classes})(::|$)")
        string(APPEND foreign "  ${symbol}\n")
    endif()
endforeach()
if(foreign)
    message(FATAL_ERROR "symbols that are not the library's own:\n${foreign}")
endif()
