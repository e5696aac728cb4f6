#!/usr/bin/env bash
# A screenshot of a chat room with lines Prismo faded as they were typed and
# sent, its control panel below the room.
set -eu
source "$(dirname "$0")/scene.bash"
need "$prismo" "$live_scene" "$sim/aol40/waol.exe" "$ctl"

install_settings

start_aol --room "Town Square" --signed-on "Zun Tester"
start_prismo room
for line in "Hello from Prismo!" "Every letter in its own colour," "fading through the colours you pick."; do
    ctl type "$line" >/dev/null
    ctl key enter >/dev/null
done
# Each Enter returns once AOL has taken the line: the room holds all three.
[ "$(ctl transcript | grep -c .)" -ge 3 ] || { echo "chat.sh: the room never got the lines"; exit 1; }
shot chat-faded
