#!/bin/bash
# in_prefix.sh NAME PROGRAM ARGUMENT...: runs a Windows program in a copy that prefix.sh started, or,
# where NAME is a template (win64, win32), in a fresh copy of its own.
set -u
scripts=$(cd "$(dirname "$0")" && pwd)
copies=$scripts/../build/prefixes/running
name=$1
shift
export WINEDEBUG=-all LC_ALL=C.UTF-8
# Without Wine's debugger, which waits for somebody, a crash ends the program.
export WINEDLLOVERRIDES="winedbg.exe=d${WINEDLLOVERRIDES:+;$WINEDLLOVERRIDES}"

case $name in
win64 | win32)
    export WINEPREFIX=$copies/$name.$$
    result=1
    finish() {
        trap - EXIT
        "$scripts/prefix.sh" stop "$name.$$" || exit 1
        exit "$result"
    }
    trap finish EXIT
    trap exit INT TERM HUP
    "$scripts/prefix.sh" start "$name" "$name.$$" || exit 1
    # In the background: a signal ends the wait and not only the program.
    wine "$@" <&0 &
    wait $!
    result=$?
    ;;
*)
    export WINEPREFIX=$copies/$name
    if [ ! -d "$WINEPREFIX" ]; then
        echo "in_prefix: $name is not running; scripts/prefix.sh start TEMPLATE $name" >&2
        exit 1
    fi
    exec wine "$@"
    ;;
esac
