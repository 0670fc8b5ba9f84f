#!/bin/bash
# Installs what is missing, builds everything, checks the sources and runs every test.
#
#   test.sh
#
# Exits with 3 when all passed that could run, but 32-bit Wine could not be installed and the tests of
# the Windows program were left out.
set -u
. "$(dirname "$0")/usage.sh"
no_more "$@"
scripts=$(cd "$(dirname "$0")" && pwd)
cd "$scripts/.." || exit 1

"$scripts/setup.sh"
case $? in
0) wine=1 ;;
3) wine= ;;
*) exit 1 ;;
esac
# The prefixes are made while the compiler works.
if [ -n "$wine" ]; then
    "$scripts/prefix.sh" make win64 win32 &
    prefixes=$!
    trap '"$scripts/prefix.sh" sweep' EXIT
fi
"$scripts/build.sh"
built=$?
if [ -n "$wine" ] && ! wait "$prefixes"; then
    echo "test: FAILED to make the Wine prefixes" >&2
    exit 1
fi
[ "$built" -eq 0 ] || exit 1

failed=() left_out=()
[ -n "$wine" ] || left_out=(--label-exclude wine)
echo "== lint"
"$scripts/lint.sh" || failed+=(lint)
for preset in host checked; do
    echo "== test: $preset"
    ctest --preset "$preset" -j2 "${left_out[@]}" || failed+=("$preset")
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "test: FAILED in ${failed[*]}" >&2
    exit 1
fi
if [ -z "$wine" ]; then
    echo "test: INCOMPLETE: all passed that ran, but there is no 32-bit Wine: no test of the Windows" \
        "program ran (scripts/setup.sh tries again to install it)" >&2
    exit 3
fi
echo "test: all passed"
