#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Compares a library with the symbols file of the package. See packaging/check-symbols.sh --help.

set -euo pipefail
export LC_ALL=C.UTF-8
debian=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/debian

usage() {
    cat <<'TEXT'
Usage: packaging/check-symbols.sh [--update] LIBRARY

Fails if LIBRARY (a libKELGdiControl.so.1 or libKELGdiParts.so.1 for amd64 or arm64) lacks a symbol that
is listed in the symbols file of its package in packaging/debian, or exports one that is not.

  --update   add the new symbols to the file, with the version of packaging/debian/changelog. A missing
             symbol breaks applications: delete its line by hand, and only if it was never released.
TEXT
}

update=false
case ${1-} in
-h | --help)
    usage
    exit 0
    ;;
--update)
    update=true
    shift
    ;;
esac
if [ $# -ne 1 ]; then
    usage >&2
    exit 2
fi

case $(readelf -h "$1") in
*AArch64*) architecture=arm64 ;;
*X86-64*) architecture=amd64 ;;
*)
    echo "check-symbols.sh: $1: unsupported architecture, expected amd64 or arm64" >&2
    exit 1
    ;;
esac
library=$(readlink -f "$1")
soname=$(readelf -d "$library" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
package=${soname,,}
package=${package/.so./}
symbols=$debian/$package.symbols
if [ ! -f "$symbols" ]; then
    echo "check-symbols.sh: $1: its soname is '$soname', and there is no $symbols" >&2
    exit 1
fi
new=$(mktemp)
trap 'rm -f "$new"' EXIT
cd "$debian/.."
version=$(dpkg-parsechangelog -S Version)
# What is missing in the very version in which it came is not reported: when checking, name a later
# one.
$update || version+=+check
status=0
report=$(dpkg-gensymbols -t -c4 -a"$architecture" -p"$package" -v"$version" -I"$symbols" \
    -e"$library" -O"$new" 2>&1) || status=$?
if $update && [ -s "$new" ]; then
    # The offset in the name of a thunk is two pointers.
    sed 's/^ \(_ZTh\)/ (arch-bits=64)\1/' "$new" >"$symbols"
    exit 0
fi
[ "$status" -eq 0 ] || echo "$report" >&2
exit "$status"
