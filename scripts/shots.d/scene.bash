# Shared by the scene scripts of scripts/shots.d (sourced, not run by
# scripts/shots): start a scene program, photograph it once it is drawn.

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
