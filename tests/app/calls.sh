#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Zorbino team
# SPDX-License-Identifier: MIT

# What zbl answers to the words of a call: its exit status and what it writes. Usage: ZBL
set -uo pipefail
zbl=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
mkdir -p games/00000001 games/wrong games/stops games/empty
cat >games/00000001/Code.TXT <<'END'
PROGRAM{
  STATES{
    begin{
      INITIALIZE{
        set counter$held 0
      }INITIALIZE
      LOOP{
        if keyboard.anykey = "true" {
          change counter$held 1
        }if
      }LOOP
    }begin
  }STATES
}PROGRAM
END
echo 'hello' >games/wrong/code.txt
printf 'program{\n}program' >games/stops/code.txt
printf '# a comment\r\n\r\n  2 down 65\r\n4 up\t65\n3 down 200' >keys
printf '1 down 65\n1 press 65\n' >badkeys
mkfifo pipe
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM

calls=0 failed=0
# check STATUS OUTPUT WORD...: the words of the call, its exit status and its standard output; what is off is said in one
# line on standard error.
check()
{
    local status=$1 output=$2 complaints=0
    shift 2
    [ "$status" -eq 3 ] && complaints=1
    "$zbl" "$@" >out 2>err
    local found=$?
    calls=$((calls + 1))
    if [ $found -ne "$status" ] || [ "$(cat out)" != "$output" ] || [ "$(wc -l <err)" -ne $complaints ]; then
        echo "zbl $*: status $found in place of $status; it wrote"
        cat out err
        failed=$((failed + 1))
    fi
}
held() { printf 'Variables:\ncounter$held       =%d' "$1"; }

game=games/00000001
check 0 '' check $game/Code.TXT
check 0 '' run $game
check 0 "$("$zbl" --help)" run --help
check 0 "$(held 0)" run --dump --frames 1 $game/
check 0 'Variables:' run $game --frames 0 --dump
check 0 "$(held 2)" run $game --dump --keys keys --frames 9 --seed -1 --show-map
check 0 '' run $game --picture last.png
check 1 $'? I could not find the beginning of the PROGRAM block ("PROGRAM{")!\n? \n?    hello\n? \n? (line 1)' \
    check games/wrong/code.txt
check 1 "$(cat out)" run games/wrong --dump --picture none.png
check 2 $'! I could not find state begin!\n! (line 1)' run games/stops --dump
# Plays that are kept, and how they go in their game when it is as it was and when it is not.
play=$game/win.zbplay
same='This play goes as it went when it was kept.'
changed='The program has changed since this play was kept.'
other='From frame 2 on this play goes another way (line 9).'
gone='From frame 1 on this play goes another way (line 5), and in frame 2 it ends with a mistake:'
mistake=$'You used change on a counter you have not set yet!'
gone+=" $mistake (line 9)."
check 0 "$(held 2)" run $game --dump --keys keys --frames 9 --seed 4 --record $play
check 0 "$same" replay $play
check 0 "$(held 2; echo; echo "$same")" replay --dump $play
check 0 "$(held 1; echo; echo "$same")" replay --until 2 --dump $play
check 0 "$same" replay $play --picture replayed.png --film film.gif
check 0 "$same" replay $play --film cut.gif --from 3 --until 5
check 0 "$("$zbl" run $game --keys keys --frames 9 --trace=code,events,frames | tail -n +39; echo "$same")" \
    replay $play --trace=frames,events,code
check 0 '' pins $game
sed -i 's/^name .*/name here I win/; s/^pinned no/pinned yes/' $play
check 0 'win.zbplay (here I win): This play still goes the same.' pins $game
(cd $game && exec "$zbl" replay win.zbplay) >out 2>&1 || { echo "From within its folder: $(cat out)"; failed=$((failed + 1)); }
cp -r $game games/another
sed -i 's/held 1/held 2/' games/another/Code.TXT
check 1 $'The program has changed since this play was kept.\n'"$other" replay --game games/another $play
check 1 "win.zbplay (here I win): $other" pins games/another
check 0 "$same" replay games/00000001/win.zbplay --game $game
sed -i 's/set counter.held 0//' games/another/Code.TXT
check 2 "! $mistake"$'\n! (line 9)\n'"$changed"$'\n'"$gone" \
    replay games/another/win.zbplay
check 2 "win.zbplay (here I win): $gone" pins games/another
check 2 "! $mistake"$'\n! (line 9)' run games/another --keys keys --record games/another/lost.zbplay
check 0 "! $mistake"$'\n! (line 9)\n'"$same" replay games/another/lost.zbplay --dump
sed -i 's/line 9/line 10/' games/another/Code.TXT
echo 'zorbino play 2' >newer.zbplay
head -n 20 $play >cut.zbplay
cp $play $play.whole
head -n 10 $play.whole >$game/hurt.zbplay
check 3 'win.zbplay (here I win): This play still goes the same.' pins $game
rm $game/hurt.zbplay $play.whole
for words in '' run check play "check $game" 'check nothing' "check $game/Code.TXT more" 'run games/empty' 'run nothing' \
    'run --dump' "run $game more" "run $game --what" "run $game --frames" "run $game --frames -1" "run $game --frames 1.5" \
    "run $game --trace=" "run $game --trace=frames,all" "run $game --seed x" "run $game --seed 18446744073709551616" \
    "run $game --keys" "run $game --keys nothing" "run $game --keys badkeys" "run $game --picture" 'play games/empty' \
    "play $game" replay "replay --game $game" 'replay nothing' 'replay newer.zbplay' 'replay cut.zbplay' "replay $game" \
    "replay keys" "replay $play --game" "replay $play --game games/empty" "replay $play --until" "replay $play --until -1" \
    "replay $play --until x" "replay $play --from 1" "replay $play --trace=all" "replay $play $play" "replay $play --seed 1" \
    "replay $play --film" 'pins' 'pins games/empty' "pins $game more" "run $game --record" "run $game --record pipe" \
    "run $game --record nowhere/a.zbplay"; do
    # shellcheck disable=SC2086
    check 3 '' $words
done
# What can be told is told, also where the picture cannot be kept.
for place in nowhere/last.png games pipe; do
    check 3 "$(held 0)" run $game --dump --picture $place
    check 3 "$same" replay $play --picture $place
    check 3 "$same" replay $play --film $place
done
check 3 "$same" replay $play --film none.gif --from 10
[ -s last.png ] && [ -s replayed.png ] && [ -s film.gif ] && [ -s cut.gif ] && [ ! -e none.png ] && [ ! -e none.gif ] &&
    [ -p pipe ] || failed=$((failed + 1))
# A picture that finds no room leaves the one before it whole.
cp last.png before.png
(trap '' XFSZ; ulimit -f 1; exec "$zbl" run $game --picture last.png) 2>err
found=$?
if [ $found -ne 3 ] || ! cmp -s last.png before.png || [ "$(wc -l <err)" -ne 1 ]; then
    echo "A picture on a full disk: status $found in place of 3; it wrote"
    cat err
    failed=$((failed + 1))
fi
# A game that wants more memory than there is ends with a message, whatever the limit. Sanitizers need too much for this.
mkdir games/huge
cat >games/huge/code.txt <<'END'
program{
classes{
}classes
states{
begin{
initialize{
setmap game "big"
setbackground game "big.bmp"
}initialize
}begin
}states
}program
END
{ printf '\r\n\r\n 3000\r\n 3000\r\n'; yes '' | head -n 21; yes 1 | head -n 3000000; } >games/huge/big
{ printf 'BM\0\0\0\0\0\0\0\0\076\0\0\0\050\0\0\0\210\023\0\0\210\023\0\0\1\0\1\0\0\0\0\0\0\0\0\0'
    head -c 24 /dev/zero; head -c 3140000 /dev/zero; } >games/huge/big.bmp
for megabytes in 60 100 140 180 220 260 300 400; do
    (ulimit -v $((megabytes * 1024)) && "$zbl" --help) >/dev/null 2>&1 || continue
    (ulimit -v $((megabytes * 1024)) && exec "$zbl" run games/huge --frames 1) >out 2>err
    case $? in
        0|2|3) ;;
        *) echo "with $megabytes MB: status $?"; cat out err; failed=$((failed + 1)) ;;
    esac
done
if [ -c /dev/full ] && "$zbl" run $game --trace >/dev/full 2>err; then
    echo "Output that does not get through looks like success."
    failed=$((failed + 1))
fi
echo "$calls calls, $failed failures"
[ $failed -eq 0 ]
