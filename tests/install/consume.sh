#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# consume.sh WAY PREFIX LIBDIR DIRECTORY CXX LIBRARY
#
# Builds the consumer project of WAY (cmake, pkgconfig, qmake, qmake-include) against LIBRARY
# (KELGdiControl, KELGdiParts) installed in PREFIX, in DIRECTORY, and runs it. A library in /usr must
# be found without being told where.

set -euo pipefail
way=$1 prefix=$2 libdir=$3 directory=$4 library=$6
export CXX=$5 QT_QPA_PLATFORM=offscreen
if [ "$prefix" != /usr ]; then
    export LD_LIBRARY_PATH=$prefix/$libdir CMAKE_PREFIX_PATH=$prefix \
        PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig QMAKEFEATURES=$prefix/$libdir/qt5/mkspecs/features
fi
source=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

rm -rf "$directory"
mkdir -p "$directory"
cd "$directory"
case $library in
KELGdiControl) consumer=main drawn=button ;;
KELGdiParts) consumer=parts drawn=part ;;
*)
    echo "consume.sh: unknown library '$library'" >&2
    exit 2
    ;;
esac
case $way in
cmake)
    cmake -S "$source/cmake" -B . -G Ninja -DCONSUMER=$consumer
    cmake --build .
    ;;
pkgconfig)
    make -f "$source/pkgconfig/Makefile" SOURCE="$source/$consumer.cpp" PACKAGE="$library"
    ;;
qmake | qmake-include)
    qmake -qt=qt5 "$source/$way/consumer.pro" \
        QMAKE_CXX="$CXX" QMAKE_LINK="$CXX" CONSUMER=$consumer FEATURE="${library,,}"
    make
    ;;
*)
    echo "consume.sh: unknown way '$way'" >&2
    exit 2
    ;;
esac
linked=$(ldd ./consumer | sed -n "s/.*$library\.so\.1 => \([^ ]*\).*/\1/p")
[ "$linked" -ef "$prefix/$libdir/lib$library.so.1" ] || { echo "linked with '$linked'" >&2; exit 1; }
./consumer
echo "$way: the $drawn is drawn"
