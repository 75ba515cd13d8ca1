# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DGALLERY=... -DMANUAL=... -P CheckManual.cmake
#
# The manual page has the options that the program has.

execute_process(COMMAND ${GALLERY} --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)
file(READ ${MANUAL} manual)
string(REPLACE "\\-" "-" manual "${manual}")
string(REGEX MATCHALL "--[a-z]+(-[a-z]+)*" in_help "${help}")
string(REGEX MATCHALL "--[a-z]+(-[a-z]+)*" in_manual "${manual}")
foreach(list in_help in_manual)
    list(REMOVE_DUPLICATES ${list})
    list(SORT ${list})
endforeach()
list(LENGTH in_help count)
if(count LESS 5 OR NOT in_help STREQUAL in_manual)
    message(FATAL_ERROR "options of the program:\n  ${in_help}\nof ${MANUAL}:\n  ${in_manual}")
endif()
