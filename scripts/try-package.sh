#!/usr/bin/env bash
# Installs the package into a bare system of its own, starts it there as a plain user by the command of
# its desktop entry, takes a bet with the keyboard alone, and prints the receipt.
# Usage: try-package.sh [BASE.tar]   (default: debootstrap fetches the bare system, a few minutes)
# Nothing is left but the receipt and a picture of the screen, in build/try-package.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    echo "try-package: $*" >&2
    exit 1
}

[ "$(id -u)" -eq 0 ] || exec sudo --preserve-env "$0" "$@"
scripts/make-package.sh
scripts/install-packages.sh root
package=$(echo "$PWD"/build/release/package/*.deb)
results=$PWD/build/try-package
mkdir -p "$results"
rm -f "$results"/*

work=$(mktemp -d)
chmod 755 "$work"
root=$work/root
mkdir "$root"
started=()
clean_up() {
    [ ${#started[@]} -eq 0 ] || kill "${started[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
    mountpoint -q "$root/tmp/.X11-unix" && umount "$root/tmp/.X11-unix"
    mountpoint -q "$root/proc" && umount "$root/proc"
    rm -rf --one-file-system "$work"
}
trap clean_up EXIT

until_true() { # $1 says what is waited for; the rest is the command that tells
    for _ in $(seq 300); do
        "${@:2}" >/dev/null 2>&1 && return
        sleep 0.1
    done
    import -window root "$results/screen.png" 2>/dev/null || true
    fail "$1 did not come; see $results"
}

# --- the bare system
if [ $# -gt 0 ]; then
    tar -xf "$1" -C "$root"
else
    . /etc/os-release
    debootstrap --variant=minbase "$VERSION_CODENAME" "$root" >"$work/log" 2>&1 ||
        { tail -20 "$work/log" && fail "no bare system"; }
fi
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d" # no service starts in there
chmod +x "$root/usr/sbin/policy-rc.d"
cp -L /etc/resolv.conf "$root/etc/resolv.conf"
mount -t proc proc "$root/proc"
cp "$package" "$root/tmp/trelawn.deb"
inside=(chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8
    DEBIAN_FRONTEND=noninteractive)
{
    "${inside[@]}" apt-get update -qq &&
        "${inside[@]}" apt-get install -y -qq --no-install-recommends /tmp/trelawn.deb
} >"$work/log" 2>&1 || { tail -20 "$work/log" && fail "the package cannot be installed"; }
"${inside[@]}" useradd --create-home organiser

# --- a printer that files each job under its number
paper=$root/tmp/paper
mkdir -p "$paper"/{bin/backend,bin/daemon,mime,jobs}
printf '%s\n' '#!/bin/sh' '[ $# -gt 0 ] || exit 0' \
    'cat "$6" >"${DEVICE_URI#paper:}/$1.part" && mv "${DEVICE_URI#paper:}/$1.part" "${DEVICE_URI#paper:}/$1.pdf"' \
    >"$paper/bin/backend/paper"
chmod 700 "$paper/bin/backend/paper"
ln -s /usr/lib/cups/daemon/cups-exec "$paper/bin/daemon/cups-exec"
echo 'application/pdf pdf string(0,%PDF)' >"$paper/mime/mime.types"
: >"$paper/mime/mime.convs"
cat >"$paper/cups-files.conf" <<CONF
FatalErrors none
AccessLog $paper/access
ErrorLog $paper/errors
PageLog $paper/pages
ServerRoot $paper
ServerBin $paper/bin
DataDir $paper
RequestRoot $paper/spool
CacheDir $paper/cache
StateDir $paper/state
CONF
cat >"$paper/cupsd.conf" <<CONF
Listen $paper/socket
Browsing Off
DefaultAuthType None
<Location />
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
CONF
printf '<DefaultPrinter till>\nDeviceURI paper:%s\nState Idle\nAccepting Yes\n</DefaultPrinter>\n' \
    "$paper/jobs" >"$paper/printers.conf"
PATH=$PATH:/usr/sbin cupsd -f -c "$paper/cupsd.conf" -s "$paper/cups-files.conf" &
started+=($!)
until_true "the print server" test -S "$paper/socket"

# --- a display that the bare system sees
mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$work/display" 2>/dev/null &
started+=($!)
read -r number <"$work/display" || fail "the display did not start"
export DISPLAY=:$number
mkdir -p "$root/tmp/.X11-unix"
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
openbox >/dev/null 2>&1 &
started+=($!)

# --- an evening: a horse, a bettor, a bet
command=$(sed -n 's/^Exec=//p' "$root"/usr/share/applications/*.desktop)
event=$root/home/organiser/.local/share/trelawn/drives/C/Trelawn
mkdir -p "$event"
for twin in "Horses Race1" "Horsesbackup Race1"; do
    printf '1,0,"1A","SECOND WIND"\r\n' >"$event/$twin"
done
"${inside[@]}" chown -R organiser: /home/organiser
chroot --userspec=organiser:organiser "$root" env -i PATH=/usr/bin:/bin HOME=/home/organiser \
    LC_ALL=C.UTF-8 DISPLAY="$DISPLAY" CUPS_SERVER=/tmp/paper/socket \
    sh -c "cd && exec $command" 2>"$results/errors" &
started+=($!)

at() { # $1 is the title of the window that must be in front; the rest are keys
    until_true "the window $1" in_front "$1"
    xdotool key --delay 80 "${@:2}"
}
in_front() {
    [[ $(xdotool getactivewindow getwindowname) == "$1" ]]
}

at "Init Drive" Return
at "Printer Attached?" Return
at "TRELAWN - Setup" alt+g
at "TRELAWN - Main Menu" alt+p
at "Bettor List" S M I T H minus J O Return
at "Bettors" Return
at "Bettor List" alt+m
at "TRELAWN - Main Menu" alt+l
at "Bet Sheet using local files" S M I Return 5 space ctrl+Return
at "Place Bets" Return
until_true "the receipt" test -s "$paper/jobs/1.pdf"
import -window root "$results/screen.png"
cp "$paper/jobs/1.pdf" "$results/receipt.pdf"
pdftotext -layout "$results/receipt.pdf" - | tee "$work/receipt"
grep -q 'SECOND WIND' "$work/receipt" || fail "the receipt does not name the horse"
at "Bet Sheet using local files" alt+t
at "TRELAWN - Main Menu" alt+e
"${inside[@]}" dpkg --purge trelawn >/dev/null
left=$(find "$root/usr" "$root/etc" -iname '*trelawn*')
[ -z "$left" ] || fail "the package leaves behind: $left"
echo "The package installs, starts, prints and goes again; see $results"
