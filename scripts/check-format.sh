#!/usr/bin/env bash
# Every C++ file is formatted as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror
