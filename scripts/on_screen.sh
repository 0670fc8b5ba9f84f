# For scripts that show the installer: sourced, with `root` set to the repository's folder.
#
#   screen_start NAME     a prefix copy that shows windows, as large as DPI (default 96) asks for; on
#                         the display that there is, else (or with HIDDEN=1) on a virtual one
#   screen_stop
#   lay_out CODE          fresh media for a product in $media, the installer on it in $installer
#   run_installer ARG...  starts it; then, on the dialog that is up:
#   next_dialog           waits for a dialog, sets $dialog_place and $dialog_title, prints its
#                         texts; false at the end of the program
#   click LABEL           and
#   picture FILE          a small PNG

driver=$root/build/checked/dialog_driver
virtual_display=
# Few colours, and the same bytes every time.
small_png=(-strip +dither -colors 256 -define 'png:exclude-chunks=date,time')

screen_start() {
    screen_prefix=$1
    "$root/scripts/prefix.sh" start win64 "$screen_prefix" || exit 1
    in_prefix() { "$root/scripts/in_prefix.sh" "$screen_prefix" "$@"; }
    in_prefix reg delete 'HKCU\Software\Wine\Drivers' /v Graphics /f >/dev/null
    in_prefix reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "${DPI-96}" /f \
        >/dev/null
    # A server that has run without windows goes on without them.
    in_prefix wineboot -e -f
    WINEPREFIX=$root/build/prefixes/running/$screen_prefix wineserver -k -w
    if [ -n "${HIDDEN-}" ] || ! xdpyinfo >/dev/null 2>&1; then
        exec {number}< <(exec Xvfb -displayfd 1 -screen 0 1024x768x24 2>/dev/null)
        virtual_display=$!
        read -r DISPLAY <&"$number"
        export DISPLAY=:$DISPLAY
        # No window manager: Wine draws the frames.
        in_prefix reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
    fi
}

screen_stop() {
    "$root/scripts/prefix.sh" stop "$screen_prefix"
    [ -z "$virtual_display" ] || kill "$virtual_display"
}

lay_out() {
    media=$root/build/$screen_prefix/media
    records=$root/build/$screen_prefix/records.txt
    rm -rf "$root/build/$screen_prefix"
    mkdir -p "$media"
    installer=$media/Install.exe
    "$root/build/tools/stamp" "$root/build/release/installer.exe" "$1" \
        "$("$root/build/tools/stamp" --list | sed -n "s/^$1[[:space:]]*//p")" "$installer" || exit 1
    printf '[Version Number]\r\nVersion Number=16.4.12000.0\r\n' >"$media/ProductData.ini"
    # A stand-in that records how it was started.
    cp "$driver/recorder.exe" "$media/Setup.Exe"
}

windows_path() {
    echo "Z:${1//\//\\}"
}

run_installer() {
    coproc conversation {
        RECORD_FILE=$(windows_path "$records") in_prefix "$driver/click_through.exe" "$(windows_path "$installer")" "$@" 2>/dev/null |
            sed -u 's|\r$||'
    }
    answers=${conversation[1]}
    # Outlives the coprocess, so that its last lines can be read.
    exec {said}<&"${conversation[0]}"
    first_dialog=1
}

next_dialog() {
    local kind rest
    [ -n "$first_dialog" ] || echo >&"$answers" 2>/dev/null
    first_dialog=
    while IFS=$'\t' read -r kind rest <&"$said"; do
        case $kind in
        dialog)
            local left top width height
            IFS=$'\t' read -r left top width height dialog_title <<<"$rest"
            dialog_place=${width}x$height+$left+$top
            ;;
        text) printf '    %s\n' "$rest" ;;
        '?') return 0 ;;
        *) echo "$kind $rest" ;;
        esac
    done
    return 1
}

click() {
    echo "$1" >&"$answers"
}

picture() {
    local shown=none before=
    mkdir -p "$(dirname "$1")"
    # Until it is drawn and stays so.
    while [ "$shown" != "$before" ]; do
        sleep 1
        before=$shown
        import -window root -crop "$dialog_place" +repage "${small_png[@]}" "PNG8:$1" || return 1
        shown=$(sha256sum "$1")
    done
}
