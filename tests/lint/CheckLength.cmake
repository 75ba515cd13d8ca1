# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# FILE has at most MOST lines that are neither blank nor a comment.
file(READ ${FILE} text)
string(REGEX REPLACE "[][;]" "_" text "\n${text}") # what lists are made of
string(REGEX REPLACE "\n *//[^\n]*" "" text "${text}")
string(REGEX MATCHALL "\n *[^ \n]" lines "${text}")
list(LENGTH lines count)
if(count GREATER MOST)
    message(FATAL_ERROR "${FILE} has ${count} lines of code, more than ${MOST}")
endif()
