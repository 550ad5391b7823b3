#!/usr/bin/env bash
# Installs by apt what the named groups of packages lack; nothing when all is there.
# Usage: install-packages.sh GROUP..., with the groups run, display, test, windows, package, root, icons,
# bench and share.
set -euo pipefail

declare -A groups=(
    [run]="g++ cmake ninja-build qt6-base-dev libqt6printsupport6 fonts-liberation"
    [display]="tigervnc-standalone-server openbox"
    [test]="git clang-format clang-tidy poppler-utils cups-daemon cups-client xvfb at-spi2-core dbus python3-gi gir1.2-atspi-2.0"
    [windows]="g++-mingw-w64-x86-64-posix"
    [bench]="libbenchmark-dev mawk sqlite3"
    [package]="lintian desktop-file-utils appstream man-db dpkg-dev"
    [root]="debootstrap xvfb openbox xdotool imagemagick cups-daemon cups-client poppler-utils"
    [icons]="librsvg2-bin"
    [share]="samba smbclient cifs-utils"
)

missing=()
for group in "$@"; do
    for package in ${groups[$group]}; do
        status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$status" = installed ] || missing+=("$package")
    done
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "Installing ${missing[*]}"
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
