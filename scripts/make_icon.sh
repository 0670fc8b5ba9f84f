#!/bin/sh
# Draws ui/installer.ico. Needs ImageMagick; the result is committed, so builds do not.
#
#   make_icon.sh
set -eu
. "$(dirname "$0")/usage.sh"
no_more "$@"
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A captured signal on an instrument's screen, and the arrow of an installation. Drawn once per
# size, so that lines stay lines in the small ones.
for size in 16 24 32 48; do
    convert -size ${size}x${size} xc:none -define png:color-type=6 \
        -draw "scale $((size))e-2,$((size))e-2
               fill #1B3A57 stroke none roundrectangle 4,6 96,94 12,12
               fill #0E2233 roundrectangle 11,13 89,62 6,6
               fill none stroke #57E389 stroke-width 8
               polyline 12,50 24,50 24,25 42,25 42,50 60,50 60,25 76,25 76,50 88,50
               fill #F6C344 stroke none
               polygon 41,54 59,54 59,70 73,70 50,91 27,70 41,70" \
        "$work/$size.png"
done
convert "$work/16.png" "$work/24.png" "$work/32.png" "$work/48.png" ui/installer.ico
