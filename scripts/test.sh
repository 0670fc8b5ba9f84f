#!/bin/bash
# Installs what is missing, builds everything, checks the sources and runs every test.
#
#   test.sh
#
# Where this machine runs no 32-bit Windows programs, the tests of the Windows program run as 64-bit ones.
# The last line says so, and names the tests that were skipped. Exits with 3 when all passed that could
# run, but there is no Wine at all.
set -u
. "$(dirname "$0")/usage.sh"
no_more "$@"
cd "$(dirname "$0")/.." || exit 1

scripts/setup.sh || [ $? -eq 3 ] || exit 1
read -ra templates < <(scripts/prefix.sh templates)
presets=(release checked host tools) suites=(host checked) left_out=(--label-exclude wine) unlike=
case ${templates[*]} in
"win64 win32") left_out=() ;;
x64)
    presets+=(release-x64 checked-x64) suites+=(checked-x64)
    unlike=" (the tests of the Windows program as 64-bit programs: this machine runs no others)"
    ;;
esac
scripts/build.sh "${presets[@]}" || exit 1
for template in "${templates[@]}"; do
    # Made here, it takes none of a test's time.
    scripts/prefix.sh run "$template" cmd /c exit || exit 1
done
trap 'scripts/prefix.sh sweep' EXIT

failed=() skipped=
echo "== lint"
scripts/lint.sh || failed+=(lint)
for preset in "${suites[@]}"; do
    echo "== test: $preset"
    [ "$preset" != checked-x64 ] || left_out=()
    ctest --preset "$preset" -j2 "${left_out[@]}" -O "build/$preset/tests.log" || failed+=("$preset")
    skipped+=$(sed -nE 's/^\[  SKIPPED \] ([^ ]+) \(.*/ \1/p; s/^(test_[^ ]+) .* skipped .*/ \1/p; s/^\t *[0-9]+ - ([^ ]+) \((Skipped|Disabled)\).*/ \1/p' \
        "build/$preset/Testing/Temporary/LastTest.log" "build/$preset/tests.log")
done
[ ${#failed[@]} -eq 0 ] || fail "${failed[*]}"
if [ ${#templates[@]} -eq 0 ]; then
    echo "test: INCOMPLETE: all passed that ran, but there is no Wine: no test of the Windows program ran" >&2
    exit 3
fi
echo "test: all passed$unlike${skipped:+; skipped: $(xargs <<<" $skipped")}"
