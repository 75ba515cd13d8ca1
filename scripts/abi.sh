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

  --check    build the library, list the differences from tests/abi/KELGdiControl.abi, and fail if
             existing applications would no longer run
  --update   make the current library the baseline, and write docs/guide/layout.md

docs/guide/abi.md says what may change. ./check makes the same comparison for amd64 and arm64.
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

need "${build_packages[@]}" python3 abigail-tools
mkdir -p build
{ cmake --preset dev && cmake --build --preset dev --target KELGdiControl; } >build/abi.log 2>&1 \
    || { cat build/abi.log >&2; exit 1; }
tests/abi/abi "${1#--}" build/dev/src/libKELGdiControl.so
