#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Checks or draws the picture of docs/architecture.md. See scripts/architecture.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: scripts/architecture.sh --check | --update

  --check    list the includes in src and include that break a rule of docs/architecture.md, and the
             differences between its picture and the includes; fail if there are any
  --update   draw docs/images/architecture.svg

./check makes the same check.
TEXT
}

case ${1-} in
--check) need python3 ;;
--update) need "${picture_packages[@]}" ;;
-h | --help)
    usage
    exit 0
    ;;
*)
    usage >&2
    exit 2
    ;;
esac

tests/lint/architecture "${1#--}"
