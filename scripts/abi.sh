#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Guards the binary interface. See scripts/abi.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/abi.sh --check | --update

  --check    list the differences from tests/abi/interface.txt and parts.txt and from the symbols
             files of the packages, and fail if there are any
  --update   make the current headers the baseline: write these files and docs/guide/layout.md

docs/guide/abi.md says what may change. ./check makes the same comparisons for amd64 and arm64.
TEXT
}

case ${1-} in
--check | --update) ;;
-h | --help)
    usage
    exit 0
    ;;
*)
    usage >&2
    exit 2
    ;;
esac

need "${build_packages[@]}" dpkg-dev python3
build_or_exit abi dev --target KELGdiControl KELGdiParts kel_interface kel_parts_interface
status=0
objects=build/dev/tests/abi/CMakeFiles
tests/abi/abi "${1#--}" interface $objects/kel_interface.dir/interface.cpp.o || status=1
tests/abi/abi "${1#--}" parts $objects/kel_parts_interface.dir/parts.cpp.o || status=1
option=()
[ "$1" = --check ] || option=(--update)
for library in src/libKELGdiControl.so parts/libKELGdiParts.so; do
    packaging/check-symbols.sh "${option[@]}" build/dev/$library || status=1
done
exit $status
