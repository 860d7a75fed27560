#!/bin/sh
# Lists the sites and surveys of the cloud site's project tree, one "DIR: " or
# "FILE: " line each; prints nothing when the site cannot be reached.
#   ftp_quickscan.sh HOST USER PASSWORD [PATH]     (PATH defaults to /corvane)
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/ftpkit.sh"

host="${1:?usage: ftp_quickscan.sh HOST USER PASSWORD [PATH]}"
user="${2:?usage: ftp_quickscan.sh HOST USER PASSWORD [PATH]}"
password="${3:?usage: ftp_quickscan.sh HOST USER PASSWORD [PATH]}"
path="${4:-/corvane}"
[ -n "$path" ] || path=/corvane
unitkit_log "quick scan of $path on $host as $user"
# Depth 3 from the project folder: sites and the surveys in them.
if ! ftp_listing "$host" "$user" "$password" "$path" 3; then
    unitkit_log "quick scan of $host failed"
    exit 1
fi
