#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Builds and runs the benchmarks. See scripts/benchmark.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/benchmark.sh [--clock-only | --quick | --record]

  (nothing)      counts the instructions of every benchmark under valgrind, and takes the time; fails when a
                 limit in tests/benchmarks/limits.json is exceeded
  --clock-only   takes the time only: needs no valgrind, and checks no limits
  --quick        counts only paint, construction and binding; fails when one is worse by more than 3 % than
                 tests/benchmarks/recorded.json says
  --record       as --quick, but writes recorded.json

Rows of Qt Quick are filled where qtdeclarative5-dev, qml-module-qtquick2 and qml-module-qtquick-controls2 are
installed.
TEXT
}

case ${1-} in
-h | --help)
    usage
    exit 0
    ;;
'' | --quick | --record) need "${build_packages[@]}" "${benchmark_packages[@]}" ;;
--clock-only) need "${build_packages[@]}" python3 ;;
*)
    echo "benchmark.sh: unknown option '$1' (see scripts/benchmark.sh --help)" >&2
    exit 2
    ;;
esac

mkdir -p build
{ cmake --preset benchmark && cmake --build --preset benchmark; } >build/benchmark.log 2>&1 \
    || { cat build/benchmark.log >&2; exit 1; }
tests/benchmarks/benchmarks "$@" build/benchmark/tests/benchmarks
