#!/bin/sh
# Prints the size of a directory in kilobytes, the unit the console compares with
# the free space of a copy's target. Apparent sizes, as the copy will write them.
#   get_directory_info.sh DIRECTORY
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

dir="${1:?usage: get_directory_info.sh DIRECTORY}"
if [ ! -d "$dir" ]; then
    unitkit_log "no directory $dir"
    exit 1
fi
size=$(du -sk --apparent-size -- "$dir" 2>/dev/null | awk 'NR == 1 { print $1 }')
if [ -z "$size" ]; then
    unitkit_log "could not measure $dir"
    exit 1
fi
unitkit_log "directory $dir takes $size KB"
printf '%s\n' "$size"
