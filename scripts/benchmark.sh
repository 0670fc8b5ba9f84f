#!/bin/bash
# Measures the installer beside what it can be compared with, under Wine: prints a table, writes it
# to docs/benchmarks.md and draws docs/images/benchmark.png. Rivals take turns within a run, so that
# what else the machine does falls on all of them.
#
#   benchmark.sh [ROUNDS]    ROUNDS of every start; 41 without it
set -u
rounds=${1-41}
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root" || exit 1
programs=build/benchmark/tools/benchmarks
media=build/benchmark/media

fail() {
    echo "benchmark: FAILED: $1" >&2
    exit 1
}

scripts/setup.sh nsis gnuplot-nox && scripts/build.sh benchmark tools || exit 1
rm -rf "$media"
mkdir -p "$media"
for rival in same_dialog same_hand_over; do
    makensis -V1 -NOCD "-XOutFile $media/$rival.exe" "tools/benchmarks/$rival.nsi" ||
        fail "cannot make $rival.exe"
done
cp "$programs/hand_over.exe" "$media/Setup.Exe"
printf '[Version Number]\r\nVersion Number=16.4.12000.0\r\n' >"$media/ProductData.ini"
for code in 04 1q; do
    build/tools/stamp build/benchmark/installer.exe "$code" \
        "$(build/tools/stamp --list | sed -n "s/^$code //p")" "$media/$code.exe" ||
        fail "cannot stamp product $code"
done

results=build/benchmark/results
# Wine's output goes to a file: what it leaves running would hold a pipe open.
measure() {
    echo "== benchmark: $*"
    scripts/in_prefix.sh benchmark "$programs/$1.exe" "${@:2}" >"$results" 2>"$results.errors" ||
        fail "$(cat "$results.errors")"
    sed -i 's/\r$//' "$results"
}
scripts/prefix.sh start win64 benchmark || exit 1
trap 'scripts/prefix.sh stop benchmark' EXIT

# Tab-separated: what, beside what, ours, the other, ratio, ratio wanted.
rows=build/benchmark/rows.tsv
: >"$rows"
row() {
    (IFS=$'\t'; echo "$*") >>"$rows"
}
source_folder="Z:${root//\//\\}\\${media//\//\\}"
starts() {
    measure start_benchmark "$1" "$rounds" "\"$source_folder\\$3.exe\" -dir \"$source_folder\"" "${@:4}"
    local ours time ratio
    read -r ours _ <"$results"
    while read -r time ratio && IFS=$'\t' read -r rival wanted <&3; do
        row "$2" "$rival" "$ours ms" "$time ms" "$ratio" "$wanted"
    done < <(tail -n +2 "$results") 3<<<"$rivals"
}
rivals="its dialog, shown bare"$'\t'1.05$'\n'"an empty dialog"$'\t'1.05$'\n'"NSIS, same dialog"$'\t'1
starts dialog "Start to first dialog" 04 "$programs/bare_dialog.exe" "$programs/empty_dialog.exe" \
    "$media/same_dialog.exe"
rivals="NSIS, starts it silently"$'\t'1
starts hand-over "Start to hand-over, unattended" 1q "$media/same_hand_over.exe"

measure registry_benchmark
{
    read -r ours bare ratio
    row "Discovery, 10,000 entries" "a bare loop of the reads" "$ours ms" "$bare ms" "$ratio" 1.2
    read -r ours bare ratio
    row "Index, 5,000 records" "a bare loop of the reads" "$ours ms" "$bare ms" "$ratio" 1.3
    read -r memory_of_few memory memory_of_many
} <"$results"

kilobytes() {
    awk '{ printf "%.0f KB", $1 / 1024 }' <<<"$1"
}
size() {
    stat -c %s "$1"
}
ratio() {
    awk '{ printf "%.3f", $1 / $2 }' <<<"$1 $2"
}
installer=$(size "$media/04.exe")
row "Size" "the 300 KB allowed" "$(kilobytes "$installer")" "300 KB" \
    "$(ratio "$installer" 307200)" 1
row "Memory of the discovery" "a tenth of the entries" "$memory bytes" "$memory_of_few bytes" \
    "$(ratio "$memory" "$memory_of_few")" 1

table() {
    printf '| What | Beside | Installer | The other | Ratio | Wanted |\n|---|---|--:|--:|--:|--:|\n'
    awk -F'\t' '{ printf "| %s | %s | %s | %s | %.2f | %s |\n", $1, $2, $3, $4, $5,
                  "<= " $6 }' "$rows"
}
cat >docs/benchmarks.md <<END
# Benchmarks

Written by \`scripts/benchmark.sh\`: medians of $rounds rounds on $(nproc) processors under
$(wine --version 2>/dev/null), load $(cut -d' ' -f1 /proc/loadavg) at the end. Within a round every program runs once, in
turns; a ratio is the median of the rounds' ratios. Where it disagrees with the medians beside it,
the machine was busy (a load above the number of processors): measure again on a quiet one.

$(table)

![The ratios](images/benchmark.png)

- The bare dialog is the installer's own dialog shown by a program of the same framework and
  manifest that does nothing else: what stands above 1 is the installer's work before it can ask.
  The empty dialog has neither controls nor the common controls' library; it shows what the dialog
  itself costs.
- The bare loops make the same calls of the registry and for file versions, and keep nothing.
- The discovery holds what it reports and no more: with ten times as many products to report, at
  10,000 entries, it holds $memory_of_many bytes at most.
END
table

mkdir -p docs/images
gnuplot <<END || fail "no chart"
set terminal pngcairo size 1000,520 font "DejaVu Sans,11"
set output "docs/images/benchmark.png"
set title "Ratios: the installer beside the other (line: wanted at most)"
set datafile separator "\t"
set style fill solid 0.8
set xrange [0:*]
set yrange [$(wc -l <"$rows") - 0.4:-0.6]
set lmargin 50
set key off
set grid xtics
set ytics scale 0
plot "$rows" using (0):0:(0):5:(\$0-0.3):(\$0+0.3):yticlabels(sprintf("%s / %s", \
        stringcolumn(1), stringcolumn(2))) with boxxyerror lc rgb "#4878a8", \
    "" using 6:(\$0-0.4):(0):(0.8) with vectors nohead lw 3 lc rgb "#c03028", \
    "" using (0.03):0:(sprintf("%.2f", \$5)) with labels left textcolor rgb "white"
END
echo "benchmark: docs/benchmarks.md and docs/images/benchmark.png are written"
