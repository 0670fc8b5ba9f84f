#!/bin/bash
# Draws docs/images anew: every dialog as a user meets it, by the real installer on a hidden display,
# and the picture of the architecture.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/on_screen.sh"
images=$root/docs/images
HIDDEN=1

"$root/scripts/setup.sh" graphviz fonts-dejavu-core && "$root/scripts/build.sh" release tools \
    checked/recorder checked/click_through || exit 1

start_on_media() {
    lay_out "$1"
    # A drive of its own, so that the paths in the pictures are those of a user.
    ln -sfn "$media" "$prefix/dosdevices/d:"
    shift
    run_installer "$@"
}

# Waits for the next dialog.
meet() {
    next_dialog >/dev/null || fail "ended before $1"
}

take() {
    echo "  $1: \"$dialog_title\""
    picture "$images/$1.png" || fail "no picture of $1"
}

# shoot NAME BUTTON
shoot() {
    meet "$1"
    take "$1"
    click "$2"
}

finish() {
    ! next_dialog || fail "\"$dialog_title\" is one dialog too many"
}

fail() {
    echo "screenshots: FAILED: $1" >&2
    exit 1
}

# installed VERSION...: versions of the product in the list that Windows keeps
installed() {
    local list='HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall' version value
    in_prefix reg delete "$list" /f /reg:32 >/dev/null 2>&1
    for version; do
        for value in "DisplayName=Tavlink Classic Analyzer $version" "DisplayVersion=$version.0.0" \
            'UninstallString=C:\uninstall.exe' 'InstallLocation=C:\Tavlink'; do
            in_prefix reg add "$list\\$version" /v "${value%%=*}" /d "${value#*=}" /f /reg:32 >/dev/null
        done
    done
}

for DPI in 96 120 144; do
    echo "== at $DPI DPI"
    screen_start "screenshots-$DPI"
    trap screen_stop EXIT
    prefix=$root/build/prefixes/running/$screen_prefix
    suffix=
    [ "$DPI" = 96 ] || suffix=-${DPI}dpi

    start_on_media 04 -dir D:
    shoot "install-product$suffix" Cancel
    finish
    installed 12.10 13.0 14.2
    start_on_media 04 -dir D:
    meet uninstall-prompt
    click 'key 40' # down
    click 'key 32' # the blank
    take "uninstall-prompt$suffix"
    click 'No, Skip'
    meet choice
    click Cancel
    finish

    if [ "$DPI" = 96 ]; then
        installed 14.2
        start_on_media 04 -dir D:
        shoot uninstall-prompt-one 'No, Skip'
        meet choice
        click Cancel
        finish
        installed

        start_on_media 0q -dir D:
        shoot install-product-live Cancel
        finish
        start_on_media 1d -dir D:
        shoot install-product-viewer Cancel
        finish
        start_on_media 04 -installdir 'C:\Tavlink'
        shoot command-line-error OK
        finish
        in_prefix reg add 'HKCU\Software\Wine\AppDefaults\Install.exe' /v Version /d win2k /f >/dev/null
        start_on_media 04 -dir D:
        shoot operating-system-question No
        finish
        in_prefix reg delete 'HKCU\Software\Wine\AppDefaults\Install.exe' /f >/dev/null
        start_on_media 04 -dir D:
        rm "$media/Setup.Exe"
        meet choice
        click Install
        shoot setup-missing OK
        finish
    fi
    screen_stop
    trap - EXIT
done

echo "== architecture"
dot -Tpng "$root/docs/architecture.dot" | convert - "${small_png[@]}" "$images/architecture.png"
