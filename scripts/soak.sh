#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Repeats what applications do, and says what it leaves behind. See scripts/soak.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/soak.sh [--rounds N] [--list] [WHAT...]

Creates, uses and deletes controls, dialogs, panels, menus and bindings, 50,000 times each, and prints a table of what
has grown since a warm-up. Fails if a round leaves more than 4 bytes of allocated memory, or if the number of objects,
event filters of the application, timers, connections, windows or items changes, or if Qt warns. RSS is for information.
Takes about an hour, mostly waiting; ./check has a short run.

  --rounds N   rounds of each
  --list       list what there is
  WHAT         a name from the list, or the part before a hyphen: combobox; all by default
TEXT
}

case ${1-} in
-h | --help)
    usage
    exit 0
    ;;
esac
need "${build_packages[@]}"
build_or_exit soak dev --target soak
QT_QPA_PLATFORM=offscreen exec build/dev/tests/soak/soak "$@"
