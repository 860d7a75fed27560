#!/bin/sh
# Leaves the network joined now; known networks are kept.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
rm -f "$WIFI_STATE/joined"
unitkit_log "disconnect"
echo "disconnected"
