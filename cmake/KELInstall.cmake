# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# Installs the library, its headers and what CMake, pkg-config and qmake need to find it. All three
# descriptions are made from templates: no tool of the target is asked or run.

include(CMakePackageConfigHelpers)

install(TARGETS KELGdiControl EXPORT KELGdiControlTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
get_property(public_headers GLOBAL PROPERTY KEL_PUBLIC_HEADERS)
install(FILES ${public_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/KELGdiControl)

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
install(EXPORT KELGdiControlTargets NAMESPACE KELGdiControl:: DESTINATION ${package_dir})

# Both files find the prefix from their own place, so that the tree can be moved. A directory given
# as an absolute path stays absolute.
function(kel_relative_directory result from directory)
    if(IS_ABSOLUTE "${directory}")
        set(${result} "${directory}" PARENT_SCOPE)
        return()
    endif()
    file(RELATIVE_PATH relative "/${from}" "/${directory}")
    string(REGEX REPLACE "/$" "" relative "${relative}")
    set(${result} "${relative}" PARENT_SCOPE)
endfunction()

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
configure_file(${PROJECT_SOURCE_DIR}/cmake/KELGdiControl.pc.in
    ${PROJECT_BINARY_DIR}/KELGdiControl.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/KELGdiControl.pc DESTINATION ${pkgconfig_dir})

set(KEL_QMAKE_FEATURES_DIR "" CACHE STRING
    "Where kelgdicontrol.prf is installed; default qt5/mkspecs/features in the library directory")
if(NOT KEL_QMAKE_FEATURES_DIR)
    set(KEL_QMAKE_FEATURES_DIR ${CMAKE_INSTALL_LIBDIR}/qt5/mkspecs/features)
endif()
kel_relative_directory(KEL_PRF_LIBDIR ${KEL_QMAKE_FEATURES_DIR} ${CMAKE_INSTALL_LIBDIR})
kel_relative_directory(KEL_PRF_INCLUDEDIR ${KEL_QMAKE_FEATURES_DIR} ${CMAKE_INSTALL_INCLUDEDIR})
foreach(variable KEL_PRF_LIBDIR KEL_PRF_INCLUDEDIR)
    if(NOT IS_ABSOLUTE "${${variable}}")
        set(${variable} "$$PWD/${${variable}}")
    endif()
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/cmake/kelgdicontrol.prf.in
    ${PROJECT_BINARY_DIR}/kelgdicontrol.prf @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kelgdicontrol.prf DESTINATION ${KEL_QMAKE_FEATURES_DIR})
