#!/usr/bin/env bash
# Builds the Debian packages and checks what is in them, then installs, uses and removes them (scripts/try-packages.sh).
#
#   scripts/check-packages.sh [--twice] [OUTPUT_DIR]    build/packages if none is given
#
# --twice builds them once more, elsewhere and at another time, and compares every byte.
set -euo pipefail
cd "$(dirname "$0")/.."
twice=no
if [[ ${1:-} == --twice ]]; then
    twice=yes
    shift
fi
packages=${1:-build/packages}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

section() {
    printf -- '-- %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

fail() {
    echo "$1" >&2
    exit 1
}

checksums() { # FOLDER
    (cd "$1" && sha256sum ./*.deb)
}

check_version() {
    local package version
    version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
    for package in "$packages"/*.deb; do
        [[ $(dpkg-deb --field "$package" Version) == "$version" ]] || fail "$package is not of version $version"
    done
}

build_again() {
    mkdir "$work/a-longer-folder"
    umask 027
    TMPDIR=$work/a-longer-folder TZ=Pacific/Kiritimati LC_ALL=C.UTF-8 scripts/build-packages.sh "$work/again" > /dev/null
}

section "Build"
scripts/build-packages.sh "$packages"
check_version

section "Lintian, hardening"
lintian --allow-root --pedantic --fail-on error,warning "$packages"/*.changes
blhc --all "$packages/build.log"

if [[ $twice == yes ]]; then
    section "A second build"
    (build_again)
    diff <(checksums "$packages") <(checksums "$work/again") || fail "The second build differs"
fi

section "Installed"
scripts/try-packages.sh "$packages"
section "The packages are in order"
