#!/usr/bin/env bash
# What scripts/test.sh leaves out because it takes long: the tests on Qt 6 and with their coverage, each of them one more
# build of everything; those of the library under valgrind, where single ones of them take minutes of processor time; and
# the Debian packages, built twice and tried in fresh installations. Ends at the first one that fails.
#
#   scripts/release-checks.sh
set -euo pipefail
cd "$(dirname "$0")/.."

section() {
    printf '\n== %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

section "Packages"
scripts/install-deps.sh --test

section "Qt 6"
cmake --preset qt6
cmake --build --preset qt6
ctest --preset qt6

section "Coverage"
scripts/coverage.sh

section "valgrind"
cmake --preset valgrind
cmake --build --preset valgrind
scripts/memcheck.sh build/valgrind

section "Debian packages"
scripts/check-packages.sh --twice

section "All checks passed"
