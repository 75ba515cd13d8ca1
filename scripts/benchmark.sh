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

  (no option)    count the instructions of every benchmark under valgrind, and measure the time; fails if a
                 limit in tests/benchmarks/limits.json is exceeded
  --clock-only   measure the time only: needs no valgrind, and checks no limits
  --quick        count paint, construction and binding only; fails if a ratio is more than 3% worse than in
                 tests/benchmarks/recorded.json
  --record       like --quick, but write recorded.json

The Qt Quick rows need qtdeclarative5-dev, qml-module-qtquick2, qml-module-qtquick-window2 and
qml-module-qtquick-controls2; without these packages the rows stay empty.
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

build_or_exit benchmark benchmark
tests/benchmarks/benchmarks "$@" build/benchmark/tests/benchmarks
