#!/bin/sh
# Joins the network the last add selected and asks for an address.
# Prints SUCCESS, or "Fail to complete" / "No lease, failing" on failure.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
pending=$(wifi_get pending)
if [ -z "$pending" ] || ! wifi_radio_on || ! wifi_in_range "$pending"; then
    unitkit_log "connect: nothing to join"
    echo "Fail to complete association: no network selected or in range"
    exit 0
fi
echo "udhcpc: started, v1.35.0"
echo "udhcpc: sending discover"
if wifi_take fail-connect; then
    unitkit_log "connect: $pending gave no lease"
    echo "No lease, failing"
    exit 0
fi
printf '%s\n' "$pending" > "$WIFI_STATE/joined"
unitkit_log "connect: joined $pending"
echo "udhcpc: lease of $WIFI_ADDRESS obtained, lease time 86400"
echo "SUCCESS"
