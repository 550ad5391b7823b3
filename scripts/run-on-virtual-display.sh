#!/usr/bin/env bash
# Starts a program on a virtual display of 1024 x 768 that only this computer can look at.
set -euo pipefail

"$(dirname "$0")/install-packages.sh" display

number=1
while [ -e "/tmp/.X$number-lock" ] || [ -e "/tmp/.X11-unix/X$number" ]; do
    number=$((number + 1))
done
port=$((5900 + number))

echo "There is no display here, so the program starts on a virtual one that only this computer can reach."
echo "To look at it: vncviewer localhost:$port"
echo "From another computer: ssh -L $port:localhost:$port $(hostname), then vncviewer localhost:$port there."

# -localhost binds the VNC server to 127.0.0.1; -nolisten keeps X11 itself off the network too.
Xvnc ":$number" -geometry 1024x768 -depth 24 -localhost=1 -rfbport "$port" \
    -SecurityTypes None -nolisten tcp -AlwaysShared 2>/dev/null &
server=$!
trap 'kill "$server" 2>/dev/null || true' EXIT
for _ in $(seq 50); do
    [ -e "/tmp/.X11-unix/X$number" ] && break
    sleep 0.1
done

export DISPLAY=":$number"
openbox >/dev/null 2>&1 &
"$@"
