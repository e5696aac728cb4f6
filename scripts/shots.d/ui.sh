#!/usr/bin/env bash
# Screenshots of the message box, the error report, the user colour dialog
# and every button kind in each interface colour mode; then the same buttons
# on a 256-colour display, where the program must start in mode 0 whatever
# mode is stored.
set -eu
source "$(dirname "$0")/scene.bash"
scenes="$build/win64/tests/ui/ui_scenes.exe"
need "$scenes"
scene() { run_scene "$scenes" "$@"; }

scene ui-msg-chatroom chatroom
scene ui-msg-paragraphs paragraphs
scene ui-ask-yesno ask
scene ui-error-report error
scene ui-setcolors setcolors 2
for mode in 0 1 2; do
    scene "ui-buttons-mode$mode" buttons "$mode"
done
scene ui-buttons-mode1-uk buttons 1 uk

# The 256-colour display: an 8-bit Xvfb and a Wine prefix of this run's own
# (ten above the display in use, and beside the prefix in use), mode 2 stored.
n=${DISPLAY#*:}
low=${PRISMO_LOWCOLOR_DISPLAY:-$(( ${n%%.*} + 10 ))}
if xdpyinfo -display ":$low" >/dev/null 2>&1; then
    echo "ui.sh: display :$low is already in use by another run"
    exit 1
fi
source "$root/scripts/common.sh"
prismo_start_xvfb "$low" 8 || true
xvfb=$PRISMO_XVFB_PID
trap 'kill $xvfb 2>/dev/null || true; wait $xvfb 2>/dev/null || true' EXIT
xdpyinfo -display ":$low" >/dev/null 2>&1 || { echo "ui.sh: the 8-bit Xvfb did not start on :$low"; exit 1; }
(
    export DISPLAY=":$low" WINEPREFIX="${WINEPREFIX:-$build/wineprefix}-8bit"
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        rm -rf "$WINEPREFIX"
        wineboot -i >/dev/null 2>&1 && wineserver -w
        [ -f "$WINEPREFIX/system.reg" ] || { echo "ui.sh: wineboot could not set up $WINEPREFIX"; exit 1; }
    fi
    reg="$build/lowcolor.reg"
    printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n"Desktop"="Default"\n\n[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\n"Default"="1024x768"\n\n[HKEY_CURRENT_USER\\Software\\Zun Software\\Prismo]\n"UIMode"="2"\n' > "$reg"
    wine regedit /S "$(winepath -w "$reg")" >/dev/null 2>&1
    status=0
    "$root/scripts/wine-run" "$scenes" startmode || status=$?
    echo "ui.sh: on the 8-bit display with mode 2 stored, the program starts in mode $status"
    scene ui-buttons-8bit buttons
    wineserver -k 2>/dev/null || true
    [ "$status" = 0 ]
)
