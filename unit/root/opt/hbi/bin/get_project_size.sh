#!/bin/sh
# Prints the size of a project directory in kilobytes, the unit the console's
# project limit is in. Apparent sizes: the same project measures the same on
# every medium it is copied to.
#   get_project_size.sh DIRECTORY
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

dir="${1:?usage: get_project_size.sh DIRECTORY}"
if [ ! -d "$dir" ]; then
    unitkit_log "no project directory $dir"
    exit 1
fi
# An unreadable file makes du fail but still leaves a total of the rest.
total=$(du -sk --apparent-size -- "$dir" 2>/dev/null || true)
size=$(printf '%s\n' "$total" | awk 'NR == 1 { print $1 }')
if [ -z "$size" ]; then
    unitkit_log "could not measure $dir"
    exit 1
fi
unitkit_log "project $dir takes $size KB"
printf '%s\n' "$size"
