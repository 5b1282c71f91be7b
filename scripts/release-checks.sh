#!/usr/bin/env bash
# What scripts/test.sh leaves out because it takes long: clang-tidy, the tests of what has threads under ThreadSanitizer,
# the tests on Qt 6, under valgrind and with their coverage, and the Debian packages, built twice and tried in fresh
# installations. Ends at the first one that fails.
#
#   scripts/release-checks.sh
set -euo pipefail
cd "$(dirname "$0")/.."

section() {
    printf '\n== %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

section "Packages"
scripts/install-deps.sh --test

section "Threads, built by clang"
cmake --preset tsan
cmake --build --preset tsan
ctest --preset tsan
section "clang-tidy"
scripts/tidy.sh build/tsan

section "Qt 6"
cmake --preset qt6
cmake --build --preset qt6
ctest --preset qt6 --parallel 4

section "Coverage"
scripts/coverage.sh

section "valgrind"
cmake --preset dev
cmake --build --preset dev
scripts/memcheck.sh build/dev

section "Debian packages"
scripts/check-packages.sh --twice

section "All checks passed"
