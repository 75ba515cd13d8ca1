#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Saves pictures of all parts in all states. See scripts/pictures.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/pictures.sh [--sheet NAME] [--quick] [FOLDER]

Draws all parts and controls in all states, in each scheme, at 480 x 272, 800 x 480, 480 x 800 and 1280 x 800, from left
to right and from right to left, and saves the pictures in FOLDER, by default build/pictures. A name tells sheet, scheme,
size, direction and page. Fails if nothing is to be seen of a state, or the same as of another one.

  --sheet NAME   only the sheets whose names begin with NAME, such as row, list or controls
  --quick        only 800 x 480, each scheme once, as ctest does without saving
TEXT
}

arguments=()
folder=build/pictures
while [ $# -gt 0 ]; do
    case $1 in
    -h | --help)
        usage
        exit 0
        ;;
    --sheet)
        arguments+=(--sheet "${2?}")
        shift 2
        ;;
    --quick)
        arguments+=(--quick)
        shift
        ;;
    -*)
        usage >&2
        exit 2
        ;;
    *)
        folder=$1
        shift
        ;;
    esac
done
need "${build_packages[@]}"
build_or_exit pictures dev --target pictures
QT_QPA_PLATFORM=offscreen build/dev/tests/pictures/pictures "${arguments[@]}" "$folder"
echo "saved in $folder"
