#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Uses the controls at random, under the sanitizers. See scripts/monkey.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

case ${1-} in
-h | --help)
    cat <<'TEXT'
Usage: scripts/monkey.sh [--seed N] [--steps N] [--seconds N] [--chunk N] [--print N] [--script FILE] [--shrink] [--verbs]

Builds the monkey with the sanitizers, and runs it: it uses scenes with all controls at random, and checks what the
reference promises. A run that fails is shrunk to a short script, which is printed and saved in the top folder of the tree.

  --seed N       the seed of the run, default 1
  --steps N      how many steps, default 30000
  --seconds N    stop after that time
  --chunk N      play only this chunk (300 steps) of the seed, print it if it fails, and shrink it
  --print N      print this chunk of the seed
  --script FILE  play this script instead; a relative path starts at the top folder of the tree
  --shrink       shrink the script of --script, if it fails
  --verbs        list the verbs of scripts, with their arguments
TEXT
    exit 0
    ;;
esac
need "${build_packages[@]}"
build_or_exit monkey asan --target monkey
# As for the tests, but without full call stacks for millions of small blocks, which would take too long.
export ASAN_OPTIONS=new_delete_type_mismatch=1:detect_leaks=1:max_free_fill_size=65536:free_fill_byte=254
export LSAN_OPTIONS=suppressions=$PWD/tests/shared/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
exec build/asan/tests/monkey/monkey "$@"
