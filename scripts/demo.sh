#!/bin/bash
# Shows the installer at work: builds it, stamps it for a product, runs it on sample media whose
# "Setup.Exe" is a stand-in, and prints what that was handed. With a display the clicking is yours;
# without one it clicks by itself.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/scripts/on_screen.sh"

"$root/scripts/setup.sh" && "$root/scripts/build.sh" release tools checked/recorder \
    checked/click_through || exit 1
echo "== the installer, on sample media"
screen_start demo
trap screen_stop EXIT
lay_out 07
shot=$root/build/demo/install-product.png

run_installer -dir "$(windows_path "$media")"
while next_dialog; do
    echo "  dialog \"$dialog_title\""
    [ -f "$shot" ] || picture "$shot"
    [ -z "$virtual_display" ] || click Install
done

parameters=$(sed -n 's/^start\t[^\t]*\t[^\t]*\t[^\t]*\t"[^"]*" //p' "$records" 2>/dev/null)
if [ -z "$parameters" ]; then
    echo "demo: nothing was handed over"
    [ -n "$virtual_display" ] && exit 1 || exit 0
fi
echo "== Setup.Exe was started with"
echo "    $parameters"
echo "== field by field"
echo "    ${parameters%% *}"
tr '`' '\n' <<<"${parameters#* }" | sed '/^$/d; s/^/    /'
echo "== screenshot: $shot"
