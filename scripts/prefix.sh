#!/bin/bash
# Wine prefixes for tests and demonstrations, below build/prefixes.
#
#   prefix.sh make NAME...          makes the templates that are missing: win64, win32
#   prefix.sh start TEMPLATE [NAME] makes a throw-away copy (NAME: as the template) and keeps a
#                                   server running for it
#   prefix.sh stop NAME             ends that server and removes the copy
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
templates=$root/build/prefixes
copies=$templates/running
export WINEDEBUG=-all

make_template() {
    local name=$1 new=$templates/$1.new
    [ -d "$templates/$name" ] && return 0
    echo "prefix: making $name"
    rm -rf "$new"
    mkdir -p "$templates"
    # Without a display Wine asks nothing; tests need no display, so the copies go without one too.
    if ! WINEARCH=$name WINEPREFIX=$new env -u DISPLAY -u WAYLAND_DISPLAY sh -c \
        'wineboot -i && wine reg add "HKCU\\Software\\Wine\\Drivers" /v Graphics /d null /f &&
         wineserver -w' >"$new.log" 2>&1; then
        cat "$new.log" >&2
        echo "prefix: FAILED to make $name" >&2
        return 1
    fi
    # Debian's Wine does not look for its own fonts where Debian has them; without them the dialogs
    # have other sizes than on Windows, and the close box an "r".
    cp -s /usr/share/wine/fonts/*.ttf "$new/drive_c/windows/Fonts/" || return 1
    rm -f "$new.log"
    mv "$new" "$templates/$name"
}

stop() {
    [ -d "$copies/$1" ] || return 0
    WINEPREFIX=$copies/$1 wineserver -k
    rm -rf "${copies:?}/$1"
}

case ${1-} in
make)
    shift
    for name in "$@"; do
        make_template "$name" || exit 1
    done
    ;;
start)
    copy=${3-$2}
    make_template "$2" || exit 1
    stop "$copy"
    mkdir -p "$copies"
    cp -a --reflink=auto "$templates/$2" "$copies/$copy" || exit 1
    export WINEPREFIX=$copies/$copy
    # Wine's own services live on and would hold a pipe of the caller open.
    { wineserver -p && wine cmd /c exit; } >/dev/null 2>&1 </dev/null
    ;;
stop)
    stop "$2"
    ;;
*)
    sed -n '2,/^set/{/^#/p}' "$0" >&2
    exit 2
    ;;
esac
