#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Tries the library with inputs that libFuzzer makes up. See scripts/fuzz.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/fuzz.sh [--seconds N] [--merge] [TARGET...]

Builds the library with coverage feedback and sanitizers, and runs each target with libFuzzer, one after the other.
Prints executions, new entries of the corpus and findings. Fails if there is a finding.

  --seconds N   how long each target runs, 600 by default; 0 runs none
  --merge       afterwards reduce tests/fuzz/corpus/TARGET to the smallest files that reach the same code
  TARGET        the name of a folder in tests/fuzz/corpus; all by default

A finding is kept in build/fuzz/findings. To try it again, run build/fuzz/tests/fuzz/fuzz_TARGET FILE. Copy it to
tests/fuzz/corpus/TARGET: tst_fuzzcorpus fails with it until the defect is mended. A finding of the monkey is a script:
tst_monkey plays what is in tests/monkey/scripts.
TEXT
}

seconds=600
merge=
targets=()
while [ $# -gt 0 ]; do
    case $1 in
    -h | --help)
        usage
        exit 0
        ;;
    --seconds)
        seconds=${2-}
        if [[ ! $seconds =~ ^[0-9]+$ ]]; then
            echo "fuzz.sh: --seconds needs a whole number" >&2
            exit 2
        fi
        shift
        ;;
    --merge) merge=1 ;;
    -*)
        echo "fuzz.sh: unknown option '$1' (see scripts/fuzz.sh --help)" >&2
        exit 2
        ;;
    *)
        if [ ! -f "tests/fuzz/$1.cpp" ] || [ ! -d "tests/fuzz/corpus/$1" ]; then
            echo "fuzz.sh: no target '$1'" >&2
            exit 2
        fi
        targets+=("$1")
        ;;
    esac
    shift
done
if [ ${#targets[@]} -eq 0 ]; then
    for folder in tests/fuzz/corpus/*/; do
        targets+=("$(basename "$folder")")
    done
fi

need "${build_packages[@]}" "${fuzz_packages[@]}"
echo "== building"
build_or_exit fuzz fuzz

# Leaks are looked for once, at the end: after each input takes too long.
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=1:new_delete_type_mismatch=1:fast_unwind_on_malloc=1
export LSAN_OPTIONS=suppressions=$PWD/tests/shared/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
# Memory that an input leaves dirty must not decide what the next one does.
export MALLOC_PERTURB_=165
limits=(-max_len=2048 -timeout=20 -rss_limit_mb=2048 -detect_leaks=0)

count() {
    find "$1" -type f | wc -l
}

# statistic LOG NAME: a number that libFuzzer printed at the end.
statistic() {
    sed -n "s/^stat::$2: *//p" "$1" | tail -n 1
}

root=$PWD
findings=0
for target in "${targets[@]}"; do
    program=$root/build/fuzz/tests/fuzz/fuzz_$target
    kept=$root/tests/fuzz/corpus/$target
    grown=$root/build/fuzz/corpus/$target
    found=$root/build/fuzz/findings/$target
    log=$root/build/fuzz/$target.log
    mkdir -p "$grown" "$found"
    cd "$found" # pictures of what differs are saved there
    if [ "$seconds" -gt 0 ]; then
        before=$(count "$grown")
        status=0
        "$program" "${limits[@]}" -max_total_time="$seconds" -print_final_stats=1 \
            -artifact_prefix="$found/" "$grown" "$kept" >"$log" 2>&1 || status=$?
        printf '== %-10s %8s executions, %5s per second, %4d new corpus entries, %s\n' "$target" \
            "$(statistic "$log" number_of_executed_units)" "$(statistic "$log" average_exec_per_sec)" \
            $(($(count "$grown") - before)) "$([ $status -eq 0 ] && echo "no finding" || echo "A FINDING")"
        if [ $status -ne 0 ]; then
            findings=$((findings + 1))
            grep -vE '^(#[0-9]+\s+(NEW|REDUCE|pulse|RELOAD)|INFO:|stat::)' "$log" | tail -n 40 || true
            input=$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)
            again="QT_QPA_PLATFORM=offscreen $program $input"
            if [ -n "$input" ]; then
                echo "   again:   $again"
                if [ "$target" = monkey ]; then
                    echo "   as test: KEL_FUZZ_TRACE=1 $again prints a script for tests/monkey/scripts"
                else
                    echo "   as test: cp $input $kept/"
                fi
            fi
        fi
    fi
    if [ -n "$merge" ]; then
        merged=$root/build/fuzz/merged/$target
        # What reaches the same code more often counts only while it does not take too many files.
        for counters in 1 0; do
            rm -rf "$merged"
            mkdir -p "$merged"
            "$program" "${limits[@]}" -use_counters=$counters -set_cover_merge=1 "$merged" "$kept" "$grown" \
                >"$log.merge" 2>&1 || { tail -n 40 "$log.merge" >&2; exit 1; }
            [ "$(count "$merged")" -gt 60 ] || break
        done
        [ "$(count "$merged")" -gt 0 ] || { echo "fuzz.sh: nothing is left of $target" >&2; exit 1; }
        before=$(count "$kept")
        rm -f "$kept"/*
        cp "$merged"/* "$kept"/
        printf '== %-10s %d files in %s, there were %d\n' "$target" "$(count "$kept")" "$kept" "$before"
    fi
done
[ $findings -eq 0 ]
