#!/bin/bash
# Shows the installer at work: builds it, stamps it for a product, runs it on sample media whose
# "Setup.Exe" is a stand-in, clicks through its dialog, and prints what "Setup.Exe" was handed.
#
#   demo.sh [--by-hand]    --by-hand leaves the clicking to you; takes a display
#
# Where there is no Wine, prints instead what the run would be, as installer-tool foretells it, and
# exits with 3.
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
[ "${1-}" = --by-hand ] || no_more "$@"
no_more "${@:2}"

scripts/setup.sh || [ $? -eq 3 ] || exit 1
read -r template _ < <(scripts/prefix.sh templates) || template=
unlike=
[ "$template" != x64 ] || unlike=-x64
scripts/build.sh "release$unlike" tools "checked$unlike/recorder" "checked$unlike/click_through"
if [ -z "$template" ]; then
    media=build/demo/media
    mkdir -p "$media"
    cp build/checked/dialog_driver/recorder.exe "$media/Setup.Exe"
    printf '[Version Number]\r\nVersion Number=16.4.12000.0\r\n' >"$media/ProductData.ini"
    build/tools/installer-tool stamp build/release/installer.exe 07 "$media/Install.exe"
    build/tools/installer-tool check "$media/Install.exe" "$media" --windows "Windows 7"
    echo "demo: INCOMPLETE: there is no Wine to run it in: this run was foretold by installer-tool" \
        "(scripts/setup.sh tries again to install Wine)" >&2
    exit 3
fi
[ -z "$unlike" ] || echo "demo: this machine runs no 32-bit programs: the installer runs as a 64-bit one"
exec scripts/on_screen.py demo "$@"
