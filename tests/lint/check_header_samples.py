#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# check_header_samples.py SAMPLES HEADER...: all C++ between \code and \endcode in the headers is in
# the file of samples, which the build compiles, with or without the indentation of a body there.
# Blocks that show the order of signals have arrows.

import re
import sys


def blocks(text):
    for match in re.finditer(r"\\code\n(.*?)\\endcode", text, re.S):
        lines = [re.sub(r"^ *\* ?", "", line) for line in match[1].split("\n")]
        block = "\n".join(lines).rstrip()
        if ";" in block and "--->" not in block:
            yield text.count("\n", 0, match.start()) + 1, block


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        compiled = file.read()
    compiled += re.sub(r"\n    ", "\n", compiled)
    faults = 0
    for path in sys.argv[2:]:
        with open(path, encoding="utf-8") as file:
            text = file.read()
        for line, block in blocks(text):
            if "\n" + block + "\n" not in compiled:
                print(f"{path}:{line}: this sample is not compiled\n{block}")
                faults += 1
        if re.search(r"^class KELGDI(PARTS)?_EXPORT", text, re.M) and not list(blocks(text)):
            print(f"{path}: no sample")
            faults += 1
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
