#!/usr/bin/env bash
# The arrows of the house run one way: main -> screens -> a screen -> its logic -> common.
set -euo pipefail
cd "$(dirname "$0")/../src"
bad=0

complain() { # $1 says what is wrong; standard input lists where
    local lines
    lines=$(cat)
    [ -n "$lines" ] || return 0
    printf '%s:\n%s\n' "$1" "$lines"
    bad=1
}

includes() { # $1 is a pattern for the included path; the rest are folders or files to look in
    local pattern=$1
    shift
    grep -rnE --include='*.cpp' --include='*.h' "#include [\"<]$pattern" "$@" || true
}

# A screen is what screens.cpp includes. Only screens.cpp knows every screen; a screen's own source
# includes its own header. Any other frm file is a piece that screens of its folder are made of.
screens=$(sed -nE 's/^#include "(.*\/frm[^"]*)"/\1/p' screens.cpp | tr '\n' ' ')
complain "A screen is included by another file than screens.cpp" < <(
    includes '[^"]*/frm' . | grep -v '^\./screens\.cpp:' | awk -F: -v screens="$screens" '
    BEGIN {
        count = split(screens, names, " ")
        for (i = 1; i <= count; i++) isScreen[names[i]] = 1
    }
    {
        own = $1
        sub(/^\.\//, "", own)
        sub(/\.(cpp|h)$/, ".h", own)
        split($3, quoted, "\"")
        folder = own
        sub(/\/[^\/]*$/, "/", folder)
        if (quoted[2] != own && (quoted[2] in isScreen || index(quoted[2], folder) != 1)) print
    }'
)

subsystems='(setup|racecard|betting|payoff|multibets|transfer|repair|reports|help)/'
complain "common/ includes what stands above it" < <(includes "(ui/|$subsystems)" common)
complain "ui/ includes a subsystem" < <(includes "$subsystems" ui)

logic=$(find . \( -name '*.cpp' -o -name '*.h' \) | grep -vE '^\./(ui/|[a-z]+/frm|main\.cpp|screens\.)')
# shellcheck disable=SC2086
complain "Plain logic includes widgets" < <(
    includes '(Q(Widget|Application|Dialog|Painter|Font|Printer|Pixmap|Color)|ui/)' $logic
)

# What settles a race from a file's bytes loads no Qt at all.
complain "A file that needs the standard library alone includes Qt" < <(
    includes 'Q' common/recordlines.* common/betrecords.* common/pools.* common/odds.* \
        common/racepayoffs.* payoff/settle.* payoff/rounding.*
)

exit $bad
