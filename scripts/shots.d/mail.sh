#!/usr/bin/env bash
# Screenshots of the e-mail side beside the AOL simulator: a Write Mail with
# the fader toolbar over it and a faded highlight, and a mail that the scheme
# mailer composed with two Fade Schemes attached.
set -eu
source "$(dirname "$0")/scene.bash"
need "$sim/aol40/waol.exe" "$ctl" "$prismo" "$live_scene"

# What the installer leaves, with the toolbar's place and the samples on.
install_settings '[HKEY_CURRENT_USER\Software\Zun Software\Prismo\E-Fade]
"ShowEFToolbar"="True"
"Top"="1500"
"Left"="9000"
[HKEY_CURRENT_USER\Software\Zun Software\Prismo\EMail]
"Show EMail Sample"="True"'
start_aol --signed-on "Zun Tester" --mail
start_prismo

# A highlight faded through the toolbar: the scene's own window presses it.
ctl mail-subject "Look at this" >/dev/null
ctl mail-text "Hello Kim!  This line was faded by Prismo's e-mail toolbar."
ctl mail-select 12 47
run "$live_scene" apply-fade
ctl mail-select 0 0
ctl paint
shot mail-efade

# The scheme mailer: two schemes, a new mail composed in AOL.
ctl mail-send later
run "$live_scene" mail-schemes "Cool Fade" "Ocean"
ctl mail-select 0 0
ctl paint
shot mail-schemes
