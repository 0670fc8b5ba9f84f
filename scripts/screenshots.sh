#!/bin/bash
# Draws docs/images anew: every dialog as a user meets it, by the real installer on a hidden display,
# and the picture of the architecture.
#
#   screenshots.sh
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
no_more "$@"

scripts/setup.sh graphviz fonts-dejavu-core
scripts/build.sh release tools checked/recorder checked/click_through
exec scripts/on_screen.py screenshots
