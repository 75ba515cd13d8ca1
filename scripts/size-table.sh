#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Measures what the library costs before it does anything. See scripts/size-table.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

page=docs/guide/size.md

usage() {
    cat <<TEXT
Usage: scripts/size-table.sh [--update]

  (no option)  build the library as released, for amd64 and arm64, and print a table: stripped size,
               relocations, dynamic symbols, functions that run when it is loaded
  --update     write the table into $page
TEXT
}

case ${1-} in
-h | --help)
    usage
    exit 0
    ;;
'' | --update) ;;
*)
    usage >&2
    exit 2
    ;;
esac

# build ARCHITECTURE CMAKE-ARGUMENT...
build() {
    local directory=build/size-$1
    shift
    mkdir -p build
    { cmake --preset release -B "$directory" -DKEL_BUILD_GALLERY=OFF "$@" \
        && cmake --build "$directory" --target KELGdiControl; } >"$directory.log" 2>&1 \
        || { cat "$directory.log" >&2; exit 1; }
}

library() {
    echo "build/size-$1/src/libKELGdiControl.so"
}

stripped_size() {
    local strip=strip
    [ "$1" = amd64 ] || strip=aarch64-linux-gnu-strip
    "$strip" -o "build/size-$1/stripped.so" "$(library "$1")"
    stat -c %s "build/size-$1/stripped.so"
}

# relocations ARCHITECTURE KIND: R_AARCH64_RELATIVE and so on, by the end of the name.
relocations() {
    readelf -Wr "$(library "$1")" | awk -v kind="$2" '$3 ~ "^R_.*_(" kind ")$" { count++ } END { print count + 0 }'
}

exported() {
    nm -D --defined-only "$(library "$1")" | wc -l
}

needed() {
    nm -D --undefined-only "$(library "$1")" | wc -l
}

# initialisers ARCHITECTURE: the functions in .init_array, by the relocations that fill it.
initialisers() {
    local start size file
    file=$(library "$1")
    read -r start size < <(readelf -WS "$file" | sed -nE 's/.* INIT_ARRAY +([0-9a-f]+) [0-9a-f]+ ([0-9a-f]+).*/\1 \2/p')
    readelf -Wr "$file" | while read -r offset _ kind addend; do
        case $kind in
        R_*_RELATIVE)
            if ((16#$offset >= 16#$start && 16#$offset < 16#$start + 16#$size)); then
                nm -C "$file" | awk -v address="$(printf '%016x' "$((16#$addend))")" \
                    '$1 == address && $2 ~ /[tT]/ && $3 !~ /^\$/ { print $3 }'
            fi
            ;;
        esac
    done
}

# row TEXT FUNCTION ARGUMENT...
row() {
    local text=$1 function=$2
    shift 2
    echo "| $text | $("$function" amd64 "$@") | $("$function" arm64 "$@") |"
}

count_initialisers() {
    initialisers "$1" | wc -l
}

table() {
    echo "| Release | amd64 | arm64 |"
    echo "|---------|------:|------:|"
    row "stripped, bytes" stripped_size
    row "relocations without a symbol (RELATIVE)" relocations RELATIVE
    row "relocations with a symbol, data (64, ABS64, GLOB_DAT)" relocations '64|ABS64|GLOB_DAT'
    row "relocations with a symbol, calls (JUMP_SLOT), bound on the first call" relocations JUMP_SLOT
    row "dynamic symbols, exported" exported
    row "dynamic symbols, needed" needed
    row "functions that run when it is loaded (.init_array)" count_initialisers
    for architecture in amd64 arm64; do
        echo
        echo "On $architecture these are:"
        initialisers "$architecture" | sed 's/.*/`&`,/; $ s/,$/./'
    done
}

need "${build_packages[@]}" "${arm64_packages[@]}"
build amd64
build arm64 -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/aarch64-linux-gnu.cmake"
if [ "${1-}" = --update ]; then
    table >build/size-table.md
    sed -i -e '/^<!-- begin -->$/,/^<!-- end -->$/ { /^<!-- begin -->$/r build/size-table.md
        /^<!-- /!d }' "$page"
else
    table
fi
