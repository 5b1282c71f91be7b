#!/usr/bin/env bash
# Builds the Debian packages of what is committed, from a copy elsewhere, so that this tree stays as it is.
#
#   scripts/build-packages.sh [OUTPUT_DIR]    build/packages if none is given; what is in it is replaced
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p "${1:-build/packages}"
output=$(realpath "${1:-build/packages}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir "$work/vxsettings"
git archive HEAD | tar --extract --touch --directory "$work/vxsettings"
rm -f "$output"/*.{deb,changes,buildinfo,log}
(cd "$work/vxsettings" && dpkg-buildpackage --build=binary --unsigned-source --unsigned-changes) \
    > "$output/build.log" 2>&1 || {
    tail -n 50 "$output/build.log" >&2
    exit 1
}
mv "$work"/*.{deb,changes,buildinfo} "$output"
(cd "$output" && printf '%s\n' *.deb)
