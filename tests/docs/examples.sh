#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# Every program in the user's documentation can be read by Zorbino. A fence "zbl" holds a whole program, "zbl event"
# statements of an event block, "zbl statements" those of an INITIALIZE block. Usage: ZBL FILE...
set -euo pipefail
zbl=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for document; do
    awk -v out="$work/$(basename "$document")" '
        /^```zbl/ { file = sprintf("%s:%d", out, NR); kind = $2; inside = 1
            if (kind == "event") print "program{\nclasses{\nball{\nnormal{" > file
            if (kind == "statements") print "program{\nstates{\nbegin{\ninitialize{" > file
            next }
        /^```/ && inside {
            if (kind == "event") print "}normal\n}ball\n}classes\n}program" > file
            if (kind == "statements") print "}initialize\n}begin\n}states\n}program" > file
            close(file); inside = 0 }
        inside { print > file }' "$document"
done

checked=0 failed=0
for program in "$work"/*; do
    checked=$((checked + 1))
    if ! "$zbl" check "$program" >"$work.out" 2>&1 || [ -s "$work.out" ]; then
        echo "The example at $(basename "$program") is not understood:"
        cat "$work.out"
        failed=$((failed + 1))
    fi
done
rm -f "$work.out"
echo "$checked examples, $failed not understood"
[ "$failed" -eq 0 ] && [ "$checked" -gt 20 ]
