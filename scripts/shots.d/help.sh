#!/usr/bin/env bash
# Screenshots of Prismo's help in Wine's winhlp32: the contents topic, and
# the Index that lists every keyword.
set -eu
source "$(dirname "$0")/scene.bash"
scenes="$build/win64/tests/help/help_scene.exe"
need "$scenes"
[ -f "$build/win64/app/prismo.hlp" ] || { echo "help.sh: prismo.hlp is not built"; exit 1; }

run_scene "$scenes" help-contents contents
run_scene "$scenes" help-index index
# Ending a scene leaves its winhlp32 behind; the scenes after need it gone.
run "$scenes" end
