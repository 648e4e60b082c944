#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# The launcher makes an installation folder for the user and starts the program in it, where every window opens.
# Usage: ZORBINO.EXE REFRESH-INSTALLATION SOURCES
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$work/usr/bin" "$work/usr/lib/zorbino"
cp "$3/packaging/zorbino" "$work/usr/bin"
cp -R "$1" "$2" "$3/zbo" "$3/games" "$work/usr/lib/zorbino"
ln -s usr/bin/zorbino "$work/started-by-a-link"

export XDG_DATA_HOME="$work/data of a user"
(cd / && "$work/started-by-a-link" --self-test)
[ -f "$XDG_DATA_HOME/zorbino/games/00000001/code.txt" ]

# Without a place to write to it starts all the same.
XDG_DATA_HOME=/dev/null "$work/usr/bin/zorbino" --self-test

# Without HOME it asks who the user is.
printf '#!/bin/sh\necho "child:x:1000:1000::%s/home:/bin/sh"\n' "$work" >"$work/getent"
chmod +x "$work/getent"
env -u HOME -u XDG_DATA_HOME PATH="$work:$PATH" "$work/usr/bin/zorbino" --self-test
[ -f "$work/home/.local/share/zorbino/games/00000001/code.txt" ]
