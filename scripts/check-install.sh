#!/usr/bin/env bash
# Installs builds into one prefix, moves it, and uses what is there as other projects do: every header by itself, the
# minimal host through CMake and through pkg-config, and this project against the installed platform libraries.
#
#   scripts/check-install.sh BUILD_DIR...    one build for each version of Qt
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/moved
modules=(vxsettings vxwidgets vxstyles localstorage)
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=$work/runtime LC_ALL=C.UTF-8
mkdir -m 700 "$XDG_RUNTIME_DIR"

fail() {
    echo "$1" >&2
    exit 1
}

# quietly COMMAND...: shows what the command says only if it fails.
quietly() {
    "$@" > "$work/log" 2>&1 || {
        cat "$work/log"
        fail "Failed: $*"
    }
}

# choose BUILD_DIR: the build that all checks below are about.
choose() {
    build=$1
    qt=$(cached VXSETTINGS_QT_VERSION)
    suffix=
    [[ $qt == 5 ]] || suffix=-qt$qt
    package_suffix=${suffix#-qt}
}

cached() { # VARIABLE
    sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"
}

install() {
    quietly cmake --install "$build" --prefix "$work/first"
    cat "$build/install_manifest.txt" >> "$work/installed"
    echo >> "$work/installed"
}

move() {
    mv "$work/first" "$prefix"
    PKG_CONFIG_PATH=$(find "$prefix" -name pkgconfig)
    libraries=${PKG_CONFIG_PATH%/*}
    export PKG_CONFIG_PATH
    [[ -z $(grep . "$work/installed" | sort | uniq --repeated) ]] || fail "Two builds install the same files"
}

check_relocatable() {
    local file
    if grep -rIl --fixed-strings -e "$work/first" -e "$PWD" -e "$(cached CMAKE_INSTALL_PREFIX)/" "$prefix"; then
        fail "The files above name a folder of the build or of the prefix"
    fi
    while read -r file; do
        # shellcheck disable=SC2016 # the loader expands it
        if readelf --dynamic "$file" | grep -E 'R(UN)?PATH' | grep -qvE '\[(\$ORIGIN[^:]*:?)+\]'; then
            fail "$file looks for libraries outside the prefix"
        fi
    done < <(find "$prefix" -type f '(' -name '*.so.*' -o -path '*/bin/*' ')')
}

expect_version() { # VERSION WHERE
    [[ $1 == "$version" ]] || fail "$2 says version '$1', the project says $version"
}

check_version() {
    local version library module package program
    version=$(cached CMAKE_PROJECT_VERSION)
    for module in "${modules[@]}"; do
        library=lib$module$suffix.so.$version
        expect_version "$(pkg-config --modversion "$module$suffix")" "$module$suffix.pc"
        readelf --dynamic "$libraries/$library" | grep -qF "soname: [${library%.*.*}]" || fail "$library has another SONAME"
    done
    for package in "VxSettings$package_suffix" "Vantorix$package_suffix"; do
        expect_version "$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")/\1/p' \
            "$libraries/cmake/$package/${package}ConfigVersion.cmake")" "$package"
    done
    expect_version "$(echo VXSETTINGS_VERSION_STRING | g++ -E -P -x c++ -include \
        "$(pkg-config --variable=includedir "vxsettings$suffix")/vxsettings/vxsettings_version.h" - | grep -o '[0-9][0-9.]*')" "the header"
    for program in vxsettings-manager vxsettingsctl; do
        [[ $(cached VXSETTINGS_INSTALL_PROGRAMS) == ON ]] || continue
        expect_version "$("$prefix/bin/$program" --version | grep -o '[0-9].*')" "$program"
    done
    expect_version "$(grep -m 1 -oP '^## \K[0-9.]+' CHANGELOG.md)" "CHANGELOG.md"
    expect_version "$(sed -n '1s/.*(\(.*\)).*/\1/p' debian/changelog)" "debian/changelog"
    echo "Qt $qt: version $version everywhere"
}

check_translations() {
    local folder=$prefix/share/vxsettings$suffix/translations catalogue
    for catalogue in vantorix vxsettings; do
        [[ -s $folder/${catalogue}_en.qm ]] || fail "Qt $qt: the English texts of $catalogue are not installed"
    done
    if [[ $(cached VXSETTINGS_INSTALL_PROGRAMS) == ON ]]; then
        [[ $("$prefix/bin/vxsettingsctl" --language en --help) == Usage:* ]] || fail "vxsettingsctl does not speak English"
        [[ $("$prefix/bin/vxsettings-manager" --language en --help) == Usage:* ]] || fail "vxsettings-manager does not"
        grep -q 'Database settings' "$prefix/share/man/man1/vxsettingsctl.1" || fail "The manual page is not in English"
    fi
    echo "Qt $qt: the translations are found from a moved prefix"
}

# The manual page of the manager is written by hand.
check_manual() {
    local language page
    [[ $(cached VXSETTINGS_INSTALL_PROGRAMS) == ON ]] || return 0
    for language in en ru; do
        page=$prefix/share/man/man1/vxsettings-manager.1
        [[ $language == en ]] || page=${page/\/man1/\/$language\/man1}
        diff --label "vxsettings-manager --language $language --help" --label "$page" \
            <("$prefix/bin/vxsettings-manager" --language "$language" --help | grep '^  -' | long_options) \
            <(sed -n 's/\\//g; /^\.B -/p' "$page" | long_options) || fail "A manual page tells of other options"
    done
    echo "Qt $qt: the manual pages of the manager tell every option"
}

long_options() {
    grep -oE -- '--[a-z-]+' | sort
}

compile_alone() { # COMPILER HEADER
    # shellcheck disable=SC2086 # one argument a word
    echo "#include <$2>" | "$1" $HEADER_FLAGS -fsyntax-only -x c++ - || {
        echo "<$2> does not compile alone with $1" >&2
        return 1
    }
}
export -f compile_alone

check_headers() {
    local module
    for module in "${modules[@]}"; do
        # Warnings of the toolkit's own headers are not ours.
        HEADER_FLAGS=$(pkg-config --cflags "$module$suffix" | sed 's|-I/usr/|-isystem /usr/|g')
        HEADER_FLAGS+=" -std=c++17 -fPIC -DQT_NO_KEYWORDS -Wall -Wextra -Wpedantic -Werror"
        export HEADER_FLAGS
        (cd "$(pkg-config --variable=includedir "$module$suffix")" && printf '%s\n' "$module"/*.h) > "$work/headers"
        sed 's/^/g++ /; p; s/^g++/clang++/' "$work/headers" |
            xargs -L 1 -P "$(nproc)" bash -c 'compile_alone "$@"' compile_alone || fail "Qt $qt: a header needs others"
    done
    echo "Qt $qt: every header compiles alone with g++ and with clang++"
}

build_minimal_host() { # DIR
    quietly cmake -G Ninja -S examples/minimal-host -B "$1" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH="$prefix" \
        -DPACKAGE_SUFFIX="$package_suffix"
    quietly cmake --build "$1"

    local flags
    read -ra flags <<< "$(pkg-config --cflags --libs "vxsettings$suffix" "localstorage$suffix")"
    quietly g++ -std=c++17 -fPIC examples/minimal-host/main.cpp -o "$1/by-pkg-config" "${flags[@]}" "-Wl,-rpath,$libraries"
}

drive_minimal_host() { # PROGRAM
    quietly tests/package/drivehost.sh "$work/host$suffix/driver.so" "$1"
}

check_minimal_host() {
    local directory=$work/host$suffix flags
    build_minimal_host "$directory"
    read -ra flags <<< "$(pkg-config --cflags --libs "vxsettings$suffix" "Qt${qt}Test")"
    quietly g++ -std=c++17 -fPIC -shared tests/package/hostdriver.cpp -o "$directory/driver.so" "${flags[@]}"
    drive_minimal_host "$directory/minimal-host"
    drive_minimal_host "$directory/by-pkg-config"
    echo "Qt $qt: the minimal host builds and saves, through CMake and through pkg-config"
}

check_external_platform() {
    local directory=$work/external$suffix
    quietly cmake -G Ninja -S . -B "$directory" -DCMAKE_BUILD_TYPE=Debug -DBUILD_TESTING=OFF \
        -DVXSETTINGS_QT_VERSION="$qt" -DVXSETTINGS_PLATFORM=external -DCMAKE_PREFIX_PATH="$prefix"
    quietly cmake --build "$directory" --target vxsettings
    [[ ! -e $directory/platform ]] || fail "Qt $qt: the platform libraries were built once more"
    LD_LIBRARY_PATH=$directory/lib ldd "$work/host$suffix/minimal-host" | grep -q " $directory/lib/libvxsettings" ||
        fail "Qt $qt: the minimal host would not take the library just built"
    LD_LIBRARY_PATH=$directory/lib drive_minimal_host "$work/host$suffix/minimal-host"
    echo "Qt $qt: the library builds against the installed platform libraries, and works in the minimal host"
}

(($#)) || fail "usage: scripts/check-install.sh BUILD_DIR..."
for directory in "$@"; do
    choose "$directory"
    install
done
move
for directory in "$@"; do
    choose "$directory"
    check_relocatable
    check_version
    check_translations
    check_manual
    check_headers
    check_minimal_host
    check_external_platform
done
