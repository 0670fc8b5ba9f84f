#!/bin/bash
# Draws docs/images anew: every dialog as a user meets it, by the real installer on a hidden display, the
# page that shows the runs, in a real browser, and the picture of the architecture.
#
#   screenshots.sh
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
no_more "$@"

scripts/setup.sh graphviz fonts-dejavu-core chromium
scripts/build.sh release tools checked/recorder checked/click_through
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
dot -Tpng -o "$work/architecture.png" docs/architecture.dot
build/tools/installer-tool check --html "$work/page.html" \
    --installed tests/end_to_end/machines/server.json
chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars \
    --user-data-dir="$work/browser" --window-size=1280,1700 --screenshot="$work/runs.png" \
    "file://$work/page.html" 2>/dev/null
for picture in architecture runs; do
    convert "$work/$picture.png" -strip +dither -colors 256 -define png:exclude-chunks=date,time \
        "docs/images/$picture.png"
done
scripts/on_screen.py screenshots
