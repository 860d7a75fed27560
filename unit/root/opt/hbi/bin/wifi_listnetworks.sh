#!/bin/sh
# The known networks as wpa_cli list_networks prints them, then an end marker.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
joined=$(wifi_get joined)
echo "network id / ssid / bssid / flags"
while IFS="$TAB" read -r index name password; do
    flags=""
    [ "$name" = "$joined" ] && flags="[CURRENT]"
    printf '%s\t%s\tany\t%s\n' "$index" "$name" "$flags"
done < "$WIFI_STATE/known"
echo "done listnetworks"
