#!/bin/sh
# Formats every source and header; with --check only names those that are not formatted and fails.
set -eu
cd "$(dirname "$0")/.."

mode="-i"
[ "${1:-}" != --check ] || mode="--dry-run --Werror"
# shellcheck disable=SC2086 # two words
find plix examples tests benchmarks fuzz \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -r -n 40 -P "$(nproc)" clang-format --style=file $mode
