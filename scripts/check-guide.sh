#!/usr/bin/env bash
# What the guides show is true: the minimal host is as it is built, and commands run and print what is shown. (The other
# samples of code are compiled with the tests.)
#
#   tests/withserver.sh scripts/check-guide.sh BUILD_DIR
set -euo pipefail
programs=$(realpath "${1:?usage: tests/withserver.sh scripts/check-guide.sh BUILD_DIR}/bin")
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

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

# run GUIDE SERVER: for a user who has nothing yet, in an empty folder. SERVER is where the guide has its server.
run() {
    local home
    home=$(mktemp -d -p "$work")
    mkdir -m 700 "$home/srv" "$home/runtime"
    (
        cd "$home"
        env -u LANGUAGE -u VXSETTINGS_DATABASE HOME="$home" XDG_RUNTIME_DIR="$home/runtime" LC_ALL=C.UTF-8 \
            QT_QPA_PLATFORM=offscreen PATH="$programs:$PATH" \
            python3 "$OLDPWD/scripts/run-guide.py" "$OLDPWD/$1" "build/release/bin/=$programs/" "/srv/=$home/srv/" \
            "$2=localhost:$PGPORT"
    ) | sed "s|^$PWD/||"
}

run README.md localhost:5432
run docs/host-guide.md localhost:5432
run docs/administrator-guide.md db.example:5432
