#!/bin/bash
# Draws docs/images anew: every dialog as a user meets it, by the real installer on a hidden display, the
# page that shows the runs, in a real browser, and the picture of the architecture.
#
#   screenshots.sh
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
no_more "$@"

scripts/setup.sh graphviz fonts-dejavu-core chromium poppler-utils
scripts/build.sh release tools checked/recorder checked/click_through
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# browse OPTION...: on the page of the runs
browse() {
    chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars \
        --user-data-dir="$work/browser" "$@" "file://$work/page.html" 2>/dev/null
}

dot -Tpng -o "$work/architecture.png" docs/architecture.dot
build/tools/installer-tool check --html "$work/page.html" \
    --installed tests/end_to_end/machines/server.json
browse --window-size=1280,1700 --screenshot="$work/runs.png"
browse --window-size=1280,1700 --blink-settings=preferredColorScheme=0 --screenshot="$work/runs-dark.png"
browse --window-size=390,1700 --screenshot="$work/runs-390.png"
browse --no-pdf-header-footer --print-to-pdf="$work/runs.pdf"
pdftoppm -r 90 -f 3 -singlefile -png "$work/runs.pdf" "$work/runs-sheet" # the first card with all there is
mogrify -path docs/images -strip +dither -colors 256 -define png:exclude-chunks=date,time \
    "$work"/{architecture,runs,runs-dark,runs-390,runs-sheet}.png
scripts/on_screen.py screenshots
