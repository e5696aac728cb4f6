#!/usr/bin/env bash
# Screenshots of the Import/Export wizard: each of its pages in each
# interface colour mode, exporting the shipped schemes.
set -eu
source "$(dirname "$0")/scene.bash"
scenes="$build/win64/tests/wizard/wizard_scenes.exe"
need "$scenes"

install_settings

pages=(welcome drive import list confirm backup finish)
for mode in 0 1 2; do
    for page in 0 1 2 3 4 5 6; do
        run_scene "$scenes" "wizard-mode$mode-${pages[$page]}" "$mode" "$page"
    done
done
