#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the product's sources: all of a library at once.
# Nothing is done when it passed before and nothing has changed since: the sources, the checks, the
# build's settings, clang-tidy and Qt.
# Usage: check-tidy.sh BUILD_FOLDER, which must be configured.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

state=$build/tidy/$({
    clang-tidy --version
    dpkg-query -W qt6-base-dev
    find src .clang-tidy CMakePresets.json CMakeLists.txt scripts/check-tidy.sh \
        scripts/joined_sources.py -type f -print0 | sort -z | xargs -0 sha256sum
} | sha256sum | cut -c 1-64)
[ ! -e "$state" ] || exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
scripts/joined_sources.py "$build" "$work"

check() {
    local output
    output=$(clang-tidy --quiet --config-file=.clang-tidy -p "$1" "$2" 2>&1) ||
        { echo "$output" && return 1; }
}
export -f check
printf '%s\0' "$work"/*.cpp | xargs -0 -P "$(nproc)" -I {} bash -c 'check "$0" "$1"' "$work" {}
mkdir -p "$build/tidy"
touch "$state"
