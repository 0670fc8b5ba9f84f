#!/bin/bash
# Wine prefixes for tests and demonstrations, below build/prefixes.
#
#   prefix.sh templates                     prints the templates that this machine can use: win64, win32; x64,
#                                           which has nothing of 32 bits, for kernels that start no such programs
#   prefix.sh start TEMPLATE NAME.PID       makes a throw-away copy, running/NAME.PID, and keeps a server
#                                           running for it; PID: the process that it is for. With
#                                           SHOW_WINDOWS=1 in the environment its windows are on the display
#   prefix.sh run NAME.PID PROGRAM WORD...  runs a Windows program in that copy
#   prefix.sh run TEMPLATE PROGRAM WORD...  ... in a fresh copy of its own
#   prefix.sh stop NAME.PID                 ends that server and removes the copy
#   prefix.sh sweep                         does so with every copy whose process has ended
set -u
. "$(dirname "$0")/usage.sh"
templates=$(cd "$(dirname "$0")/.." && pwd)/build/prefixes
copies=$templates/running
# A prefix takes over the shell's locale; file names with bytes above 127 need one that has them.
export WINEDEBUG=-all LC_ALL=C.UTF-8
# Without Wine's debugger, which waits for somebody, a crash ends the program; without its menu builder
# nothing is put into the user's own menus.
export WINEDLLOVERRIDES="winedbg.exe,winemenubuilder.exe=d${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"

# use TEMPLATE: has the Wine for it at hand.
use() {
    [[ $1 != x64* ]] || export WINELOADER=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64
    wine=${WINELOADER-wine} wineserver=${WINESERVER-wineserver}
}

make_template() {
    local name=$1 new=$templates/$1.new
    (
        # Another run may be making it.
        flock 9
        [ ! -d "$templates/$name" ] || exit 0
        echo "prefix: making $name"
        rm -rf "$new"
        # Without a display Wine asks nothing; tests need none, so the copies go without one too.
        use "$name"
        unset DISPLAY WAYLAND_DISPLAY
        export WINEARCH=${name/x64/win64} WINEPREFIX=$new
        if ! { "$wine" wineboot -i && "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f &&
            "$wineserver" -w; } >"$new.log" 2>&1 9>&-; then
            cat "$new.log" >&2
            fail "$name was not made"
        fi
        # Debian's Wine does not look for its own fonts where Debian has them; without them the
        # dialogs have other sizes than on Windows, and the close box an "r".
        cp -s /usr/share/wine/fonts/*.ttf "$new/drive_c/windows/Fonts/" || exit 1
        # Wine links a user's folders to the home folder, which is none of a test's business.
        find "$new/drive_c/users" -type l -exec rm {} \; -exec mkdir {} \;
        touch "$new/made"
        mv "$new" "$templates/$name"
    ) 9>"$templates/$name.lock"
}

start() {
    local template=$templates/$1 copy=$copies/$2
    mkdir -p "$copies" && make_template "$1" || return 1
    use "$1"
    sweep
    stop "$2" || return 1
    # A gigabyte of Wine's libraries, which nobody writes to, is shared; stop looks after that.
    cp -al "$template" "$copy" && cp -a --remove-destination "$template"/*.reg "$copy/" || return 1
    [ -z "${SHOW_WINDOWS-}" ] || sed -i '/^"Graphics"="null"$/d' "$copy/user.reg" || return 1
    # This checkout, whose own path may have characters that the code page lacks.
    ln -s "${templates%/build/*}" "$copy/dosdevices/p:" || return 1
    # Wine's own services live on and would hold a pipe of the caller open.
    { WINEPREFIX=$copy "$wineserver" -p && WINEPREFIX=$copy "$wine" cmd /c exit; } \
        >/dev/null 2>&1 </dev/null
}

run() {
    if [[ $1 == *.* ]]; then
        [ -d "$copies/$1" ] || wrong_usage "$1 was not started"
        use "$1"
        WINEPREFIX=$copies/$1 exec "$wine" "${@:2}"
    fi
    own=$1.$$
    trap 'stop "$own" || exit 1' EXIT
    trap exit INT TERM HUP
    start "$1" "$own" || exit 1
    # In the background: a signal ends the wait and not only the program.
    WINEPREFIX=$copies/$own "$wine" "${@:2}" <&0 &
    wait $!
}

stop() {
    local copy=$copies/$1 server written
    [ -d "$copy" ] || return 0
    use "$1"
    WINEPREFIX=$copy timeout 20 "$wineserver" -k || WINEPREFIX=$copy "$wineserver" -k9
    # Wine leaves the folder of its server, which is named by the copy's own.
    server=server-$(stat -c %D "$copy")-$(printf %x "$(stat -c %i "$copy")")
    rm -rf "${TMPDIR:-/tmp}"/{.wine-"$UID",wine-??????}/"$server"
    written=$(find "$copy" -type f -links +1 -newer "$copy/made" -print -quit)
    rm -rf "$copy"
    if [ -n "$written" ]; then
        # The templates are made anew by the next run.
        rm -rf "${templates:?}"/{win64,win32,x64}
        echo "prefix: FAILED: the template was written to: ${written#"$copy/"}" >&2
        return 1
    fi
}

sweep() {
    local copy
    for copy in "$copies"/*.*; do
        [ ! -d "$copy" ] || [ -d "/proc/${copy##*.}" ] || stop "${copy##*/}"
    done
}

templates() {
    if "$(dirname "$0")/starts_32_bit.sh" && [ -e /usr/lib/i386-linux-gnu/wine ]; then
        echo win64 win32
    elif [ -x /usr/lib/wine/wine64 ]; then
        echo x64
    fi
}

case "${1-} $#" in
"templates 1") templates ;;
"start 3") start "$2" "$3" ;;
run\ *) run "${@:2}" ;;
"stop 2") stop "$2" ;;
"sweep 1") sweep ;;
*) wrong_usage "what shall be done with which prefix?" ;;
esac
