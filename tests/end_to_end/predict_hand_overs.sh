#!/bin/bash
# Has the media checker foretell what each stamped installer hands over, with "-dir" as the tests
# give it: predict_hand_overs.sh FOLDER
set -u
check_media=$(dirname "$0")/../../build/tools/check_media
for installer in "$1"/*/Install.exe; do
    # 1: the media are not complete; these folders hold nothing but the installer.
    "$check_media" "$installer" "$(dirname "$installer")" --dir 'C:\end to end\media' --json \
        >"$(dirname "$installer")/report.json" || [ $? -eq 1 ] || exit 1
done
