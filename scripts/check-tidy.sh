#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the product's sources: all of a library at once,
# since nearly all the time goes into Qt's headers. Nothing is done when it passed before and nothing
# has changed since: the sources, the checks, the build's settings, clang-tidy and Qt.
# Usage: check-tidy.sh BUILD_FOLDER, which must be configured.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

state=$build/tidy/$({
    clang-tidy --version
    dpkg-query -W qt6-base-dev
    find src .clang-tidy CMakePresets.json CMakeLists.txt scripts/check-tidy.sh -type f -print0 |
        sort -z | xargs -0 sha256sum
} | sha256sum | cut -c 1-64)
[ ! -e "$state" ] || exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The compiler's commands for targets, but for those that compile nothing of ours.
commands() { # $1 matches the targets' names
    sed -nE "s/^ *\"command\": \"(.* -o [^ ]*\/($1)\.dir\/.*)\",\$/\1/p" \
        "$build/compile_commands.json" | grep -vE ' -c .*(mocs_compilation|cmake_pch|qrc_)'
}

# Prints the entry of the compiler's database for one file that includes all that the targets
# compile. clang cannot read gcc's precompiled header, and does not need it.
join() { # $1 is the file to make, $2 matches the targets' names
    commands "$2" | sed -E 's|.* -c (.*)|// NOLINTNEXTLINE(bugprone-suspicious-include)\n#include "\1"|' \
        >"$1"
    commands "$2" | tail -1 | sed -E "s/-Winvalid-pch -include [^ ]*//; s/-Wno-stringop-overflow//
        s|(.*) -o .*|{\"directory\": \"$PWD/$build\", \"file\": \"$1\", \"command\": \"\1 -c $1\"}|"
}
{
    echo '['
    join "$work/core.cpp" trelawn_core
    echo ','
    join "$work/screens.cpp" 'trelawn|trelawn_screens'
    echo ']'
} >"$work/compile_commands.json"

check() {
    local output
    output=$(clang-tidy --quiet --config-file=.clang-tidy -p "$1" "$2" 2>&1) ||
        { echo "$output" && return 1; }
}
export -f check
printf '%s\n' "$work"/*.cpp | xargs -P "$(nproc)" -I {} bash -c 'check "$0" "$1"' "$work" {}
mkdir -p "$build/tidy"
touch "$state"
