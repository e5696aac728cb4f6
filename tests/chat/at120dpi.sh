#!/usr/bin/env bash
# The panel's collapse button on a 120 DPI display: a Wine prefix of this
# run's own (beside the one in use) with LogPixels 120, where the panel test
# that collapses and expands runs again.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
test_exe="$build/win64/tests/chat/chat_panel_test.exe"
[ -x "$test_exe" ] || { echo "at120dpi.sh: $test_exe is not built"; exit 1; }
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
export WINEPREFIX="${WINEPREFIX:-$build/wineprefix}-120dpi"
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    rm -rf "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1 && wineserver -w
    [ -f "$WINEPREFIX/system.reg" ] || { echo "at120dpi.sh: wineboot could not set up $WINEPREFIX"; exit 1; }
fi
wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 120 /f >/dev/null 2>&1
status=0
PRISMO_EXPECT_DPI=120 wine "$test_exe" --gtest_filter='ChatToolsTest.CollapseAndExpand*' || status=$?
wineserver -k 2>/dev/null || true
exit $status
