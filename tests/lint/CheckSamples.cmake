# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# cmake -DPAGE=... -DSAMPLES=... -P CheckSamples.cmake
#
# All C++ in the page is that of files which the build compiles: each block is a file or whole lines
# of one, as they are or without the indentation of the body that they are in. All of the files are
# shown. SAMPLES is a list with commas.

file(READ ${PAGE} rest)
string(REPLACE "," ";" samples "${SAMPLES}")
set(unseen ${samples})
string(FIND "${rest}" "```cpp\n" begin)
while(NOT begin EQUAL -1)
    math(EXPR begin "${begin} + 7")
    string(SUBSTRING "${rest}" ${begin} -1 rest)
    string(FIND "${rest}" "```" end)
    string(SUBSTRING "${rest}" 0 ${end} shown)
    string(SUBSTRING "${rest}" ${end} -1 rest)
    set(is_compiled NO)
    foreach(sample IN LISTS samples)
        file(READ ${sample} code)
        string(REPLACE "\n    " "\n" body "${code}")
        string(FIND "${code}${body}" "\n${shown}" part)
        if(NOT part EQUAL -1)
            set(is_compiled YES)
            list(REMOVE_ITEM unseen ${sample})
        endif()
    endforeach()
    if(NOT is_compiled)
        message(FATAL_ERROR "${PAGE} shows C++ that is not compiled:\n${shown}")
    endif()
    string(FIND "${rest}" "```cpp\n" begin)
endwhile()
if(unseen)
    message(FATAL_ERROR "${PAGE} does not show ${unseen} as it is")
endif()
