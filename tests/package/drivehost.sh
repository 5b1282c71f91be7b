#!/bin/sh
# Lets a driver that is loaded into the minimal host edit one setting and save; whether that, and that alone, was saved.
#
#   tests/package/drivehost.sh DRIVER PROGRAM
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

printf '{"PT_ENABLE_FACE_SCANNING": "1", "PT_UNKNOWN": "kept"}' > "$work/settings.json"
timeout 60 env LD_PRELOAD="$1" "$2" "$work/settings.json"
diff - "$work/settings.json" << 'JSON'
{
    "PT_ENABLE_FACE_SCANNING": "0",
    "PT_UNKNOWN": "kept"
}
JSON
