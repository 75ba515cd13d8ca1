# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DBUILD=... -DLIST=... -P ListInstalled.cmake
#
# Writes into LIST what an install of BUILD, which only needs to be configured, would install; one
# path a line.

set(installed)

# What the scripts of CMake call to install; the rest of what they do with files needs the files.
macro(file command)
    if("${command}" STREQUAL "INSTALL")
        cmake_parse_arguments(install "OPTIONAL" "DESTINATION;TYPE;RENAME" "FILES" ${ARGN})
        foreach(file IN LISTS install_FILES)
            get_filename_component(name "${file}" NAME)
            if(install_RENAME)
                set(name "${install_RENAME}")
            endif()
            string(APPEND installed "${install_DESTINATION}/${name}\n")
        endforeach()
    endif()
endmacro()

include(${BUILD}/cmake_install.cmake)
_file(WRITE ${LIST} "${installed}")
