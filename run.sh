#!/usr/bin/env bash
# Builds the program and starts it. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

groups=(run)
[ -z "${WAYLAND_DISPLAY:-}" ] || groups+=(wayland)
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || groups+=(display)
scripts/install-packages.sh "${groups[@]}"

build=$PWD/build/release
if ! mkdir -p "$build" 2>/dev/null || [ ! -w "$build" ]; then
    build=${XDG_CACHE_HOME:-$HOME/.cache}/trelawn-build
    echo "This folder cannot be written to, so the program is built in $build"
    mkdir -p "$build"
fi
exec {lock}>"$build.lock"
flock --nonblock "$lock" || { echo "Another ./run.sh builds here: waiting for it." && flock "$lock"; }
trap 'printf "\nInterrupted. ./run.sh goes on where it was.\n" >&2; exit 130' INT TERM
scripts/configure.sh release "$build"
cmake --build "$build"
trap - INT TERM
exec {lock}>&-

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec "$build/src/trelawn" "$@"
fi
exec scripts/run-on-virtual-display.sh "$build/src/trelawn" "$@"
