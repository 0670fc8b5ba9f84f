#!/bin/bash
# Fails when the program, as it ships, lacks one of the protections that are meant to be in it, or
# brings what it is meant to go without. The build has left the linker's map beside it.
#
#   check_hardening.sh PROGRAM
set -u -o pipefail
. "$(dirname "$0")/usage.sh"
[ $# -eq 1 ] || wrong_usage "which program?"
program=$1 map=${1%.exe}.map
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

states '^Magic.*\(PE32\)' || fail "not a 32-bit program"
states '^Subsystem.*Windows GUI' || fail "not a windowed program"
[ "$(grep -cE '^(MajorSubsystemVersion\s+5|MinorSubsystemVersion\s+1)$' <<<"$headers")" -eq 2 ] ||
    fail "is not made for Windows XP and later"
# Without a load of them the list view and the newer looks are missing.
states '[[:space:]]InitCommonControls$' || fail "does not load the common controls"

states 'DYNAMIC_BASE' || fail "cannot be placed at random"
if states 'relocations stripped' || ! states '^Entry 5 [0-9a-f]+ 0*[1-9a-f]'; then
    fail "has no relocations"
fi
states 'NX_COMPAT' || fail "runs data"
states 'NO_SEH' || fail "takes exception handlers from its own image"
states 'TERMINAL_SERVICE_AWARE' || fail "is slowed down by a terminal server"
# The flags of a section follow on a line of their own.
executable=$(grep -w CODE <<<"$headers")
if [ -z "$executable" ] || grep -vq READONLY <<<"$executable"; then
    fail "a section can be written and executed"
fi

# A protected function loads the guard at its start and compares it at its end. Only our own code is
# compiled with it, not the compiler's libraries.
guard=$(sed -nE 's/^ +0x0*([0-9a-f]+) +_+stack_chk_guard$/\1/p' "$map")
code=$("$objdump" -d --no-show-raw-insn "$program")
for instruction in mov '(sub|cmp|xor)'; do
    [ "$(grep -cE "$instruction +0x${guard:-none},%" <<<"$code")" -ge 100 ] ||
        fail "the stack is not guarded"
done

grep -qaF '<requestedExecutionLevel level="requireAdministrator" uiAccess="false"/>' "$program" ||
    fail "is not started as administrator"

# Whatever can throw brings the unwinder and thread support, which need a newer Windows, and doubles
# the size. The map tells what was linked, and under each what asked for it.
linked=$(sed -n '/^Archive member included/,/^Discarded input sections/p' "$map")
grep -q '/libgcc\.a(' <<<"$linked" || fail "$map does not tell what was linked"
if unwinder=$(grep -E -A1 '/(libgcc_eh|lib(win)?pthread|libssp)\.a\(|/libstdc\+\+\.a\(eh_' \
    <<<"$linked"); then
    fail "links the unwinder or thread support:"$'\n'"$unwinder"
fi
size=$(stat -c %s "$program")
[ "$size" -le 145000 ] || fail "has $size bytes; 145000 are allowed"

"$(dirname "$0")/check_imports.sh" "$program" || failed=1
exit $failed
