#!/bin/sh
# Fails when a program imports anything that allowed_imports.txt does not list, so that nothing
# newer than Windows XP, and no further library, comes in unnoticed.
#
#   check_imports.sh [--kit] PROGRAM...    --kit also allows what kit_imports.txt lists
set -eu
scripts=$(dirname "$0")
kit=/dev/null
if [ "${1-}" = --kit ]; then
    kit=$scripts/kit_imports.txt
    shift
fi
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}

failed=0
for program; do
    # A row that is not understood fails the program, and so does a table without rows.
    "$objdump" -p "$program" | tr -d '\r' | awk -v program="$program" '
        function fail(message) {
            print program ": " message
            failed = 1
        }
        !table {
            if ($1 != "" && $1 !~ /^#/) allowed[$1 " " $2]
            next
        }
        $1 == "DLL" && $2 == "Name:" { library = tolower($3); rows[library] = 0; next }
        NF == 0 { library = "" }
        library == "" || $1 == "vma:" { next }
        # Address, hint, name; newer versions: address, ordinal (here none), hint, name.
        (NF == 3 && $2 ~ /^[0-9]+$/) || (NF == 4 && $2 == "<none>") {
            ++rows[library]
            if (!((library " " $NF) in allowed)) fail("import not allowed: " library " " $NF)
            next
        }
        { fail("import by number, or a row that is not understood: " library " " $0) }
        END {
            if (!("kernel32.dll" in rows)) fail("no import table was read")
            for (library in rows)
                if (rows[library] == 0) fail("no import of " library " was read")
            exit failed
        }' "$scripts/allowed_imports.txt" "$kit" table=1 - || failed=1
done
exit $failed
