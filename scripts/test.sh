#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, and runs every check. Ends at the first one that fails.
set -euo pipefail
cd "$(dirname "$0")/.."

section() {
    printf '\n== %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

section "Packages"
scripts/install-deps.sh --test

section "Lint"
scripts/lint.sh

for preset in dev asan; do
    section "Build: $preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset"
    section "Tests: $preset"
    ctest --preset "$preset"
done

section "clang-tidy"
scripts/tidy.sh build/dev

section "Invented input"
scripts/fuzz.sh 60

section "Installed"
scripts/check-install.sh build/dev

section "Below another project"
scripts/check-subdirectory.sh

section "All checks passed"
