#!/usr/bin/env bash
# Builds the program and starts it. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$0")"

scripts/install-packages.sh run
cmake --preset release >build-release.log 2>&1 || { cat build-release.log; exit 1; }
rm -f build-release.log
cmake --build --preset release

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/src/trelawn "$@"
fi
exec scripts/run-on-virtual-display.sh build/release/src/trelawn "$@"
