#!/bin/sh
# Installs the library as it is released, moves what was installed, and uses it from there: with CMake, with pkg-config, shared and
# static. Then writes the Debian packages and installs them in a clean Debian 12.
#
#     scripts/release-check.sh [--without-packages]
#
# A clean Debian needs root and debootstrap. The system that it is copied from is kept in build/clean-root. RELEASE_OPTIONS are further
# options for CMake.
set -eu

cd "$(dirname "$0")/.."
project=$PWD
jobs=${JOBS:-$(nproc)}
out=$project/out/release
compiler=${CXX:-c++}
RELEASE_OPTIONS=${RELEASE_OPTIONS:-}
export LANG=de_DE.UTF-8 LC_ALL= LANGUAGE=
unset PLIX_RESOURCES

say() { echo "release-check: $*"; }
fail() { say "$*" >&2; exit 1; }

build() { # preset
    preset=$1
    mkdir -p build
    # shellcheck disable=SC2086 # one option a word
    cmake --preset "$preset" $RELEASE_OPTIONS >"build/$preset.log" || { cat "build/$preset.log"; exit 1; }
    cmake --build "build/$preset" -j"$jobs" >"build/$preset.log" 2>&1 || { tail -40 "build/$preset.log"; exit 1; }
}

# Installs into one folder and moves that to another: nothing may remember where it was.
install_and_move() { # preset name
    rm -rf "$out/$2" "$out/first-$2"
    cmake --install "build/$1" --strip --prefix "$out/first-$2" >/dev/null
    mv "$out/first-$2" "$out/$2"
    if grep -rlF -e "$out/first-$2" -e "$project/plix" "$out/$2"; then
        fail "these files remember where they were made or installed first"
    fi
}

# Every symbol that is shown is the library's. What the compiler makes of the standard library's templates is weak, and everybody's.
check_symbols() { # library
    foreign=$(nm -DC --defined-only "$1" | grep -v -e ' [WVu] ' -e 'plix::' -e ' __bss_start$' -e ' _edata$' -e ' _end$' || true)
    [ -z "$foreign" ] || { echo "$foreign" | head -20; fail "$1 shows what is not its own"; }
    nm -DC --defined-only "$1" | grep -q ' plix::NSView::' || fail "$1 shows no NSView"
    if nm -DC --defined-only "$1" | grep -E ' plix::(MenuTracker|GlyphPainter|ShapedTextCache)::' | head -3 | grep .; then
        fail "$1 shows what is inside it"
    fi
}

run() { # program argument...
    "$@" || fail "$* failed"
}

with_cmake() { # prefix build-folder
    rm -rf "$2"
    cmake -S tests/installed -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH="$1" \
        -DCMAKE_CXX_COMPILER="$compiler" >"$2.log" || { cat "$2.log"; exit 1; }
    grep -q "^plix_DIR:PATH=$1/" "$2/CMakeCache.txt" || fail "another plix was found"
    cmake --build "$2" -j"$jobs" >"$2.log" 2>&1 || { tail -40 "$2.log"; exit 1; }
    run "$2/values"
    run "$2/application" --resources
}

with_pkg_config() { # prefix build-folder option...
    prefix=$1 folder=$2
    shift 2
    mkdir -p "$folder"
    # A clean path of its own, so that no other plix is taken.
    folders=$(find "$prefix" -type d -name pkgconfig)
    PKG_CONFIG_PATH=$folders
    export PKG_CONFIG_PATH
    # shellcheck disable=SC2046 # the words are options
    "$compiler" -std=c++20 -o "$folder/values_pc" tests/installed/values.cpp $(pkg-config --cflags --libs plix-logic)
    # shellcheck disable=SC2046
    "$compiler" -std=c++20 -o "$folder/application_pc" tests/installed/application.cpp $(pkg-config "$@" --cflags --libs plix) \
        -Wl,-rpath,"$(dirname "$folders")"
    run "$folder/values_pc"
    run "$folder/application_pc"
}

check_shared() {
    say "building the shared library"
    build package
    install_and_move package dynamic
    library=$(find "$out/dynamic" -name 'libplix.so.*.*.*')
    [ -n "$library" ] || fail "no versioned library was installed"
    check_symbols "$library"
    say "using it from $out/dynamic"
    with_cmake "$out/dynamic" "$out/build-dynamic"
    with_pkg_config "$out/dynamic" "$out/build-dynamic"
    # Of the two programs that CMake and pkg-config built, both use the moved library.
    for program in application application_pc; do
        ldd "$out/build-dynamic/$program" | grep -q "=> $out/dynamic/" || fail "$program uses another library"
    done
    run "$out/dynamic/bin/plix-gallery" --dump "$out/gallery" >/dev/null
    [ -n "$(ls "$out/gallery")" ] || fail "the installed gallery draws nothing"
    [ -s "$out/dynamic/share/plix-gallery/gallery-sources/tables_pages.cpp" ] || fail "the installed gallery has no sources to show"
}

check_static() {
    say "building the static library"
    build package-static
    install_and_move package-static static
    say "using it from $out/static"
    # A program that has the library in it looks beside itself, and in the folders of shared data.
    XDG_DATA_DIRS=$out/static/share
    export XDG_DATA_DIRS
    with_cmake "$out/static" "$out/build-static"
    with_pkg_config "$out/static" "$out/build-static" --static
}

mkdir -p "$out"
check_shared
check_static
if [ "${1:-}" != --without-packages ]; then
    scripts/check-packages.sh
fi
say "all is well"
