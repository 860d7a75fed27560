#!/bin/sh
# Brings the radio up at start: the simulated radio only lays out its state.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
unitkit_log "first start: radio $(wifi_get radio)"
echo "wlan0 up"
