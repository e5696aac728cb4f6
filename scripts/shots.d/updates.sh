#!/usr/bin/env bash
# Screenshots of Check for Updates beside the AOL simulator, asking a small
# web server of this script's own: the wait window while the server takes its
# time, the answer when a newer version is posted, and when it is not.
set -eu
source "$(dirname "$0")/scene.bash"
need "$sim/aol40/waol.exe" "$ctl" "$prismo" "$live_scene"

# The web server answers /prismover32 with the file "body". It tells this
# script its port and each request through pipes, and holds each answer until
# the script lets it go, so the wait window stays up as long as it is needed.
web=$(mktemp -d)
mkfifo "$web/port" "$web/asked" "$web/release"
# Opened both ways here, so neither side blocks opening them.
exec 3<>"$web/port" 4<>"$web/asked" 5<>"$web/release"
python3 - "$web" <<'PY' &
import http.server, os, select, sys
folder = sys.argv[1]
def tell(name, text):
    fd = os.open(os.path.join(folder, name), os.O_WRONLY | os.O_NONBLOCK)
    os.write(fd, (text + "\n").encode())
    os.close(fd)
release = os.open(os.path.join(folder, "release"), os.O_RDONLY | os.O_NONBLOCK)
class Version(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        tell("asked", "asked")
        if select.select([release], [], [], 60)[0]:
            os.read(release, 64)
        body = open(os.path.join(folder, "body"), "rb").read()
        self.send_response(200)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)
    def log_message(self, *args):
        pass
server = http.server.HTTPServer(("127.0.0.1", 0), Version)
tell("port", str(server.server_address[1]))
server.serve_forever()
PY
webpid=$!
read -r -t 20 -u 3 port || { echo "updates.sh: the web server never came up"; exit 1; }
export PRISMO_UPDATE_HOST="127.0.0.1:$port"

install_settings
start_aol --signed-on "Zun Tester" --room "Town Square"
trap 'ctl kill >/dev/null 2>&1 || kill $aolpid 2>/dev/null || true; kill $webpid 2>/dev/null || true; rm -rf "$web"' EXIT
# "/updates" is a chat command: typed once Prismo's hook sits on the room's input.
start_prismo room

# updates: "/updates" typed into the room, until the server has been asked.
updates() {
    ctl type /updates
    ctl key enter
    read -r -t 30 -u 4 _ || { echo "updates.sh: the check never asked"; exit 1; }
}

# A newer version, posted by a slow server: first the wait window.
echo "9.9.9" >"$web/body"
updates
run "$live_scene" wait-verCheck
shot updates-verCheck
echo go >&5
run "$live_scene" wait-update
shot updates-new
run "$live_scene" ok

# The version running now, posted: nothing to do.
version=$(sed -n 's/^project(Prismo VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
echo "$version" >"$web/body"
updates
echo go >&5
run "$live_scene" wait-update
shot updates-latest
run "$live_scene" ok
