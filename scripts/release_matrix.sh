#!/bin/bash
# Runs the installer on every Windows release that Wine can report, on 32-bit and on 64-bit Windows,
# and writes what it did into docs/release-matrix.md. Fails when a row is not what it has to be.
#
#   release_matrix.sh
set -u
. "$(dirname "$0")/usage.sh"
no_more "$@"
cd "$(dirname "$0")/.." || exit 1
scripts/setup.sh && scripts/build.sh release tools checked/end_to_end_tests || exit 1

rows=build/release_matrix
rm -f "$rows".*
RELEASE_MATRIX="P:/$rows." ctest --preset checked -j2 --no-tests=error \
    -R '^end_to_end\.WindowsAlone' || failed=1

page=docs/release-matrix.md
prose=$(sed '/^## /,$d' $page)
echo "$prose" >$page
for processor in x86 x64; do
    printf '\n## %s-bit Windows\n\n' "$([ $processor = x86 ] && echo 32 || echo 64)"
    echo '| Wine'\''s "Version" | policy | bitness | driver installer |'
    echo '|---|---|---|---|'
    awk -f - "$rows.$processor" <<'ROWS' || failed=1
function row() { print "| " release " | " policy " | " bitness " | " driver " |" }
function found(before, field) {
    return match($0, before field) ? substr($0, RSTART + length(before), RLENGTH - length(before)) : ""
}
/^release / { if (release) row(); release = $2; policy = "refuses"; bitness = driver = "" }
/not been tested on / { policy = "asks about \"" found("not been tested on ", "[^.]*") "\"" }
/Setup\.Exe/ && policy == "refuses" { policy = "passes" }
/-bitness=/ { bitness = found("-bitness=", "[^`]*") }
/dpinst_/ { driver = "dpinst_" found("dpinst_", "[^\"]*") }
END { row() }
ROWS
done >>$page
cat $page
exit "${failed-0}"
