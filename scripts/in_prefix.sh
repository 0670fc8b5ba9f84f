#!/bin/bash
# in_prefix.sh NAME PROGRAM ARGUMENT...: runs a Windows program in a copy that prefix.sh started.
WINEPREFIX=$(cd "$(dirname "$0")/.." && pwd)/build/prefixes/running/$1
if [ ! -d "$WINEPREFIX" ]; then
    echo "in_prefix: $1 is not running; scripts/prefix.sh start $1" >&2
    exit 1
fi
shift
export WINEPREFIX WINEDEBUG=-all
exec wine "$@"
