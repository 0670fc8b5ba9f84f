#!/bin/bash
# Installs what building, testing and demonstrating need on a Debian machine. Quick and quiet when
# nothing is missing; safe to run again at once, as root or with sudo.
#
#   setup.sh [--without-wine] [PACKAGE...]    further packages, for scripts that need more
#
# Exits with 3 when everything is installed but 32-bit Wine, which the archive can lack for a while:
# then all can be built, and the native tests run.
set -u
export LC_ALL=C.UTF-8

wine=(wine wine64 wine32:i386)
if [ "${1-}" = --without-wine ]; then
    wine=()
    shift
fi
packages=(
    cmake ninja-build ccache googletest
    libcli11-dev nlohmann-json3-dev
    g++ clang libclang-rt-dev
    g++-mingw-w64-i686-posix binutils-mingw-w64-i686
    openssl osslsigncode
    python3 clang-format clang-tidy shellcheck
    fonts-wine xvfb imagemagick x11-utils
    "$@"
)

missing() {
    local package
    for package; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            echo "$package"
    done
}

fail() {
    {
        [ -z "${log-}" ] || cat "$log"
        echo "setup: FAILED: $1"
        if [ -n "${2-}" ]; then
            echo "setup: $2"
            echo "    dpkg --add-architecture i386; apt-get update"
            echo "    apt-get install -y --no-install-recommends ${wanted[*]}"
        fi
    } >&2
    exit 1
}

# check_root: fills as_root with what goes before a command for root.
check_root() {
    local by_hand="as root, run this and then this script again:"
    as_root=()
    [ "$(id -u)" -ne 0 ] || return 0
    command -v sudo >/dev/null ||
        fail "packages are missing, and this is neither root nor is there sudo" "$by_hand"
    as_root=(sudo)
    if ! sudo -n true 2>/dev/null; then
        (: </dev/tty) 2>/dev/null ||
            fail "sudo asks for a password and there is no terminal to ask on" "$by_hand"
        sudo -v || fail "sudo does not let this user install packages" "$by_hand"
    fi
}

# as_administrator COMMAND...: its standard output is the caller's, its other output goes to the log.
as_administrator() {
    "${as_root[@]}" env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        PATH="$PATH:/usr/sbin:/sbin" "$@" 2>>"$log"
}

# Condenses what apt reports about itself to a line every 20 seconds.
progress() {
    local kind percent doing shown='' due=0
    while IFS=: read -r kind _ percent _; do
        case $kind in
        dlstatus) doing=downloading ;;
        pmstatus) doing=installing ;;
        *) continue ;;
        esac
        [ "$doing" != "$shown" ] || [ "$SECONDS" -ge "$due" ] || continue
        echo "setup: $doing, ${percent%%.*} %"
        shown=$doing due=$((SECONDS + 20))
    done
}

install() {
    # sudo hands on no further descriptors, so apt's report takes the place of its output. Naming
    # the release keeps the amd64 and i386 halves of a shared library at one version.
    # shellcheck disable=SC2016  # expanded by the shell that is started
    as_administrator sh -c 'exec apt-get "$@" 3>&1 >&2' apt-get install -y --no-install-recommends \
        -t "$VERSION_CODENAME" -o APT::Status-Fd=3 -o DPkg::Lock::Timeout=600 "$@" | progress
}

command -v apt-get >/dev/null || fail "this is no Debian: what is needed is ${packages[*]} ${wine[*]}"
mapfile -t wanted < <(missing "${packages[@]}" "${wine[@]}")
[ ${#wanted[@]} -gt 0 ] || exit 0
check_root
echo "setup: installing ${wanted[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT

# 32-bit Wine comes from the i386 half of the archive.
dpkg --print-foreign-architectures | grep -qx i386 ||
    as_administrator dpkg --add-architecture i386 >>"$log"
echo "setup: reading the package index"
# One index of several may be out of reach while the packages can still be had.
as_administrator apt-get update -o DPkg::Lock::Timeout=600 >>"$log" ||
    index="; the package index could not be read whole (see above)"
. /etc/os-release
: "${VERSION_CODENAME:=stable}"
install "${wanted[@]}"

mapfile -t wanted < <(missing "${packages[@]}")
[ ${#wanted[@]} -eq 0 ] || install "${wanted[@]}"
mapfile -t wanted < <(missing "${packages[@]}")
[ ${#wanted[@]} -eq 0 ] || fail "not installed: ${wanted[*]}${index-}"
mapfile -t wanted < <(missing "${wine[@]}")
if [ ${#wanted[@]} -gt 0 ]; then
    grep '^[EW]:' "$log" >&2
    echo "setup: WITHOUT WINE: not installed: ${wanted[*]}${index-}" >&2
    echo "setup: the archive's i386 half may be out of step with the rest for some hours; all else" \
        "is installed" >&2
    exit 3
fi
echo "setup: done"
