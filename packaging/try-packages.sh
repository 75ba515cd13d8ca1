#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Tries the Debian packages. See packaging/try-packages.sh --help.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/setup.sh

usage() {
    cat <<'TEXT'
Usage: packaging/try-packages.sh amd64|arm64

Creates a minimal Debian 12 system, installs the packages from build/packages/ARCHITECTURE with apt, and
tries them: runs kelgdi-selftest, builds an application with CMake, pkg-config and qmake, and purges the
packages. Deletes the system afterwards. Needs root privileges and about 2 GB in build. arm64 runs under
emulation, for which the kernel needs binfmt_misc.

Environment:
  KEL_MIRROR   the Debian mirror, by default http://deb.debian.org/debian

Ends with "N passed, M failed".
TEXT
}

case ${1-} in
-h | --help)
    usage
    exit 0
    ;;
amd64) triplet=x86_64-linux-gnu ;;
arm64) triplet=aarch64-linux-gnu ;;
*)
    usage >&2
    exit 2
    ;;
esac
architecture=$1
packages=$PWD/build/packages/$architecture
mirror=${KEL_MIRROR:-http://deb.debian.org/debian}
if ! ls "$packages"/*.deb >/dev/null 2>&1; then
    echo "try-packages.sh: no packages in $packages; build them with packaging/build-packages.sh" >&2
    exit 1
fi
[ "$(id -u)" -eq 0 ] || exec sudo KEL_MIRROR="$mirror" "$PWD/packaging/try-packages.sh" "$@"

need "${try_packages[@]}"
if [ "$architecture" != "$(dpkg --print-architecture)" ]; then
    need "${try_arm64_packages[@]}"
    mountpoint -q /proc/sys/fs/binfmt_misc || mount -t binfmt_misc none /proc/sys/fs/binfmt_misc
    [ -e /proc/sys/fs/binfmt_misc/qemu-aarch64 ] || update-binfmts --enable qemu-aarch64
fi

folder=$(mktemp -d "$PWD/build/packages/try.XXXXXX")
log=$PWD/build/packages/try-$architecture.log
trap 'rm -rf --one-file-system "$folder" "$folder.output"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM
: >"$log"
passed=0
failed=0

# apart COMMAND...: in its own mount and process namespace. Its mounts and leftover processes end
# with it.
apart() {
    unshare --mount --propagation private --pid --fork --kill-child -- "$@"
}

# inside USER COMMAND...
inside() {
    # shellcheck disable=SC2016 # expanded by the inner shell
    apart bash -c 'mount --rbind /dev "$0/dev" && mount -t proc proc "$0/proc" && exec chroot "$0" "$@"' \
        "$folder" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 http_proxy="${http_proxy-}" \
        DEBIAN_FRONTEND=noninteractive runuser --user "$1" -- "${@:2}" </dev/null
}

# try WHAT COMMAND...: one test.
try() {
    local begin=$SECONDS
    echo "== $1" | tee -a "$log"
    "${@:2}" >"$folder.output" 2>&1 && local status=0 || local status=$?
    cat "$folder.output" >>"$log"
    if [ "$status" -eq 0 ]; then
        passed=$((passed + 1))
        echo "   passed ($((SECONDS - begin)) s)"
    else
        failed=$((failed + 1))
        tail -n 40 "$folder.output"
        echo "   FAILED ($((SECONDS - begin)) s)"
    fi
}

# installs NAME...: our packages from their files, others from Debian.
installs() {
    local name files=()
    for name in "$@"; do
        case $name in
        *kelgdi*) files+=("/packages/$(cd "$packages" && echo "$name"_*.deb)") ;;
        *) files+=("$name") ;;
        esac
    done
    inside root apt-get install -qy --no-install-recommends "${files[@]}"
}

selftest() {
    inside tester kelgdi-selftest "$@" >"$folder/selftest" 2>&1
    local status=$?
    cat "$folder/selftest"
    sed -n 's/^left out/   &/p; $s/^/   /p' "$folder/selftest" >&3
    return $status
}

nothing_remains() {
    inside root apt-get purge -qy '?name(kelgdi)' && ! find "$folder" -xdev -path "$folder/packages" -prune -o \
        -path "$folder/try" -prune -o -iname '*kelgdi*' -print | grep .
}

exec 3>&1
echo "== creating a minimal Debian 12"
chmod 755 "$folder"
apart debootstrap --arch="$architecture" --variant=minbase bookworm "$folder" "$mirror" >>"$log" 2>&1 || {
    tail -n 40 "$log"
    exit 1
}
echo force-unsafe-io >"$folder/etc/dpkg/dpkg.cfg.d/try"
mkdir "$folder/packages"
cp "$packages"/*.deb "$folder/packages"
cp -r tests/install "$folder/try"
inside root useradd --create-home tester
inside root apt-get update -q >>"$log" 2>&1

try "the self-test is installed" installs libkelgdicontrol1 libkelgdiparts1 kelgdi-gallery libkelgdicontrol-tests
try "the self-test passes" selftest
if [ "$architecture" = "$(dpkg --print-architecture)" ]; then
    try "Xvfb and xdotool are installed" installs xvfb xdotool
    try "the tests that need them pass" selftest '*-xcb' 'gallerypointer*'
fi
try "the development files are installed" installs libkelgdicontrol-dev libkelgdicontrol-doc \
    g++ cmake make ninja-build pkgconf
# builds LIBRARY WHAT: it is all that is installed.
builds() {
    local tool
    for tool in cmake pkgconfig qmake; do
        try "$2 builds with $tool" inside tester /try/consume.sh "$tool" /usr "lib/$triplet" \
            "/home/tester/$1-$tool" g++ "$1"
    done
}

builds KELGdiControl "an application"
try "the development files of the parts are installed" installs libkelgdiparts-dev
builds KELGdiParts "an application with parts"
try "nothing remains when the packages are purged" nothing_remains

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
