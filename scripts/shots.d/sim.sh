#!/usr/bin/env bash
# Screenshots of the AOL simulator: a chat room whose transcript shows lines
# faded by prismo-fade, and a Write Mail window with a faded body.
set -eu
source "$(dirname "$0")/scene.bash"
fade="$build/win64/cli/prismo-fade.exe"
need "$sim/aol40/waol.exe" "$ctl" "$fade"

faded() { run "$fade" "$@" | tr -d '\r'; }

start_aol --room "Town Square - Lobby 12" --signed-on "Zun Tester" --screen-names "Zun Tester,Guest"

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
