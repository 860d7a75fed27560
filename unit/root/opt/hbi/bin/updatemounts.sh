#!/bin/sh
# Has every storage device present announced to the console, one "MNT" line each
# into its FIFO, as the mount scripts do when a device arrives. The console runs
# this once at start-up and does not wait for it.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/storagekit.sh"

told=0
for device in $STORAGE_DEVICES; do
    if storage_plugged "$device" && storage_tell_mount "$device"; then
        told=$((told + 1))
    fi
done
unitkit_log "announced $told storage device(s)"
