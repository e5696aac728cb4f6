#!/usr/bin/env bash
# Screenshots of start-up's loading window and AOL folder picker, and of the
# control panel collapsed and expanded in each interface colour mode, beside
# the AOL simulator with a chat room open.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
scenes="$build/win64/tests/chat/panel_scenes.exe"
aol="$build/win64/aolsim/aol40/waol.exe"
ctl="$build/win64/aolsim/aolsimctl.exe"
for f in "$scenes" "$aol" "$ctl"; do [ -x "$f" ] || { echo "panel.sh: $f is not built"; exit 1; }; done
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export PRISMO_SHOTS=${PRISMO_SHOTS:-$root/out/shots}
mkdir -p "$PRISMO_SHOTS"
declare -F shot >/dev/null || shot() { import -window root "$PRISMO_SHOTS/$1.png"; }
source "$root/scripts/shots.d/scene.bash"

# The shipped schemes, as the installer leaves them.
wine regedit /S "$(winepath -w "$root/data/schemes/Schemes.reg")" >/dev/null 2>&1

"$root/scripts/wine-run" "$aol" --room "Lobby 12" --signed-on "Zun Tester" &
aolpid=$!
trap 'kill $aolpid 2>/dev/null || true' EXIT
"$root/scripts/wine-run" "$ctl" wait 60  # its chat room is open

scene() { run_scene "$scenes" "$@"; }

scene panel-loading loading
scene panel-folder-picker picker "$(winepath -w "$build/win64/aolsim/aol40")"
for mode in 0 1 2; do
    scene "panel-mode$mode-collapsed" panel "$mode" min
    scene "panel-mode$mode-expanded" panel "$mode" max
done
