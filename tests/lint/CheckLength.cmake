# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# FILE has at most MOST lines that are neither blank nor a comment.
file(STRINGS ${FILE} lines REGEX "[^ ]" ENCODING UTF-8)
list(FILTER lines EXCLUDE REGEX "^ *//")
list(LENGTH lines count)
if(count GREATER MOST)
    message(FATAL_ERROR "${FILE} has ${count} lines of code, more than ${MOST}")
endif()
