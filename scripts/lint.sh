#!/bin/bash
# Holds the sources against the project's habits: what touches Windows says so in its name, the format
# (.clang-format), what shellcheck finds in the scripts, and clang-tidy in the sources (.clang-tidy).
#
#   lint.sh [--all]    --all has clang-tidy look at everything again, and at the desk, whose libraries take
#                      minutes to read
#
# Formats and findings differ between releases of clang's tools: those of release 14 count, and another
# release is not asked.
set -u
. "$(dirname "$0")/usage.sh"
cd "$(dirname "$0")/.." || exit 1
all=${1-}
[ "$all" = --all ] || no_more "$@"
no_more "${@:2}"
scripts/setup.sh --without-wine || exit 1
failed=0

# check NAME COMMAND...: shows what the command says when it finds something, and its error output at once
check() {
    local said
    said=$("${@:2}") && return
    printf '%s\nlint: FAILED: %s\n' "$said" "$1" >&2
    failed=1
}

# check_with_clang TOOL COMMAND...: the same, where the tool is of the release that counts
check_with_clang() {
    if "$1" --version | grep -q 'version 14\.'; then
        check "$@"
    else
        echo "lint: note: $1 was not run: release 14 counts, and it is another here"
    fi
}

# A file that includes the platform's header, or one of a file that does, touches Windows.
# shellcheck disable=SC2317  # reached through check
windows_in_names() {
    ! grep -rlE --include='*.cpp' --include='*.h' '^#include (<windows\.h>|"[^"]*_win\.h")' \
        "${product[@]}" | grep -vE '_win(_test)?\.(cpp|h)$'
}

# Not by asking git: the sources may be an unpacked archive, or another user's checkout.
product=(app catalogue desk drivers framework installed platform tools ui)
mapfile -t sources < <(find "${product[@]}" tests -name '*.cpp' -o -name '*.h' -o -name '*.c')
mapfile -t shell < <(find .ci scripts tests tools -name '*.sh' -o -path '.ci/*' -type f)

check "these touch Windows, and their names do not end in _win" windows_in_names
check_with_clang clang-format clang-format --dry-run -Werror "${sources[@]}"
check shellcheck shellcheck --external-sources --source-path=SCRIPTDIR "${shell[@]}"
[ -z "$all" ] || rm -rf build/lint build/lint-windows
check_with_clang clang-tidy scripts/build.sh "lint${all:+/all}"
check_with_clang clang-tidy scripts/build.sh lint-windows
[ "$failed" -ne 0 ] || echo "lint: nothing found"
exit "$failed"
