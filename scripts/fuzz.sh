#!/bin/sh
# scripts/fuzz.sh TARGET SECONDS: fuzzes one target, beginning with its corpus. What it finds worth keeping goes to
# build/fuzz/found/TARGET, inputs that break it to out/fuzz/. Without a target lists them.
set -eu
cd "$(dirname "$0")/.."

targets=$(sed -n 's/^ *plix_add_fuzzer(\([a-z0-9_]*\) .*/\1/p' fuzz/CMakeLists.txt)
target=${1:-}
if [ -z "$target" ]; then
    echo "$targets"
    exit
fi
if ! echo "$targets" | grep -qx -e "$target"; then
    echo "fuzz: there is no target \"$target\"" >&2
    exit 1
fi

cmake --build build/fuzz --target "fuzz_$target"
mkdir -p "build/fuzz/found/$target" out/fuzz
"build/fuzz/fuzz/fuzz_$target" -max_total_time="${2:-60}" -print_final_stats=1 -timeout=10 -rss_limit_mb=6144 -malloc_limit_mb=1024 \
    -artifact_prefix="out/fuzz/$target-" "build/fuzz/found/$target" "fuzz/corpus/$target"
