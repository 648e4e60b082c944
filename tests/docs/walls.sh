#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# The programs of the user's documentation that stop at walls do so, also while two keys are held. Usage: ZBL DOCS
set -euo pipefail
zbl=$1 docs=$2
game=$(mktemp -d)
trap 'rm -rf "$game"' EXIT

# A field of 10 x 10 squares with a red edge, so that the places from -80 to 80 are free.
{
    printf '\r\n\r\n10\r\n10\r\n'
    printf '\r\n%.0s' {1..21}
    for row in {0..9}; do
        for column in {0..9}; do
            case $row$column in 0?|9?|?0|?9) echo 1 ;; *) echo 0 ;; esac
        done
    done
} >"$game/walls"
# Graphics of one pixel: bitmap files of 2 x 1 pixels with 24 bits.
for graphic in hero star; do
    printf '%s\r\nSimple,1,1,1\r\n' $graphic >"$game/$graphic.spr"
    printf 'BM\x3e\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\x08\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\xff\xff\0\0\0\0\0' \
        >"$game/$graphic.spb"
done

failed=0
# play NAME KEY...: holds the keys for 120 frames; the hero must stand beside the walls that they lead to.
play() {
    local name=$1 key
    shift
    for key; do
        echo "1 down $key"
    done >"$game/keys"
    "$zbl" run "$game" --frames 120 --dump --keys "$game/keys" >"$game/out"
    if ! awk -F '[(,]' -v keys="$*" '
        /^HERO/ { found = 1; x = $2; y = $3 }
        END { wantX = keys ~ /37/ ? -80 : keys ~ /39/ ? 80 : 0
              wantY = keys ~ /38/ ? 80 : keys ~ /40/ ? -80 : 0
              dx = x - wantX; dy = y - wantY
              exit !(found && dx * dx <= 9 && dy * dy <= 9) }' "$game/out"; then
        echo "$name, keys $*: the hero stands elsewhere:"
        cat "$game/out"
        failed=$((failed + 1))
    fi
}

{
    printf 'program{\nclasses{\nhero{\nnormal{\n'
    awk '/^### / { here = $2 == "unmove" } here && /^```/ { inside = !inside; next } here && inside' "$docs/language.md"
    printf '}normal\n}hero\n}classes\nstates{\nbegin{\ninitialize{\nsetmap game "walls"\n'
    printf 'create hero "me" "hero" 0 0 0 0 0\n}initialize\n}begin\n}states\n}program\n'
} >"$game/code.txt"
for keys in 37 38 '37 38'; do
    # shellcheck disable=SC2086
    play "unmove in language.md" $keys
done

awk '/^```zbl$/ { inside = 1; text = ""; next } /^```/ { if (inside && text ~ /unmove/) printf "%s", text; inside = 0 }
    inside { text = text $0 "\n" }' "$docs/first-game.md" >"$game/code.txt"
for keys in 37 38 39 40 '37 38' '38 39' '39 40' '40 37'; do
    # shellcheck disable=SC2086
    play "first-game.md" $keys
done
[ $failed -eq 0 ]
