#!/usr/bin/env bash
# Installs what building, testing and running need on Debian 12. Does nothing, and needs no rights, when all is there.
#
#   scripts/install-deps.sh         what run.sh needs
#   scripts/install-deps.sh --test  that, and what test.sh and the benchmarks need
set -euo pipefail

run_packages=(
    cmake g++ ninja-build
    qtbase5-dev qttools5-dev qttools5-dev-tools
    libqt5svg5 libqt5sql5-sqlite libqt5sql5-psql libpq-dev
    fonts-dejavu-core qttranslations5-l10n
)
test_packages=(
    abigail-tools appstream at-spi2-core autopkgtest blhc clang clang-format clang-tidy clazy cmake-format codespell
    cppcheck dbus-daemon debhelper debootstrap desktop-file-utils doxygen dpkg-dev fish git groff-base
    imagemagick libbenchmark-dev libclang-14-dev libclang-rt-14-dev libgl-dev libqt6opengl6-dev libqt6sql6-psql
    libqt6sql6-sqlite libqt6svg6 librapidcheck-dev lintian lld llvm llvm-14-dev man-db pkg-config pngquant postgresql
    postgresql-common python3 python3-clang python3-gi python3-jsonschema python3-xlib qhelpgenerator-qt5
    qt6-base-dev qt6-l10n-tools qt6-tools-dev qt6-tools-dev-tools qt6-translations-l10n shellcheck sqlite3
    strace valgrind xauth xdotool xvfb zsh
)

packages=("${run_packages[@]}")
if [[ ${1:-} == --test ]]; then
    packages+=("${test_packages[@]}")
fi

missing=()
for package in "${packages[@]}"; do
    if [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true) != installed ]]; then
        missing+=("$package")
    fi
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

as_root=()
if ((EUID != 0)); then
    command -v sudo >/dev/null || {
        echo "Missing packages: ${missing[*]}" >&2
        echo "Install them as root: apt-get install ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update --quiet
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install --yes --quiet --no-install-recommends "${missing[@]}"
