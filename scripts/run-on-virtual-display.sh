#!/usr/bin/env bash
# Starts a program on a virtual display of 1024 x 768 that only this computer can look at.
set -euo pipefail

"$(dirname "$0")/install-packages.sh" display

errors=$(mktemp)
server=
trap 'rm -f "$errors"; [ -z "$server" ] || { kill "$server"; wait; } 2>/dev/null || true' EXIT

# Tells whether the server came up under the number $1. -localhost binds the VNC server to 127.0.0.1;
# -nolisten keeps X11 itself off the network too.
serve() {
    Xvnc ":$1" -geometry 1024x768 -depth 24 -localhost=1 -rfbport "$((5900 + $1))" \
        -SecurityTypes None -nolisten tcp -AlwaysShared 2>"$errors" &
    server=$!
    for _ in $(seq 100); do
        kill -0 "$server" 2>/dev/null || return 1
        grep -q 'Listening for VNC connections' "$errors" && return
        sleep 0.1
    done
    return 1
}

number=1
until [ ! -e "/tmp/.X$number-lock" ] && [ ! -e "/tmp/.X11-unix/X$number" ] && serve "$number"; do
    if [ -s "$errors" ]; then
        echo "Display $number, port $((5900 + number)): $(sed -n 's/^(EE) \(..*\)/\1/p' "$errors" | tail -1)" >&2
        : >"$errors"
    fi
    number=$((number + 1))
    [ "$number" -le 99 ] || { echo "There is no free virtual display." >&2 && exit 1; }
done
port=$((5900 + number))

echo "There is no display here, so the program starts on a virtual one that only this computer can reach."
echo "To look at it: vncviewer localhost:$port"
echo "From another computer: ssh -L $port:localhost:$port $(hostname), then vncviewer localhost:$port there."

export DISPLAY=":$number"
openbox >/dev/null 2>&1 &
"$@"
