#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Uses the controls at random, under the sanitizers. See scripts/monkey.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

need "${build_packages[@]}"
mkdir -p build
{ cmake --preset asan && cmake --build --preset asan --target monkey; } >build/monkey.log 2>&1 \
    || { cat build/monkey.log >&2; exit 1; }
# As the tests, but without full call stacks of its millions of small blocks, which take too long.
export ASAN_OPTIONS=new_delete_type_mismatch=1:detect_leaks=1:max_free_fill_size=65536:free_fill_byte=254
export LSAN_OPTIONS=suppressions=$PWD/tests/shared/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
exec build/asan/tests/monkey/monkey "$@"
