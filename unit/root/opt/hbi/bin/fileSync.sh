#!/bin/sh
# Makes a copied survey durable on its medium, so the stick can be pulled once
# this returns: every file below DIRECTORY, then the directory itself, is flushed.
#   fileSync.sh DIRECTORY
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

dir="${1:?usage: fileSync.sh DIRECTORY}"
if [ ! -d "$dir" ]; then
    unitkit_log "no directory $dir to sync"
    exit 1
fi
find "$dir" -type f -exec sync -- {} +
sync -- "$dir"
unitkit_log "synced $dir"
