#!/bin/sh
# Brings the live preview back after a stream or a camera fault took the device.
# The simulated unit's preview belongs to the console itself (it has no capture
# device to hand back), so the request is recorded with what still holds the
# picture.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"

holder=none
for name in videorecorder gst-launch-1.0; do
    pidfile="$UNITKIT_RUN/$name.pid"
    if [ -f "$pidfile" ] && kill -0 "$(cat "$pidfile")" 2>/dev/null; then
        holder="$name ($(cat "$pidfile"))"
    fi
done
unitkit_log "preview restart requested; picture also used by: $holder"
