#!/bin/sh
# Formats every source and header; with --check only names those that are not formatted and fails.
set -eu
cd "$(dirname "$0")/.."

each_source() {
    find plix plugins examples tests benchmarks fuzz soak scripts \( -name '*.cpp' -o -name '*.h' \) -print0 |
        xargs -0 -r -n 40 -P "$(nproc)" clang-format --style=file "$@"
}

if [ "${1:-}" != --check ]; then
    each_source -i
    exit
fi
unformatted=$(each_source --dry-run 2>&1 | sed -n 's/:[0-9]*:[0-9]*: warning: .*//p' | sort -u)
if [ -n "$unformatted" ]; then
    echo "format: not as make format leaves them:"
    echo "$unformatted"
    exit 1
fi
