#!/usr/bin/env bash
# The long forms of the tests that invent what they do. Each prints its seed; VXSETTINGS_TEST_SEED=SEED repeats a run.
#
#   scripts/long-tests.sh           all, one after another
#   scripts/long-tests.sh NAME...   those of the table below
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/dev

# Name, test program, how many times the usual amount.
tests=(
    "nasty-texts   tst_nastytexts    20" # 4,000 texts for each kind of editor
    "bad-databases tst_baddatabases 100" # 10,000 flipped bytes in the host, 1,000 in each way of the programs
    "session-model tst_sessionmodel 100" # 10,000 sequences
)

run() {
    local name=$1 program=$2 scale=$3
    printf '\n== %s\n' "$name"
    cmake --build "$build" --target "$program" > /dev/null
    VXSETTINGS_TEST_SCALE=$scale "$build/bin/$program"
}

# Where tests run: see tests/CMakeLists.txt.
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT

cmake --preset dev > /dev/null
for test in "${tests[@]}"; do
    read -r name program scale <<< "$test"
    if (($# == 0)) || [[ " $* " == *" $name "* ]]; then
        run "$name" "$program" "$scale"
    fi
done
