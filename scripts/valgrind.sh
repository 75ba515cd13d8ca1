#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Runs the tests under memcheck. See scripts/valgrind.sh --help.

set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/valgrind.sh [NAME...]

Runs the unit tests of build/dev under valgrind's memcheck, two at a time, and fails on an error, on a block that is
definitely lost and on a failed test. NAME is that of a test in ctest; all by default, which takes about 15 minutes.
The test program must be built: ./check --valgrind builds it. The reports are in build/valgrind.
tests/shared/valgrind.supp lists what is ignored inside other libraries.

Left out are tests that need an X server or start other programs, which memcheck would not look into. The deletion
matrix, the binding fuzzer and the monkey run at a smaller size.
TEXT
}

# Tests whose subject is another program; kel_run_test() knows those that need QProcess.
processes='keldatabindexception|keldialogexit'

# run_one NAME PROGRAM [VARIABLE=VALUE...]
run_one() {
    local name=$1 program=$2 leaks=full result=0 begin=$SECONDS
    shift 2
    # A child of fork() has lost what the other threads held. The sanitizers of ./check look for its leaks.
    [ "$name" != deletionmatrix ] || leaks=no
    program=$(find "$PWD/build/dev" -type f -name "$program" -perm -u+x | head -n 1)
    # Valgrind does not understand what the regular expression compiler writes. A function takes more than the five
    # minutes that QtTest allows.
    env -C build/valgrind "$@" QT_ENABLE_REGEXP_JIT=0 QTEST_FUNCTION_TIMEOUT=3000000 KEL_MATRIX_CELLS=1000 KEL_FUZZ_SCRIPTS=500 \
        KEL_MONKEY_STEPS=900 \
        timeout 3000 valgrind --quiet --error-exitcode=99 --num-callers=40 \
        --leak-check=$leaks --show-leak-kinds=definite --errors-for-leak-kinds=definite \
        --gen-suppressions=all --suppressions="$PWD/tests/shared/valgrind.supp" \
        --log-file="$PWD/build/valgrind/$name.log" \
        "$program" >"build/valgrind/$name.txt" 2>&1 || result=$?
    case $result in
    0) result=passed ;;
    99) result="FAILED: see build/valgrind/$name.log" ;;
    124) result="FAILED: timeout" ;;
    *) result="FAILED: see build/valgrind/$name.txt" ;;
    esac
    echo "$name: $result ($((SECONDS - begin)) s)"
}
export -f run_one

case ${1-} in
-h | --help)
    usage
    exit 0
    ;;
esac
need "${valgrind_packages[@]}" || exit 1
mkdir -p build/valgrind
rm -f build/valgrind/*.log build/valgrind/*.txt

# A line of the list: name, program, what it needs followed by a comma, environment.
awk -v skip="^($processes)\$" '$3 == "," && $1 !~ skip { $3 = ""; print }' \
    build/dev/tests/tests.list >build/valgrind/tests
if [ $# -gt 0 ]; then
    mv build/valgrind/tests build/valgrind/all
    for name in "$@"; do
        grep "^$name " build/valgrind/all || { echo "valgrind.sh: no test '$name'" >&2; exit 2; }
    done >build/valgrind/tests
fi
[ -s build/valgrind/tests ] || { echo "valgrind.sh: no tests in build/dev" >&2; exit 2; }
xargs -P 2 -L 1 bash -c 'run_one "$@"' run_one <build/valgrind/tests | tee build/valgrind/results
# One that did not run at all has not passed, either.
[ "$(grep -c ': passed' build/valgrind/results)" -eq "$(wc -l <build/valgrind/tests)" ]
