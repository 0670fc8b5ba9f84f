#!/bin/bash
# Makes a folder, and a zip of it, that proves the installer on a real Windows without a compiler:
# installers, test programs and their stand-ins, and run.cmd, which runs them all and writes one report.
#
#   windows_kit.sh FOLDER    makes FOLDER, which must be new or an earlier kit, and FOLDER.zip
#
# Under Wine: cd FOLDER && .../scripts/prefix.sh run win64 cmd /c run.cmd
set -eu
. "$(dirname "$0")/usage.sh"
[ $# -ge 1 ] || wrong_usage "where to?"
folder=$(realpath -m "$1")
no_more "${@:2}"
cd "$(dirname "$0")/.."

[ ! -e "$folder" ] || [ -e "$folder/run.cmd" ] || fail "$folder holds something else than a kit"
scripts/setup.sh --without-wine genisoimage zip
scripts/build.sh release tools checked
rm -rf "$folder" "$folder.zip"
mkdir -p "$folder/programs" "$folder/release"
scripts/release.sh "$folder/installers" build/release/installer.exe >/dev/null
cp build/release/installer.exe "$folder/release" # of no product: a run of it is tested too
(cd build/checked && cp --parents -t "$folder/programs" {tests,dialog_driver,tools/windows_kit}/*.exe {tests,dialog_driver}/*.dll)
# Media for a drive that nothing can be written to.
disc=$(mktemp -d)
trap 'rm -rf "$disc"' EXIT
cp "$folder/installers/04/Install.exe" "$disc"
cp build/checked/dialog_driver/recorder.exe "$disc/Setup.Exe"
printf '[Version Number]\r\nVersion Number=1.2.3.4\r\n' >"$disc/ProductData.ini"
genisoimage -quiet -J -o "$folder/disc.iso" "$disc"
cp tools/windows_kit/run.cmd tools/windows_kit/README.txt "$folder"
{
    echo "commit $(git describe --always --dirty=', with changes' 2>/dev/null || echo 'unknown: no git here')"
    i686-w64-mingw32-g++-posix --version | head -n 1
} >"$folder/build.txt"
(cd "$(dirname "$folder")" && zip -q -r "$(basename "$folder").zip" "$(basename "$folder")")
echo "windows_kit: $folder and $folder.zip ($(du -h "$folder.zip" | cut -f1))"
