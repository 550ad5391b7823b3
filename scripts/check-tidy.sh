#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the product's sources.
# Usage: check-tidy.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
build=$1

# clang cannot read gcc's precompiled header, and does not need it.
database=$(mktemp -d)
trap 'rm -rf "$database"' EXIT
sed -E 's/-Winvalid-pch -include [^ "]*//; s/-Wno-stringop-overflow//' "$build/compile_commands.json" \
    >"$database/compile_commands.json"
find src -name '*.cpp' -print0 |
    xargs -0 -P "$(nproc)" -n 8 clang-tidy --quiet -p "$database" 2>&1 |
    { grep -vE '^[0-9]+ warnings? generated|^Suppressed|^Use -header-filter' || true; } |
    tee "$database/log"
! grep -qE 'error:|warning:' "$database/log"
