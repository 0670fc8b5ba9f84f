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
    # What one checkout has compiled serves another.
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD
fi
# One run at a time has the build folder.
mkdir -p build
exec {build_lock}>build/.lock
if ! flock -n "$build_lock"; then
    echo "build: waiting for another run in this checkout"
    flock "$build_lock"
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
