#!/usr/bin/env bash
# Builds and runs the benchmarks, and times the settling of one bet file against awk and sqlite3
# where they are installed.
set -euo pipefail
cd "$(dirname "$0")"

scripts/install-packages.sh run bench
cmake --preset bench >/dev/null
cmake --build --preset bench -- --quiet

echo "== A full race: 20,000 bets or multibets, 2,000 bettors"
build/bench/bench/bench_night --benchmark_color=false "$@" 2>/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
awk 'BEGIN {
    for (n = 0; n < 20000; n++)
        printf "%d,%d,%d,%s\r\n", n * 7919 % 2000 + 1, int(n * 31 / 7) % 21 + 1, n % 3 + 1, n % 40 / 2 + 0.5
}' >"$work/bets"

settle_here() { build/bench/bench/settle_file "$work/bets" 3 7 12 2000; }
settle_awk() { "$1" -v w=3 -v p=7 -v s=12 -v n=2000 -f bench/settle.awk "$work/bets"; }
settle_sqlite() {
    sqlite3 -batch :memory: \
        'create table bets (bettor real, post real, type real, amount real)' \
        'create table race (w, p, s, n)' 'insert into race values (3, 7, 12, 2000)' \
        '.mode csv' ".import $work/bets bets" '.mode list' '.read bench/settle.sql'
}

# The median of 21 runs in microseconds; the output of the last run stays in $work/out.
median() {
    for _ in $(seq 21); do
        local start
        start=${EPOCHREALTIME/[.,]/}
        "$@" >"$work/out"
        echo $((${EPOCHREALTIME/[.,]/} - start))
    done | sort -n | sed -n 11p
}

echo
echo "== One file of 20,000 bets settled by a whole process (median of 21 runs)"
ours=$(median settle_here)
cp "$work/out" "$work/expected"
cat "$work/expected"
printf '%-10s %9s %8s\n' program "time/us" ratio
printf '%-10s %9d %8s\n' trelawn "$ours" 1.0
compare() { # name, command...
    local name=$1 time
    shift
    time=$(median "$@")
    printf '%-10s %9d %8s\n' "$name" "$time" "$(awk "BEGIN { printf \"%.1f\", $time / $ours }")"
    cmp -s "$work/out" "$work/expected" ||
        { echo "  $name came to other results:"; diff "$work/out" "$work/expected" || true; }
}
for awk in mawk gawk; do
    command -v $awk >/dev/null && compare $awk settle_awk $awk
done
command -v sqlite3 >/dev/null && compare sqlite3 settle_sqlite

echo
echo "== From the start of the process to the first painted screen (median of 21 runs)"
bare=$(median build/bench/bench/first_screen grid)
setup=$(median build/bench/bench/first_screen setup)
awk "BEGIN { printf \"%-26s %9d us\\n%-26s %9d us  %.2f times\\n\", \"200 bare fields\", $bare,
    \"setup screen\", $setup, $setup / $bare }"
