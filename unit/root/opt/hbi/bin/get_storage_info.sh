#!/bin/sh
# Prints the free space of the file system that holds PATH, in kilobytes: the
# unit the console divides into minutes of recording and compares sizes in.
#   get_storage_info.sh PATH
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

path="${1:?usage: get_storage_info.sh PATH}"
if ! report=$(df -Pk -- "$path" 2>/dev/null); then
    unitkit_log "no file system found at $path"
    exit 1
fi
free=$(printf '%s\n' "$report" | awk 'NR == 2 { print $4 }')
unitkit_log "free at $path: $free KB"
printf '%s\n' "$free"
