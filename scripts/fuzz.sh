#!/usr/bin/env bash
# Feeds invented stored texts and import files to what reads them, on every processor, until a property breaks or the time
# is over.
#
#   scripts/fuzz.sh [SECONDS]   30 unless given
#
# Inputs that reach something new are kept in build/fuzz/corpus. One that breaks a property is kept in build/fuzz;
# "build/fuzz/bin/settingsfuzzer FILE" repeats it.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
project=$PWD
build=$project/build/fuzz

cmake --preset fuzz > /dev/null
cmake --build --preset fuzz
mkdir -p "$build/corpus"
export LSAN_OPTIONS=suppressions=$project/tests/fuzz/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
cd "$build" # each job has a log here, which is shown when it ends
bin/settingsfuzzer -jobs="$(nproc)" -workers="$(nproc)" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=4096 \
    -print_final_stats=1 -dict="$project/tests/fuzz/settings.dict" -artifact_prefix="$build/" corpus "$project/tests/fuzz/corpus"
