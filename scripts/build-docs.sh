#!/usr/bin/env bash
# Makes the documentation of the libraries, as HTML and for Qt's viewers of help, and checks that no link leads nowhere.
#
#   scripts/build-docs.sh [BUILD_DIR]    build/documentation if none is named
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build/documentation}
folder=$build/docs/documentation

cmake --preset release -B "$build" -DVXSETTINGS_DOCUMENTATION=ON > /dev/null
cmake --build "$build" --target documentation

python3 - "$folder/html" << 'PYTHON'
import pathlib, re, sys, urllib.parse

folder = pathlib.Path(sys.argv[1])
pages = {page.name: page.read_text(encoding="utf-8") for page in folder.glob("*.html")}
targets = {name: set(re.findall(r'(?:id|name)="([^"]+)"', text)) for name, text in pages.items()}
broken = set()
for name, text in pages.items():
    for link in re.findall(r'(?:href|src|data)="([^"]*)"', text):
        if re.match(r"[a-z]+:", link):
            continue
        path, _, place = urllib.parse.unquote(link).partition("#")
        path = path or name
        if not (folder / path).exists() or (place and path in pages and place not in targets[path]):
            broken.add(f"{name}: {link}")
for link in sorted(broken):
    print("Leads nowhere:", link, file=sys.stderr)
print(f"{len(pages)} pages, {len(broken)} broken links")
sys.exit(bool(broken))
PYTHON
echo "$folder/html/index.html"
