#!/bin/bash
# Installs what is missing, builds everything, checks the sources and runs every test.
#
#   test.sh
set -u
. "$(dirname "$0")/usage.sh"
no_more "$@"
scripts=$(cd "$(dirname "$0")" && pwd)
cd "$scripts/.." || exit 1

"$scripts/setup.sh" || exit 1
# The prefixes are made while the compiler works.
"$scripts/prefix.sh" make win64 win32 &
prefixes=$!
"$scripts/build.sh"
built=$?
if ! wait "$prefixes"; then
    echo "test: FAILED to make the Wine prefixes" >&2
    exit 1
fi
[ "$built" -eq 0 ] || exit 1

failed=()
echo "== lint"
"$scripts/lint.sh" || failed+=(lint)
for preset in host checked; do
    echo "== test: $preset"
    ctest --preset "$preset" -j2 || failed+=("$preset")
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "test: FAILED in ${failed[*]}" >&2
    exit 1
fi
echo "test: all passed"
