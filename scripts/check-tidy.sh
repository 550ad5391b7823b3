#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the product's sources. A source is passed over
# when it passed before and nothing it depends on has changed since: its text, the headers of ours
# that it includes, the checks, the build's settings, clang-tidy and Qt.
# Usage: check-tidy.sh BUILD_FOLDER, which must be built: the compiler wrote there what includes what.
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1
passed=$build/tidy # an empty file for each state that passed, named after its hash
mkdir -p "$passed"

# clang cannot read gcc's precompiled header, and does not need it.
database=$(mktemp -d)
trap 'rm -rf "$database"' EXIT
sed -E 's/-Winvalid-pch -include [^ "]*//; s/-Wno-stringop-overflow//' "$build/compile_commands.json" \
    >"$database/compile_commands.json"

declare -A included # by source: it and the headers of ours that it includes, directly or not
while read -r source file; do
    included[$source]+=" $file"
done < <(
    ninja -C "$build" -t deps | awk '
        /^[^ ]/ { source = ""; next }
        NF == 1 && !/_autogen|^ *\/usr\// && sub(/^.*\/src\//, "src/", $1) {
            if (source == "") source = $1
            print source, $1
        }'
)

settings=$(clang-tidy --version; dpkg-query -W qt6-base-dev
    cat .clang-tidy CMakePresets.json CMakeLists.txt src/CMakeLists.txt)
new_sources() { # tells each source that has to be checked, and the name of its state
    local source state
    find src -name '*.cpp' | sort | while read -r source; do
        # shellcheck disable=SC2086
        state=$({ echo "$settings"; sha256sum ${included[$source]:-"$source"} 2>&1 || true; } |
            sha256sum)
        state=$passed/${state%% *}
        [ -e "$state" ] || printf '%s\0%s\0' "$source" "$state"
    done
}

check() { # $1 is the database, $2 the source, $3 the state to note when it passes
    local output
    if output=$(clang-tidy --quiet -p "$1" "$2" 2>&1); then
        touch "$3"
    else
        echo "$output"
        return 1
    fi
}
export -f check

new_sources | xargs -0 -r -n 2 -P "$(nproc)" bash -c 'check "$0" "$@"' "$database"
