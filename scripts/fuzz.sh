#!/usr/bin/env bash
# Feeds invented stored texts and import files to what reads them, until a property breaks or the time is over.
#
#   scripts/fuzz.sh [SECONDS]   60 unless given
#
# Inputs that reach something new are kept in build/fuzz/corpus. One that breaks a property is kept in build/fuzz;
# "build/fuzz/bin/settingsfuzzer FILE" repeats it.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
build=build/fuzz

cmake --preset fuzz > /dev/null
cmake --build --preset fuzz
mkdir -p "$build/corpus"
export LSAN_OPTIONS=suppressions=tests/fuzz/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
"$build/bin/settingsfuzzer" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 \
    -dict=tests/fuzz/settings.dict -artifact_prefix="$build/" "$build/corpus" tests/fuzz/corpus
