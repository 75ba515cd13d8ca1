# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# Compiler settings for everything built here. Consumers of the library see none of them.

add_library(kel_compiler INTERFACE)
target_compile_features(kel_compiler INTERFACE cxx_std_17)
target_compile_definitions(kel_compiler INTERFACE
    QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS
    QT_DISABLE_DEPRECATED_BEFORE=0x050f00)
target_compile_options(kel_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual -Wcast-align
    -Wundef -Wdouble-promotion
    -ffp-contract=off # one result on every processor, with or without fused multiply-add
    $<$<BOOL:${KEL_WERROR}>:-Werror>)

if(KEL_SANITIZE OR KEL_FUZZ)
    set(sanitizers -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    if(KEL_FUZZ)
        # Tells libFuzzer which code an input reaches.
        list(APPEND sanitizers -fsanitize=fuzzer-no-link)
    endif()
    target_compile_options(kel_compiler INTERFACE ${sanitizers})
    target_link_options(kel_compiler INTERFACE ${sanitizers})
endif()

if(KEL_COVERAGE)
    target_compile_options(kel_compiler INTERFACE --coverage -O0 -fno-inline)
    target_link_options(kel_compiler INTERFACE --coverage)
endif()
