#!/usr/bin/env bash
# Writes docs/reference.md and docs/schema/*.json anew from the catalogue and its English translation.
#
#   scripts/update-reference.sh [BUILD_DIR]    a configured build, build/dev if none is named
set -euo pipefail
build=$(realpath "${1:-$(dirname "$0")/../build/dev}")
cd "$(dirname "$0")/.."

cmake --build "$build" --target vxsettings-reference vxsettings_translations
"$build/bin/vxsettings-reference" docs
