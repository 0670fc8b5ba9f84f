#!/bin/bash
# Installs what building, testing and demonstrating need on a Debian machine. Quick and quiet when
# nothing is missing; safe to run again at once, as root or with sudo.
#
#   setup.sh [--without-wine] [PACKAGE...]    further packages, for scripts that need more
#
# Where there is no 32-bit Wine, the Windows programs run as 64-bit ones: the kernel may start no 32-bit
# programs, or the archive's i386 half may be out of step. Exits with 3 when everything is installed but
# Wine.
set -u
. "$(dirname "$0")/usage.sh"
export LC_ALL=C.UTF-8

packages=(
    cmake ninja-build ccache googletest
    libcli11-dev nlohmann-json3-dev libssl-dev
    g++ clang libclang-rt-dev
    g++-mingw-w64-i686-posix binutils-mingw-w64-i686
    openssl osslsigncode
    git python3 clang-format clang-tidy shellcheck
    fonts-wine xvfb imagemagick x11-utils
)
wine=(wine wine64) wine32=() log=

# fail REASON [WHAT EXIT_CODE]
fail() {
    [ -z "$log" ] || grep -E '^(E|W|sudo|dpkg): ?' "$log" | tail -n 5 >&2
    echo "setup: ${2-FAILED}: $1" >&2
    exit "${3-1}"
}

trap 'rm -f "$log"' EXIT
{ log=$(mktemp) && head -c 32M /dev/zero >"$log" && : >"$log"; } ||
    fail "${TMPDIR:-/tmp} has no room for temporary files"
if [ "${1-}" = --without-wine ]; then
    wine=()
    shift
elif "$(dirname "$0")/starts_32_bit.sh"; then
    wine32=(wine32:i386)
else
    packages+=(g++-mingw-w64-x86-64-posix)
fi
for word; do
    [[ $word != -* ]] || no_more "$word"
done
packages+=("$@")

missing() {
    [ $# -eq 0 ] || dpkg-query -W -f '${Package} ${Status}\n${Package}:${Architecture} ${Status}\n' |
        sed -n 's/ install ok installed$//p' | grep -vxFf - <(printf '%s\n' "$@")
}

# not_root REASON: with what can be typed by hand
not_root() {
    local install="apt-get update; apt-get install -y --no-install-recommends"
    echo "setup: $1. As root, type this and run the script again:
    $install ${packages[*]}"
    [ ${#wine[@]} -eq 0 ] || echo "    ${wine32[*]:+dpkg --add-architecture i386; }$install ${wine[*]} ${wine32[*]}"
    [ -n "$(missing "${packages[@]}")" ] || [ -z "$(missing "${wine[@]}")" ] ||
        fail "not installed: ${wanted[*]}" "WITHOUT WINE" 3
    fail "not installed: ${wanted[*]}"
} >&2

# as_administrator COMMAND...: its standard output is the caller's, its other output goes to the log.
as_administrator() {
    "${as_root[@]}" env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        PATH="$PATH:/usr/sbin:/sbin" "$@" 2>>"$log"
}

# install PACKAGE...: what is still missing of these, at first as it comes, then with the halves of
# shared libraries at the release's own version. A system that is up to date from security takes the
# first, another one the second.
install() {
    local release
    for release in "" "$VERSION_CODENAME"; do
        mapfile -t wanted < <(missing "$@")
        [ ${#wanted[@]} -gt 0 ] || return 0
        as_administrator apt-get install -y --no-install-recommends ${release:+-t "$release"} \
            -o DPkg::Lock::Timeout=600 "${wanted[@]}" | sed -un '0~100s/^/setup: /p' # every hundredth line
    done
    mapfile -t wanted < <(missing "$@")
    [ ${#wanted[@]} -eq 0 ]
}

command -v apt-get >/dev/null || fail "this is no Debian: what is needed is ${packages[*]} ${wine[*]}"
mapfile -t wanted < <(missing "${packages[@]}" "${wine[@]}" "${wine32[@]}")
[ ${#wanted[@]} -gt 0 ] || exit 0
# Once 32-bit Wine could not be had, the 64-bit compiler stands in for it; it is not tried every time.
[ "${wanted[*]}" != "${wine32[*]}" ] || [ -n "${SETUP_AGAIN-}" ] ||
    [ -n "$(missing g++-mingw-w64-x86-64-posix)" ] || exit 0
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
    command -v sudo >/dev/null || not_root "packages are missing, and this is neither root nor is there sudo"
    sudo -n true 2>/dev/null || {
        (: </dev/tty) 2>/dev/null || not_root "sudo asks for a password and there is no terminal to ask on"
        sudo -v || not_root "sudo does not let this user install packages"
    }
fi
echo "setup: installing ${wanted[*]}"
[ ${#wine32[@]} -eq 0 ] || as_administrator dpkg --add-architecture i386 >>"$log"
echo "setup: reading the package index"
# One index of several may be out of reach while the packages can still be had.
as_administrator apt-get update -o DPkg::Lock::Timeout=600 >>"$log" ||
    index="; the package index could not be read whole: is there a network?"
. /etc/os-release
: "${VERSION_CODENAME:=stable}"
install "${packages[@]}" || fail "not installed: ${wanted[*]}${index-}"
install "${wine[@]}" || fail "not installed: ${wanted[*]}${index-}" "WITHOUT WINE" 3
if [ ${#wine32[@]} -gt 0 ] && ! install "${wine32[@]}"; then
    echo "setup: there is no 32-bit Wine: the archive's i386 half may be out of step for some hours" \
        "(SETUP_AGAIN=1 scripts/setup.sh tries again)" >&2
    install g++-mingw-w64-x86-64-posix || fail "not installed: ${wanted[*]}${index-}"
fi
echo "setup: done"
