#!/bin/sh
# scripts/soak.sh [PART...]: what runs for hours. Parts are gallery (random events over its pages, sanitized), failures (the n-th
# allocation, read or connection fails), fuzz (every target), browser (its memory); without any, all of them. All are run even
# where one fails. Reports are left in out/soak/.
set -u
cd "$(dirname "$0")/.."

export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_stack_use_after_return=1:strict_string_checks=1}"
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$PWD/scripts/leaks.txt:print_suppressions=0}"
jobs=${JOBS:-2}
failed=""
mkdir -p out/soak

build() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null || return 1
    cmake --build "build/$1" -j"$jobs" --target "$2" >"out/soak/build-$1.log" 2>&1 || { tail -n 30 "out/soak/build-$1.log"; return 1; }
}

gallery() {
    build soak soak_gallery && build/soak/soak/soak_gallery --events "${EVENTS:-1000000}" --seed "${SEED:-1}"
}

failures() {
    build asan test_failing && build/asan/tests/test_failing --gtest_brief=1
}

# Of each target: how many inputs it ran in how many seconds. As many targets at once as there are jobs.
fuzz() {
    cmake --preset fuzz >/dev/null || return 1
    for target in $(scripts/fuzz.sh); do
        build fuzz "fuzz_$target" || return 1
    done
    scripts/fuzz.sh | seconds=${SECONDS_A_TARGET:-3600} xargs -P "$jobs" -I{} sh -c '
        log=out/soak/fuzz-{}.log
        scripts/fuzz.sh {} "$seconds" >"$log" 2>&1 && result=clean || result="FAILED, see $log"
        echo "{}: $(sed -n "s/^Done \([0-9]*\) runs in \([0-9]*\) second.*/\1 inputs in \2 seconds, /p" "$log")$result"
        [ "$result" = clean ]'
}

browser() {
    build release soak_browser && build/release/soak/soak_browser --minutes "${MINUTES:-60}" --seed "${SEED:-1}" >out/soak/browser.txt
    status=$?
    tail -n 4 out/soak/browser.txt
    return $status
}

[ $# -gt 0 ] || set -- gallery failures fuzz browser
for part in "$@"; do
    case $part in
    gallery | failures | fuzz | browser) ;;
    *) echo "soak: there is no part \"$part\"" >&2; exit 2 ;;
    esac
    echo "soak: $part"
    "$part" || failed="$failed $part"
done
[ -z "$failed" ] || { echo "soak: failed:$failed" >&2; exit 1; }
