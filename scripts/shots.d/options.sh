#!/usr/bin/env bash
# Screenshots of the options dialog in each interface colour mode, with the
# control panel above it, beside the AOL simulator's chat room; and of the
# about box.
set -eu
source "$(dirname "$0")/scene.bash"
scenes="$build/win64/tests/chat/options_scenes.exe"
need "$scenes" "$sim/aol40/waol.exe" "$ctl"

install_settings

start_aol --room "Lobby 12" --signed-on "Zun Tester"

scene() { run_scene "$scenes" "$@"; }

for mode in 0 1 2; do
    scene "options-mode$mode" options "$mode"
done
scene about about
