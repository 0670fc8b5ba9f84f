#!/bin/bash
# Makes a folder, and a zip of it, that proves the installer on a real Windows without a compiler:
# installers, test programs and their stand-ins, and run.cmd, which runs them all and writes one report.
#
#   windows_kit.sh FOLDER            makes FOLDER, which must be new or an earlier kit, and FOLDER.zip
#   windows_kit.sh --prove FOLDER    and runs it in a new Wine prefix: first on a machine that it has to
#                                    refuse, then on a clean one; the report is FOLDER/report.txt
set -eu
. "$(dirname "$0")/usage.sh"
prove='' needs=(--without-wine zip)
if [ "${1-}" = --prove ]; then
    prove=1 needs=(zip)
    shift
fi
[ $# -ge 1 ] || wrong_usage "where to?"
folder=$(realpath -m "$1")
no_more "${@:2}"
cd "$(dirname "$0")/.."

fail() {
    echo "windows_kit: FAILED: $1" >&2
    exit 1
}

[ ! -e "$folder" ] || [ -e "$folder/run.cmd" ] || fail "$folder holds something else than a kit"
scripts/setup.sh "${needs[@]}"
scripts/build.sh release tools checked
rm -rf "$folder" "$folder.zip"
mkdir -p "$folder/programs"
scripts/release.sh "$folder/installers" build/release/installer.exe >/dev/null
mkdir -p "$folder/release"
cp build/release/installer.exe "$folder/release"  # of no product: a run of it is tested too
for programs in tests dialog_driver tools/windows_kit; do
    mkdir -p "$folder/programs/$programs"
    find "build/checked/$programs" -maxdepth 1 -type f \( -name '*.exe' -o -name '*.dll' \) \
        -exec cp -t "$folder/programs/$programs" {} +
done
cp tools/windows_kit/run.cmd tools/windows_kit/README.txt "$folder"
{
    echo "commit $(git describe --always --dirty=', with changes' 2>/dev/null || echo 'unknown: no git here')"
    i686-w64-mingw32-g++-posix --version | head -n 1
} >"$folder/build.txt"
(cd "$(dirname "$folder")" && zip -q -r "$(basename "$folder").zip" "$(basename "$folder")")
echo "windows_kit: $folder and $folder.zip ($(du -h "$folder.zip" | cut -f1))"
[ -n "$prove" ] || exit 0

# A prefix that no script of ours has prepared, on a display of its own.
WINEPREFIX=$(mktemp -d)
export WINEPREFIX WINEDEBUG=-all LC_ALL=C.UTF-8
display_file=$WINEPREFIX/display
Xvfb -displayfd 3 -screen 0 1024x768x24 3>"$display_file" 2>/dev/null &
display=$!
trap 'wineserver -k || true; kill "$display"; rm -rf "$WINEPREFIX"' EXIT
until [ -s "$display_file" ]; do sleep 0.1; done
DISPLAY=:$(cat "$display_file")
export DISPLAY
echo "windows_kit: a new Wine prefix"
wineboot -i >/dev/null 2>&1
run() {
    (cd "$folder" && wine cmd /c run.cmd) 2>/dev/null
}
list='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall'
wine reg add "$list\\A person's own" /v DisplayName /d 'Tavlink Serial Analyzer 12' /f >/dev/null 2>&1
echo "windows_kit: on a machine with a product of the maker's"
if run >/dev/null || ! grep -q 'REFUSED, nothing was run' "$folder/report.txt"; then
    fail "it was not refused"
fi
wine reg query "$list\\A person's own" /v DisplayName >/dev/null 2>&1 || fail "the entry is gone"
wine reg delete "$list\\A person's own" /f >/dev/null 2>&1
wine reg add "$list\\Another program" /v DisplayName /d 'Another program' /f >/dev/null 2>&1
echo "windows_kit: on a clean machine"
run || fail "see $folder/report.txt"
wine reg query "$list\\Another program" >/dev/null 2>&1 || fail "another program's entry is gone"
