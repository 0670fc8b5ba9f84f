#!/bin/bash
# Runs each fuzzer, or those named, one after the other, for some time (60 s without SECONDS) or, with
# EXECUTIONS=N in the environment, until it has run N inputs; prints what libFuzzer counts.
#
#   fuzz.sh [SECONDS [NAME...]]
#
# Starts from the inputs in tools/fuzzers/corpora/NAME; what it adds is kept in build/fuzz/corpora. An
# input that breaks a promise is left in build/fuzz/findings.
set -u
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.." || exit 1
[[ ${1-60} =~ ^[1-9][0-9]*$ ]] || wrong_usage "\"$1\" is no number of seconds"
limit=-max_total_time=${1-60}
[ -z "${EXECUTIONS-}" ] || limit=-runs=$EXECUTIONS
names=("${@:2}")
[ ${#names[@]} -gt 0 ] || mapfile -t names < <(cd tools/fuzzers && printf '%s\n' *_fuzzer.cpp | sed 's/_fuzzer.cpp//')
scripts/setup.sh --without-wine && scripts/build.sh fuzz || exit 1

# What was freed is kept for a short while only, and no call stacks: most of the time goes there.
export ASAN_OPTIONS=malloc_context_size=0:quarantine_size_mb=1
mkdir -p build/fuzz/findings
failed=()
for name in "${names[@]}"; do
    seeds=tools/fuzzers/corpora/$name work=build/fuzz/corpora/$name log=build/fuzz/$name.log length=64
    case $name in
    driver_report) length=512 ;;  # paths are cut at 260 characters
    whole_run) length=4096 ;;     # a computer
    esac
    mkdir -p "$work"
    "build/fuzz/tools/fuzzers/${name}_fuzzer" "$limit" -max_len=$length -rss_limit_mb=2048 \
        -artifact_prefix="build/fuzz/findings/$name-" -print_final_stats=1 "$work" "$seeds" >"$log" 2>&1 ||
        failed+=("$log")
    echo "$name:" "$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)" \
        "$(sed -nE 's/^stat::(number_of_executed_units|average_exec_per_sec)//p' "$log" | xargs)"
done
[ ${#failed[@]} -eq 0 ] || fail "see ${failed[*]}"
