#!/usr/bin/env bash
# Checks that translations/*.ts are what scripts/update-translations.sh makes of the sources as they are, without any
# complaint of lupdate. Whether the translations are complete is a test, tst_translationfiles.
set -euo pipefail
cd "$(dirname "$0")/.."
fresh=$(mktemp -d)
trap 'rm -rf "$fresh"' EXIT

cp translations/*.ts "$fresh"
complaints=$(OUTPUT=$fresh scripts/update-translations.sh)
if ! diff --unified --recursive --exclude=CMakeLists.txt translations "$fresh"; then
    echo "The texts of the sources have changed: run scripts/update-translations.sh and translate what is new" >&2
    exit 1
fi
if [[ -n $complaints ]]; then
    printf '%s\n' "$complaints" >&2
    exit 1
fi
echo "The translations are up to date"
