#!/usr/bin/env bash
# Brings translations/*.ts up to date with the texts in the sources. Running it twice changes nothing the second time.
#
#   scripts/update-translations.sh           every language that there is
#   scripts/update-translations.sh de fr     these as well; new files are made for them
#
# LUPDATE names another lupdate of Qt 5 than the one in the search path; OUTPUT another folder than translations/.
set -euo pipefail
cd "$(dirname "$0")/.."
lupdate=${LUPDATE:-lupdate}
export QT_SELECT=5 # where several are installed
output=${OUTPUT:-translations}

# What a catalogue is made of. Each is loaded by itself: a host of the settings library needs the first two.
declare -A sources=(
    [vantorix]="platform"
    [vxsettings]="include src designer"
    [vxsettings-host]="host"
    [vxsettings-manager]="apps/manager"
    [vxsettingsctl]="apps/ctl"
)
options=(-locations none -no-obsolete -source-language ru
    -I . -I include -I src -I platform/localstorage/include -I platform/vxstyles/include -I platform/vxwidgets/include)

languages() {
    printf '%s\n' en ru "$@"
    find "$output" -name '*.ts' | sed -n 's/.*_\([a-z]*\)\.ts$/\1/p'
}

update() { # CATALOGUE LANGUAGE
    local plurals=()
    # The sources are in Russian: only the forms of words after a number are missing there.
    [[ $2 != ru ]] || plurals=(-pluralonly)
    # shellcheck disable=SC2086 # folders are words
    "$lupdate" ${sources[$1]} "${options[@]}" "${plurals[@]}" -target-language "$2" -ts "$output/$1_$2.ts"
}

mkdir -p "$output"
for language in $(languages "$@" | sort -u); do
    for catalogue in "${!sources[@]}"; do
        update "$catalogue" "$language"
    done
done 2>&1 | { grep -v -E '^(Scanning directory|Updating |    Found |    Kept |Stripping non plural forms)' || true; }
