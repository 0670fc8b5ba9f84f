#!/bin/bash
# fuzz.sh [SECONDS [NAME...]]: runs each fuzzer, or those named, for some time (default 60 s), and
# prints executions, executions per second and the edges that were covered.
#
# Starts from the inputs in tools/fuzzers/corpora/NAME; with MERGE=1 adds to them what reached new
# code, in its smallest form. An input that breaks a promise is left in build/fuzz/findings.
set -u
scripts=$(cd "$(dirname "$0")" && pwd)
cd "$scripts/.." || exit 1
"$scripts/setup.sh" && "$scripts/build.sh" fuzz || exit 1

seconds=${1-60}
shift $(($# > 0))
programs=("$@")
if [ $# -eq 0 ]; then
    for program in build/fuzz/tools/fuzzers/*_fuzzer; do
        programs+=("$(basename "$program" _fuzzer)")
    done
fi
mkdir -p build/fuzz/findings
run_one() {
    local name=$1 program=build/fuzz/tools/fuzzers/$1_fuzzer seeds=tools/fuzzers/corpora/$1
    local work=build/fuzz/corpora/$1 log=build/fuzz/$1.log
    mkdir -p "$work" "$seeds"
    "$program" -max_total_time="$seconds" -max_len=512 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/findings/$name-" "$work" "$seeds" >"$log" 2>&1
    local result=$? executed rate covered
    executed=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    covered=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
    printf '%-20s %12s executions %8s per second   %s edges\n' "$name" "$executed" "$rate" \
        "${covered#cov: }"
    if [ "$result" -ne 0 ]; then
        echo "fuzz: FAILED: $name, see $log" >&2
        return 1
    fi
    [ -z "${MERGE-}" ] || "$program" -merge=1 "$seeds" "$work" >>"$log" 2>&1
}
export -f run_one
export seconds
printf '%s\0' "${programs[@]}" | xargs -0 -P "$(nproc)" -n 1 bash -c 'run_one "$1"' run_one
