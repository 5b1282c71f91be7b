#!/usr/bin/env bash
# Runs clang-tidy over the sources that BUILD_DIR compiles. Left out are generated files, and tests: what their macros expand
# to is counted as complexity of their own.
#
#   scripts/tidy.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/tidy.sh BUILD_DIR}

plugin=$build/owndeclarations.so
clang++ -std=c++17 -fno-rtti -fPIC -shared -isystem "$(llvm-config --includedir)" scripts/owndeclarations.cpp -o "$plugin"

mapfile -t sources < <(git ls-files --cached --others --exclude-standard 'src/*.cpp' 'platform/*.cpp' 'host/*.cpp' 'apps/*.cpp' 'designer/*.cpp' 'docs/*.cpp')
printf '%s\0' "${sources[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy --load="$plugin" -p "$build" --quiet --warnings-as-errors='*' 2> >(grep -v 'warnings\? generated' >&2 || true)
echo "${#sources[@]} sources are clean"
