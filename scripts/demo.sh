#!/bin/bash
# Shows the installer at work: builds it, stamps it for a product, runs it on sample media whose
# "Setup.Exe" is a stand-in, clicks through its dialog, and prints what "Setup.Exe" was handed.
#
#   demo.sh [--by-hand]    --by-hand leaves the clicking to you; takes a display
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
by_hand=()
if [ "${1-}" = --by-hand ]; then
    by_hand=(--by-hand)
    shift
fi
no_more "$@"

scripts/setup.sh
scripts/build.sh release tools checked/recorder checked/click_through
exec scripts/on_screen.py demo "${by_hand[@]}"
