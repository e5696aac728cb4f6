#!/usr/bin/env bash
# Screenshots of the options dialog in each interface colour mode, with the
# control panel above it, beside the AOL simulator's chat room; and of the
# about box.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
scenes="$build/win64/tests/chat/options_scenes.exe"
aol="$build/win64/aolsim/aol40/waol.exe"
ctl="$build/win64/aolsim/aolsimctl.exe"
for f in "$scenes" "$aol" "$ctl"; do [ -x "$f" ] || { echo "options.sh: $f is not built"; exit 1; }; done
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

for mode in 0 1 2; do
    scene "options-mode$mode" options "$mode"
done
scene about about
