#!/usr/bin/env bash
# What has to pass before a release besides scripts/test.sh: the tests on Qt 6, an installation of both versions
# of Qt, and the Debian packages, built twice and tried in fresh installations. Ends at the first one that fails.
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
section "Qt 6 beside Qt 5"
cmake --preset release
cmake --build --preset release
scripts/check-install.sh build/release build/qt6

section "Debian packages"
scripts/check-packages.sh --twice

section "All checks passed"
