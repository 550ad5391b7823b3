#!/usr/bin/env bash
# Reads all sources of the product as a compiler for Windows does, with Debian's Qt headers. It makes
# no program: Debian has no Qt for Windows to link with.
# Usage: check-windows.sh BUILD_FOLDER, which must be configured.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

state=$build/windows/$({
    dpkg-query -W qt6-base-dev g++-mingw-w64-x86-64-posix
    find src CMakePresets.json CMakeLists.txt scripts/check-windows.sh scripts/joined_sources.py \
        -type f -print0 | sort -z | xargs -0 sha256sum
} | sha256sum | cut -c 1-64)
[ ! -e "$state" ] || exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
scripts/joined_sources.py "$build" "$work" x86_64-w64-mingw32-g++-posix -fsyntax-only \
    -DUNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN
mkdir -p "$build/windows"
touch "$state"
