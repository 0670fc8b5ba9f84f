#!/bin/bash
# Installs what is missing, builds everything and runs every test.
set -u
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
for preset in host checked; do
    echo "== test: $preset"
    ctest --preset "$preset" -j2 || failed+=("$preset")
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "test: FAILED in ${failed[*]}" >&2
    exit 1
fi
echo "test: all passed"
