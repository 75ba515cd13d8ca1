# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DCOMPILER=... -DFLAGS=... -DSOURCE=... -DDIRECTORY=... -P CheckVirtualTables.cmake
#
# Lets the compiler dump its classes and compares the own slots of each virtual table with the list below.

file(MAKE_DIRECTORY ${DIRECTORY})
file(GLOB old ${DIRECTORY}/*.class)
if(old)
    file(REMOVE ${old})
endif()
separate_arguments(FLAGS UNIX_COMMAND "${FLAGS}")
execute_process(
    COMMAND ${COMPILER} -std=c++17 -fPIC ${FLAGS} -fdump-lang-class -c ${SOURCE} -o layout.o
    WORKING_DIRECTORY ${DIRECTORY} RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "layout.cpp does not compile:\n${errors}")
endif()
file(GLOB dumps ${DIRECTORY}/*.class)
list(LENGTH dumps count)
if(NOT count EQUAL 1)
    message(FATAL_ERROR "expected one class dump, found ${count}")
endif()
file(READ ${dumps} dump)
string(REPLACE ";" "," dump "${dump}")
string(REPLACE "[" "(" dump "${dump}")
string(REPLACE "]" ")" dump "${dump}")

set(failed FALSE)

# expect_slots(<class> <function>...): the primary table of <class>, from metaObject on.
function(expect_slots class)
    string(FIND "${dump}" "\nVtable for ${class}\n" begin)
    if(begin EQUAL -1)
        message(FATAL_ERROR "no virtual table of ${class} in the dump")
    endif()
    string(SUBSTRING "${dump}" ${begin} -1 table)
    string(FIND "${table}" "\n\n" end)
    string(SUBSTRING "${table}" 0 ${end} table)
    string(REPLACE "\n" ";" lines "${table}")
    set(slots)
    foreach(line IN LISTS lines)
        if(line MATCHES "\\)-[0-9]+$" AND slots)
            break() # the table of the next base class
        endif()
        if(line MATCHES "^[0-9]+ +\\(int \\(\\*\\)\\(\\.\\.\\.\\)\\)([A-Za-z_~:]+)$")
            list(APPEND slots ${CMAKE_MATCH_1})
        endif()
    endforeach()
    set(expected ${ARGN})
    if(NOT slots STREQUAL expected)
        string(REPLACE ";" "\n  " slots "${slots}")
        string(REPLACE ";" "\n  " expected "${expected}")
        message("virtual table of ${class}:\n  ${slots}\nexpected:\n  ${expected}")
        set(failed TRUE PARENT_SCOPE)
    endif()
endfunction()

# object_slots(<result> <class> <event class>): what comes from QObject.
function(object_slots result class timer_class)
    set(${result} ${class}::metaObject ${class}::qt_metacast ${class}::qt_metacall
        ${class}::~${class} ${class}::~${class} QGraphicsObject::event QObject::eventFilter
        ${timer_class}::timerEvent QObject::childEvent QObject::customEvent QObject::connectNotify
        QObject::disconnectNotify PARENT_SCOPE)
endfunction()

set(base KELRoundRectControl)
object_slots(slots ${base} ${base})
expect_slots(${base} ${slots}
    ${base}::boundingRect ${base}::setboundRect ${base}::setboundRect ${base}::paint
    ${base}::mousePressEvent ${base}::mouseDoubleClickEvent ${base}::mouseReleaseEvent
    ${base}::mouseMoveEvent ${base}::hoverEnterEvent ${base}::hoverLeaveEvent
    ${base}::contextMenuEvent ${base}::onCheckedEvent ${base}::initStyle)

object_slots(slots KELPushButton ${base})
expect_slots(KELPushButton ${slots}
    ${base}::boundingRect ${base}::setboundRect ${base}::setboundRect KELPushButton::paint
    ${base}::mousePressEvent ${base}::mouseDoubleClickEvent ${base}::mouseReleaseEvent
    ${base}::mouseMoveEvent ${base}::hoverEnterEvent ${base}::hoverLeaveEvent
    ${base}::contextMenuEvent ${base}::onCheckedEvent KELPushButton::initStyle
    KELPushButton::sceneEventFilter)

if(failed)
    message(FATAL_ERROR "the order of virtual functions has changed")
endif()
