#!/bin/bash
# Runs each fuzzer, or those named, one after the other, for some time (60 s without SECONDS) or, with
# EXECUTIONS=N in the environment, until it has run N inputs, and prints executions, executions per
# second and the edges that were covered.
#
#   fuzz.sh [SECONDS [NAME...]]
#
# Starts from the inputs in tools/fuzzers/corpora/NAME; with MERGE=1 these become the fewest inputs
# that cover everything reached. An input that breaks a promise is left in build/fuzz/findings.
set -u
. "$(dirname "$0")/usage.sh"
scripts=$(cd "$(dirname "$0")" && pwd)
cd "$scripts/.." || exit 1
seconds=${1-60}
[[ $seconds =~ ^[1-9][0-9]*$ ]] || wrong_usage "\"$seconds\" is no number of seconds"
[[ ${EXECUTIONS-1} =~ ^[1-9][0-9]*$ ]] || wrong_usage "\"$EXECUTIONS\" is no number of inputs"
for name in "${@:2}"; do
    [ -f "tools/fuzzers/${name}_fuzzer.cpp" ] || wrong_usage "there is no fuzzer \"$name\""
done
"$scripts/setup.sh" --without-wine || exit 1
"$scripts/build.sh" fuzz || exit 1

shift $(($# > 0))
programs=("$@")
if [ $# -eq 0 ]; then
    for program in build/fuzz/tools/fuzzers/*_fuzzer; do
        programs+=("$(basename "$program" _fuzzer)")
    done
fi
mkdir -p build/fuzz/findings
# What was freed is kept for a short while only, and no call stacks: most of the time goes there.
export ASAN_OPTIONS=malloc_context_size=0:quarantine_size_mb=1
run_one() {
    local name=$1 program=build/fuzz/tools/fuzzers/$1_fuzzer seeds=tools/fuzzers/corpora/$1
    local work=build/fuzz/corpora/$1 log=build/fuzz/$1.log length=64
    # Paths are cut at 260 characters.
    [ "$name" != driver_report ] || length=512
    mkdir -p "$work" "$seeds"
    "$program" "${limit[@]}" -max_len=$length -rss_limit_mb=2048 -print_final_stats=1 \
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
    if [ -n "${MERGE-}" ]; then
        rm -rf "$work.merged"
        mkdir "$work.merged"
        "$program" -merge=1 "$work.merged" "$seeds" "$work" >>"$log" 2>&1 &&
            rm -rf "$seeds" && cp -r "$work.merged" "$seeds"
    fi
}
limit=(-max_total_time="$seconds")
[ -z "${EXECUTIONS-}" ] || limit=(-runs="$EXECUTIONS")
failed=0
for program in "${programs[@]}"; do
    run_one "$program" || failed=1
done
exit $failed
