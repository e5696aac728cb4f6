# Shared by scripts/test, scripts/demo and scripts/shots: install what the
# project needs, build it three ways, and set up Wine on a virtual display.
# Source it; it defines functions only.

PRISMO_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=${PRISMO_BUILD:-$PRISMO_ROOT/build}

PRISMO_PACKAGES="cmake ninja-build clang clang-14 libclang-rt-14-dev googletest libbenchmark-dev
  g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-win32 binutils-mingw-w64 mingw-w64-tools
  wine wine64 fonts-wine xvfb xdotool x11-utils imagemagick lolcat nsis python3"

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

# An X display: the one we have, or a private Xvfb at 24 bits.
prismo_display() {
    if [ -n "${DISPLAY:-}" ] && xdpyinfo >/dev/null 2>&1; then return 0; fi
    local n=${PRISMO_XVFB_DISPLAY:-77}
    if ! xdpyinfo -display ":$n" >/dev/null 2>&1; then
        Xvfb ":$n" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
        for _ in $(seq 50); do xdpyinfo -display ":$n" >/dev/null 2>&1 && break; sleep 0.1; done
    fi
    export DISPLAY=":$n"
}

# A fresh Wine prefix under the build folder. Every program runs inside one
# virtual desktop (hooks, FindWindow and focus are per desktop); the programs
# that check the system are told they run on Windows 98.
prismo_wineprefix() {
    export WINEPREFIX="$BUILD/wineprefix"
    export WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml="
    wineserver -k 2>/dev/null || true
    rm -rf "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1
    wineserver -w
    # Marlett draws the caption buttons and Tahoma is the dialogs' face; the
    # fresh prefix does not pick them up from Wine's own folder by itself.
    cp /usr/share/wine/fonts/marlett.ttf /usr/share/wine/fonts/tahoma*.ttf \
        "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null || true
    local reg="$BUILD/prefix.reg"
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
    } > "$reg"
    wine regedit /S "$(winepath -w "$reg")" >/dev/null 2>&1
    wineserver -w
}
