#!/bin/bash
# Shows the installer at work: builds it, stamps it for a product, runs it on sample media whose
# "Setup.Exe" is a stand-in, clicks through its dialog, and prints what "Setup.Exe" was handed.
#
#   demo.sh [--by-hand]    --by-hand leaves the clicking to you; takes a display
#
# Exits with 3 when all is built, but Wine could not be installed and nothing was run.
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
by_hand=()
if [ "${1-}" = --by-hand ]; then
    by_hand=(--by-hand)
    shift
fi
no_more "$@"

wine=1
scripts/setup.sh || {
    [ $? -eq 3 ] || exit 1
    wine=
}
case $(scripts/prefix.sh templates) in
x64) unlike=-x64 ;;
*) unlike= ;;
esac
scripts/build.sh "release$unlike" tools "checked$unlike/recorder" "checked$unlike/click_through"
[ -z "$unlike" ] || echo "demo: this machine runs no 32-bit programs: the installer runs as a 64-bit one"
if [ -z "$wine" ]; then
    echo "demo: INCOMPLETE: all is built, but there is no Wine to run it in" \
        "(scripts/setup.sh tries again to install it)" >&2
    exit 3
fi
exec scripts/on_screen.py demo "${by_hand[@]}"
