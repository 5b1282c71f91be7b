#!/usr/bin/env bash
# The quick checks of everything that is written by hand: formatting, shell scripts, spelling, translations.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files --cached --others --exclude-standard '*.cpp' '*.h')
mapfile -t scripts < <(git ls-files --cached --others --exclude-standard 'scripts/*.sh' .ci/run)

clang-format --dry-run --Werror "${sources[@]}"
shellcheck "${scripts[@]}"
git ls-files -z --cached --others --exclude-standard ':!*.ts' ':!*.svg' ':!*.png' | xargs -0 codespell --ignore-words-list=canbe,hastables,childs,childrens
scripts/check-translations.sh
echo "${#sources[@]} sources and ${#scripts[@]} scripts are clean"
