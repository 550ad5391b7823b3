#!/usr/bin/env bash
# Installs by apt what the named groups of packages lack; nothing when all is there.
# Usage: install-packages.sh GROUP..., with the groups run, wayland, display, test, windows, wine, package,
# root, icons, guide, bench and share.
set -euo pipefail

declare -A groups=(
    [run]="g++ cmake ninja-build qt6-base-dev fonts-liberation ca-certificates"
    [wayland]="qt6-wayland"
    [display]="tigervnc-standalone-server openbox"
    [test]="git clang clang-format clang-tidy libclang-rt-dev poppler-utils cups-daemon cups-client xvfb at-spi2-core dbus python3-gi gir1.2-atspi-2.0"
    [windows]="g++-mingw-w64-x86-64-posix"
    [wine]="wine wine64 dpkg-dev fonts-liberation"
    [bench]="libbenchmark-dev mawk sqlite3"
    [package]="lintian desktop-file-utils appstream man-db dpkg-dev"
    [root]="debootstrap xvfb openbox xdotool imagemagick cups-daemon cups-client poppler-utils"
    [icons]="librsvg2-bin"
    [guide]="librsvg2-bin poppler-utils"
    [share]="samba smbclient cifs-utils"
)

# Where there is no apt, what these groups are for may be there under other names.
declare -A commands=([run]="c++ cmake ninja" [wayland]="" [display]="Xvnc openbox")
all_there() {
    local group tool
    for group in "$@"; do
        [ -v "commands[$group]" ] || return 1
        for tool in ${commands[$group]}; do
            command -v "$tool" >/dev/null || return 1
        done
    done
}
without_apt() {
    all_there "$@" && exit
    echo "This system has no apt. Please install what these packages of Debian hold, and try again:"
    for group in "$@"; do
        echo "    ${groups[$group]}"
    done
    echo "What builds and runs the program is called elsewhere:
    Fedora    gcc-c++ cmake ninja-build qt6-qtbase-devel qt6-qtwayland liberation-fonts
    openSUSE  gcc-c++ cmake ninja qt6-base-devel qt6-wayland liberation-fonts
    Arch      gcc cmake ninja qt6-base qt6-wayland ttf-liberation
and for a virtual display: tigervnc-server (Arch: tigervnc) openbox"
    exit 1
} >&2
command -v apt-get >/dev/null && command -v dpkg-query >/dev/null || without_apt "$@"

missing=()
for group in "$@"; do
    for package in ${groups[$group]}; do
        status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$status" = installed ] || missing+=("$package")
    done
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
    if ! command -v sudo >/dev/null || { [ ! -t 0 ] && ! sudo -n true 2>/dev/null; }; then
        echo "Packages are missing that only an administrator can install:" >&2
        echo "    apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
fi
echo "Installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
{
    "${as_root[@]}" apt-get update -qq || true # without a network the known lists may do
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}"
} >"$log" 2>&1 || {
    cat "$log" >&2
    echo "These packages could not be installed: ${missing[*]}" >&2
    exit 1
}
