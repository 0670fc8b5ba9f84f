#!/bin/bash
# Has the release engineer's tool foretell the runs that the stories' test then makes:
# tell_stories.sh STAMPED_INSTALLERS
#
# Each story goes to STAMPED_INSTALLERS/CODE/MACHINE-BITS.json.
set -u
tests=$(cd "$(dirname "$0")" && pwd)
tool=$tests/../../build/tools/installer-tool
media=$(mktemp -d) || exit 1
trap 'rm -rf "$media"' EXIT
# The stand-ins of the run are made by the test; here their names are enough.
touch "$media"/{Setup.Exe,flatten.exe,UninstallQmx.exe}

for code in 04 07 16 1k 1q 1w; do
    for machine in "$tests"/machines/*.json; do
        for bits in 32 64; do
            # 1: the media are not whole.
            "$tool" check "$1/$code/Install.exe" "$media" --dir 'C:\end to end\media' --json \
                --installed "$machine" --bits "$bits" \
                >"$1/$code/$(basename "$machine" .json)-$bits.json" || [ $? -eq 1 ] || exit 1
        done
    done
done
