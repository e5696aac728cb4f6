#!/usr/bin/env bash
# Screenshots of start-up's loading window and AOL folder picker, and of the
# control panel collapsed and expanded in each interface colour mode, beside
# the AOL simulator with a chat room open.
set -eu
source "$(dirname "$0")/scene.bash"
scenes="$build/win64/tests/chat/panel_scenes.exe"
need "$scenes" "$sim/aol40/waol.exe" "$ctl"

install_settings

start_aol --room "Lobby 12" --signed-on "Zun Tester"

scene() { run_scene "$scenes" "$@"; }

scene panel-loading loading
scene panel-folder-picker picker "$(winepath -w "$build/win64/aolsim/aol40")"
for mode in 0 1 2; do
    scene "panel-mode$mode-collapsed" panel "$mode" min
    scene "panel-mode$mode-expanded" panel "$mode" max
done
