#!/bin/sh
# Installs the packages of the named groups of scripts/packages.txt that are missing. Quick and silent when none is.
#
#     scripts/setup.sh build library fonts
#     scripts/setup.sh --list tests       prints the group's packages and installs nothing
set -eu

here=$(dirname "$0")

packages_of() {
    awk -v wanted=" $* " '
        /^# [a-z]+:/ { group = substr($2, 1, length($2) - 1); known[group] = 1; next }
        /^[^#]/ { if (index(wanted, " " group " ")) print $1 }
        END {
            count = split(wanted, names, " ")
            for (i = 1; i <= count; ++i)
                if (!(names[i] in known)) {
                    print "setup: there is no group \"" names[i] "\"" > "/dev/stderr"
                    exit 1
                }
        }' "$here/packages.txt"
}

if [ "${1:-}" = --list ]; then
    shift
    packages_of "$@"
    exit
fi
[ $# -gt 0 ] || { echo "usage: scripts/setup.sh [--list] GROUP..." >&2; exit 2; }

wanted=$(packages_of "$@")
[ -n "$wanted" ] || exit 0

if ! command -v dpkg-query >/dev/null; then
    echo "setup: no Debian package system here; the libraries of scripts/packages.txt must be there already"
    exit 0
fi

# shellcheck disable=SC2086 # one argument a package
installed=$(dpkg-query -W -f '${db:Status-Abbrev}|${Package}\n' $wanted 2>/dev/null | sed -n 's/^ii *|//p')
missing=$(printf '%s\n' "$wanted" | while read -r package; do
    printf '%s\n' "$installed" | grep -qxF -e "$package" || printf '%s ' "$package"
done)
[ -n "$missing" ] || exit 0

as_root=
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "setup: these packages are missing, and without sudo only root can install them:" >&2
        echo "    apt-get install --no-install-recommends $missing" >&2
        exit 1
    fi
    as_root=sudo
fi

apt() {
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@"
}
update() {
    echo "setup: reading the package lists"
    apt update
}

echo "setup: installing $missing"
# shellcheck disable=SC2086
if ! apt-get -qq --simulate --no-install-recommends install $missing >/dev/null 2>&1; then
    update
fi
# shellcheck disable=SC2086
if ! apt -y --no-install-recommends install $missing >/dev/null; then
    # The lists may be older than the archive.
    update
    apt -y --no-install-recommends install $missing >/dev/null
fi
echo "setup: done"
