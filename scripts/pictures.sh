#!/usr/bin/env bash
# Takes the pictures of docs/pictures anew: every page in light, dark, English and at 200 %, and the window at work. What
# comes is to be looked at before it is committed.
#
#   scripts/pictures.sh [BUILD]   BUILD has the programs, build/release unless told otherwise
set -euo pipefail
cd "$(dirname "$0")/.."
programs=$PWD/${1:-build/release}/bin
export MANAGER=$programs/vxsettings-manager CTL=$programs/vxsettingsctl LC_ALL=C.UTF-8

mkdir -p docs/pictures
tests/endtoend/withdesktop.sh env PYTHONPATH=tests/endtoend /usr/bin/python3 -B -W ignore scripts/pictures.py docs/pictures
# Few colours are enough, and a quarter of the size.
pngquant --force --ext .png --strip --skip-if-larger 64 docs/pictures/*.png || (($? == 98))
du -sh docs/pictures
