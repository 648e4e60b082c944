#!/bin/bash
# The launcher makes an installation folder for the user and starts the program in it, where every window opens.
# Usage: ZORBINO.EXE SOURCES
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$work/usr/bin" "$work/usr/lib/zorbino"
cp "$2/packaging/zorbino" "$work/usr/bin"
cp -R "$1" "$2/packaging/refresh-installation" "$2/zbo" "$2/games" "$work/usr/lib/zorbino"
ln -s usr/bin/zorbino "$work/started-by-a-link"

export XDG_DATA_HOME="$work/data of a user"
(cd / && "$work/started-by-a-link" --self-test)
[ -f "$XDG_DATA_HOME/zorbino/games/00000001/code.txt" ]

# Without a place to write to it starts all the same.
XDG_DATA_HOME=/dev/null "$work/usr/bin/zorbino" --self-test
