#!/usr/bin/env bash
# Prepares a build, and says why where that fails. What was built before the folder was moved or copied
# is thrown away, since it points to where it was.
# Usage: configure.sh PRESET [FOLDER [CMAKE_OPTION...]]   (default: build/PRESET)
set -euo pipefail
cd -P "$(dirname "$0")/.."
preset=$1
build=${2:-$PWD/build/$preset}

setting() { # of the build that is there
    sed -n "s/^$1:INTERNAL=//p" "$build/CMakeCache.txt" 2>/dev/null || true
}
from=$(setting CMAKE_HOME_DIRECTORY)
if [ -n "$from" ] && { [ "$from" != "$PWD" ] || [ "$(setting CMAKE_CACHEFILE_DIR)" != "$build" ]; }; then
    echo "What is built here came from $from: it is built anew."
    rm -rf "$build"
fi

if ! mkdir -p "$build" 2>/dev/null || [ ! -w "$build" ]; then
    echo "The folder $build cannot be written to." >&2
    exit 1
fi
configure() {
    cmake --preset "$preset" -B "$build" "$@" >"$build/configure.log" 2>&1 || {
        cat "$build/configure.log" >&2
        echo "The build could not be prepared; the reason is above." >&2
        exit 1
    }
}
configure "${@:3}"
# With another compiler than the last time CMake forgets all settings, those of the preset too.
! grep -q "require your cache to be deleted" "$build/configure.log" || configure "${@:3}"
