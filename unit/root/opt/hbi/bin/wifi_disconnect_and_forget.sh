#!/bin/sh
# Leaves the network and forgets every known one, as the unit does at shutdown.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
rm -f "$WIFI_STATE/joined" "$WIFI_STATE/pending"
: > "$WIFI_STATE/known"
unitkit_log "disconnect and forget"
echo "OK"
