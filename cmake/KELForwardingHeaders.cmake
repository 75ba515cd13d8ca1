# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# kel_forwarding_headers(<directory> <result> <family>=<Class>[,<Class>...] ...)
#
# Writes one CamelCase header per class into <directory>, so that <KELPushButton> works, and lists
# the files in <result>.
function(kel_forwarding_headers directory result)
    set(written)
    foreach(entry IN LISTS ARGN)
        string(REGEX MATCH "^([^=]+)=(.+)$" entry "${entry}")
        set(header "${CMAKE_MATCH_1}.h")
        string(REPLACE "," ";" classes "${CMAKE_MATCH_2}")
        foreach(class IN LISTS classes)
            configure_file(${PROJECT_SOURCE_DIR}/cmake/KELForwardingHeader.in
                ${directory}/${class} @ONLY)
            list(APPEND written ${directory}/${class})
        endforeach()
    endforeach()
    set(${result} ${written} PARENT_SCOPE)
endfunction()
