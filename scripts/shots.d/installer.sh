#!/usr/bin/env bash
# Screenshots of the setup program and the uninstaller, run as a person runs
# them: the folder page, the finished install, the last page; the refusals
# while Prismo runs and while AOL may hold the hook library; the uninstaller's
# confirmation, its question about the settings, and its end.
set -eu
source "$(dirname "$0")/scene.bash"
setup="$build/win64/installer/prismo-setup-test.exe"
driver="$build/win64/tests/installer/setup_scene.exe"
need "$driver" "$prismo" "$live_scene"
[ -f "$setup" ] || { echo "installer.sh: $setup is not built"; exit 1; }
uninstaller='C:\Program Files\Prismo\uninstall.exe'
key='HKEY_CURRENT_USER\Software\Zun Software\Prismo'

# The scenes after this one find the program's settings as they were.
saved="$PRISMO_SHOTS/.installer-settings.reg"
rm -f "$saved"
wine regedit /E "$(winepath -w "$saved")" "$key" >/dev/null 2>&1 || true
restore_settings() {
    wine regedit /D "$key" >/dev/null 2>&1 || true
    [ -f "$saved" ] && wine regedit /S "$(winepath -w "$saved")" >/dev/null 2>&1
    rm -f "$saved"
    wineserver -w
}

# page CAPTION SHOT TEXT BUTTON: once the window whose caption holds CAPTION
# shows TEXT, saves the display as SHOT.png and presses BUTTON (1 Next,
# Install or Close, 2 Cancel, 7 No).
page() {
    local caption=$1 name=$2 text=$3 button=$4
    run_scene "$driver" "$name" show "$caption" "$text"
    run "$driver" press "$caption" "$text" "$button"
}
setup_page() { page Setup "$@"; }
uninstall_page() { page Uninstall "$@"; }

echo "installer: an install into the default folder"
run "$setup" &
setup_pid=$!
setup_page installer-folder "Setup will install" 1
setup_page installer-installed "Completed" 1
setup_page installer-finished "is installed in" 1
wait "$setup_pid"

echo "installer: refused while Prismo runs, then while AOL may hold the library"
start_aol
run "$prismo" &
prismo_pid=$!
run "$live_scene" wait-prismo || { echo "installer.sh: Prismo never came up"; exit 1; }
run "$setup" &
setup_pid=$!
setup_page installer-prismo-running "Prismo is running" 2
wait "$setup_pid" || true
wine taskkill /F /IM prismo.exe >/dev/null
wait "$prismo_pid" || true
run "$setup" &
setup_pid=$!
run "$driver" press Setup "Setup will install" 1
setup_page installer-close-aol "prismosbc.dll" 2
wait "$setup_pid" || true
ctl kill >/dev/null
wait "$aolpid" || true

echo "installer: the uninstall"
# The uninstaller hands over to a copy of itself and ends at once.
run "$uninstaller"
uninstall_page uninstall-confirm "This will remove" 1
uninstall_page uninstall-settings "Remove your Prismo settings" 7
uninstall_page uninstall-done "Completed" 1
restore_settings
