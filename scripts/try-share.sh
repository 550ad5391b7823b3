#!/usr/bin/env bash
# Tries networked betting on one computer: starts a Samba server that only this computer can reach,
# shares a folder as Tshare, mounts it where the system allows that, and starts the program on it.
# Usage: try-share.sh [FOLDER]   (default: a temporary folder, removed at the end)
# With "--check" instead of a folder it only tells whether share and mount work.
set -euo pipefail
cd "$(dirname "$0")/.."

had_samba=$(dpkg-query -W -f='${db:Status-Status}' samba 2>/dev/null || true)
scripts/install-packages.sh share

check=no
[ "${1:-}" = --check ] && { check=yes; shift; }
work=$(mktemp -d)
folder=${1:-$work/event}
mount_point=$work/mounted
port=4450
mkdir -p "$folder" "$mount_point" "$work/state"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)

# A package just installed must not leave a server of its own listening to the whole network.
if [ "$had_samba" != installed ] && command -v systemctl >/dev/null; then
    "${as_root[@]}" systemctl disable --now smbd nmbd >/dev/null 2>&1 || true
fi

# The name that the program asks the operator to note down.
name=$(hostname)
name=${name%%.*}
name=${name^^}
name=${name:0:15}

server=
clean_up() {
    "${as_root[@]}" umount "$mount_point" 2>/dev/null || true
    [ -z "$server" ] || "${as_root[@]}" kill "$server" 2>/dev/null || true
    wait 2>/dev/null || true
    "${as_root[@]}" rm -rf "$work"
}
trap clean_up EXIT

cat >"$work/smb.conf" <<CONF
[global]
    server role = standalone server
    interfaces = 127.0.0.1
    bind interfaces only = yes
    smb ports = $port
    disable netbios = yes
    load printers = no
    map to guest = Bad User
    guest account = $(id -un)
    log file = $work/log
    lock directory = $work/state
    state directory = $work/state
    cache directory = $work/state
    private dir = $work/state
    pid directory = $work/state
[Tshare]
    path = $folder
    read only = no
    guest ok = yes
CONF
"${as_root[@]}" smbd --foreground --no-process-group --configfile="$work/smb.conf" \
    </dev/null >"$work/smbd.out" 2>&1 &
server=$!

for _ in $(seq 50); do
    smbclient -N -p "$port" //127.0.0.1/Tshare -c 'ls' >/dev/null 2>&1 && break
    sleep 0.1
done
smbclient -N -p "$port" //127.0.0.1/Tshare -c 'ls' >/dev/null ||
    { echo "The Samba server did not start:"; cat "$work/smbd.out"; exit 1; }
echo "Sharing $folder as \\\\$name\\Tshare on 127.0.0.1, port $port."

if "${as_root[@]}" mount -t cifs "//$name/Tshare" "$mount_point" \
    -o "ip=127.0.0.1,port=$port,guest,uid=$(id -u),gid=$(id -g)" 2>"$work/mount.err"; then
    echo "Mounted at $mount_point. Press Start Networked Betting on the main menu."
else
    echo "This system does not let the share be mounted: $(head -1 "$work/mount.err")"
    echo "Networked betting can be tried on the plain folder instead:"
    echo "  mkdir -p ~/.local/share/trelawn/network/$name"
    echo "  ln -s FOLDER ~/.local/share/trelawn/network/$name/Tshare"
    exit 2
fi
[ "$check" = yes ] || ./run.sh
