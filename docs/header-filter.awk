# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# Filters a header of a part for Doxygen. What overrides a function of Qt, and has no comment of its
# own, is not in the reference; a colour is no link. Lines keep their numbers.

# A declaration is held back until it is known how it ends.
function release(isShown) {
    for (i = 1; i <= held; ++i)
        print isShown ? lines[i] : ""
    held = 0
}

/^ *(\/\/!|\/\*!|\*)/ {
    release(1)
    gsub(/#[0-9A-F][0-9A-F][0-9A-F][0-9A-F][0-9A-F][0-9A-F]/, "\\\\&")
    print
    isDocumented = 1
    next
}

{ lines[++held] = $0 }

/[;:{}]$|^$|^#/ {
    release(isDocumented || !/ override;$/)
    isDocumented = 0
}

END { release(1) }
