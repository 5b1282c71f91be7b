#!/usr/bin/env bash
# Runs the library's tests under valgrind, which also sees values that were never set.
#
#   scripts/memcheck.sh BUILD_DIR    of the preset "memcheck", or any other without sanitizers
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/memcheck.sh BUILD_DIR}

# Those that take longest come first.
mapfile -t tests < <(find tests/src -name 'tst_*.cpp' -printf '%f\n' | sed 's/\.cpp$//' |
    sort | awk '/^tst_(dbsettings|hostilepages)$/ { print; next } { rest = rest $0 "\n" } END { printf "%s", rest }')

check() {
    local log status=0
    log=$(mktemp)
    # valgrind does not understand what the regular expressions compile to.
    QT_ENABLE_REGEXP_JIT=0 QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 LANGUAGE='' QTEST_FUNCTION_TIMEOUT=1200000 timeout 1200 \
        valgrind --quiet --error-exitcode=9 --soname-synonyms=somalloc=nouserintercepts "$1/$2" >"$log" 2>&1 || status=$?
    ((status == 0)) || {
        echo "$2 failed ($status):" >&2
        grep -E '^(FAIL|==|   Loc)' "$log" | head -60 >&2
    }
    rm "$log"
    return $((status > 0))
}
export -f check

printf '%s\0' "${tests[@]}" | xargs -0 -I '{}' -P "$(nproc)" bash -c 'check "$@"' check "$build/bin" '{}'
echo "${#tests[@]} programs are clean"
