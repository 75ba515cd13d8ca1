# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DROOT=... -DFAMILIES=<family>=<Class>+<Class>,... -P CheckPlaces.cmake
#
# Says which of the places is missing that CONTRIBUTING.md lists for a control.

cmake_policy(SET CMP0057 NEW)
set(missing)
string(REPLACE "," ";" FAMILIES "${FAMILIES}")

# read_all(<result> <pattern>...)
function(read_all result)
    file(GLOB files ${ARGN})
    set(all)
    foreach(file IN LISTS files)
        file(READ ${file} text)
        string(APPEND all "${text}")
    endforeach()
    set(${result} "${all}" PARENT_SCOPE)
endfunction()

read_all(gallery ${ROOT}/demos/gallery/*.h ${ROOT}/demos/gallery/pages/*.cpp)
read_all(registry ${ROOT}/demos/gallery/pageregistry.cpp)
read_all(changes ${ROOT}/CHANGELOG.md)
set(names kelgdicontrol_global kelgdicontrol_version)
foreach(family IN LISTS FAMILIES)
    string(REGEX MATCH "^(.*)=(.*)$" family ${family})
    set(name ${CMAKE_MATCH_1})
    string(REPLACE "+" ";" classes ${CMAKE_MATCH_2})
    list(APPEND names ${name})

    file(STRINGS ${ROOT}/include/${name}.h lines REGEX "^(class|struct) [^;]*$")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^(class|struct) (KELGDI_EXPORT )?([A-Za-z0-9]+).*" "\\3" class "${line}")
        if(NOT class IN_LIST classes)
            string(APPEND missing "${class} of include/${name}.h is not in KEL_FAMILIES (src/CMakeLists.txt)\n")
        endif()
    endforeach()

    if(NOT EXISTS ${ROOT}/tests/auto/${name}/tst_${name}.cpp)
        string(APPEND missing "tests/auto/${name}/tst_${name}.cpp: ${name} has no tests\n")
    endif()
    list(GET classes 0 class)
    # There is nothing to see of an event filter.
    if(NOT gallery MATCHES "[^A-Za-z]${class}[^A-Za-z]" AND NOT class STREQUAL "KELApplicationNotify")
        string(APPEND missing "demos/gallery: no page shows ${class}\n")
    endif()
    if(NOT changes MATCHES "`${class}`")
        string(APPEND missing "CHANGELOG.md does not mention `${class}`\n")
    endif()
endforeach()

file(READ ${ROOT}/tests/CMakeLists.txt tests)
file(GLOB folders RELATIVE ${ROOT}/tests/auto ${ROOT}/tests/auto/*)
foreach(folder IN LISTS folders)
    if(NOT folder IN_LIST names AND NOT tests MATCHES "[ (/]${folder}[ )\n]")
        string(APPEND missing "tests/auto/${folder} is not in tests/CMakeLists.txt\n")
    endif()
endforeach()

file(GLOB headers ${ROOT}/include/*.h)
foreach(header IN LISTS headers)
    get_filename_component(name ${header} NAME_WE)
    if(NOT name IN_LIST names)
        string(APPEND missing "include/${name}.h is not in KEL_FAMILIES (src/CMakeLists.txt)\n")
    endif()
endforeach()

file(GLOB files RELATIVE ${ROOT}/demos/gallery ${ROOT}/demos/gallery/pages/*page.h)
foreach(file IN LISTS files)
    file(STRINGS ${ROOT}/demos/gallery/${file} page REGEX "^class [A-Za-z]+Page : ")
    string(REGEX REPLACE "^class ([A-Za-z]+) .*" "\\1" page "${page}")
    if(NOT registry MATCHES "create<${page}>")
        string(APPEND missing "demos/gallery/pageregistry.cpp has no line for ${page}\n")
    endif()
endforeach()

if(missing)
    message(FATAL_ERROR "${missing}")
endif()
