#!/usr/bin/env bash
# The pages for people stay true to the program: what stands in bold in docs/guide is a caption of a
# screen, what stands in quotes is said by one, and a chapter that is named is in the program's own
# guide, which alone tells what each button does. Links and backticked paths lead to files.
set -euo pipefail
cd "$(dirname "$0")/.."
pages=(docs/guide/*.md)
linking=(README.md CONTRIBUTING.md CHANGELOG.md docs/*.md "${pages[@]}")
bad=0

complain() { # $1 says what is wrong; standard input lists it
    local lines
    lines=$(cat)
    [ -n "$lines" ] || return 0
    printf '%s:\n%s\n' "$1" "$lines"
    bad=1
}

joined() { # the text of files with every line break and run of blanks as one blank
    cat "$@" | tr -s '\n ' ' '
}

literals=$(cat $(find src -name '*.cpp') | grep -oE '"([^"\\]|\\.)+"' |
    sed -E 's/^"//; s/"$//; s/\\n/ /g; s/ +/ /g; s/:? $//' | sort -u)

complain "Bold in docs/guide, but no caption" < <(
    for page in "${pages[@]}"; do
        joined "$page" | grep -oE '\*\*[^*]+\*\*' | tr -d '*' || true
    done | sort -u | grep -vxF "$literals"
)
complain "In quotes in docs/guide, but said by no screen" < <(
    for page in "${pages[@]}"; do
        joined "$page" | sed -E 's/\*Chapter "[^"]*"|<[^>]*>/ /g' | grep -oE '"[^"]+"' | tr -d '"' ||
            true
    done | sort -u | while read -r text; do
        grep -qF -- "$text" <<<"$literals" || echo "$text"
    done
)
complain "No such chapter in Horsehelp.txt" < <(
    joined "${pages[@]}" | grep -oE '\*Chapter "[^"]+"' | cut -d'"' -f2 | sort -u |
        grep -vxF "$(grep -B1 '^==*$' src/help/Horsehelp.txt)"
)
complain "Links to nowhere" < <(
    for page in "${linking[@]}"; do
        grep -oE '(\]\(|src=")[^):#"]+' "$page" | sed -E 's/^(\]\(|src=")//' |
            while read -r target; do
                [ -e "$(dirname "$page")/$target" ] || echo "$page: $target"
            done
    done
)
complain "Named in CONTRIBUTING.md, but not there" < <(
    grep -oE '`[A-Za-z0-9_./-]+/[A-Za-z0-9_./-]*`' CONTRIBUTING.md | tr -d '`' | sort -u |
        while read -r path; do [ -e "$path" ] || [ -e "src/$path" ] || echo "$path"; done
)
complain "Longer than 100 columns" < <(
    grep -nE '^[^|].{100}' CONTRIBUTING.md CHANGELOG.md "${pages[@]}"
)
exit $bad
