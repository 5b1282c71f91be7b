#!/usr/bin/env bash
# The quick checks of everything that is written by hand: formatting, shell scripts, build files, spelling, translations,
# the licence.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
mapfile -t scripts < <(git ls-files --cached --others --exclude-standard 'scripts/*.sh' 'tests/*.sh' debian/tests/minimal-host .ci/run)
mapfile -t builds < <(git ls-files --cached --others --exclude-standard '*CMakeLists.txt' '*.cmake')

clang-format --dry-run --Werror "${sources[@]}"
shellcheck "${scripts[@]}"
cmake-lint --config-files .cmake-format.yaml --suppress-decorations -- "${builds[@]}"
git ls-files -z --cached --others --exclude-standard ':!*.ts' ':!*.svg' ':!*.png' ':!*.abi' | xargs -0 codespell --ignore-words-list=canbe,childs,childrens
scripts/check-translations.sh
scripts/check-licence.sh
echo "${#sources[@]} sources, ${#scripts[@]} scripts and ${#builds[@]} build files are clean"
