#!/usr/bin/env bash
# Runs clang-tidy over the sources that BUILD_DIR compiles, tests and generated files left out.
#
#   scripts/tidy.sh BUILD_DIR
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/tidy.sh BUILD_DIR}

mapfile -t sources < <(git ls-files --cached --others --exclude-standard 'src/*.cpp' 'platform/*.cpp' 'host/*.cpp' 'apps/*.cpp' 'designer/*.cpp' 'docs/*.cpp')
here=$(sed 's/[^[:alnum:]/_-]/\\&/g' <<< "$PWD") # as a regular expression
tidy=(clang-tidy --quiet --config-file=.clang-tidy --warnings-as-errors='*' --header-filter="^$here/(include|src|platform|host|apps|designer|docs)/")

# The static analyser follows the functions of a source only, and takes what a source includes for headers: one at a time.
printf '%s\0' "${sources[@]}" | xargs -0 -n 4 -P "$(nproc)" "${tidy[@]}" -p "$build" \
    --checks='-bugprone-*,-misc-*,-modernize-*,-performance-*,-readability-*' 2> >(grep -v 'warnings\? generated' >&2 || true)
# The other checks search all headers as well: many sources at a time.
printf '%s\n' "${sources[@]}" | scripts/in-batches.py "$build" "${tidy[@]}" --checks='-clang-analyzer-*'
echo "${#sources[@]} sources are clean"
