# Shared by scripts/test, scripts/demo, scripts/shots and scripts/bench-chat:
# install what the project needs, build it three ways, and give each script
# its own virtual display and Wine prefix, so that two of them can run at once.
# Source it; it defines functions only.

PRISMO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=${PRISMO_BUILD:-$PRISMO_ROOT/build}

PRISMO_PACKAGES="cmake ninja-build clang clang-14 libclang-rt-14-dev googletest libbenchmark-dev
  g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-win32 binutils-mingw-w64 mingw-w64-tools
  wine wine64 fonts-wine xvfb x11-utils imagemagick python3 nsis"

prismo_install_deps() {
    local missing=""
    for p in $PRISMO_PACKAGES; do
        dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed" || missing="$missing $p"
    done
    [ -z "$missing" ] && return 0
    echo "== installing:$missing"
    local sudo=""
    [ "$(id -u)" = 0 ] || sudo="sudo"
    # A partly failed update still leaves usable lists.
    $sudo apt-get update -q || echo "apt-get update reported errors; going on"
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends $missing
}

prismo_build_native() {
    cmake -S "$PRISMO_ROOT" -B "$BUILD/native" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DPRISMO_SANITIZE=ON >/dev/null
    cmake --build "$BUILD/native"
}

prismo_build_win64() {
    cmake -S "$PRISMO_ROOT" -B "$BUILD/win64" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_TOOLCHAIN_FILE="$PRISMO_ROOT/cmake/mingw-x86_64.cmake" >/dev/null
    cmake --build "$BUILD/win64"
}

prismo_build_win32() {
    cmake -S "$PRISMO_ROOT" -B "$BUILD/win32" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$PRISMO_ROOT/cmake/mingw-i686.cmake" >/dev/null
    cmake --build "$BUILD/win32"
}

# prismo_display NUMBER: the X display a script runs on. A display of the
# user's own is used as it is; otherwise the script starts its own Xvfb (24
# bits) on :NUMBER, records its process id in PRISMO_XVFB_PID and checks that
# it answers. A display number already taken is not borrowed: another run
# owns it, and the next free number is used instead. Without NUMBER (by
# hand), :PRISMO_XVFB_DISPLAY, kept if running.
PRISMO_XVFB_PID=""
prismo_display() {
    if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then return 0; fi
    local n=${1:-${PRISMO_XVFB_DISPLAY:-77}}
    if xdpyinfo -display ":$n" >/dev/null 2>&1; then
        [ -z "${1:-}" ] && { export DISPLAY=":$n"; return 0; }
        local first=$n
        while [ -e "/tmp/.X$n-lock" ] || xdpyinfo -display ":$n" >/dev/null 2>&1; do
            n=$((n + 1))
            [ $n -gt $((first + 20)) ] && { echo "no free X display from :$first on" >&2; return 1; }
        done
        echo "display :$first is in use by another run; this one runs on :$n"
    fi
    prismo_start_xvfb "$n" 24 && { export DISPLAY=":$n"; return 0; }
    echo "Xvfb did not start on :$n" >&2
    prismo_stop_display
    return 1
}

# prismo_start_xvfb NUMBER DEPTH: starts an Xvfb on :NUMBER and waits until it
# says it takes connections (it writes its display number on -displayfd then);
# its process id goes to PRISMO_XVFB_PID. Fails if it ends or stays silent
# for 30 s (only a hung server gets that far).
prismo_start_xvfb() {
    local ready fd
    exec {fd}< <(exec Xvfb ":$1" -screen 0 "1024x768x$2" -nolisten tcp -displayfd 1 2>/dev/null)
    PRISMO_XVFB_PID=$!
    read -r -t 30 -u "$fd" ready || ready=""
    exec {fd}<&-
    [ "$ready" = "$1" ]
}

# Ends the Xvfb that prismo_display started, and only that one.
prismo_stop_display() {
    if [ -n "$PRISMO_XVFB_PID" ]; then
        kill "$PRISMO_XVFB_PID" 2>/dev/null || true
        wait "$PRISMO_XVFB_PID" 2>/dev/null || true
        PRISMO_XVFB_PID=""
    fi
}

# The drives a backup can go to, as letters; every one is a removable drive
# whose disk is the folder $WINEPREFIX/media/LETTER. A: is a floppy with a
# disk in it, B: a floppy drive with none (its folder is missing: a test puts
# a disk in by making the folder), E: a removable drive. C: and Z: are Wine's
# own fixed disks.
PRISMO_MEDIA_DRIVES=${PRISMO_MEDIA_DRIVES:-a b e}
PRISMO_NO_DISK=${PRISMO_NO_DISK:-b}

# Wine's mount manager takes the drive links and their kinds once, when the
# first program of a wineserver session starts it; a letter linked later is
# seen at once, but as a fixed disk (or as no drive while its folder is
# missing). So the links go in before the session that writes the kinds, and
# the programs of the next session see both.
prismo_media() {
    local l
    for l in $PRISMO_MEDIA_DRIVES; do
        case " $PRISMO_NO_DISK " in
            *" $l "*) ;;
            *) mkdir -p "$WINEPREFIX/media/$l" ;;
        esac
        ln -sfn "../media/$l" "$WINEPREFIX/dosdevices/$l:"
    done
}

# prismo_wineprefix NAME: a fresh Wine prefix of the script's own,
# $BUILD/prefix-NAME (without NAME, by hand: $BUILD/wineprefix, where ctest
# looks). Every program runs inside one virtual desktop (hooks, FindWindow
# and focus are per desktop); the programs that check the system are told
# they run on Windows 98. Its removable drives are those of prismo_media.
prismo_wineprefix() {
    local name=${1:+prefix-$1}
    export WINEPREFIX="$BUILD/${name:-wineprefix}"
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml="
    wineserver -k 2>/dev/null || true
    rm -rf "$WINEPREFIX"
    if ! wineboot -i >/dev/null 2>&1 || ! wineserver -w || [ ! -f "$WINEPREFIX/system.reg" ]; then
        echo "wineboot could not set up the Wine prefix $WINEPREFIX" >&2
        return 1
    fi
    # Marlett draws the caption buttons and Tahoma is the dialogs' face; the
    # fresh prefix does not pick them up from Wine's own folder by itself.
    cp /usr/share/wine/fonts/marlett.ttf /usr/share/wine/fonts/tahoma*.ttf \
        "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
    prismo_media
    local reg="$WINEPREFIX.reg" l
    {
        echo 'REGEDIT4'
        echo
        echo '[HKEY_CURRENT_USER\Software\Wine\Explorer]'
        echo '"Desktop"="Default"'
        echo
        echo '[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]'
        echo '"Default"="1024x768"'
        for exe in ${PRISMO_WIN98_PROGRAMS:-prismo.exe}; do
            echo
            echo "[HKEY_CURRENT_USER\\Software\\Wine\\AppDefaults\\$exe]"
            echo '"Version"="win98"'
        done
        echo
        echo '[HKEY_LOCAL_MACHINE\Software\Wine\Drives]'
        for l in $PRISMO_MEDIA_DRIVES; do echo "\"$l:\"=\"floppy\""; done
    } > "$reg"
    wine regedit /S "$(winepath -w "$reg")" >/dev/null 2>&1
    wineserver -w
}

# Ends every Wine program of this script's own prefix (and no other).
prismo_stop_wine() {
    if [ -n "${WINEPREFIX:-}" ]; then wineserver -k 2>/dev/null || true; fi
}
