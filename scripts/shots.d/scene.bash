# Shared by the scene scripts of scripts/shots.d (sourced, not run by
# scripts/shots): where things are, the Wine settings, and the ways a scene
# runs programs, waits, and photographs the display.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
sim="$build/win64/aolsim"
ctl="$sim/aolsimctl.exe"
prismo="$build/win64/app/prismo.exe"
live_scene="$build/win64/tests/chatlive/live_scene.exe"
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export PRISMO_SHOTS=${PRISMO_SHOTS:-$root/out/shots}
mkdir -p "$PRISMO_SHOTS"
declare -F shot >/dev/null || shot() { import -window root "$PRISMO_SHOTS/$1.png"; }

# need FILE...: fails the scene unless every program it runs is built.
need() {
    local f
    for f in "$@"; do [ -x "$f" ] || { echo "$(basename "$0"): $f is not built"; exit 1; }; done
}
run() { "$root/scripts/wine-run" "$@"; }
ctl() { run "$ctl" "$@"; }

# install_settings LINES: what the installer leaves (the shipped schemes and
# where AOL lives), and the registry lines given, in regedit's form.
install_settings() {
    local reg="$build/shots-$(basename "$0" .sh).reg"
    {
        cat "$root/data/schemes/Schemes.reg"
        echo
        echo '[HKEY_CURRENT_USER\Software\Zun Software\Prismo]'
        echo "\"AOL Path\"=\"$(winepath -w "$sim/aol40" | sed 's/\\/\\\\/g')\""
        echo "${1:-}"
    } >"$reg"
    wine regedit /S "$(winepath -w "$reg")"
    wineserver -w
}

# start_aol ARGS...: the AOL simulator (4.0) with ARGS, until its start-up
# windows are open; it ends with the scene.
start_aol() {
    run "$sim/aol40/waol.exe" "$@" &
    aolpid=$!
    trap 'ctl kill >/dev/null 2>&1 || kill $aolpid 2>/dev/null || true' EXIT
    ctl wait 60
}

# start_prismo [room]: Prismo beside the running simulator, until its menu is
# in AOL (and, with "room", its hooks on the chat room's input).
start_prismo() {
    run "$prismo" &
    run "$live_scene" wait-prismo "$@" || { echo "$(basename "$0"): Prismo never came up"; exit 1; }
}

# run_scene PROGRAM NAME ARGS...: starts PROGRAM ARGS under Wine, waits until
# the scene says it is on screen (it creates the file PRISMO_SCENE_READY
# names), saves the display as NAME.png and ends the program. Fails when the
# scene ends or a minute passes without it coming up.
run_scene() {
    local program=$1 name=$2
    shift 2
    local mark="$PRISMO_SHOTS/.$name.ready"
    rm -f "$mark"
    PRISMO_SCENE_READY="$(winepath -w "$mark")" "$root/scripts/wine-run" "$program" "$@" &
    local pid=$! drawn=""
    for _ in $(seq 600); do
        [ -e "$mark" ] && { drawn=yes; break; }
        kill -0 "$pid" 2>/dev/null || break
        sleep 0.1
    done
    [ -n "$drawn" ] && shot "$name"
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
    rm -f "$mark"
    [ -n "$drawn" ] || { echo "scene $name never came up"; return 1; }
}
