#!/usr/bin/env bash
# The host guide shows the minimal host exactly as it is built.
set -euo pipefail
cd "$(dirname "$0")/.."

# block LANGUAGE: the first code block of the guide in that language.
block() {
    awk -v fence="\`\`\`$1" '$0 == fence { inside = 1; next } /^```$/ && inside { exit } inside' docs/host-guide.md
}

diff --label docs/host-guide.md <(block cpp) examples/minimal-host/main.cpp
diff --label docs/host-guide.md <(block cmake) examples/minimal-host/CMakeLists.txt
lines=$(wc -l < examples/minimal-host/main.cpp)
((lines < 60)) || {
    echo "The minimal host has grown to $lines lines" >&2
    exit 1
}
echo "The host guide shows the minimal host as it is"
