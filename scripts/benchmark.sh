#!/usr/bin/env bash
# Measures the library: times with Google Benchmark, then instructions with callgrind, which no busy machine disturbs,
# as multiples of the same widgets written by hand. In between the manager is started on a display of its own.
#
#   scripts/benchmark.sh           both
#   scripts/benchmark.sh --count   instructions only
set -euo pipefail
cd "$(dirname "$0")/.."
export QT_QPA_PLATFORM=offscreen
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT

cmake --preset benchmark > /dev/null
cmake --build --preset benchmark
bin=build/benchmark/bin

instructions_of_run() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$bin/pagecount" "$@" 2>&1 |
        sed -n 's/.*Collected : //p'
}

# Instructions of one round of WORK done WAY: the difference of two runs, so that start-up does not count.
instructions() {
    local few=$3 many=$4
    echo $((($(instructions_of_run "$1" "$2" "$many") - $(instructions_of_run "$1" "$2" "$few")) / (many - few)))
}

# row TITLE WORK LIMIT_WAY BOUND FEW MANY
row() {
    local library limit
    library=$(instructions "$2" library "$5" "$6")
    limit=$(instructions "$2" "$3" "$5" "$6")
    awk -v title="$1" -v library="$library" -v limit="$limit" -v bound="$4" \
        'BEGIN { printf "%-44s %12d %12d %7.3f%s\n", title, library, limit, library / limit, bound ? "   <= " bound : "" }'
}

count() {
    printf '%-44s %12s %12s %7s\n' "instructions" "library" "limit" "ratio"
    row "cycle, Users" cycle:2 handwritten 1.30 3 13
    row "cycle, PalmScanning" cycle:5 handwritten 1.30 3 13
    row "cycle, FingerprintScanning" cycle:4 handwritten 1.35 3 13
    row "cycle, all twelve" cycle:all handwritten 1.30 2 6
    row "cycle, all twelve, against QUiLoader" cycle:all uiloader "" 2 6
    row "shown and painted, all twelve" shown:all handwritten 1.08 2 4
    row "caption look-up" caption handwritten 1.00 100 300
    row "choice look-up" choices handwritten 1.00 1000 3000
    row "value by key, against findChildren" value findchildren 0.50 100 300
    row "value by the last key" last-value findchildren 0.50 1000 3000
}

if [[ ${1:-} != --count ]]; then
    "$bin/settingspages"
    [[ ! -x $bin/objectselector ]] || "$bin/objectselector"
    tests/endtoend/withdesktop.sh "$bin/managerstart"
fi
count
