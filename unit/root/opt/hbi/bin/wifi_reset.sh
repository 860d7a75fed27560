#!/bin/sh
# Resets the radio after repeated failures: the half-added network is dropped.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
rm -f "$WIFI_STATE/pending"
unitkit_log "reset"
echo "OK"
