#!/usr/bin/env bash
# What scripts/test.sh leaves out because it takes longer than all of that: clang-tidy, the tests on Qt 6, under valgrind
# and with their coverage, each of which is one more build of everything, and the Debian packages, built twice and tried
# in fresh installations. Ends at the first one that fails.
#
#   scripts/release-checks.sh
set -euo pipefail
cd "$(dirname "$0")/.."

section() {
    printf '\n== %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

section "Packages"
scripts/install-deps.sh --test

section "clang-tidy"
cmake --preset dev
cmake --build --preset dev
scripts/tidy.sh build/dev
section "valgrind"
scripts/memcheck.sh build/dev

section "Qt 6"
cmake --preset qt6
cmake --build --preset qt6
ctest --preset qt6

section "Coverage"
scripts/coverage.sh

section "Debian packages"
scripts/check-packages.sh --twice

section "All checks passed"
