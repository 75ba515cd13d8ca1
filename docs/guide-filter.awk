# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT

# Filters a page of the guide for Doxygen. The pages are plain Markdown, for a forge. Doxygen wants
# the title in the first line, an explicit anchor at every heading, anchors that are unique across
# pages, and pictures by name alone. Lines keep their numbers.

FNR == 1 {
    page = FILENAME
    sub(/.*\//, "", page)
    sub(/\.md$/, "", page)
}

# What is above the title comes below it, as empty lines.
!hasTitle && !/^# / {
    ++above
    next
}

/^```/ { inFence = !inFence }

inFence {
    print
    next
}

# The anchor of a page is its file name, that of a section is prefixed with it.
/^# / {
    print $0 " {#" page "}"
    if (!hasTitle) {
        while (above-- > 0)
            print ""
    }
    hasTitle = 1
    next
}

/^## / {
    id = tolower(substr($0, 4))
    gsub(/[^a-z0-9 _-]/, "", id)
    gsub(/ /, "-", id)
    print $0 " {#" page "-" id "}"
    next
}

{
    gsub(/\]\(\.\.\/images\//, "](")
    gsub(/\]\(#/, "](#" page "-")
    while (match($0, /\]\([a-z]+\.md#/)) {
        target = substr($0, RSTART + 2, RLENGTH - 6)
        $0 = substr($0, 1, RSTART + 1) "#" target "-" substr($0, RSTART + RLENGTH)
    }
    print
}
