#!/bin/sh
# Fails when a program imports anything that allowed_imports.txt does not list, so that nothing
# newer than Windows XP, and no further library, comes in unnoticed.
#
#   check_imports.sh PROGRAM...
set -eu
allowed=$(dirname "$0")/allowed_imports.txt
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}

failed=0
for program; do
    "$objdump" -p "$program" | tr -d '\r' | awk -v program="$program" '
        NR == FNR {
            if ($1 != "" && $1 !~ /^#/) allowed[$1 " " $2]
            next
        }
        $1 == "DLL" && $2 == "Name:" { library = tolower($3); ++libraries; next }
        # Rows of the import table: address, hint, name; an import by number names none.
        library != "" && NF == 3 && $1 ~ /^[0-9a-f]+$/ && $2 ~ /^[0-9]+$/ {
            import = library " " $3
            if (!(import in allowed)) {
                print program ": import not allowed: " import
                failed = 1
            }
            ++imports
            next
        }
        library != "" && NF == 2 && $1 ~ /^[0-9a-f]+$/ && $2 ~ /^[0-9]+$/ {
            print program ": import by number: " library " " $2
            failed = 1
        }
        /^The Export Tables|^PE File Base Relocations/ { library = "" }
        END {
            if (imports == 0) {
                print program ": no import table found"
                failed = 1
            }
            exit failed
        }' "$allowed" - || failed=1
done
exit $failed
