# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# kel_forwarding_headers(<directory> <header>=<Class>[,<Class>...] ...)
#
# Writes one CamelCase header per class into <directory>, so that <KELPushButton> works.
function(kel_forwarding_headers directory)
    foreach(entry IN LISTS ARGN)
        string(REGEX MATCH "^([^=]+)=(.+)$" matched "${entry}")
        if(NOT matched)
            message(FATAL_ERROR "kel_forwarding_headers: bad entry '${entry}'")
        endif()
        set(header "${CMAKE_MATCH_1}")
        string(REPLACE "," ";" classes "${CMAKE_MATCH_2}")
        foreach(class IN LISTS classes)
            file(CONFIGURE OUTPUT "${directory}/${class}" CONTENT "#include \"${header}\" // IWYU pragma: export\n")
        endforeach()
    endforeach()
endfunction()
