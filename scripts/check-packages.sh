#!/bin/sh
# Writes the Debian packages of build/package, which scripts/release-check.sh builds, and uses them in a clean Debian 12: runs the
# examples, then builds and runs tests/installed there with the packaged headers. For root, on a machine with debootstrap.
set -eu

cd "$(dirname "$0")/.."
project=$PWD
packages=$project/out/release/packages
base=$project/build/clean-root
root=$project/out/release/root
cache=$project/build/clean-archives
mirror=${DEBIAN_MIRROR:-http://deb.debian.org/debian}

say() { echo "check-packages: $*"; }
fail() { say "$*" >&2; exit 1; }

write_packages() {
    rm -rf "$packages"
    (cd build/package && cpack -B "$packages" >"$packages.log" 2>&1) || { cat "$packages.log"; exit 1; }
    rm -rf "$packages/_CPack_Packages"
    count=$(find "$packages" -name '*.deb' | wc -l)
    [ "$count" -eq 3 ] || fail "$count packages instead of three"
}

# What is in which, and what it needs.
contents_of() { dpkg-deb --contents "$packages"/"$1"_*.deb | awk '{ print $6 }'; }
depends_of() { dpkg-deb --field "$packages"/"$1"_*.deb Depends; }
has() { contents_of "$1" | grep -q -- "$2" || fail "$1 lacks $2"; }
hasnt() { if contents_of "$1" | grep -- "$2"; then fail "$1 has $2"; fi; }
needs() { depends_of "$1" | grep -q -- "$2" || fail "$1 doesn't depend on $2"; }

check_contents() {
    has libplix0.1 'lib/[^/]*/libplix\.so\.0\.1$'
    has libplix0.1 'share/plix/images/.*\.png$'
    hasnt libplix0.1 '\.h$\|\.a$\|libplix\.so$\|cmake'
    has libplix-dev 'include/plix/plix\.h$'
    has libplix-dev 'lib/[^/]*/libplix\.so$'
    has libplix-dev 'cmake/plix/plixConfig\.cmake$'
    has libplix-dev 'pkgconfig/plix\.pc$'
    hasnt libplix-dev '/desktop/\|libplix\.so\.'
    has plix-examples 'bin/plix-gallery$'
    has plix-examples 'bin/plix-browser$'
    has plix-examples 'plix-gallery/gallery-sources/tables_pages\.cpp$'
    for library in libcairo2 libpango-1.0-0 libsdl2-2.0-0 libicu72 libtiff6 fonts-inter; do
        needs libplix0.1 "$library"
    done
    needs libplix-dev 'libplix0.1 (= '
    needs plix-examples 'libplix0.1 (= '
    for package in libplix0.1 libplix-dev plix-examples; do
        say "$package depends on $(depends_of "$package")"
    done
}

in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 HOME=/root DEBIAN_FRONTEND=noninteractive "$@"; }

leave_root() { if mountpoint -q "$root/proc"; then umount "$root/proc"; fi; }

make_root() {
    if [ ! -d "$base" ]; then
        say "making a clean Debian 12"
        rm -rf "$base.new"
        debootstrap --variant=minbase bookworm "$base.new" "$mirror" >"$base.log" 2>&1 || { tail -5 "$base.log"; exit 1; }
        mv "$base.new" "$base"
    fi
    leave_root
    rm -rf "$root"
    cp -a "$base" "$root"
    # Programs ask the kernel where they are.
    mount -t proc proc "$root/proc"
    trap leave_root EXIT
    mkdir -p "$cache" "$root/packages"
    cp -n "$cache"/*.deb "$root/var/cache/apt/archives/" 2>/dev/null || true
    cp "$packages"/*.deb "$root/packages/"
    cp /etc/resolv.conf "$root/etc/resolv.conf"
    in_root apt-get -qq update
}

install_in_root() {
    in_root apt-get -qq -y --no-install-recommends install "$@" >"$root.log" 2>&1 || { tail -20 "$root.log"; exit 1; }
    cp -n "$root"/var/cache/apt/archives/*.deb "$cache/" 2>/dev/null || true
}

use_examples() {
    install_in_root "$(in_packages libplix0.1)" "$(in_packages plix-examples)"
    say "running the examples there"
    in_root plix-gallery --dump /tmp/gallery >/dev/null
    [ -s "$root/tmp/gallery/tables.png" ] || fail "the gallery drew no tables"
    in_root plix-browser --screenshot /tmp/browser.png /usr/share
    [ -s "$root/tmp/browser.png" ] || fail "the browser drew nothing"
    # The same pictures as where they were built: fonts and images are all there.
    cmp "$root/tmp/gallery/tables.png" out/release/gallery/tables.png || say "the tables look different there"
    status=0
    in_root plix-h264-headers /dev/null >/dev/null 2>&1 || status=$?
    [ "$status" -lt 126 ] || fail "the reader of H.264 headers does not start"
}

in_packages() { (cd "$packages" && echo "/packages/$(ls "$1"_*.deb)"); }

use_headers() {
    install_in_root "$(in_packages libplix-dev)" g++ cmake make pkg-config
    say "building a program there"
    cp -r tests/installed "$root/consumer"
    in_root cmake -S /consumer -B /build >/dev/null
    in_root cmake --build /build >"$root.log" 2>&1 || { tail -20 "$root.log"; exit 1; }
    in_root /build/values
    in_root env LANG=de_DE.UTF-8 /build/application --resources
    # shellcheck disable=SC2016 # the words are for the shell inside
    in_root sh -ec 'g++ -std=c++20 -o /build/by_hand /consumer/application.cpp $(pkg-config --cflags --libs plix); /build/by_hand'
    say "building the guide's programs there"
    in_root cmake -S /usr/share/doc/libplix-dev/docs/snippets -B /guide >/dev/null
    in_root cmake --build /guide -j2 >"$root.log" 2>&1 || { tail -20 "$root.log"; exit 1; }
    for program in strings_and_dates from_appkit hosting; do
        in_root "/guide/$program" >"$root.log"
        promised=$(sed -n '/^```text$/,/^```$/{/^```/d;p}' "docs/guide/$program.md")
        [ "$(cat "$root.log")" = "$promised" ] || { cat "$root.log"; fail "the guide's $program prints something else"; }
    done
    in_root apt-get -qq -y purge libplix0.1 >/dev/null 2>&1
    left=$(find "$root/usr" -path '*plix*' ! -path '*/doc/*' | head -5)
    [ -z "$left" ] || { echo "$left"; fail "these files stay when the packages are removed"; }
}

write_packages
check_contents
if [ "$(id -u)" -ne 0 ] || ! command -v debootstrap >/dev/null; then
    fail "a clean Debian needs root and debootstrap"
fi
make_root
use_examples
use_headers
leave_root
rm -rf "$root"
say "the packages install, work and go away"
