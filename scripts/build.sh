#!/bin/bash
# Builds the given presets, by default all: release, checked, host, tools. PRESET/TARGET builds just
# that.
#
#   build.sh [PRESET|PRESET/TARGET...]
set -u
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.." || exit 1
[ $# -gt 0 ] || set -- release checked host tools

if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi
for preset in "$@"; do
    grep -q "\"name\": \"${preset%%/*}\"" CMakePresets.json ||
        wrong_usage "there is no preset \"${preset%%/*}\""
done
for preset in "$@"; do
    echo "== build: $preset"
    target=
    [[ $preset != */* ]] || target=${preset#*/} preset=${preset%/*}
    if ! cmake --preset "$preset" --log-level=WARNING ||
        ! cmake --build --preset "$preset" ${target:+--target "$target"}; then
        echo "build: FAILED in preset $preset" >&2
        exit 1
    fi
done
