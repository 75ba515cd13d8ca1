# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# Sourced by ./run, ./check and the scripts beside it: installs Debian packages that are missing.

export LC_ALL=C.UTF-8

build_packages=(g++ cmake ninja-build qtbase5-dev fonts-dejavu-core fonts-font-awesome)
check_packages=(dpkg-dev make pkgconf qt5-qmake xvfb xdotool reuse doxygen qhelpgenerator-qt5 python3 abigail-tools)
arm64_packages=(g++-aarch64-linux-gnu qemu-user-static qtbase5-dev:arm64)
# The tools, and what packaging/debian/control says for builds without tests.
package_packages=(build-essential debhelper dpkg-dev lintian cmake ninja-build qtbase5-dev doxygen qhelpgenerator-qt5)
package_arm64_packages=(crossbuild-essential-arm64 qtbase5-dev:arm64)
try_packages=(debootstrap)
try_arm64_packages=(binfmt-support qemu-user-static)
lint_packages=(clang-format clang-tidy clazy)
coverage_packages=(gcovr)
benchmark_packages=(python3 valgrind)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# is_installed NAME[:ARCHITECTURE]; without an architecture the package of this machine is meant, not
# another one that is installed beside it.
is_installed() {
    local name=${1%%:*} architectures
    case $1 in
    *:*) architectures=${1#*:} ;;
    *) architectures="$(dpkg --print-architecture)|all" ;;
    esac
    dpkg-query -W -f '${Package}:${Architecture} ${db:Status-Status}\n' "$name" 2>/dev/null \
        | grep -qxE "${name//+/\\+}:($architectures) installed"
}

# need PACKAGE...: installs what is missing, and asks no network when nothing is.
need() {
    local package missing=() apt=(env DEBIAN_FRONTEND=noninteractive apt-get)
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "These Debian packages are needed, and there is no apt-get here: ${missing[*]}" >&2
        return 1
    fi
    if [[ "${missing[*]}" == *:arm64* ]] && ! dpkg --print-foreign-architectures | grep -qx arm64; then
        as_root dpkg --add-architecture arm64
    fi
    echo "Installing: ${missing[*]}"
    as_root "${apt[@]}" update -q >/dev/null \
        && as_root "${apt[@]}" install -qy --no-install-recommends "${missing[@]}" >/dev/null
}
