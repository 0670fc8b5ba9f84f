# shellcheck shell=sh
# Sourced by the scripts, with their own arguments and before any `cd`: `. "$(dirname "$0")/usage.sh"`.
# A script started with -h or --help prints the comment at its top and does nothing else; an option that
# the comment does not name is refused.
usage_script=$(realpath "$0")

usage() {
    sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$usage_script"
}

# wrong_usage REASON: says what is wrong with the command line, and how the script is called
wrong_usage() {
    echo "$(basename "$usage_script"): $1" >&2
    usage >&2
    exit 2
}

# fail REASON [EXIT_CODE]
fail() {
    echo "$(basename "$usage_script" .sh): FAILED: $1" >&2
    exit "${2-1}"
}

# no_more ARGUMENT...: for the arguments that are left when a script has taken its own
no_more() {
    [ $# -eq 0 ] || wrong_usage "\"$1\" is not understood"
}

case ${1-} in
-h | --help) usage && exit ;;
-*) usage | grep -qwFe "$1" || no_more "$1" ;;
esac
