# shellcheck shell=bash
# Sourced by the scripts that keep the promise about the libraries' binary interface. They build the libraries once more in
# BUILD_DIR: without exports for tests, and without an optimiser that makes one symbol of two functions.

libraries=(vxsettings vxwidgets vxstyles localstorage)

build_libraries() { # BUILD_DIR
    cmake -S . -B "$1" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS= -DBUILD_TESTING=OFF
    cmake --build "$1" --target "${libraries[@]}"
}

# Folders of LIBRARY's headers: those that are written, then the generated ones.
header_folders() { # BUILD_DIR LIBRARY
    if [[ $2 == vxsettings ]]; then
        printf '%s\n' include "$1/src/include"
    else
        printf '%s\n' "platform/$2/include" "$1/platform/$2/include"
    fi
}

# What LIBRARY promises to programs that are already built. Types of other makers count by name alone.
describe_library() { # BUILD_DIR LIBRARY
    local folder folders options=()
    mapfile -t folders < <(header_folders "$@")
    for folder in "${folders[@]}"; do
        options+=(--headers-dir "$folder")
    done
    abidw "${options[@]}" --drop-private-types --exported-interfaces-only --no-architecture \
        --no-elf-needed --no-corpus-path --no-comp-dir-path --no-parameter-names --type-id-style hash \
        "$1/lib/lib$2.so" | scripts/prune-abi.py "${folders[@]}"
}
