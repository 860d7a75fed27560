#!/bin/sh
# Lists every folder and file at and below PATH on the cloud site, one "DIR: " or
# "FILE: " line each; prints nothing when the site cannot be reached.
#   ftp_fullscan.sh HOST USER PASSWORD PATH
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/ftpkit.sh"

usage="usage: ftp_fullscan.sh HOST USER PASSWORD PATH"
host="${1:?$usage}"
user="${2:?$usage}"
password="${3:?$usage}"
path="${4:?$usage}"
unitkit_log "full scan of $path on $host as $user"
if ! ftp_listing "$host" "$user" "$password" "$path"; then
    unitkit_log "full scan of $path on $host failed"
    exit 1
fi
