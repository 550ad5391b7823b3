#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the product's sources, as they are compiled: those
# of a folder at once, since most of the time goes into Qt's headers. A folder is passed over when it
# passed before and nothing it depends on has changed since: the sources, the headers of ours that they
# include, the checks, the build's settings, clang-tidy and Qt.
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

declare -A included # by compiled file: the sources and headers of ours in it
while read -r compiled file; do
    included[$compiled]+=" $file"
done < <(
    ninja -C "$build" -t deps | awk '
        /^[^ ]/ { compiled = $1; sub(/\.o:$/, "", compiled) }
        NF == 1 && !/_autogen|\/CMakeFiles\/|^ *\/usr\// && sub(/^.*\/src\//, "src/", $1) {
            print compiled, $1
        }'
)

settings=$(clang-tidy --version; dpkg-query -W qt6-base-dev
    cat .clang-tidy CMakePresets.json CMakeLists.txt src/CMakeLists.txt)
new_files() { # tells each compiled file that has to be checked, and the name of its state
    local file object state
    sed -nE 's/.* -o ([^ ]*)\.o -c ([^ "]*)".*/\1 \2/p' "$database/compile_commands.json" |
        grep -vE 'mocs_compilation|cmake_pch|qrc_' | while read -r object file; do
        # shellcheck disable=SC2086
        state=$({ echo "$settings"; sha256sum ${included[$object]}; } | sha256sum)
        state=$passed/${state%% *}
        [ -e "$state" ] || printf '%s\0%s\0' "$file" "$state"
    done
}

check() { # $1 is the database, $2 the compiled file, $3 the state to note when it passes
    local output
    if output=$(clang-tidy --quiet -p "$1" "$2" 2>&1); then
        touch "$3"
    else
        echo "$output"
        return 1
    fi
}
export -f check

new_files | xargs -0 -r -n 2 -P "$(nproc)" bash -c 'check "$0" "$@"' "$database"
