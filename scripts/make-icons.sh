#!/usr/bin/env bash
# Renders the program's icon anew from its drawing.
set -euo pipefail
cd "$(dirname "$0")/../packaging/icons"

../../scripts/install-packages.sh icons
for size in 48 128 256; do
    rsvg-convert --width "$size" --height "$size" trelawn.svg --output "trelawn-$size.png"
done
