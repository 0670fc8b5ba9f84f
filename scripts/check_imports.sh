#!/bin/bash
# Fails when a program imports what Windows XP lacks, since it would not start there.
#
#   check_imports.sh PROGRAM...          only what allowed_imports.txt lists may stand in it: what ships
#   check_imports.sh --kit PROGRAM...    whatever Windows XP has may stand in it: the programs of the tests
set -eu -o pipefail
. "$(dirname "$0")/usage.sh"
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}

# imports PROGRAM: "LIBRARY FUNCTION" lines; what is not understood comes in brackets and is never allowed
imports() {
    "$objdump" -p "$1" | tr -d '\r' | awk '
        function ended() { if (library && !rows) print library, "(none was read)" }
        /DLL Name:/ { ended(); library = tolower($3); rows = 0; reading = 1; next }
        !NF { reading = 0 }
        !reading || $1 == "vma:" { next }
        # Address, hint, name; newer versions: address, ordinal (here none), hint, name.
        (NF == 3 && $2 ~ /^[0-9]+$/) || (NF == 4 && $2 == "<none>") { ++rows; print library, $NF; next }
        { print library, "(by number, or not understood: " $0 ")" }
        END { ended(); if (!library) print "(no import table was read)" }'
}

# What the compiler's headers declare for Windows 10 alone, and what they declare whatever they are asked
# for; the C run-time library of Windows XP has no function that ends in "_s".
newer() {
    declared() {
        printf '#include <%s.h>\n' windows commctrl lm psapi shlobj shlwapi tlhelp32 |
            "${CXX:-i686-w64-mingw32-g++-posix}" -x c++ -E -P -D_WIN32_WINNT="$1" - |
            grep -oE '\b[A-Za-z_]\w+ *\(' | tr -d ' (' | sort -u
    }
    comm -13 <(declared 0x0501) <(declared 0x0A00)
    printf '%s\n' AddDllDirectory GetSystemTimePreciseAsFileTime RegDeleteKeyExA RegDeleteKeyExW \
        RegGetValueA RegGetValueW SetDefaultDllDirectories '[a-z_]*_s'
}

# judge: those lines of its input that may not be there
if [ "${1-}" = --kit ]; then
    shift
    libraries='advapi32|comctl32|dialog_probe|gdi32|kernel32|msvcrt|netapi32|ntdll|ole32|shell32|shlwapi|user32'
    denied=$(newer)
    [ "$(wc -l <<<"$denied")" -gt 500 ] || denied='.*' # the headers were not read
    judge() {
        awk -v library="^($libraries)[.]dll\$" -v newer="^($(paste -sd'|' <<<"$denied"))\$" \
            '$1 !~ library || $2 ~ newer || $2 ~ /^\(/'
    }
else
    allowed=$(awk '/^\[/ { library = substr($1, 2, length($1) - 2); next }
        !/^#/ { for (word = 1; word <= NF; ++word) print library, $word }' "$(dirname "$0")/allowed_imports.txt")
    judge() { grep -vxF "$allowed" || true; }
fi

[ $# -gt 0 ] || wrong_usage "which program?"
failed=0
for program; do
    refused=$(imports "$program" | judge)
    if [ -n "$refused" ]; then
        printf '%s\n' "$program: not in Windows XP, or not allowed:" "$refused" >&2
        failed=1
    fi
done
exit $failed
