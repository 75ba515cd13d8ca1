#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
#
# compare.sh COMMAND...: runs the program twice side by side, with and without kept looks, and
# compares what it prints. Leaves the pictures of the first case that differs in the current folder.

set -uo pipefail
export QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=default.warning=false
export QT_HASH_SEED=0 # else the resources of a PDF file come in another order
unset KEL_NO_KEPT_LOOKS
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT

# both OUTPUT-NAME ARGUMENT...: the same with kept looks and without.
both() {
    local output=$1 with without
    shift
    "$@" --to looks-with.png >"$results/$output-with" &
    with=$!
    KEL_NO_KEPT_LOOKS=1 "$@" --to looks-without.png >"$results/$output-without" &
    without=$!
    wait "$with" && wait "$without"
}

shapes() {
    sed -n 's/^shapes drawn: //p' "$results/run1-$1"
}

# repeated WITH: the cases that came out alike in every run so far.
repeated() {
    sort "$results"/run*-"$1" | uniq -c | sed -n "s/^ *$runs \([rs][ec]\)/\1/p"
}

# Qt itself draws a few pictures in a million differently from run to run: a difference counts if it recurs.
for runs in 1 2 3; do
    both "run$runs" "$@" || exit 1
    repeated with >"$results/with"
    repeated without >"$results/without"
    different=$(comm -23 "$results/with" "$results/without" | cut -d' ' -f1,2 \
        | grep -Fxf <(comm -13 "$results/with" "$results/without" | cut -d' ' -f1,2) | sort -k1,1 -k2n)
    [ -n "$different" ] || break
done
with=$(shapes with)
without=$(shapes without)
echo "$(grep -vc '^shapes drawn' "$results/run1-with") cases; $((without - with)) of $without shapes were given back;" \
    "runs: $runs"
if [ "$with" -ge "$without" ]; then
    echo "No look was kept: this compares nothing." >&2
    exit 1
fi
[ -n "$different" ] || exit 0
first=$(head -n 1 <<<"$different")
echo "$(wc -l <<<"$different") cases differ, first: $first" >&2
both save "$@" --save "$first"
echo "It is in looks-with.png and looks-without.png in $PWD" >&2
exit 1
