#!/usr/bin/env bash
# Runs the tests with coverage and prints the line coverage of the library; HTML goes to build/coverage/html.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset coverage
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage
mkdir -p build/coverage/html
gcovr --root . --filter 'src/' --filter 'platform/.*/src/' --filter 'host/' --exclude-unreachable-branches \
    --exclude-throw-branches --html-details build/coverage/html/index.html --txt - build/coverage
printf '\nThe library alone; at least 97 %% of its lines are to be covered:\n'
gcovr --root . --filter 'src/' --fail-under-line 97 --txt - build/coverage | tail -4
