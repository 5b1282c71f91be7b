#!/usr/bin/env bash
# Runs the tests of faults and of invented input in their long form, which tries everything that scripts/test.sh only
# takes samples of. Takes about an hour; the figures and seeds are printed. Ends at the first test that fails.
#
#   scripts/long-tests.sh            all of them
#   scripts/long-tests.sh TEST...    these, for example tst_diskfaults
set -euo pipefail
cd "$(dirname "$0")/.."

# Each test with how many times as much it does.
declare -A scales=(
    [tst_savefaults]=25
    [tst_serverfaults]=10
    [tst_diskfaults]=25
    [tst_nastytexts]=20
    [tst_baddatabases]=100
    [tst_sessionmodel]=100
)
tests=("$@")
if ((${#tests[@]} == 0)); then
    mapfile -t tests < <(printf '%s\n' "${!scales[@]}" | sort)
fi

# A test function may take as long as its program.
export QTEST_FUNCTION_TIMEOUT=3600000

scripts/install-deps.sh --test
cmake --preset dev > /dev/null
cmake --build --preset dev
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=$PWD/build/dev/runtime QTEST_FUNCTION_TIMEOUT=7200000
for test in "${tests[@]}"; do
    [[ -n ${scales[$test]:-} ]] || { echo "No long test has the name $test" >&2; exit 2; }
    VXSETTINGS_TEST_SCALE=${scales[$test]} tests/withserver.sh "build/dev/bin/$test"
done
