#!/bin/bash
# Fails when the program, as it ships, lacks one of the protections that are meant to be in it:
# check_hardening.sh PROGRAM
set -u -o pipefail
program=$1
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}
headers=$("$objdump" -x "$program" | tr -d '\r') || exit 1
failed=0

fail() {
    echo "$program: $1" >&2
    failed=1
}
states() {
    grep -qE -- "$1" <<<"$headers"
}
number() {
    sed -nE "s/^$1[[:space:]]+([0-9]+).*/\1/p" <<<"$headers"
}

states '^Magic.*\(PE32\)' || fail "not a 32-bit program"
states '^Subsystem.*Windows GUI' || fail "not a windowed program"
[ $(($(number MajorSubsystemVersion) * 100 + $(number MinorSubsystemVersion))) -le 501 ] ||
    fail "asks for a newer Windows than XP"

states 'DYNAMIC_BASE' || fail "cannot be placed at random"
if states 'relocations stripped' || ! states '^Entry 5 [0-9a-f]+ 0*[1-9a-f]'; then
    fail "has no relocations"
fi
states 'NX_COMPAT' || fail "runs data"
# The flags of a section follow on a line of their own.
executable=$(grep -w CODE <<<"$headers")
if [ -z "$executable" ] || grep -vq READONLY <<<"$executable"; then
    fail "a section can be written and executed"
fi

# The guard is found by its value before it is seeded; a protected function loads it at its start
# and compares it at its end. Only our own code is compiled with it, not the compiler's libraries.
guard=$("$objdump" -s -j .data "$program" | tr -d '\r' | awk '
    $1 ~ /^[0-9a-f]+$/ {
        for (word = 2; word <= 5; ++word)
            if ($word == "ff0d0a00")
                print substr($1, 1, length($1) - 1) substr("048c", word - 1, 1)
    }')
code=$("$objdump" -d --no-show-raw-insn "$program")
for instruction in mov '(sub|cmp|xor)'; do
    [ "$(grep -cE "$instruction +0x${guard:-none},%" <<<"$code")" -ge 100 ] ||
        fail "the stack is not guarded"
done

if [ "$(grep -ao '<requestedExecutionLevel [^>]*>' "$program")" != \
    '<requestedExecutionLevel level="requireAdministrator" uiAccess="false"/>' ]; then
    fail "is not started as administrator"
fi

"$(dirname "$0")/check_imports.sh" "$program" || failed=1
exit $failed
