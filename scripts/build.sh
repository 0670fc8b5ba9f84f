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
    # What one checkout has compiled serves another, also where debug information names the folder.
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
fi
# One run at a time has the build folder.
{ mkdir -p build && exec 9>build/.lock; } || fail "$PWD/build cannot be written: work in a copy of your own"
if ! flock -n 9; then
    echo "build: waiting for another run in this checkout"
    flock 9
fi
for preset in "$@"; do
    echo "== build: $preset"
    target=
    [[ $preset != */* ]] || target=${preset#*/} preset=${preset%/*}
    { cmake --preset "$preset" --log-level=WARNING >/dev/null &&
        cmake --build --preset "$preset" ${target:+--target "$target"}; } || fail "preset $preset"
done
