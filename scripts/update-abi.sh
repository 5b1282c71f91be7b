#!/usr/bin/env bash
# Takes over what the libraries export now, after a change that CONTRIBUTING.md allows: the packages' symbols files and the
# descriptions in abi/. A new symbol gets the version of the project; those that were there keep theirs.
#
#   scripts/update-abi.sh [BUILD_DIR]    as for check-abi.sh
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/promised-libraries.sh
. scripts/promised-libraries.sh
build=${1:-build/abi}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A symbol in C++'s own words may stand for several, as for the two kinds of a constructor.
in_words() {
    sed -E '/^#MISSING/d; s/^ (_Z[^@]*)@(\S+) (.*)/ (c++)"\1@\2" \3/' | c++filt | awk '!seen[$0]++'
}

update_symbols() { # LIBRARY
    local version file=debian/lib${1}1.symbols
    version=$(sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' "$build/CMakeCache.txt")
    touch "$file"
    dpkg-gensymbols -c0 -p"lib${1}1" -v"$version" -e"$build/lib/lib$1.so.1" -I"$file" -O"$work/symbols" > /dev/null
    in_words < "$work/symbols" > "$file"
}

build_libraries "$build"
for library in "${libraries[@]}"; do
    update_symbols "$library"
    describe_library "$build" "$library" > "abi/lib$library.abi"
done
