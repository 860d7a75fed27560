#!/bin/sh
# Sets the system clock: setDateTime.sh yyyy/MM/dd hh:mm:ss
# The simulated unit records the request and leaves the machine's clock alone.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
if [ "$#" -ne 2 ]; then
    unitkit_log "expected a date and a time, got: $*"
    exit 1
fi
printf '%s %s\n' "$1" "$2" > "$ROOT/var/hbi/requested-datetime"
unitkit_log "system time requested: $1 $2"
