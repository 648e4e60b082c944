#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# The messages that docs/language.md explains are the messages that Zorbino shows: each of the wrong programs of
# messages.txt gets one that is explained, and each that is explained is shown for one of them. What the document writes
# between pointed brackets is put in by the program. Usage: ZBL LANGUAGE.md MESSAGES.txt
set -euo pipefail
zbl=$1 language=$2 programs=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Shown only by a button; and blocks without an end, which the search for the end of PROGRAM always finds first.
never='^(User pressed Stop button|The CLASSES block does not|The STATES block does not|The .* class definition block does not|I can.t find the end of )'

# A game with a graphic of one pixel: a bitmap file of 2 x 1 pixels with 24 bits.
game=$work/games/00000001
mkdir -p "$game"
printf 'Me\r\nMessages\r\n' >"$game/prop.zbo"
printf 'dot\r\nSimple,1,1,1\r\n' >"$game/ball.spr"
printf 'BM\x3e\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\x08\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\xff\xff\0\0\0\0\0' \
    >"$game/ball.spb"

grep -A 1000 '^## Messages' "$language" | grep -B 1000 '^## The history' | sed -nE 's/^\| `([^`]*)` \|.*/\1/p' >"$work/explained"
# As patterns of the whole line.
sed -E 's/[][\\.*^$(){}+?|]/\\&/g; s/⟨[^⟩]*⟩/.*/g; s/.*/^&$/' "$work/explained" >"$work/patterns"

failed=0
while IFS=$'\t' read -r place text; do
    [ -n "$text" ] || continue
    text=${text//\\/$'\n'}
    case $place in
        event) event=$text start='create ball 1 "ball" 0 0 0 0 0' ;;
        start) event='' start=$text ;;
    esac
    if [ "$place" = whole ]; then
        echo "$text" >"$game/code.txt"
    else
        printf 'program{\nclasses{\nball{\nnormal{\n%s\n}normal\n}ball\n}classes\nstates{\nbegin{\ninitialize{\n%s\n}initialize\n}begin\n}states\n}program\n' \
            "$event" "$start" >"$game/code.txt"
    fi
    "$zbl" run "$game" --frames 100 >"$work/out" 2>&1 || true
    message=$(sed -nE '1s/^[!?] //p' "$work/out")
    echo "$message" >>"$work/shown"
    if ! grep -qE -f "$work/patterns" <<<"$message"; then
        echo "not explained ($place $text): $(head -n 1 "$work/out")"
        failed=$((failed + 1))
    fi
done < <(grep -v '^#' "$programs")

while IFS= read -r pattern; do
    if ! grep -qE -- "$pattern" "$work/shown" && ! sed 's/^^//; s/\\//g' <<<"$pattern" | grep -qE "$never"; then
        echo "never shown: $pattern"
        failed=$((failed + 1))
    fi
done <"$work/patterns"
echo "$(wc -l <"$work/shown") programs, $(wc -l <"$work/explained") messages, $failed failures"
[ "$failed" -eq 0 ] && [ "$(wc -l <"$work/explained")" -gt 80 ]
