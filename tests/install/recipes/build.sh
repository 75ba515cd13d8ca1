#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# build.sh yocto|buildroot VERSION DIRECTORY
#
# Builds and installs the library for aarch64 in DIRECTORY as the recipe and that system do: with
# its toolchain file, its variables, its folders for what belongs to the host and to the target, and
# no other tools. There is no network where that can be had, and what belongs to the target cannot
# be run.

set -euo pipefail
system=$1 version=$2 directory=$3
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source=$(cd "$here/../../.." && pwd)
triplet=aarch64-linux-gnu

fail() {
    echo "build.sh: $*" >&2
    exit 1
}

# Should the kernel hand programs of the target to an emulator, that one ends at once.
export QEMU_CPU=none

if [ -z "${KEL_IS_OFFLINE-}" ]; then
    rm -rf "$directory"
    mkdir -p "$directory"
    for offline in "unshare -n" "unshare -rn"; do
        if $offline true 2>/dev/null; then
            KEL_IS_OFFLINE=1 exec $offline "$0" "$@"
        fi
    done
    echo "the network cannot be taken away here"
fi
cd "$directory"

# --- what both systems have: tools of the host, files of the target -----------------------------------------------

# host_tools FOLDER: what may be called, and nothing else.
host_tools() {
    local tool
    mkdir -p "$1/qt5"
    for tool in bash cat chmod cmake cp echo env install ld ln make mkdir mv ninja rm sed sh touch true uname \
        $triplet-{ar,as,g++,gcc,ld,nm,objcopy,objdump,ranlib,readelf,strip}; do
        ln -s "$(command -v "$tool")" "$1/$tool"
    done
    for tool in moc rcc uic qmake; do
        ln -s "/usr/lib/qt5/bin/$tool" "$1/qt5/$tool"
    done
}

# target_files FOLDER HOST_BINARIES: Qt's headers, libraries and CMake packages where both systems
# have them, and no program of Qt. HOST_BINARIES is where its CMake packages look for those.
target_files() {
    local usr=$1/usr
    mkdir -p "$usr/lib/cmake" "$usr/lib/qt5" "$usr/include"
    ln -s usr/lib "$1/lib"
    ln -s /usr/lib/$triplet/lib*.so* "$usr/lib"
    ln -s /usr/lib/$triplet/qt5/{mkspecs,plugins} "$usr/lib/qt5"
    ln -s /usr/include/$triplet/qt5 /usr/include/{EGL,GL,KHR} "$usr/include"
    cp -r /usr/lib/$triplet/cmake/Qt5* "$usr/lib/cmake"
    sed -i -e "s,lib/$triplet/,lib/,g; s,include/$triplet/,include/,g; s,/lib/$triplet\",/lib\",g" \
        -e 's,\${CMAKE_CURRENT_LIST_DIR}/../../../../",${CMAKE_CURRENT_LIST_DIR}/../../..",' \
        -e "s,\"[^\"]*/qt5/bin/,\"$2/," "$usr"/lib/cmake/*/*.cmake
    sed -i "s,\"[^\"]*/lib/qt5/bin,\"$2," "$usr"/lib/cmake/*/*.cmake
}

# --- Yocto: oe-core's cmake.bbclass and meta-qt5's cmake_qt5.bbclass ----------------------------------------------

# recipe_value NAME: what the recipe assigns to NAME.
recipe_value() {
    sed -n "s/^$(printf '%s' "$1" | sed 's/[][]/\\&/g') ?*= \"\(.*\)\"\$/\1/p" "$recipe"
}

# package_config NAME ON|OFF: the CMake arguments of a PACKAGECONFIG entry.
package_config() {
    local value
    value=$(recipe_value "PACKAGECONFIG[$1]")
    case $2 in
    ON) echo "${value%%,*}" ;;
    OFF) value=${value#*,} && echo "${value%%,*}" ;;
    esac
}

yocto_configure() { # BUILD ON|OFF
    local build=$1 native=$directory/recipe-sysroot-native sysroot=$directory/recipe-sysroot flags link qt
    flags="-mcpu=cortex-a53 -march=armv8-a+crc -fstack-protector-strong -O2 -D_FORTIFY_SOURCE=2 -Wformat"
    flags="$flags -Wformat-security --sysroot=$sysroot -pipe"
    link="--sysroot=$sysroot -Wl,-O1 -Wl,--hash-style=gnu -Wl,--as-needed -Wl,-z,relro,-z,now"
    cat >"$directory/toolchain.cmake" <<TEXT
set( CMAKE_SYSTEM_NAME Linux )
set( CMAKE_SYSTEM_PROCESSOR aarch64 )
set( CMAKE_C_COMPILER $triplet-gcc )
set( CMAKE_CXX_COMPILER $triplet-g++ )
set( CMAKE_ASM_COMPILER $triplet-gcc )
find_program( CMAKE_AR $triplet-ar DOC "Archiver" REQUIRED )

set( CMAKE_C_FLAGS "$flags" CACHE STRING "CFLAGS" )
set( CMAKE_CXX_FLAGS "$flags -fvisibility-inlines-hidden" CACHE STRING "CXXFLAGS" )
set( CMAKE_C_FLAGS_RELEASE "-DNDEBUG" CACHE STRING "Additional CFLAGS for release" )
set( CMAKE_CXX_FLAGS_RELEASE "-DNDEBUG" CACHE STRING "Additional CXXFLAGS for release" )
set( CMAKE_C_LINK_FLAGS "$link" CACHE STRING "LDFLAGS" )
set( CMAKE_CXX_LINK_FLAGS "$link" CACHE STRING "LDFLAGS" )

set( CMAKE_FIND_ROOT_PATH $sysroot $native )
set( CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY )
set( CMAKE_FIND_ROOT_PATH_MODE_PROGRAM ONLY )
set( CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY )
set( CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY )
set( CMAKE_PROGRAM_PATH "/" )

set( ENV{QT_CONF_PATH} $directory/qt.conf )
set( CMAKE_INSTALL_RPATH  )
set( CMAKE_BUILD_RPATH_USE_ORIGIN ON )
list(APPEND CMAKE_MODULE_PATH "$sysroot/usr/share/cmake/Modules/")
set( CMAKE_LIBRARY_PATH /usr/lib /lib)
list(APPEND CMAKE_C_IMPLICIT_INCLUDE_DIRECTORIES /usr/include)
list(APPEND CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES /usr/include)
TEXT
    qt="-DOE_QMAKE_PATH_PREFIX=/usr -DOE_QMAKE_PATH_HEADERS=/usr/include/qt5 -DOE_QMAKE_PATH_LIBS=/usr/lib
        -DOE_QMAKE_PATH_ARCHDATA=/usr/lib -DOE_QMAKE_PATH_BINS=/usr/bin
        -DOE_QMAKE_PATH_HOST_PREFIX=$native -DOE_QMAKE_PATH_HOST_BINS=/usr/bin/qt5
        -DOE_QMAKE_PATH_EXTERNAL_HOST_BINS=$native/usr/bin/qt5"
    # shellcheck disable=SC2046,SC2086
    cmake -G Ninja -DCMAKE_MAKE_PROGRAM=ninja -S "$source" -B "$build" \
        -DCMAKE_INSTALL_PREFIX:PATH=/usr -DCMAKE_INSTALL_BINDIR:PATH=bin -DCMAKE_INSTALL_SBINDIR:PATH=sbin \
        -DCMAKE_INSTALL_LIBEXECDIR:PATH=libexec -DCMAKE_INSTALL_SYSCONFDIR:PATH=/etc \
        -DCMAKE_INSTALL_SHAREDSTATEDIR:PATH=../com -DCMAKE_INSTALL_LOCALSTATEDIR:PATH=/var \
        -DCMAKE_INSTALL_LIBDIR:PATH=lib -DCMAKE_INSTALL_INCLUDEDIR:PATH=include \
        -DCMAKE_INSTALL_DATAROOTDIR:PATH=share -DLIB_SUFFIX= -DCMAKE_INSTALL_SO_NO_EXE=0 \
        -DCMAKE_TOOLCHAIN_FILE="$directory/toolchain.cmake" -DCMAKE_NO_SYSTEM_FROM_IMPORTED=1 \
        -DCMAKE_EXPORT_NO_PACKAGE_REGISTRY=ON -DFETCHCONTENT_FULLY_DISCONNECTED=ON \
        $qt $(recipe_value EXTRA_OECMAKE) $(package_config parts ON) $(package_config gallery "$2") \
        $(package_config tests "$2") -Wno-dev
}

yocto() {
    recipe=$source/packaging/yocto/recipes-qt/kelgdicontrol/kelgdicontrol_$version.bb
    [ -f "$recipe" ] || fail "there is no $recipe"
    local license=${source}/LICENSES/MIT.txt
    [ "$(recipe_value LIC_FILES_CHKSUM)" = "file://LICENSES/MIT.txt;md5=$(md5sum <"$license" | cut -d ' ' -f 1)" ] \
        || fail "LIC_FILES_CHKSUM is not that of the licence"

    host_tools "$directory/recipe-sysroot-native/usr/bin"
    target_files "$directory/recipe-sysroot" "\${OE_QMAKE_PATH_EXTERNAL_HOST_BINS}"
    export PATH=$directory/recipe-sysroot-native/usr/bin
    cannot_run_target
    ln -s /usr/bin/doxygen recipe-sysroot-native/usr/bin # what it makes is in a package
    yocto_configure "$directory/everything" ON >everything.log 2>&1 || { cat everything.log; fail "configuring"; }
    options_are_known everything.log
    would_install everything
    PATH=/usr/bin:/bin "$here/split-packages" "$recipe" everything.list || fail "the packages are wrong"
    rm recipe-sysroot-native/usr/bin/doxygen
    yocto_configure "$directory/build" OFF >configure.log 2>&1 || { cat configure.log; fail "configuring"; }
    options_are_known configure.log
    cmake --build build --target all
    DESTDIR=$directory/image cmake --build build --target install
    installed image
    would_install build
    if ! diff <(sort build.list) <(cd image && find . -not -type d | sed 's,^\.,,' | sort); then
        fail "the lists of what is installed are not to be trusted"
    fi
}

# --- Buildroot: toolchainfile.cmake and pkg-cmake.mk ----------------------------------------------------------------

buildroot_configure() { # BUILD y|n
    local build=$1 host=$directory/host options
    options=$(PATH=/usr/bin:/bin make -s -f - PACKAGE="$package/kelgdicontrol.mk" \
        BR2_PACKAGE_KELGDICONTROL_PARTS=y BR2_PACKAGE_KELGDICONTROL_GALLERY="$2" \
        BR2_PACKAGE_KELGDICONTROL_TESTS="$2" print <<'TEXT'
qstrip = $(strip $(subst ",,$(1)))
cmake-package = # nothing: the variables are what counts
include $(PACKAGE)
print:
	@echo '$(KELGDICONTROL_CONF_OPTS)'
TEXT
    )
    # shellcheck disable=SC2086
    cmake -G "Unix Makefiles" -S "$source" -B "$build" \
        -DCMAKE_TOOLCHAIN_FILE="$host/share/buildroot/toolchainfile.cmake" \
        -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_INSTALL_RUNSTATEDIR=/run -DCMAKE_COLOR_MAKEFILE=OFF \
        -DBUILD_DOC=OFF -DBUILD_DOCS=OFF -DBUILD_EXAMPLE=OFF -DBUILD_EXAMPLES=OFF -DBUILD_TEST=OFF \
        -DBUILD_TESTS=OFF -DBUILD_TESTING=OFF -DBUILD_SHARED_LIBS=ON $options
}

buildroot() {
    package=$source/packaging/buildroot/package/kelgdicontrol
    grep -qx "KELGDICONTROL_VERSION = $version" "$package/kelgdicontrol.mk" || fail "the version is not $version"
    (cd "$source" && grep -v '^#' "$package/kelgdicontrol.hash" | cut -c 9- | sha256sum --check --quiet) \
        || fail "the hash is not that of the licence"

    local host=$directory/host sysroot=$directory/host/$triplet/sysroot flags
    flags="-D_LARGEFILE_SOURCE -D_LARGEFILE64_SOURCE -D_FILE_OFFSET_BITS=64 -Os -g0 -D_FORTIFY_SOURCE=1"
    host_tools "$host/bin"
    target_files "$sysroot" "$host/bin/qt5"
    mkdir -p "$host/share/buildroot/Platform"
    cat >"$host/share/buildroot/Platform/Buildroot.cmake" <<'TEXT'
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM ${CMAKE_SYSTEM_NAME})
include(Platform/Linux)
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB32_PATHS FALSE)
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB64_PATHS FALSE)
TEXT
    cat >"$host/share/buildroot/toolchainfile.cmake" <<TEXT
list(APPEND CMAKE_MODULE_PATH \${CMAKE_CURRENT_LIST_DIR})
set(CMAKE_SYSTEM_NAME Buildroot)
set(CMAKE_SYSTEM_VERSION 1)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_FLAGS_RELEASE " -DNDEBUG" CACHE STRING "Release CFLAGS")
set(CMAKE_CXX_FLAGS_RELEASE " -DNDEBUG" CACHE STRING "Release CXXFLAGS")
set(CMAKE_BUILD_TYPE Release CACHE STRING "Buildroot build configuration")
set(CMAKE_C_FLAGS "$flags" CACHE STRING "Buildroot CFLAGS")
set(CMAKE_CXX_FLAGS "$flags" CACHE STRING "Buildroot CXXFLAGS")
set(CMAKE_EXE_LINKER_FLAGS "" CACHE STRING "Buildroot LDFLAGS for executables")
set(CMAKE_SHARED_LINKER_FLAGS "" CACHE STRING "Buildroot LDFLAGS for shared libraries")
set(CMAKE_MODULE_LINKER_FLAGS "" CACHE STRING "Buildroot LDFLAGS for module libraries")
set(CMAKE_INSTALL_SO_NO_EXE 0)
set(CMAKE_PROGRAM_PATH "$host/bin")
set(CMAKE_SYSROOT "$sysroot")
set(CMAKE_FIND_ROOT_PATH "$sysroot")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} "$sysroot")
set(CMAKE_C_COMPILER "$host/bin/$triplet-gcc")
set(CMAKE_CXX_COMPILER "$host/bin/$triplet-g++")
TEXT
    export PATH=$host/bin
    cannot_run_target
    buildroot_configure "$directory/everything" y >everything.log 2>&1 || { cat everything.log; fail "configuring"; }
    options_are_known everything.log
    buildroot_configure "$directory/buildroot-build" n >configure.log 2>&1 || { cat configure.log; fail "configuring"; }
    options_are_known configure.log
    make -j2 -C buildroot-build
    make DESTDIR="$directory/staging" install/fast -C buildroot-build
    make DESTDIR="$directory/target" install/fast -C buildroot-build
    installed staging
    installed target
    # The hook knows the folder of the file that the target is spared.
    rm -r "target$(sed -n 's/^\trm -rf \$(TARGET_DIR)//p' "$package/kelgdicontrol.mk")"
    [ -z "$(find target -name '*.prf')" ] || fail "the file for qmake stays on the target"
    # Built for size, as the release preset does.
    is_small libKELGdiControl $((300 * 1024))
    is_small libKELGdiParts $((264 * 1024))
}

# is_small LIBRARY LIMIT: it has at most so many bytes when it is stripped.
is_small() {
    local size
    $triplet-strip -o "$1.stripped" "target/usr/lib/$1.so.$version"
    size=$(stat -c %s "$1.stripped")
    echo "buildroot: $1 has $size bytes when stripped, at most $2"
    [ "$size" -le "$2" ] || fail "$1 is too large"
}

# --- what must hold in both -----------------------------------------------------------------------------------------

# A program of the target does not run here, so that a build that tried to would fail.
cannot_run_target() {
    echo 'int main() { return 0; }' | $triplet-g++ -x c++ - -o target-program
    if ./target-program 2>/dev/null; then
        fail "programs of the target run here: nothing would be proved"
    fi
}

# options_are_known LOG: CMake lists options that the project does not have.
options_are_known() {
    if sed -n '/not used by the project/,$p' "$1" | PATH=/usr/bin:/bin grep KEL_; then
        fail "the recipe has an option that the project does not have"
    fi
}

# would_install BUILD: writes what an install of that folder has into BUILD.list.
would_install() {
    cmake -DBUILD="$directory/$1" -DLIST="$directory/$1.list" -P "$here/ListInstalled.cmake" >/dev/null
    [ -s "$1.list" ] || fail "nothing would be installed"
}

# installed FOLDER: everything is there, for aarch64, and knows neither this folder nor the one it
# was built in.
installed() {
    local library file usr=$1/usr
    PATH=/usr/bin:/bin
    for library in KELGdiControl KELGdiParts; do
        for file in lib/lib$library.so lib/lib$library.so.1 "lib/lib$library.so.$version" \
            lib/cmake/KELGdiControl/${library}Targets.cmake lib/pkgconfig/$library.pc \
            "lib/qt5/mkspecs/features/${library,,}.prf"; do
            [ -e "$usr/$file" ] || fail "$file is not installed in $1"
        done
        readelf -h "$usr/lib/lib$library.so.$version" | grep -q 'Machine: *AArch64' || fail "not for aarch64"
        if readelf -d "$usr/lib/lib$library.so.$version" | grep -E 'RPATH|RUNPATH'; then
            fail "$library has a run path"
        fi
    done
    for file in lib/cmake/KELGdiControl/KELGdiControlConfig.cmake include/KELGdiControl/KELPushButton \
        include/KELGdiParts/KELPart; do
        [ -e "$usr/$file" ] || fail "$file is not installed in $1"
    done
    [ "$(ls "$1")" = usr ] || fail "something is installed outside /usr: $(ls "$1")"
    if grep -rlF "$directory" "$1"; then
        fail "these files in $1 name the folder of the build"
    fi
    echo "$system: installed in $1: $(find "$1" -type f | wc -l) files"
}

case $system in
yocto | buildroot) "$system" ;;
*) fail "unknown system '$system'" ;;
esac
