#!/usr/bin/env bash
# Takes the pictures of the README and the guide anew from the program as it is released.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh run
scripts/configure.sh release
cmake --build --preset release --target pictures -- --quiet
QT_QPA_PLATFORM=offscreen build/release/docs/pictures/pictures docs/pictures
