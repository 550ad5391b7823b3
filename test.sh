#!/usr/bin/env bash
# Everything that must hold before a change lands: style, checks, all tests, and the tests once more
# under the sanitizers. Ends with the test runner's own summary.
set -euo pipefail
cd "$(dirname "$0")"

scripts/install-packages.sh run test

echo "== Style and structure"
scripts/check-format.sh
scripts/check-includes.sh

echo "== Build, warnings are errors"
cmake --preset dev >/dev/null
cmake --build --preset dev -- --quiet

echo "== clang-tidy"
scripts/check-tidy.sh build/dev

echo "== Build with the address and undefined behaviour sanitizers"
cmake --preset asan >/dev/null
cmake --build --preset asan -- --quiet

echo "== Tests under the sanitizers"
export ASAN_OPTIONS=detect_leaks=0
ctest --preset asan -j 2

echo "== Tests"
ctest --preset dev -j 2
