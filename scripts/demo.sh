#!/bin/bash
# Shows the installer at work: builds it, stamps it for a product, runs it on sample media whose
# "Setup.Exe" is a stand-in, clicks through its dialog, and prints what "Setup.Exe" was handed.
#
#   demo.sh [--by-hand]    --by-hand leaves the clicking to you; takes a display
set -u
by_hand=
[ "${1-}" = --by-hand ] && by_hand=1
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/on_screen.sh"

"$root/scripts/setup.sh" && "$root/scripts/build.sh" release tools checked/recorder \
    checked/click_through || exit 1
echo "== the installer, on sample media"
screen_start demo
trap screen_stop EXIT
if [ -n "$by_hand" ] && [ -n "$virtual_display" ]; then
    echo "demo: --by-hand takes a display, and there is none" >&2
    exit 1
fi
lay_out 07
shot=$root/build/demo/install-product.png

run_installer -dir "$(windows_path "$media")"
while next_dialog; do
    echo "  dialog \"$dialog_title\""
    [ -f "$shot" ] || picture "$shot"
    [ -n "$by_hand" ] || click Install
done

parameters=$(sed -n 's/^"[^"]*" //p' "$records" 2>/dev/null)
if [ -z "$parameters" ]; then
    echo "demo: nothing was handed over"
    [ -n "$by_hand" ] && exit 0 || exit 1
fi
echo "== Setup.Exe was started with"
echo "    $parameters"
echo "== field by field"
echo "    ${parameters%% *}"
tr '`' '\n' <<<"${parameters#* }" | sed '/^$/d; s/^/    /'
echo "== screenshot: $shot"
