#!/usr/bin/env bash
# Starts the program ($1, of the version $2) with arguments and without a display: what it answers at
# once, and what it refuses. Neither leaves a file behind.
set -uo pipefail
program=$1
version=$2
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
export HOME=$home XDG_DATA_HOME=$home/data XDG_RUNTIME_DIR=$home
bad=0

expect() { # $1 is the exit code, $2 a pattern for each line of all output; the rest are arguments
    local code=$1 pattern=$2 said
    shift 2
    said=$("$program" "$@" 2>"$home/errors")
    if [ $? -ne "$code" ] || ! grep -qxE -e "$pattern" <<<"$said$(cat "$home/errors")"; then
        echo "trelawn $*: $said$(cat "$home/errors")"
        bad=1
    fi
    # An answer is on standard output, a refusal on the other.
    [ "$code" -eq 0 ] && [ -s "$home/errors" ] && bad=1
    [ "$code" -ne 0 ] && [ -n "$said" ] && bad=1
    rm -f "$home/errors"
}

expect 0 "Usage: trelawn" --help
expect 0 " *-h, --help .*" -h
expect 0 "trelawn ${version//./\\.}" --version
expect 0 "trelawn ${version//./\\.}" -v
expect 1 "trelawn: unknown option: --race=3" --race=3
expect 1 "trelawn: unknown option: Init" -platform offscreen Init
expect 1 "trelawn: unknown option: -x" -platform offscreen -x
[ -z "$(ls -A "$home")" ] || { ls -A "$home" && bad=1; }
exit $bad
