# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DPAGE=... -DSAMPLES=... -P CheckSamples.cmake
#
# The C++ in the page is, block for block, the files that the build compiles, or a part of the body
# of a class there. SAMPLES is a list with commas.

file(READ ${PAGE} rest)
string(REPLACE "," ";" samples "${SAMPLES}")
foreach(sample IN LISTS samples)
    string(FIND "${rest}" "```cpp\n" begin)
    if(begin EQUAL -1)
        message(FATAL_ERROR "${PAGE} does not show ${sample}")
    endif()
    math(EXPR begin "${begin} + 7")
    string(SUBSTRING "${rest}" ${begin} -1 rest)
    string(FIND "${rest}" "```" end)
    string(SUBSTRING "${rest}" 0 ${end} shown)
    string(SUBSTRING "${rest}" ${end} -1 rest)
    file(READ ${sample} code)
    string(REGEX REPLACE "^(//[^\n]*\n)+\n" "" code "${code}")
    string(REPLACE "\n    " "\n" body "${code}")
    string(FIND "${body}" "\n${shown}" part)
    if(NOT shown STREQUAL code AND part EQUAL -1)
        message(FATAL_ERROR "${PAGE} does not show ${sample} as it is")
    endif()
endforeach()
string(FIND "${rest}" "```cpp\n" begin)
if(NOT begin EQUAL -1)
    message(FATAL_ERROR "${PAGE} shows C++ that is not compiled")
endif()
