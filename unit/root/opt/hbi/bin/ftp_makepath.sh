#!/bin/sh
# Makes PATH and the folders above it on the cloud site. Prints "Made <path>", or
# "Could not chdir to <path>" when the folder is not there afterwards.
#   ftp_makepath.sh HOST USER PASSWORD PATH
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/ftpkit.sh"

usage="usage: ftp_makepath.sh HOST USER PASSWORD PATH"
host="${1:?$usage}"
user="${2:?$usage}"
password="${3:?$usage}"
path="${4:?$usage}"
quoted=$(ftp_quote "$path")
if ftp_run "$host" "$user" "$password" "mkdir -f -p $quoted; cd $quoted" > /dev/null 2>&1; then
    unitkit_log "made $path on $host"
    echo "Made $path"
else
    unitkit_log "could not make $path on $host"
    echo "Could not chdir to $path"
fi
