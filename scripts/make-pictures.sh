#!/usr/bin/env bash
# Takes the README's pictures anew from the program as it is released.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh run
cmake --preset release >/dev/null
cmake --build --preset release --target pictures -- --quiet
QT_QPA_PLATFORM=offscreen build/release/docs/pictures/pictures docs/pictures
