#!/usr/bin/env bash
# What desktops and log viewers read: the manager's menu entry and description, and the list of logging categories.
#
#   scripts/check-desktop.sh BUILD_DIR
set -euo pipefail
build=$(realpath "${1:?usage: scripts/check-desktop.sh BUILD_DIR}")
cd "$(dirname "$0")/.."

desktop-file-validate apps/manager/desktop/vxsettings-manager.desktop

findings=$(appstreamcli validate --pedantic --no-net --no-color "$build"/apps/manager/desktop/*.metainfo.xml) || {
    echo "$findings" >&2
    exit 1
}
# Hints end it well, but there are none.
if grep -E '^[EWIP]: ' <<< "$findings"; then
    exit 1
fi

declared=$(grep -rhI Q_LOGGING_CATEGORY src platform host apps | sed 's/.*(\(.*\), "\(.*\)".*/\2 \1/' | sort)
listed=$(sed -n 's/^\([^# ]*\) .* IDENTIFIER \[\(.*\)\]$/\1 \2/p' src/vxsettings.categories host/vxsettings-host.categories | sort)
diff --label "declared in the sources" --label "listed in *.categories" <(echo "$declared") <(echo "$listed")
echo "The menu entry, its description and the logging categories are in order"
