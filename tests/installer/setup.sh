#!/usr/bin/env bash
# The setup program and the uninstaller under Wine, run silently as a network
# administrator would: a fresh install, an install over an older one, Prismo
# from the installed folder beside the AOL simulator, the refusals while
# Prismo runs and while AOL holds the hook library, and the uninstall.
set -u
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
win64="$build/win64"
setup="$win64/installer/prismo-setup-test.exe"
sim="$win64/aolsim"
live_scene="$win64/tests/chatlive/live_scene.exe"
for f in "$setup" "$sim/aol40/waol.exe" "$sim/aolsimctl.exe" "$live_scene" "$win64/app/prismo.exe"; do
    [ -f "$f" ] || { echo "setup.sh: $f is not built"; exit 1; }
done
export WINEPREFIX=${WINEPREFIX:-$build/wineprefix}
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}

program_key='HKCU\Software\Zun Software\Prismo'
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Prismo'
folder='C:\prismo-setup-test'
dir=$(winepath -u "$folder")
menu="$(winepath -u "$(wine cmd /c 'echo %APPDATA%' | tr -d '\r')")/Microsoft/Windows/Start Menu/Programs/Prismo"
work=$(mktemp -d)
installed=(prismo.exe prismosbc.dll prismo.hlp uninstall.exe prismo.gid)
shortcuts=(Prismo.lnk "Prismo Help.lnk" "Choose AOL Folder.lnk" Uninstall.lnk)

failures=0
fail() { echo "FAILED: $*"; failures=$((failures + 1)); }
ctl() { wine "$sim/aolsimctl.exe" "$@"; }
# A run that fails half-way leaves no AOL or Prismo behind for the next test.
aol="" prismo=""
trap 'kill $aol $prismo 2>/dev/null; rm -rf "$work"' EXIT
has_key() { wine reg query "$1" >/dev/null 2>&1; }
value() { wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | sed -n "s/^ *$2 *REG_[A-Z_]* *//p"; }

# The program's key as regedit exports it, in one plain form: "[key]" lines
# and "name=data" lines beneath, for keys that hold values.
export_key() {
    rm -f "$work/export.reg"
    wine regedit /E "$(winepath -w "$work/export.reg")" "${program_key/HKCU/HKEY_CURRENT_USER}" >/dev/null 2>&1
    flat_reg "$work/export.reg"
}
flat_reg() {
    python3 - "$1" <<'EOF'
import sys
data = open(sys.argv[1], "rb").read() if len(sys.argv) > 1 else b""
text = data.decode("utf-16") if data[:2] == b"\xff\xfe" else data.decode("cp1252")
keys, key = {}, None
for line in text.splitlines():
    if line.startswith("["):
        key = line.strip("[]")
    elif "=" in line and key:
        keys.setdefault(key, []).append(line)
for key in sorted(keys):
    print(f"[{key}]")
    print("\n".join(sorted(keys[key])))
EOF
}

# What the folder, the Start menu, the uninstall entry and the program's key
# hold: a refused run must leave all of it as it was.
snapshot() {
    { (cd "$dir" 2>/dev/null && find . -printf '%p %s %T@\n' | sort)
      ls "$menu" 2>/dev/null
      wine reg query "$uninstall_key" 2>/dev/null | tr -d '\r'
      export_key; } >"$work/$1"
}

install() { wine "$setup" /S "/D=$folder"; }
# refused STATUS WHILE: an install and an uninstall (run in place, _?=, for
# its own status rather than its copy's) both end with STATUS, changing nothing.
refused() {
    install
    [ $? = "$1" ] || fail "an install while $2 was not refused with status $1"
    wine "$dir/uninstall.exe" /S "_?=$folder"
    [ $? = "$1" ] || fail "an uninstall while $2 was not refused with status $1"
    snapshot after
    diff -u "$work/before" "$work/after" || fail "a refused run while $2 changed something"
}
files_in_place() {
    local f
    for f in prismo.exe prismosbc.dll prismo.hlp; do
        cmp -s "$win64/app/$f" "$dir/$f" || fail "$1: $f is not the build's"
    done
    [ -f "$dir/uninstall.exe" ] || fail "$1: no uninstall.exe"
    [ -d "$dir/incoming" ] && [ -d "$dir/outgoing" ] || fail "$1: no incoming and outgoing folders"
    for f in "${shortcuts[@]}"; do [ -f "$menu/$f" ] || fail "$1: no shortcut $f"; done
    [ "$(value "$uninstall_key" UninstallString)" = "\"$folder\\uninstall.exe\"" ] ||
        fail "$1: the uninstall entry does not name $folder\\uninstall.exe"
}

echo "== a fresh install"
wine reg delete "$program_key" /f >/dev/null 2>&1
wine reg delete "$uninstall_key" /f >/dev/null 2>&1
rm -rf "$dir" "$menu"
install || fail "the fresh install ended with status $?"
files_in_place "fresh install"
strings -el "$menu/Choose AOL Folder.lnk" | grep -qx CHANGEAOL ||
    fail "the Choose AOL Folder shortcut does not pass CHANGEAOL"
flat_reg "$root/data/schemes/Schemes.reg" >"$work/shipped"
export_key >"$work/installed"
diff -u "$work/shipped" "$work/installed" || fail "the program's key holds other values than Schemes.reg"

echo "== an install over an older one"
cool='HKCU\Software\Zun Software\Prismo\Schemes\Cool Fade'
echo "an older program" >"$dir/prismo.exe"
echo "an older help file" >"$dir/prismo.hlp"
wine reg add "$cool" /v One /d 42 /f >/dev/null
wine reg delete "$cool" /v Six /f >/dev/null
wine reg add "${program_key}\\Schemes\\Mine" /v "Fade Number" /d 2 /f >/dev/null
wine reg delete "${program_key}\\Schemes\\Ocean" /f >/dev/null
install || fail "the install over an older one ended with status $?"
files_in_place "install over an older one"
[ "$(value "$cool" One)" = 42 ] || fail "the edited shipped scheme's colour was written over"
[ -z "$(value "$cool" Six)" ] || fail "a value the user removed from a shipped scheme came back"
[ "$(value "${program_key}\\Schemes\\Mine" "Fade Number")" = 2 ] || fail "the user's own scheme was lost"
[ "$(value "${program_key}\\Schemes\\Ocean" "Fade Number")" = 3 ] || fail "a shipped scheme the user lacks was not written"

echo "== Prismo from the installed folder beside AOL"
wine "$sim/aol40/waol.exe" &
aol=$!
ctl wait 60 || fail "the AOL simulator never came up"
wine "$folder\\prismo.exe" &
prismo=$!
wine "$live_scene" wait-prismo || fail "the installed Prismo never put its menu into AOL"
asked=$(wine "$live_scene" help-request | tr -d '\r')
[ "${asked,,}" = "${folder,,}\\prismo.hlp	table of contents	261" ] ||
    fail "the installed Prismo's Help asked for \"$asked\", not its own prismo.hlp at its contents"

echo "== refused while Prismo runs"
snapshot before
refused 3 "Prismo runs"

echo "== refused while AOL holds the hook library"
# Prismo vanishes; AOL keeps the library it loaded.
wine taskkill /F /IM prismo.exe >/dev/null
wait "$prismo"
prismo=""
grep -qi "prismo-setup-test/prismosbc.dll" "/proc/$aol/maps" ||
    fail "AOL does not hold the installed prismosbc.dll, so this part proves nothing"
refused 4 "AOL holds the hook library"
ctl kill >/dev/null
wait "$aol"
aol=""

echo "== the uninstall"
echo "a scheme on its way out" >"$dir/outgoing/Mine.fde"
# WinHelp's index of the help file, as it leaves one beside it.
echo "an index" >"$dir/prismo.gid"
wine "$dir/uninstall.exe" /S || fail "the uninstaller did not start"
# It carries on as a copy of itself from the temporary folder, the only
# program left in the prefix: once every program has ended, so has it.
timeout 300 wineserver -w || fail "the uninstaller did not end within five minutes"
has_key "$uninstall_key" && fail "the uninstall entry is still there"
for f in "${installed[@]}" incoming; do [ -e "$dir/$f" ] && fail "the uninstall left $f"; done
[ -f "$dir/outgoing/Mine.fde" ] || fail "the uninstall removed the user's file in outgoing"
[ -e "$menu" ] && fail "the uninstall left the Start-menu folder"
[ "$(value "${program_key}\\Schemes\\Mine" "Fade Number")" = 2 ] || fail "a silent uninstall removed the settings"
rm -rf "$dir"

[ $failures = 0 ] && echo "setup: all passed"
exit $((failures > 0))
