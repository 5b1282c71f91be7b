#!/usr/bin/env bash
# LICENSE-STATUS.md is the one place that tells under which terms the project stands: the packages repeat it word by word,
# the README refers to it, and no other file claims anything.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
    echo "$1" >&2
    exit 1
}

# The field "License" of the paragraph about all files.
packaged() {
    awk '/^Files: / { all = $2 == "*" } all && /^License: / { text = 1; next } /^$/ { text = 0 } text' debian/copyright |
        sed -E 's/^ \.?//'
}

diff --label LICENSE-STATUS.md --label debian/copyright <(tail --lines +3 LICENSE-STATUS.md) <(packaged)
grep -qF '(LICENSE-STATUS.md)' README.md || fail "The README does not refer to LICENSE-STATUS.md"

mapfile -t claims < <(git ls-files --cached --others --exclude-standard |
    grep -iE '(^|/)(licen[cs]e|copying)[^/]*$' | grep -vxF LICENSE-STATUS.md)
((${#claims[@]} == 0)) || fail "Another file claims a licence: ${claims[*]}"
if git grep --untracked -nE 'SPDX-License-Identifier|<project_license>|Licensed under' ':!scripts/check-licence.sh'; then
    fail "The lines above claim a licence"
fi
