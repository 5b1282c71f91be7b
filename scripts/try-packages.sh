#!/usr/bin/env bash
# Does with Debian packages what an administrator and a host's developer do, in fresh installations of Debian 12 below a
# temporary folder: installs, runs and removes the programs without a network, and builds and runs the minimal host.
#
#   scripts/try-packages.sh PACKAGES_DIR
#
# Needs the rights of root. The fresh installation is kept for a week in $XDG_CACHE_HOME/vxsettings;
# VXSETTINGS_DEBIAN_MIRROR names another mirror.
set -euo pipefail
packages=$(realpath "${1:?usage: scripts/try-packages.sh PACKAGES_DIR}")
cd "$(dirname "$0")/.."

# Mounts in a namespace of its own end with the script.
if [[ -z ${VXSETTINGS_OWN_MOUNTS:-} ]]; then
    as_root=()
    ((EUID == 0)) || as_root=(sudo "--preserve-env=XDG_CACHE_HOME,VXSETTINGS_DEBIAN_MIRROR")
    exec "${as_root[@]}" env VXSETTINGS_OWN_MOUNTS=yes unshare --mount "$0" "$packages"
fi

base=${XDG_CACHE_HOME:-$HOME/.cache}/vxsettings/bookworm.tar
mirror=${VXSETTINGS_DEBIAN_MIRROR:-http://deb.debian.org/debian}
work=$(mktemp -d)
trap 'umount "$work"/*/proc 2> /dev/null || true; rm -rf --one-file-system "$work"' EXIT
programs=(vxsettings-manager vxsettingsctl libvxsettings-doc)

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

make_base() {
    mkdir -p "${base%/*}"
    find "$base" -mtime +7 -delete 2> /dev/null || true
    [[ ! -e $base ]] || return 0
    quietly debootstrap --variant=minbase bookworm "$work/base" "$mirror"
    tar --create --file "$base.new" --directory "$work/base" .
    rm -r "$work/base"
    mv "$base.new" "$base"
}

# unpack NAME: makes "root" a fresh installation that knows the packages.
unpack() {
    root=$work/$1
    mkdir "$root"
    tar --extract --file "$base" --directory "$root"
    mount -t proc proc "$root/proc"
    cp /etc/resolv.conf "$root/etc/resolv.conf"
    mkdir "$root/packages"
    mkdir -m 700 "$root/tmp/home"
    cp "$packages"/*.deb "$root/packages"
    (cd "$root" && dpkg-scanpackages packages > packages/Packages 2> "$work/log")
    echo "deb [trusted=yes] file:/ packages/" > "$root/etc/apt/sources.list.d/packages.list"
    quietly inside apt-get update
}

inside() {
    "${without_network[@]}" chroot "$root" env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/tmp/home \
        XDG_RUNTIME_DIR=/tmp/home LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive QT_QPA_PLATFORM=offscreen "$@"
}
without_network=()

install_packages() {
    quietly inside apt-get install --yes --no-install-recommends -o Dpkg::Use-Pty=false "$@"
}

# prepare PACKAGES...: fetches all that they depend on, and installs it as far as it was not built here. No network after
# that.
prepare() {
    without_network=()
    install_packages man-db
    install_packages --download-only "$@"
    without_network=(unshare --net)
    mapfile -t needed < <(inside apt-get install --simulate --no-install-recommends "$@" |
        awk '/^Inst/ && !/localhost|packages/ { print $2 }')
    install_packages "${needed[@]}"
}

# What is on the disk, but for logs, the notes of apt, and pages that "man" keeps once they were read.
files() {
    find "$root" -xdev -printf '%P %y %m %U:%G %l\n' |
        grep -vE '^(proc|packages|tmp|root|var/log|var/cache/apt|var/lib/apt|var/cache/man/(ru/)?cat1)(/| )' | sort
}

check_programs() {
    local said
    quietly inside vxsettingsctl --language en --database /tmp/settings.db init --sample
    said=$(inside vxsettingsctl --database /tmp/settings.db get PT_MOBILE_PORT)
    [[ $said == 8443 ]] || fail "vxsettingsctl get says '$said'"
    inside man vxsettingsctl | grep -q 'Database settings' || fail "The manual page of vxsettingsctl is not in English"
    inside man --locale=ru vxsettings-manager | grep -q 'настройки' || fail "There is no Russian manual page"
    quietly inside vxsettings-manager --database /tmp/settings.db --self-test
    quietly inside vxsettings-manager --database /tmp/settings.db --render /tmp/pictures
    [[ $(inside vxsettings-manager --language en --help) == Usage:* ]] || fail "vxsettings-manager does not speak English"
    inside bash -c '. /usr/share/bash-completion/completions/vxsettingsctl && complete -p vxsettingsctl' > /dev/null
    [[ -s $root/usr/share/zsh/vendor-completions/_vxsettingsctl ]] || fail "zsh completes nothing"
}

try_programs() {
    unpack programs
    prepare "${programs[@]}"
    files > "$work/before"
    install_packages "${programs[@]}"
    check_programs
    mapfile -t ours < <(sed -n 's/^Package: //p' "$root/packages/Packages")
    quietly inside apt-get purge --yes "${ours[@]}"
    files > "$work/after"
    diff "$work/before" "$work/after" || fail "The lines above tell what the packages leave behind"
    echo "The programs are installed, run and removed without a trace, and without a network"
}

try_host() {
    local build_tools=(g++ cmake make pkg-config)
    unpack host
    prepare "${build_tools[@]}" libvxsettings-dev
    install_packages libvxsettings-dev
    cp -r "$work/source" "$root/tmp"
    quietly inside sh -c 'cd /tmp/source && debian/tests/minimal-host'
    echo "The minimal host builds and runs with libvxsettings-dev alone, and without a network"
}

try_autopkgtest() {
    unpack autopkgtest
    without_network=()
    quietly autopkgtest --no-built-binaries "$work/source" -- chroot "$root"
    echo "autopkgtest passes"
}

mkdir "$work/source"
cp -r --parents debian examples/minimal-host tests/package "$work/source"
make_base
try_programs
try_host
try_autopkgtest
