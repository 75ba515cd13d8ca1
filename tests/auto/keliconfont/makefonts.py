#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
"""Writes the fonts of this test into its folder. Needs fontTools; the fonts are kept in git."""

import os

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

UNITS_PER_EM = 1000
FAMILY = "KEL Test Icons"
# Name, code point and the rectangle that is the glyph: left, bottom, right, top.
GLYPHS = [
    ("full", 0xE000, (0, -200, 1000, 800)),
    ("left", 0xE001, (0, -200, 500, 800)),
    ("bottom", 0xE002, (0, -200, 1000, 300)),
]


def rectangle(left, bottom, right, top):
    pen = TTGlyphPen(None)
    pen.moveTo((left, bottom))
    pen.lineTo((left, top))
    pen.lineTo((right, top))
    pen.lineTo((right, bottom))
    pen.closePath()
    return pen.glyph()


def write(path, names):
    builder = FontBuilder(UNITS_PER_EM, isTTF=True)
    builder.setupGlyphOrder([".notdef"] + [name for name, _, _ in GLYPHS])
    builder.setupCharacterMap({code: name for name, code, _ in GLYPHS})
    glyphs = {name: rectangle(*box) for name, _, box in GLYPHS}
    glyphs[".notdef"] = rectangle(400, 200, 600, 400)
    builder.setupGlyf(glyphs)
    left_sides = {name: glyph.xMin for name, glyph in glyphs.items()}
    builder.setupHorizontalMetrics({name: (1000, side) for name, side in left_sides.items()})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    builder.setupNameTable(names, mac=False)
    builder.setupOS2(fsType=0, # anybody may install and embed it
                     sTypoAscender=800, sTypoDescender=-200, usWinAscent=800, usWinDescent=200)
    builder.setupPost(keepGlyphNames=False)
    builder.font["head"].created = builder.font["head"].modified = 0
    builder.font.recalcTimestamp = False
    builder.save(path)


def main():
    folder = os.path.dirname(os.path.abspath(__file__))
    icons = os.path.join(folder, "icons.ttf")
    write(icons, {"familyName": FAMILY, "styleName": "Regular"})
    write(os.path.join(folder, "nofamily.ttf"), {"version": "1"})
    with open(icons, "rb") as whole, open(os.path.join(folder, "truncated.ttf"), "wb") as cut:
        cut.write(whole.read()[:400])


main()
