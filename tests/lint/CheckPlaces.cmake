# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DROOT=... -DFAMILIES=<family>=<Class>+<Class>,... -DPARTS=... -P CheckPlaces.cmake
#
# Says which of the places is missing that CONTRIBUTING.md lists for a control, and for a part. PARTS
# is empty where the parts are not built.

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

# check_family(<family> <folder> <list>): what controls and parts have alike. Adds to missing and
# names; leaves the first class in class.
macro(check_family family folder list)
    string(REGEX MATCH "^(.*)=(.*)$" matched ${family})
    set(name ${CMAKE_MATCH_1})
    string(REPLACE "+" ";" classes ${CMAKE_MATCH_2})
    list(APPEND names ${name})

    file(STRINGS ${ROOT}/${folder}/${name}.h lines REGEX "^(class|struct) [^;]*$")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^(class|struct) (KELGDI(PARTS)?_EXPORT )?([A-Za-z0-9]+).*" "\\4" class "${line}")
        if(NOT class IN_LIST classes)
            string(APPEND missing "${class} of ${folder}/${name}.h is not in ${list}\n")
        endif()
    endforeach()

    if(NOT EXISTS ${ROOT}/tests/auto/${name}/tst_${name}.cpp)
        string(APPEND missing "tests/auto/${name}/tst_${name}.cpp: ${name} has no tests\n")
    endif()
    list(GET classes 0 class)
    if(NOT changes MATCHES "`${class}`")
        string(APPEND missing "CHANGELOG.md does not mention `${class}`\n")
    endif()
endmacro()

# check_headers(<folder> <list>): there is no header beside the families.
macro(check_headers folder list)
    file(GLOB headers ${ROOT}/${folder}/*.h)
    foreach(header IN LISTS headers)
        get_filename_component(name ${header} NAME_WE)
        if(NOT name IN_LIST names)
            string(APPEND missing "${folder}/${name}.h is not in ${list}\n")
        endif()
    endforeach()
endmacro()

set(names kelgdicontrol_global kelgdicontrol_version)
foreach(family IN LISTS FAMILIES)
    check_family(${family} include "KEL_FAMILIES (src/CMakeLists.txt)")
    # There is nothing to see of an event filter.
    if(NOT gallery MATCHES "[^A-Za-z]${class}[^A-Za-z]" AND NOT class STREQUAL "KELApplicationNotify")
        string(APPEND missing "demos/gallery: no page shows ${class}\n")
    endif()
endforeach()
check_headers(include "KEL_FAMILIES (src/CMakeLists.txt)")

string(REPLACE "," ";" PARTS "${PARTS}")
if(PARTS)
    list(APPEND names kelgdiparts_global)
    foreach(family IN LISTS PARTS)
        check_family(${family} parts/include "KEL_PART_FAMILIES (parts/CMakeLists.txt)")
    endforeach()
    check_headers(parts/include "KEL_PART_FAMILIES (parts/CMakeLists.txt)")
    file(READ ${ROOT}/parts/CMakeLists.txt parts)
    file(GLOB sources ${ROOT}/parts/src/*.cpp ${ROOT}/parts/src/*_p.h)
    foreach(source IN LISTS sources)
        get_filename_component(name ${source} NAME)
        string(REGEX REPLACE "(_p)?\\.(cpp|h)$" "" name ${name})
        if(NOT parts MATCHES "[\n ]${name}[=\n.]")
            string(APPEND missing "${name} of parts/src is not in KEL_PART_HELPERS (parts/CMakeLists.txt)\n")
        endif()
    endforeach()
endif()

file(READ ${ROOT}/tests/CMakeLists.txt tests)
file(GLOB folders RELATIVE ${ROOT}/tests/auto ${ROOT}/tests/auto/*)
foreach(folder IN LISTS folders)
    if(NOT folder IN_LIST names AND NOT tests MATCHES "[ (/]${folder}[ )\n]")
        string(APPEND missing "tests/auto/${folder} is not in tests/CMakeLists.txt\n")
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
