#!/bin/bash
# Fails when the sources, built from nothing in another folder, give other bytes than PROGRAM has.
#
#   check_reproducible.sh PROGRAM
set -eu
. "$(dirname "$0")/usage.sh"
[ $# -eq 1 ] || wrong_usage "which program?"
work=$(mktemp -d "/tmp/built elsewhere.XXXXXX")
trap 'rm -rf "$work"' EXIT
tar -c -C "$(dirname "$0")/.." --exclude=./build --exclude=./.git . | tar -x -C "$work"
program=$(realpath "$1")
cd "$work"
export CCACHE_DISABLE=1
cmake --preset release --log-level=WARNING
cmake --build --preset release
cmp build/release/installer.exe "$program"
