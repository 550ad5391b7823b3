#!/usr/bin/env bash
# Prints the guide's pages as PDF into build/release/guide. The cashier's page must be one sheet.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh run guide
scripts/configure.sh release
cmake --build --preset release --target paper -- --quiet
output=build/release/guide
mkdir -p "$output"
rm -f "$output"/*
for drawing in docs/guide/*.svg; do
    rsvg-convert --zoom 3 "$drawing" --output "$output/$(basename "$drawing" .svg).png"
done
pages=(docs/guide/[a-z]*.md)
QT_QPA_PLATFORM=offscreen build/release/docs/guide/paper "$output" "${pages[@]}"
rm "$output"/*.png
sheets=$(pdfinfo "$output/cashier.pdf" | sed -n 's/^Pages: *//p')
[ "$sheets" = 1 ] || { echo "The cashier's page takes $sheets sheets." >&2 && exit 1; }
