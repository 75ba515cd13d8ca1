#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Builds the Debian packages. See packaging/build-packages.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: packaging/build-packages.sh [--twice] [amd64] [arm64]

Builds the packages on Debian 12 (amd64), for both architectures unless one is named, and runs lintian,
which must report no errors and no warnings. The packages go to build/packages/ARCHITECTURE.

  --twice   build a second time, in another folder, time zone and language; every package must be
            identical, byte for byte

Does not run the tests: try-packages.sh runs them with the installed packages.
TEXT
}

twice=false
architectures=()
for argument in "$@"; do
    case $argument in
    -h | --help)
        usage
        exit 0
        ;;
    --twice) twice=true ;;
    amd64 | arm64) architectures+=("$argument") ;;
    *)
        echo "build-packages.sh: unknown argument '$argument' (see packaging/build-packages.sh --help)" >&2
        exit 2
        ;;
    esac
done
[ ${#architectures[@]} -gt 0 ] || architectures=(amd64 arm64)

# build ARCHITECTURE FOLDER: leaves the packages in FOLDER.
build() {
    local source=$2/kelgdicontrol profiles=nocheck
    [ "$1" = "$(dpkg --print-architecture)" ] || profiles+=" cross"
    mkdir -p "$source"
    tar -c --exclude=./build --exclude=./.git --exclude=./.cache . | tar -x -C "$source"
    cp -r packaging/debian "$source/debian"
    if ! (cd "$source" && DEB_BUILD_OPTIONS="nocheck parallel=$(nproc) ${DEB_BUILD_OPTIONS-}" \
        DEB_BUILD_PROFILES=$profiles dpkg-buildpackage --host-arch "$1" --build=binary --no-sign) \
        >"$2/build.log" 2>&1; then
        tail -n 60 "$2/build.log" >&2
        return 1
    fi
    rm -r "$source"
}

need "${package_packages[@]}"
[[ " ${architectures[*]} " != *" arm64 "* ]] || need "${package_arm64_packages[@]}"
mkdir -p build/packages
work=$(mktemp -d "$PWD/build/packages/work.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
for architecture in "${architectures[@]}"; do
    echo "== $architecture: building"
    build "$architecture" "$work/$architecture"
    echo "== $architecture: lintian"
    lintian --allow-root --fail-on error,warning --info --tag-display-limit 0 "$work/$architecture"/*.changes
    if $twice; then
        echo "== $architecture: building again"
        LC_ALL=C TZ=Asia/Tokyo build "$architecture" "$work/$architecture-again"
        for package in "$work/$architecture"/*.deb; do
            again=$work/$architecture-again/${package##*/}
            cmp "$package" "$again" || { diffoscope "$package" "$again" >&2 || true; exit 1; }
        done
        echo "== $architecture: the packages are identical"
    fi
    rm -rf "build/packages/$architecture"
    mv "$work/$architecture" "build/packages/$architecture"
    (cd "build/packages/$architecture" && du -b --apparent-size -- *.deb)
done
