#!/usr/bin/env bash
# Installs what is missing, builds with warnings as errors, and runs every check that has to pass before a commit lands.
# Ends at the first one that fails. What else has to pass before a release is in scripts/release-checks.sh.
set -euo pipefail
cd "$(dirname "$0")/.."

section() {
    printf '\n== %s (%d:%02d)\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

section "Packages"
scripts/install-deps.sh --test

section "Lint"
scripts/lint.sh

# One build of everything serves as many checks as it can: what the tests do is watched for wrong accesses and undefined
# behaviour, and recorded for the coverage. It is clang's; g++ builds the product and the library's tests below.
section "Build: asan"
cmake --preset asan
cmake --build --preset asan
section "Tests: asan"
ctest --preset asan
section "Coverage"
scripts/coverage.py build/asan

section "clang-tidy"
scripts/tidy.sh build/asan
section "clazy"
scripts/clazy.sh build/asan
section "cppcheck"
scripts/cppcheck.sh build/asan

section "Threads"
cmake --preset tsan
cmake --build --preset tsan
ctest --preset tsan

section "valgrind"
cmake --preset memcheck
cmake --build --preset memcheck
scripts/memcheck.sh build/memcheck

section "Invented input"
scripts/fuzz.sh 30

section "Installed"
cmake --preset release
cmake --build --preset release
scripts/check-install.sh build/release
section "Binary interface"
scripts/check-abi.sh
section "Documentation"
scripts/build-docs.sh

section "Below another project"
scripts/check-subdirectory.sh

section "All checks passed"
