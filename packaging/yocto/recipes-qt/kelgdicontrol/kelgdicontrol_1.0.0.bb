# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

SUMMARY = "Touch-first controls for Qt 5 graphics scenes"
DESCRIPTION = "Push buttons, check boxes, sliders, side menus, panels and other controls for instrument \
panels, kiosks and printers, as items of a Qt graphics scene."
SECTION = "libs"
LICENSE = "MIT"
LIC_FILES_CHKSUM = "file://LICENSES/MIT.txt;md5=7dda4e90ded66ab88b86f76169f28663"

# Where the source is, for example the archive's https address with its checksum. Without it the archive
# is expected beside the recipe, in the folder kelgdicontrol.
KELGDICONTROL_URI ?= "file://${BP}.tar.gz"
SRC_URI = "${KELGDICONTROL_URI}"

inherit cmake_qt5

EXTRA_OECMAKE = "-DKEL_BUILD_EXAMPLES=OFF"

PACKAGECONFIG ??= "parts"
PACKAGECONFIG[parts] = "-DKEL_BUILD_PARTS=ON,-DKEL_BUILD_PARTS=OFF"
PACKAGECONFIG[gallery] = "-DKEL_BUILD_GALLERY=ON,-DKEL_BUILD_GALLERY=OFF"
PACKAGECONFIG[tests] = "-DKEL_BUILD_TESTS=ON -DKEL_INSTALL_TESTS=ON,-DKEL_BUILD_TESTS=OFF"
PACKAGECONFIG[docs] = ",,doxygen-native"

OECMAKE_TARGET_COMPILE:append = "${@bb.utils.contains('PACKAGECONFIG', 'docs', ' docs', '', d)}"

PACKAGES =+ "${PN}-gallery ${PN}-parts ${PN}-tests"
FILES:${PN}-gallery = "${bindir}/kelgdi-gallery ${datadir}/applications"
RRECOMMENDS:${PN}-gallery = "liberation-fonts"
SUMMARY:${PN}-parts = "What touch screens made with KELGdiControl are put together from"
FILES:${PN}-parts = "${libdir}/libKELGdiParts.so.*"
FILES:${PN}-tests = "${bindir}/kelgdi-selftest ${libdir}/kelgdicontrol"
FILES:${PN}-dev += "${libdir}/qt5/mkspecs"
FILES:${PN}-doc += "${datadir}/qt5/doc"
