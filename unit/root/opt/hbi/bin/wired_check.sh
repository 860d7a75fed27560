#!/bin/sh
# Prints "wired" when a cable or a tethered phone is up, "none" otherwise.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
if [ "$(wifi_get wired)" = on ]; then
    echo wired
else
    echo none
fi
