#!/usr/bin/env bash
# The main job: installs what is missing, builds the settings manager and starts it with the given arguments.
#
#   scripts/run.sh [--database URL]...   "scripts/run.sh --help" lists the arguments
#
# Without a display it draws all pages into build/pictures and runs the manager's self-test instead.
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
manager=$project/build/release/bin/vxsettings-manager
pictures=$project/build/pictures

"$project/scripts/install-deps.sh"
# Arguments may name files relative to where the user is, so this script stays there.
cmake -S "$project" --preset release
cmake --build "$project/build/release"

needs_display=yes
for argument in "$@"; do
    case $argument in
        --render* | --self-test | --help | -h | --version | -v) needs_display=no ;;
    esac
done
if [[ $needs_display == no || -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]; then
    exec "$manager" "$@"
fi

echo "There is no display: drawing the pages and running the self-test instead."
"$manager" --self-test --render "$pictures" "$@"
echo "The pictures of all pages are in $pictures"
