#!/bin/bash
# Installs what building, testing and demonstrating need on a Debian machine. Quick and quiet when
# nothing is missing; safe to run again at once, as root or with sudo.
#
#   setup.sh [PACKAGE...]    further packages, for scripts that need more
set -u

packages=(
    cmake ninja-build ccache googletest
    libcli11-dev nlohmann-json3-dev
    g++ clang libclang-rt-14-dev
    g++-mingw-w64-i686-posix binutils-mingw-w64-i686
    openssl osslsigncode
    wine wine64 wine32:i386 fonts-wine
    xvfb imagemagick x11-utils
    python3 shellcheck clang-format clang-tidy
    "$@"
)

missing() {
    local package
    for package in "${packages[@]}"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            echo "$package"
    done
}

mapfile -t wanted < <(missing)
[ ${#wanted[@]} -gt 0 ] || exit 0
echo "setup: installing ${wanted[*]}"

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "setup: FAILED: packages are missing and this is neither root nor is there sudo" >&2
        exit 1
    fi
    as_root=(sudo)
fi
log=$(mktemp)
trap 'rm -f "$log"' EXIT
run() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive "$@" >>"$log" 2>&1
}

# 32-bit Wine comes from the i386 half of the archive.
dpkg --print-foreign-architectures | grep -qx i386 || run dpkg --add-architecture i386
# One index of several may be out of reach while the packages can still be had.
run apt-get update || index="the package index could not be read whole (see the log above)"
# Naming the release keeps the amd64 and i386 halves of a shared library at one version.
. /etc/os-release
run apt-get install -y -t "$VERSION_CODENAME" --no-install-recommends "${wanted[@]}"

mapfile -t wanted < <(missing)
if [ ${#wanted[@]} -gt 0 ]; then
    cat "$log" >&2
    echo "setup: FAILED to install ${wanted[*]}${index:+; $index}" >&2
    exit 1
fi
echo "setup: done"
