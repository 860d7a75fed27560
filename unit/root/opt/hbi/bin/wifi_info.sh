#!/bin/sh
# The radio's link as iwconfig and ifconfig print it: the name after ESSID, the
# quality after "Link Quality=" out of 70, the address after "inet".
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
if joined=$(wifi_joined); then
    quality=$(wifi_network_field "$joined" 3)
    printf 'wlan0     IEEE 802.11  ESSID:"%s"\n' "$joined"
    echo "          Mode:Managed  Frequency:2.437 GHz  Access Point: 02:00:00:00:00:01"
    printf '          Link Quality=%s/%s  Signal level=%s dBm\n' "$quality" "$WIFI_TOTAL" "$((quality - 110))"
    echo "wlan0: flags=4163<UP,BROADCAST,RUNNING,MULTICAST>  mtu 1500"
    printf '        inet %s  netmask 255.255.255.0  broadcast 192.168.1.255\n' "$WIFI_ADDRESS"
    unitkit_log "info: joined $joined at $quality/$WIFI_TOTAL"
else
    echo "wlan0     IEEE 802.11  ESSID:off/any"
    echo "          Mode:Managed  Access Point: Not-Associated"
    unitkit_log "info: not joined"
fi
