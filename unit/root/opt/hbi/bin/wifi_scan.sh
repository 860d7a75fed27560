#!/bin/sh
# Lists the networks in range as wpa_cli's scan_results does: a header, then
# bssid, frequency, signal level in dBm, flags and name, tab-separated.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
if ! wifi_radio_on; then
    unitkit_log "scan: no radio"
    echo "Failed to connect to wpa_supplicant: no wlan0"
    echo "usage: wifi_scan.sh  example: sudo wifi_scan.sh"
    exit 1
fi
if wifi_take empty-scans; then
    unitkit_log "scan: radio busy, nothing printed"
    exit 0
fi
echo "bssid / frequency / signal level / flags / ssid"
awk -F'\t' '{ printf "02:00:00:00:00:%02x\t2437\t%d\t[WPA2-PSK-CCMP][ESS]\t%s\n", NR, $3 - 110, $1 }' "$WIFI_STATE/networks"
unitkit_log "scan: $(wc -l < "$WIFI_STATE/networks") networks"
