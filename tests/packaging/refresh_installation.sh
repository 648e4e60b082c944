#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# What refresh-installation does to a user's folder, from the first start to an update. Usage: REFRESH-INSTALLATION
set -euo pipefail
refresh=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
from=$work/from to="$work/a user's folder"
failures=0

# expect WHAT COMMAND...
expect() {
    local what=$1
    shift
    "$@" || { echo "not so: $what"; failures=$((failures + 1)); }
}
is() { [ "$(cat "$1")" = "$2" ]; }
missing() { [ ! -e "$1" ]; }
# bundle NUMBER PROGRAM
bundle() {
    mkdir -p "$from/games/$1"
    echo "$2" >"$from/games/$1/code.txt"
    printf 'Zorbino\r\n%s\r\n' "$2" >"$from/games/$1/prop.zbo"
}

mkdir -p "$from/zbo/icons"
echo 1 >"$from/zorbino.exe"
echo template >"$from/zbo/code.txt"
echo cat >"$from/zbo/icons/cat.bmp"
echo dog >"$from/zbo/icons/dog.bmp"
bundle 00000001 ball
bundle 00000002 maze
bundle 00000004 pong
echo red >"$from/games/00000004/icon.bmp"
bundle 00000005 snake
bundle 00000006 chess
chmod -R a-w "$from"

"$refresh" "$from" "$to"
expect "the program is there" is "$to/zorbino.exe" 1
expect "the templates are there" is "$to/zbo/code.txt" template
expect "the games are there" is "$to/games/00000002/code.txt" maze
expect "the sums are those of cksum" [ "$(grep ' zbo/' "$to/.shipped" | sort)" = "$(cd "$from" && cksum zbo/code.txt zbo/icons/* | sort)" ]
expect "the copies can be written to" eval 'echo mine >"$to/games/00000002/code.txt" && touch "$to/games/00000002/new"'

# The user works; a newer version comes.
rm -r "$to/games/00000001" "$to/zbo/icons/dog.bmp"
mkdir "$to/games/00000003"
echo "my own" >"$to/games/00000003/code.txt"
touch "$to/games/00000005/new.spr"
echo "my own" >"$to/zbo/icons/cat.bmp"
echo "my own" >"$to/zbo/icons/me.bmp"
chmod -R u+w "$from"
echo 2 >"$from/zorbino.exe"
echo "better template" >"$from/zbo/code.txt"
echo "better cat" >"$from/zbo/icons/cat.bmp"
echo cow >"$from/zbo/icons/cow.bmp"
bundle 00000002 "better maze"
bundle 00000003 shooter
bundle 00000004 "better pong"
rm "$from/games/00000004/icon.bmp"
bundle 00000005 "better snake"

for start in first second; do
    "$refresh" "$from" "$to"
    expect "the program is the new one ($start start)" is "$to/zorbino.exe" 2
    expect "an untouched template is the new one ($start start)" is "$to/zbo/code.txt" "better template"
    expect "a new icon is there ($start start)" is "$to/zbo/icons/cow.bmp" cow
    expect "a changed icon stays ($start start)" is "$to/zbo/icons/cat.bmp" "my own"
    expect "an icon of the user's stays ($start start)" is "$to/zbo/icons/me.bmp" "my own"
    expect "a deleted icon stays away ($start start)" missing "$to/zbo/icons/dog.bmp"
    expect "a changed game stays ($start start)" is "$to/games/00000002/code.txt" mine
    expect "a game of the user's stays ($start start)" is "$to/games/00000003/code.txt" "my own"
    expect "a new game takes the first free number ($start start)" is "$to/games/00000001/code.txt" shooter
    expect "an untouched game is the new one ($start start)" is "$to/games/00000004/code.txt" "better pong"
    expect "what it no longer has is gone ($start start)" missing "$to/games/00000004/icon.bmp"
    expect "a game with a new file stays ($start start)" is "$to/games/00000005/code.txt" snake
    expect "nothing comes twice ($start start)" missing "$to/games/00000007"
    expect "no half-made things are left ($start start)" missing "$to/.incoming"
done

bundle 00000003 "better shooter"
"$refresh" "$from" "$to"
expect "a game under another number is renewed there" is "$to/games/00000001/code.txt" "better shooter"
expect "and not under its own" is "$to/games/00000003/code.txt" "my own"

# The first version kept no sums of games; the package does.
grep games/00000006 "$to/.shipped" >"$from/earlier-sums"
sed -i '/games/d' "$to/.shipped"
sed -i 's/ .*//' "$to/.bundled-games"
bundle 00000004 "even better pong"
bundle 00000006 "better chess"
"$refresh" "$from" "$to"
expect "a game of the first version is renewed" is "$to/games/00000006/code.txt" "better chess"
expect "a game without a sum stays" is "$to/games/00000004/code.txt" "better pong"

rm -r "$to/games/00000001" "$to/zbo/code.txt"
"$refresh" "$from" "$to"
expect "a missing template comes back at any start" is "$to/zbo/code.txt" "better template"
expect "a deleted game stays away" missing "$to/games/00000001"

if "$refresh" "$work/nothing" "$to" 2>/dev/null; then
    expect "a missing program is an error" false
fi

[ "$failures" -eq 0 ]
