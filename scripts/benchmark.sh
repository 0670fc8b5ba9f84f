#!/bin/bash
# Measures the installer beside what it can be compared with, under Wine: prints a table, and writes
# it with a chart to build/benchmark. Rivals take turns within a run, so that what else the machine
# does falls on all of them.
#
#   benchmark.sh [--write-docs] [ROUNDS]    ROUNDS of every start; 41 without it
#
# With --write-docs the results become docs/benchmarks.md and docs/images/benchmark.png.
set -eu
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.."
folder=$PWD/build/benchmark
chart=$folder/benchmark.png
if [ "${1-}" = --write-docs ]; then
    folder=$PWD/docs
    chart=$folder/images/benchmark.png
    shift
fi
rounds=${1-41}
[[ $rounds =~ ^[1-9][0-9]*$ ]] || wrong_usage "\"$rounds\" is no number of rounds"
no_more "${@:2}"

scripts/setup.sh nsis gnuplot-nox fonts-dejavu-core
scripts/build.sh benchmark tools
exec scripts/benchmark.py "$rounds" "$folder" "$chart"
