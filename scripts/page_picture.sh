#!/bin/bash
# Draws the picture of the page that shows the runs, in a real browser: page_picture.sh
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
no_more "$@"

scripts/setup.sh chromium fonts-dejavu-core
scripts/build.sh tools
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build/tools/installer-tool check --html "$work/page.html" \
    --installed tests/end_to_end/machines/server.json
chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars \
    --user-data-dir="$work/browser" --window-size=1280,1700 --screenshot="$work/page.png" \
    "file://$work/page.html" 2>/dev/null
convert "$work/page.png" -strip +dither -colors 128 docs/images/runs.png
