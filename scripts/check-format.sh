#!/usr/bin/env bash
# Every C++ file is formatted as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
find . \( -path ./build -o -path ./.git \) -prune -o \( -name "*.cpp" -o -name "*.h" \) -print0 |
    xargs -0 clang-format --dry-run --Werror
