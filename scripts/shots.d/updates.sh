#!/usr/bin/env bash
# Screenshots of Check for Updates beside the AOL simulator, asking a small
# web server of this script's own: the wait window while the server takes its
# time, the answer when a newer version is posted, and when it is not.
set -eu
source "$(dirname "$0")/scene.bash"
scene="$build/win64/tests/chatlive/update_scene.exe"
need "$sim/aol40/waol.exe" "$ctl" "$prismo" "$scene"

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

install_settings
start_aol --signed-on "Zun Tester" --room "Town Square"
trap 'ctl kill >/dev/null 2>&1 || kill $aolpid 2>/dev/null || true; kill $webpid 2>/dev/null || true; rm -rf "$web"' EXIT
start_prismo
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
