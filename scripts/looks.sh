#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Compares pictures with and without kept looks. See scripts/looks.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/looks.sh [--seed N] [--records N] [--scenes N] [--arm64]

Paints random controls on random targets, and scenes of them in a view, once with kept looks and once without
(KEL_NO_KEPT_LOOKS), and compares every picture, the painter afterwards, and the bytes of QPicture and QPdfWriter. Says
how many shapes were given back instead of drawn. A difference fails: the first case is named, and its last picture is
saved both ways in the top folder of the tree. ./check has a short run.

  --seed N     the seed of the run, default 1
  --records N  how many records, each painted three to five times, default 500000
  --scenes N   how many scenes, default 1000
  --arm64      the arm64 build under emulation; by default 20000 records and 50 scenes
TEXT
}

preset=dev
packages=("${build_packages[@]}")
size=(--records 500000 --scenes 1000)
command=()
arguments=()
while [ $# -gt 0 ]; do
    case $1 in
    -h | --help)
        usage
        exit 0
        ;;
    --arm64)
        preset=arm64
        packages+=("${arm64_packages[@]}")
        size=(--records 20000 --scenes 50)
        command=(qemu-aarch64-static)
        shift
        ;;
    --seed | --records | --scenes)
        arguments+=("$1" "${2?}")
        shift 2
        ;;
    *)
        usage >&2
        exit 2
        ;;
    esac
done
need "${packages[@]}"
build_or_exit looks "$preset" --target looks
exec tests/looks/compare.sh "${command[@]}" "build/$preset/tests/looks/looks" "${size[@]}" "${arguments[@]}"
