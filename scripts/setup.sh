# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Sourced by ./run, ./check and the scripts beside it: installs Debian packages that are missing.

export LC_ALL=C.UTF-8

build_packages=(g++ cmake ninja-build qtbase5-dev qttools5-dev-tools fonts-dejavu-core fonts-font-awesome)
check_packages=(dpkg-dev make pkgconf qt5-qmake xvfb xdotool reuse doxygen qhelpgenerator-qt5 python3)
arm64_packages=(g++-aarch64-linux-gnu qemu-user-static qtbase5-dev:arm64)
# The tools, and the build dependencies of packaging/debian/control without those of the tests.
package_packages=(build-essential debhelper dpkg-dev lintian cmake ninja-build qtbase5-dev qttools5-dev-tools doxygen qhelpgenerator-qt5)
package_arm64_packages=(crossbuild-essential-arm64 qtbase5-dev:arm64)
try_packages=(debootstrap)
try_arm64_packages=(binfmt-support qemu-user-static)
lint_packages=(clang-format clang-tidy clazy)
mutant_packages=(python3-clang-14)
fuzz_packages=(clang libclang-rt-dev)
picture_packages=(graphviz python3)
coverage_packages=(gcovr)
benchmark_packages=(python3 valgrind)
valgrind_packages=(valgrind libc6-dbg)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# is_installed NAME[:ARCHITECTURE]: by default for the architecture of this machine, not for another
# one that is installed side by side.
is_installed() {
    local name=${1%%:*} architectures
    case $1 in
    *:*) architectures=${1#*:} ;;
    *) architectures="$(dpkg --print-architecture)|all" ;;
    esac
    dpkg-query -W -f '${Package}:${Architecture} ${db:Status-Status}\n' "$name" 2>/dev/null \
        | grep -qxE "${name//+/\\+}:($architectures) installed"
}

# need PACKAGE...: installs missing packages; uses no network if none is missing.
need() {
    local package missing=() apt=(env DEBIAN_FRONTEND=noninteractive apt-get)
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "Missing Debian packages, and no apt-get to install them: ${missing[*]}" >&2
        return 1
    fi
    if [[ "${missing[*]}" == *:arm64* ]] && ! dpkg --print-foreign-architectures | grep -qx arm64; then
        as_root dpkg --add-architecture arm64
    fi
    echo "Installing: ${missing[*]}"
    as_root "${apt[@]}" update -q >/dev/null \
        && as_root "${apt[@]}" install -qy --no-install-recommends "${missing[@]}" >/dev/null
}

# build_or_exit NAME PRESET [ARGUMENT...]: configures and builds, with arguments for cmake --build. What it prints is in
# build/NAME.log, and shown only if it fails.
build_or_exit() {
    local log=build/$1.log preset=$2
    shift 2
    mkdir -p build
    { cmake --preset "$preset" && cmake --build --preset "$preset" "$@"; } >"$log" 2>&1 || {
        cat "$log" >&2
        exit 1
    }
}
