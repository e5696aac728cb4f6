#!/usr/bin/env bash
# Screenshots of Check for Updates beside the AOL simulator, asking a small
# web server of this script's own: the wait window while the server takes its
# time, the answer when a newer version is posted, and when it is not.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${PRISMO_BUILD:-$root/build}
sim="$build/win64/aolsim"
ctl="$sim/aolsimctl.exe"
prismo="$build/win64/app/prismo.exe"
scene="$build/win64/tests/chatlive/update_scene.exe"
for f in "$sim/aol40/waol.exe" "$ctl" "$prismo" "$scene"; do
    [ -x "$f" ] || { echo "updates.sh: $f is not built"; exit 1; }
done
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

# The web server: answers /prismover32 with the file "body" after "delay"
# seconds, and leaves "asked" behind as soon as a request has come.
web=$(mktemp -d)
echo 0 >"$web/delay"
python3 - "$web" <<'PY' &
import http.server, os, sys, time
folder = sys.argv[1]
class Version(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        open(os.path.join(folder, "asked"), "w").close()
        time.sleep(float(open(os.path.join(folder, "delay")).read()))
        body = open(os.path.join(folder, "body"), "rb").read()
        self.send_response(200)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)
    def log_message(self, *args):
        pass
server = http.server.HTTPServer(("127.0.0.1", 0), Version)
open(os.path.join(folder, "port.tmp"), "w").write(str(server.server_address[1]))
os.rename(os.path.join(folder, "port.tmp"), os.path.join(folder, "port"))
server.serve_forever()
PY
webpid=$!
until_true 20 test -s "$web/port" || { echo "updates.sh: the web server never came up"; exit 1; }
export PRISMO_UPDATE_HOST="127.0.0.1:$(cat "$web/port")"

reg="$build/shots-updates.reg"
{
    cat "$root/data/schemes/Schemes.reg"
    echo
    echo '[HKEY_CURRENT_USER\Software\Zun Software\Prismo]'
    echo "\"AOL Path\"=\"$(winepath -w "$sim/aol40" | sed 's/\\/\\\\/g')\""
} >"$reg"
wine regedit /S "$(winepath -w "$reg")"
wineserver -w

run "$sim/aol40/waol.exe" --signed-on "Zun Tester" --room "Town Square" &
aolpid=$!
trap 'ctl kill >/dev/null 2>&1 || kill $aolpid 2>/dev/null || true; kill $webpid 2>/dev/null || true; rm -rf "$web"' EXIT
ctl wait 60
run "$prismo" &
menu_added() { ctl menu 2>/dev/null | grep -q 'Prism&o'; }
until_true 120 menu_added || { echo "updates.sh: Prismo never came up"; exit 1; }
# "/updates" is a chat command: typed once Prismo's hook sits on the room's input.
hooked() { ctl subclassed 2>/dev/null | grep -q "^input.subclassed"; }
until_true 60 hooked || { echo "updates.sh: the chat room was never hooked"; exit 1; }

updates() { ctl type /updates; ctl key enter; }

# A newer version, posted by a slow server: first the wait window.
echo "9.9.9" >"$web/body"
echo 4 >"$web/delay"
rm -f "$web/asked"
updates
until_true 30 test -e "$web/asked" || { echo "updates.sh: the check never asked"; exit 1; }
run "$scene" wait-verCheck
shot updates-verCheck
run "$scene" wait-update
shot updates-new
run "$scene" ok

# The version running now, posted: nothing to do.
version=$(sed -n 's/^project(Prismo VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
echo "$version" >"$web/body"
echo 0 >"$web/delay"
updates
run "$scene" wait-update
shot updates-latest
run "$scene" ok
