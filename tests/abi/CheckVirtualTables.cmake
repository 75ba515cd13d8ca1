# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DCOMPILER=... -DFLAGS=... -DSOURCE=... -DDIRECTORY=... -P CheckVirtualTables.cmake
#
# Lets the compiler dump its classes and compares the own slots of each virtual table with the list below.

cmake_minimum_required(VERSION 3.16)

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

# own_slots(<result> <class>): the primary table of <class>, from metaObject on.
function(own_slots result class)
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
    set(${result} ${slots} PARENT_SCOPE)
endfunction()

# expect_slots(<class> <function>...)
function(expect_slots class)
    own_slots(slots ${class})
    set(expected ${ARGN})
    if(NOT slots STREQUAL expected)
        string(REPLACE ";" "\n  " slots "${slots}")
        string(REPLACE ";" "\n  " expected "${expected}")
        message("virtual table of ${class}:\n  ${slots}\nexpected:\n  ${expected}")
        set(failed TRUE PARENT_SCOPE)
    endif()
endfunction()

# expect_derived(<class> <base> <function>...): a class that overrides the functions of <base> in the places they
# have there and adds none.
function(expect_derived class base)
    set(overridden metaObject qt_metacast qt_metacall ~${base} ${ARGN})
    own_slots(base_slots ${base})
    set(expected)
    foreach(slot IN LISTS base_slots)
        string(REGEX REPLACE ".*::" "" function ${slot})
        if(NOT function IN_LIST overridden)
            list(APPEND expected ${slot})
        elseif(function STREQUAL "~${base}")
            list(APPEND expected ${class}::~${class})
        else()
            list(APPEND expected ${class}::${function})
        endif()
    endforeach()
    expect_slots(${class} ${expected})
    set(failed ${failed} PARENT_SCOPE)
endfunction()

# object_slots(<result> <class> <event class>): what comes from QObject.
function(object_slots result class timer_class)
    set(${result} ${class}::metaObject ${class}::qt_metacast ${class}::qt_metacall
        ${class}::~${class} ${class}::~${class} QGraphicsObject::event QObject::eventFilter
        ${timer_class}::timerEvent QObject::childEvent QObject::customEvent QObject::connectNotify
        QObject::disconnectNotify PARENT_SCOPE)
endfunction()

# expect_control(<class> OVERRIDES <function>... [NEW <function>...]): a control that overrides functions of the
# base in their place and adds others behind.
function(expect_control class)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "OVERRIDES;NEW")
    set(base KELRoundRectControl)
    set(timer_class ${base})
    if(timerEvent IN_LIST arg_OVERRIDES)
        set(timer_class ${class})
    endif()
    object_slots(slots ${class} ${timer_class})
    foreach(function boundingRect setboundRect setboundRect paint mousePressEvent mouseDoubleClickEvent
            mouseReleaseEvent mouseMoveEvent hoverEnterEvent hoverLeaveEvent contextMenuEvent
            onCheckedEvent initStyle)
        if(class STREQUAL base OR function IN_LIST arg_OVERRIDES)
            list(APPEND slots ${class}::${function})
        else()
            list(APPEND slots ${base}::${function})
        endif()
    endforeach()
    foreach(function IN LISTS arg_NEW)
        list(APPEND slots ${class}::${function})
    endforeach()
    expect_slots(${class} ${slots})
    set(failed ${failed} PARENT_SCOPE)
endfunction()

expect_control(KELRoundRectControl)
expect_control(KELPushButton OVERRIDES paint initStyle NEW sceneEventFilter)
expect_control(KELLabel OVERRIDES paint initStyle)
expect_control(KELLineItem OVERRIDES paint initStyle)
expect_control(KELCheckBox OVERRIDES paint mousePressEvent onCheckedEvent initStyle)
expect_control(KELRadioBox OVERRIDES paint mousePressEvent onCheckedEvent)
expect_control(KELProcessBar OVERRIDES paint initStyle)
expect_control(KELSlideControl
    OVERRIDES timerEvent setboundRect paint mousePressEvent mouseMoveEvent initStyle)
expect_control(KELComboBox OVERRIDES setboundRect paint initStyle)
expect_derived(KELComboBoxItem KELPushButton setboundRect initStyle)
expect_control(KELNavigationTable OVERRIDES paint mousePressEvent initStyle NEW sceneEventFilter)
expect_control(KELNavigationTableItem OVERRIDES paint initStyle)
expect_slots(IKELValueConverter __cxa_pure_virtual __cxa_pure_virtual)
expect_slots(KELDefaultValueConverter
    KELDefaultValueConverter::Convert KELDefaultValueConverter::ConvertBack)

expect_derived(KELContentView QGraphicsView resizeEvent)
expect_derived(KELDialogBase QDialog)
expect_derived(KELNonModalDialog KELContentView showEvent)
expect_derived(KELNonModalhelper QObject timerEvent)
expect_derived(KELApplicationNotify QObject eventFilter)
expect_derived(KELDataBind QObject)
expect_derived(KELSideMenu QGraphicsView resizeEvent)

if(failed)
    message(FATAL_ERROR "the order of virtual functions has changed")
endif()
