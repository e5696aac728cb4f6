#!/usr/bin/env bash
# Screenshots of the message box, the error report, the user colour dialog
# and every button kind in each interface colour mode.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
scenes="$build/win64/tests/ui/ui_scenes.exe"
[ -x "$scenes" ] || { echo "ui.sh: $scenes is not built"; exit 1; }
export WINEDEBUG=${WINEDEBUG:--all}

# scene NAME ARGS...: start the scene, let it draw, photograph it, end it.
scene() {
    local name=$1; shift
    "$root/scripts/wine-run" "$scenes" "$@" &
    local pid=$!
    sleep "${PRISMO_SCENE_WAIT:-3}"
    shot "$name"
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
}

scene ui-msg-chatroom chatroom
scene ui-msg-paragraphs paragraphs
scene ui-ask-yesno ask
scene ui-error-report error
scene ui-setcolors setcolors 2
for mode in 0 1 2; do
    scene "ui-buttons-mode$mode" buttons "$mode"
done
scene ui-buttons-mode1-uk buttons 1 uk
