#!/bin/bash
# Tells by its exit code whether the kernel starts 32-bit programs, by starting the smallest one.
#
#   starts_32_bit.sh
set -u
. "$(dirname "$0")/usage.sh"
no_more "$@"
program=$(mktemp) || exit 1
trap 'rm -f "$program"' EXIT
# An ELF header and _exit(0).
base64 -d >"$program" <<<"f0VMRgEBAQAAAAAAAAAAAAIAAwABAAAAVIAECDQAAAAAAAAAAAAAADQAIAABAAAAAAAAAAEAAAAAAAAAAIAECACABAhd\
AAAAXQAAAAUAAAAAEAAAuAEAAAAx282A" || exit 1
chmod +x "$program"
"$program" 2>/dev/null
