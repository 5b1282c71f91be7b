#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, and runs every check that has to pass before a commit lands.
# Ends at the first one that fails. What takes longer, and has to pass before a release, is scripts/release-checks.sh.
set -euo pipefail
cd "$(dirname "$0")/.."

section() {
    printf '\n== %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

section "Packages"
scripts/install-deps.sh --test

section "Lint"
scripts/lint.sh

# Whatever the tests do is also watched for wrong accesses and undefined behaviour; a build of its own without that would
# only repeat them. The binary interface is that of the release build below.
section "Build: asan"
cmake --preset asan
cmake --build --preset asan
section "Tests: asan"
ctest --preset asan

section "Threads"
cmake --preset tsan
cmake --build --preset tsan
ctest --preset tsan

section "clazy"
scripts/clazy.sh build/asan
section "cppcheck"
scripts/cppcheck.sh build/asan

section "Invented input"
scripts/fuzz.sh 60

section "Installed"
cmake --preset release
cmake --build --preset release
scripts/check-install.sh build/release
section "Binary interface"
scripts/check-abi.sh build/release
section "Documentation"
scripts/build-docs.sh

section "Below another project"
scripts/check-subdirectory.sh

section "All checks passed"
