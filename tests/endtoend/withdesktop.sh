#!/usr/bin/env bash
# Runs a program on a desktop of its own: a display, a message bus, assistive technology, and a home folder. All of it
# is gone afterwards.
#
#   tests/endtoend/withdesktop.sh PROGRAM [ARGUMENT...]
set -euo pipefail

folder=$(mktemp -d)
mkdir -m 700 "$folder/runtime"
export HOME=$folder XDG_RUNTIME_DIR=$folder/runtime XDG_CACHE_HOME=$folder/cache
export XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
# One for each process, so that desktops that start at the same time keep out of each other's way.
export DISPLAY=:$((1000 + $$ % 30000))
unset WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS QT_QPA_PLATFORM

# Without -noreset the server starts anew whenever nobody is connected, and refuses those who come meanwhile.
mkfifo "$folder/ready"
Xvfb "$DISPLAY" -displayfd 3 -screen 0 1280x1024x24 -dpi 96 -noreset -nolisten tcp \
    3>"$folder/ready" 2>"$folder/display.log" &
display=$!
trap 'kill $display; wait $display || true; rm -rf "$folder"' EXIT
read -r _ <"$folder/ready"
# A keyboard with all that is typed: one that is changed on the way may lose keys.
setxkbmap -layout us,ru
# The buses tell at length what they start and what they may not.
dbus-run-session -- "$@" 2> >(grep --line-buffered -vE '^(dbus-daemon|SpiRegistry|$)' >&2)
