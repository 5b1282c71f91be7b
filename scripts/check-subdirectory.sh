#!/usr/bin/env bash
# Builds the library below another project's add_subdirectory() and runs a program that links to it.
set -euo pipefail
cd "$(dirname "$0")/.."
project=$PWD
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat > "$work/CMakeLists.txt" <<CMAKE
cmake_minimum_required(VERSION 3.25)
project(host LANGUAGES CXX)
add_subdirectory("$project" vxsettings)
add_executable(host main.cpp)
target_link_libraries(host PRIVATE VxSettings::vxsettings)
CMAKE
cat > "$work/main.cpp" <<'CPP'
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>

#include <QApplication>
#include <QWidget>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QWidget window;
    const auto page = DBSettingsGroupFactory::create(DBGroups::Connection, &window, nullptr);
    return page->toGroup()->paramKeys().count() == 3 ? 0 : 1;
}
CPP
cmake -G Ninja -S "$work" -B "$work/build" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++ \
    -DVXSETTINGS_PRECOMPILED_HEADERS=ON > "$work/configure.log" || {
    cat "$work/configure.log"
    exit 1
}
cmake --build "$work/build" --target host > "$work/build.log" || {
    cat "$work/build.log"
    exit 1
}
QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work" "$work/build/host"
echo "A project that adds this one builds and runs"
