# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DNM=... -DREADELF=... -DLIBRARY=... -DSONAME=... -DCLASSES=<class>,...
#     [-DALIASES=...] -P CheckSymbols.cmake
#
# The library has its soname and exports its public classes and nothing else: no helper of its own,
# and no template of another library that the compiler put into it. Every second name is that of a
# const function, less the const, and leads to it.

execute_process(COMMAND ${READELF} -d ${LIBRARY} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "." "\\." soname "${SONAME}")
if(NOT dynamic MATCHES "\\(SONAME\\)[^\n]*\\[${soname}\\]")
    message(FATAL_ERROR "the soname is not ${SONAME}:\n${dynamic}")
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

execute_process(COMMAND ${READELF} --dyn-syms -W ${LIBRARY} OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)

# address_of(<result> <function>): empty when the library exports no such function.
function(address_of result function)
    set(address)
    if(table MATCHES " ([0-9a-f]+) +[0-9]+ FUNC +GLOBAL +DEFAULT +[^\n]* +[0-9]+ ${function}\n")
        set(address ${CMAKE_MATCH_1})
    endif()
    set(${result} "${address}" PARENT_SCOPE)
endfunction()

if(NOT ALIASES)
    return()
endif()
file(READ ${ALIASES} aliases)
string(REGEX MATCHALL "_ZN[A-Za-z0-9_]+[ \n]*=[ \n]*[A-Za-z0-9_]+" aliases "${aliases}")
if(NOT aliases)
    message(FATAL_ERROR "no second names in ${ALIASES}")
endif()
set(wrong)
foreach(alias IN LISTS aliases)
    string(REGEX MATCH "^([A-Za-z0-9_]+)[ \n]*=[ \n]*(.*)$" alias "${alias}")
    set(name ${CMAKE_MATCH_1})
    set(function ${CMAKE_MATCH_2})
    address_of(address ${name})
    address_of(expected ${function})
    string(REGEX REPLACE "^_ZNK" "_ZN" without_const "${function}")
    if(NOT address OR NOT address STREQUAL expected OR function STREQUAL name OR NOT name STREQUAL without_const)
        string(APPEND wrong "  ${name} at '${address}', ${function} at '${expected}'\n")
    endif()
endforeach()
if(wrong)
    message(FATAL_ERROR "second names that are not exported functions, or of other functions:\n${wrong}")
endif()
