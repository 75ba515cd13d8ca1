# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# Installs a library, its headers and what CMake, pkg-config and qmake need to find it. All three
# descriptions are made from templates: no tool of the target is asked or run.

include(CMakePackageConfigHelpers)

set(KEL_QMAKE_FEATURES_DIR "" CACHE STRING
    "Where kelgdicontrol.prf is installed; default qt5/mkspecs/features in the library directory")

# kel_relative_directory(<result> <from> <directory>)
#
# The descriptions find the prefix from their own place, so that the tree can be moved. A directory
# given as an absolute path stays absolute.
function(kel_relative_directory result from directory)
    if(IS_ABSOLUTE "${directory}")
        set(${result} "${directory}" PARENT_SCOPE)
        return()
    endif()
    file(RELATIVE_PATH relative "/${from}" "/${directory}")
    string(REGEX REPLACE "/$" "" relative "${relative}")
    set(${result} "${relative}" PARENT_SCOPE)
endfunction()

# kel_install_pkgconfig(<target>)
function(kel_install_pkgconfig target)
    set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    set(KEL_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(KEL_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
    if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
        set(KEL_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
        set(KEL_PC_LIBDIR "${CMAKE_INSTALL_LIBDIR}")
    else()
        kel_relative_directory(relative ${pkgconfig_dir} ".")
        set(KEL_PC_PREFIX "\${pcfiledir}/${relative}")
    endif()
    if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
        set(KEL_PC_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${target}.pc.in ${PROJECT_BINARY_DIR}/${target}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${target}.pc DESTINATION ${pkgconfig_dir})
endfunction()

# kel_install_qmake_feature(<name>)
function(kel_install_qmake_feature name)
    set(features_dir ${KEL_QMAKE_FEATURES_DIR})
    if(NOT features_dir)
        set(features_dir ${CMAKE_INSTALL_LIBDIR}/qt5/mkspecs/features)
    endif()
    kel_relative_directory(KEL_PRF_LIBDIR ${features_dir} ${CMAKE_INSTALL_LIBDIR})
    kel_relative_directory(KEL_PRF_INCLUDEDIR ${features_dir} ${CMAKE_INSTALL_INCLUDEDIR})
    foreach(variable KEL_PRF_LIBDIR KEL_PRF_INCLUDEDIR)
        if(NOT IS_ABSOLUTE "${${variable}}")
            set(${variable} "$$PWD/${${variable}}")
        endif()
    endforeach()
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.prf.in ${PROJECT_BINARY_DIR}/${name}.prf @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.prf DESTINATION ${features_dir})
endfunction()

# kel_install_library(<target> <header>...)
#
# For one of the libraries. Each has files of its own, so that packages can be cut between them.
function(kel_install_library target)
    install(TARGETS ${target} EXPORT ${target}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${target})
    install(EXPORT ${target}Targets NAMESPACE KELGdiControl::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/KELGdiControl)
    kel_install_pkgconfig(${target})
    string(TOLOWER ${target} name)
    kel_install_qmake_feature(${name})
endfunction()

# kel_install_package()
#
# What find_package() reads, which is one package: the targets that it defines are of the libraries
# that are installed.
function(kel_install_package)
    set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/KELGdiControl)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/KELGdiControlConfig.cmake.in
        ${PROJECT_BINARY_DIR}/KELGdiControlConfig.cmake
        INSTALL_DESTINATION ${package_dir})
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/KELGdiControlConfigVersion.cmake
        COMPATIBILITY SameMajorVersion)
    install(FILES
        ${PROJECT_BINARY_DIR}/KELGdiControlConfig.cmake
        ${PROJECT_BINARY_DIR}/KELGdiControlConfigVersion.cmake
        DESTINATION ${package_dir})
endfunction()
