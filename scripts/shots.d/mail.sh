#!/usr/bin/env bash
# Screenshots of the e-mail side beside the AOL simulator: a Write Mail with
# the fader toolbar over it and a faded highlight, and a mail that the scheme
# mailer composed with two Fade Schemes attached.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
sim="$build/win64/aolsim"
ctl="$sim/aolsimctl.exe"
prismo="$build/win64/app/prismo.exe"
for f in "$sim/aol40/waol.exe" "$ctl" "$prismo"; do [ -x "$f" ] || { echo "mail.sh: $f is not built"; exit 1; }; done
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export PRISMO_SHOTS=${PRISMO_SHOTS:-$root/out/shots}
mkdir -p "$PRISMO_SHOTS"
declare -F shot >/dev/null || shot() { import -window root "$PRISMO_SHOTS/$1.png"; }

run() { "$root/scripts/wine-run" "$@"; }
ctl() { run "$ctl" "$@"; }
# until_true SECONDS COMMAND...: asks until the command succeeds.
until_true() {
    local limit=$1
    shift
    for _ in $(seq $((limit * 10))); do "$@" && return 0; sleep 0.1; done
    return 1
}

# What the installer leaves, the toolbar switched on, and where AOL lives.
reg="$build/shots-mail.reg"
{
    cat "$root/data/schemes/Schemes.reg"
    echo
    echo '[HKEY_CURRENT_USER\Software\Zun Software\Prismo]'
    echo "\"AOL Path\"=\"$(winepath -w "$sim/aol40" | sed 's/\\/\\\\/g')\""
    echo '[HKEY_CURRENT_USER\Software\Zun Software\Prismo\E-Fade]'
    echo '"ShowEFToolbar"="True"'
    echo '"Top"="1500"'
    echo '"Left"="9000"'
    echo '[HKEY_CURRENT_USER\Software\Zun Software\Prismo\EMail]'
    echo '"Show EMail Sample"="True"'
} >"$reg"
wine regedit /S "$(winepath -w "$reg")"
wineserver -w

run "$sim/aol40/waol.exe" --signed-on "Zun Tester" --mail &
aolpid=$!
trap 'ctl kill >/dev/null 2>&1 || kill $aolpid 2>/dev/null || true' EXIT
ctl wait 60
run "$prismo" &
menu_added() { ctl menu 2>/dev/null | grep -q 'Prism&o'; }
until_true 120 menu_added || { echo "mail.sh: Prismo never came up"; exit 1; }

# A highlight faded through the toolbar: the scene's own window presses it.
ctl mail-subject "Look at this" >/dev/null
ctl mail-text "Hello Kim!  This line was faded by Prismo's e-mail toolbar."
ctl mail-select 12 47
run "$build/win64/tests/chatlive/mail_scene.exe" apply-fade
ctl mail-select 0 0
ctl paint
shot mail-efade

# The scheme mailer: two schemes, a new mail composed in AOL.
ctl mail-send later
run "$build/win64/tests/chatlive/mail_scene.exe" mail-schemes "Cool Fade" "Ocean"
ctl mail-select 0 0
ctl paint
shot mail-schemes
