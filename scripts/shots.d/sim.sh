#!/usr/bin/env bash
# Screenshots of the AOL simulator: a chat room whose transcript shows lines
# faded by prismo-fade, and a Write Mail window with a faded body.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
aol="$build/win64/aolsim/aol40/waol.exe"
ctl="$build/win64/aolsim/aolsimctl.exe"
fade="$build/win64/cli/prismo-fade.exe"
for f in "$aol" "$ctl" "$fade"; do [ -x "$f" ] || { echo "sim.sh: $f is not built"; exit 1; }; done
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export PRISMO_SHOTS=${PRISMO_SHOTS:-$root/out/shots}
mkdir -p "$PRISMO_SHOTS"
declare -F shot >/dev/null || shot() { import -window root "$PRISMO_SHOTS/$1.png"; }

run() { "$root/scripts/wine-run" "$@"; }
faded() { run "$fade" "$@" | tr -d '\r'; }

run "$aol" --room "Town Square - Lobby 12" --signed-on "Zun Tester" \
    --screen-names "Zun Tester,Guest" &
aolpid=$!
trap 'run "$ctl" kill >/dev/null 2>&1 || kill $aolpid 2>/dev/null || true' EXIT
run "$ctl" wait 60

say() { run "$ctl" type "$1"; run "$ctl" key enter; }
say "hi all, watch this"
say "$(faded --colors '#FF0000,#FFCC00,#00AA00,#0000FF,#AA00AA' 'Prismo fades every letter of a chat line')"
say "$(faded --colors '#0000FF,#00CCFF' --bold 'bold and blue')"
say "$(faded --colors '#AA0000,#0000AA' --wavy --italic 'wavy italic line')"
say "$(faded --colors '#008800,#888800' --underline --solid 'solid underlined')"
run "$ctl" type "typing here..."
run "$ctl" paint
shot sim-chat

run "$ctl" open-mail
run "$ctl" mail-subject "Cool Fade" >/dev/null
run "$ctl" mail-text "Hello!  "
run "$ctl" mail-select 7 0
run "$ctl" mail-paste "$(faded --colors '#FF0000,#0000FF' 'This mail was faded by Prismo.')"
run "$ctl" paint
shot sim-mail
