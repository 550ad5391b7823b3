#!/usr/bin/env bash
# Everything that must hold before a change lands: style, checks, the product as it is released, and
# all tests under the sanitizers. Tells how long each step took; ends with the test runner's summary.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

step() { # $1 names the step, the rest is its command
    local began=$SECONDS
    echo "== $1"
    "${@:2}"
    echo "   took $((SECONDS - began)) s"
}

# Steps that are done at the same time, each as "name: command".
together() {
    local began=$SECONDS failed=0 logs index=0 step waiting=()
    logs=$(mktemp -d)
    for step in "$@"; do
        ${step#*: } >"$logs/${#waiting[@]}" 2>&1 &
        waiting+=($!)
    done
    for step in "$@"; do
        echo "== ${step%%: *}"
        wait "${waiting[index]}" || failed=1
        cat "$logs/$((index++))"
    done
    rm -r "$logs"
    echo "   took $((SECONDS - began)) s together"
    return $failed
}

style() {
    scripts/check-format.sh
    scripts/check-includes.sh
    scripts/check-guide.sh
}

build() { # $1 is a preset
    scripts/configure.sh "$1" "$PWD/build/$1" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
    cmake --build --preset "$1" --parallel "$(nproc)" -- --quiet
}

scripts/install-packages.sh run display test windows package
step "Style and structure" style
step "Build as released, warnings are errors" build release
together "./run.sh in odd places: scripts/try-run.sh" \
    "clang-tidy: scripts/check-tidy.sh build/release" \
    "Read by a compiler for Windows: scripts/check-windows.sh build/release" \
    "Package for Debian: scripts/make-package.sh"
step "Build with the address and undefined behaviour sanitizers" build asan

echo "== Tests under the sanitizers"
export ASAN_OPTIONS=detect_leaks=0:malloc_context_size=5
ctest --preset asan -j "$(nproc)"
