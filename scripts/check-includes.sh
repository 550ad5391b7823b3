#!/usr/bin/env bash
# The arrows of the house run one way: common/files < common/event < common/print < ui and the wings <
# screens.cpp < main. A wing reaches into no other wing, and a screen into no other screen.
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

wings=$(find . -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | grep -vxE 'common|ui' | sort)
any_wing="($(echo "$wings" | paste -sd'|'))/"

complain "common/files includes what stands above it" < <(
    includes "(common/(event|print)|ui)/|$any_wing" common/files
)
complain "common/event includes what stands above it" < <(
    includes "(common/print|ui)/|$any_wing" common/event
)
complain "common/print includes what stands above it" < <(includes "ui/|$any_wing" common/print)
complain "ui/ includes a wing" < <(includes "$any_wing" ui)
for wing in $wings; do
    others="($(echo "$wings" | grep -vx "$wing" | paste -sd'|'))/"
    complain "$wing/ reaches into another wing" < <(includes "$others" "$wing")
done

# Only screens.cpp knows every screen; a screen's own source includes its own header.
complain "A screen is included by another file than screens.cpp" < <(
    includes '[^"]*/frm' . | grep -v '^\./screens\.cpp:' |
        awk -F'[:"]' '{ own = $1; sub(/^\.\//, "", own); sub(/\.cpp$/, ".h", own) } $4 != own'
)
complain "A frm file is no screen of screens.cpp" < <(
    find . -name 'frm*.h' -printf '%P\n' | while read -r header; do
        grep -qF "#include \"$header\"" screens.cpp || echo "$header"
    done
)

logic=$(find . \( -name '*.cpp' -o -name '*.h' \) |
    grep -vE '^\./(ui/|[a-z]+/(parts/|frm)|main\.cpp|screens\.)')
# shellcheck disable=SC2086
complain "Plain logic includes widgets" < <(
    includes '(Q(Widget|Application|Dialog|Painter|Font|Printer|Pixmap|Color)|ui/|[a-z]+/parts/)' \
        $logic
)

# What settles a race from a file's bytes loads no Qt at all.
complain "A file that needs the standard library alone includes Qt" < <(
    includes 'Q' common/files/recordlines.* common/event/{betrecords,pools,odds,settle}.* \
        common/event/racepayoffs.h common/event/rounding.*
)

exit $bad
