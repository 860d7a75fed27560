#!/bin/sh
# Selects a known network for the next connect: wifi_enablenetwork.sh INDEX.
set -eu
. "${DUCTLINE_ROOT:-}/usr/local/lib/unitkit.sh"
. "$ROOT/usr/local/lib/wifikit.sh"
wifi_setup
name=$(INDEX="${1:-}" awk -F'\t' '$1 == ENVIRON["INDEX"] { print $2; exit }' "$WIFI_STATE/known")
if [ -z "$name" ]; then
    unitkit_log "enable: no network ${1:-}"
    echo "FAIL"
    exit 0
fi
printf '%s\n' "$name" > "$WIFI_STATE/pending"
unitkit_log "enable: $name"
echo "OK"
