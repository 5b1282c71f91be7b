#!/usr/bin/env bash
# Whether the libraries keep what they promise to programs that are already built: what they export is what the packages'
# symbols files list, which is what the public headers declare, and nothing differs from the description in abi/.
#
#   scripts/check-abi.sh [BUILD_DIR]    where it builds the libraries once more; build/abi if none is given
#
# Ends with 77 where abidiff is not installed.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/promised-libraries.sh
. scripts/promised-libraries.sh
build=${1:-build/abi}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

command -v abidiff > /dev/null || {
    echo "abidiff is not installed"
    exit 77
}

check_exports() { # LIBRARY
    dpkg-gensymbols -c4 -p"lib${1}1" -e"$build/lib/lib$1.so.1" -I"debian/lib${1}1.symbols" -O"$work/symbols" > "$work/log" 2>&1 || {
        cat "$work/log"
        echo "lib$1 does not export what debian/lib${1}1.symbols lists"
        return 1
    }
}

check_headers() { # LIBRARY
    declared_by_headers "$build" "$1" > "$work/declared"
    sed -nE 's/^ \(c\+\+\)"(non-virtual thunk to )?(.*)@Base".*/\2/p' "debian/lib${1}1.symbols" | LC_ALL=C sort --unique > "$work/listed"
    diff --label "the headers of lib$1" --label "debian/lib${1}1.symbols" \
        <(cut --fields 1 "$work/declared" | LC_ALL=C sort --unique) "$work/listed" &&
        diff --label "abi/lib$1.returns" --label "the headers of lib$1" "abi/lib$1.returns" "$work/declared"
}

check_description() { # LIBRARY
    describe_library "$build" "$1" > "$work/now"
    abidiff "abi/lib$1.abi" "$work/now" || {
        echo "lib$1 is not what abi/lib$1.abi describes; CONTRIBUTING.md tells what may change"
        return 1
    }
}

build_libraries "$build" > "$work/log" 2>&1 || {
    cat "$work/log"
    exit 1
}
failed=0
for library in "${libraries[@]}"; do
    check_exports "$library" && check_headers "$library" && check_description "$library" || failed=1
done
((failed == 0)) || exit 1
echo "${libraries[*]}: exports, headers and binary interface are as promised"
